// The project's side of the comparison: ours PATH ARGUMENT [ROUNDS] times one path, ours text PATH FILE prints what was
// read.
#include <cstdlib>
#include <cstring>
#include <map>
#include <sstream>
#include <stdexcept>

#include "bench/compare_programs/measure.hpp"
#include "bridge/strings.hpp"
#include "host/language/interpreter.hpp"
#include "host/runtime/runtime.hpp"
#include "host/runtime/string.hpp"
#include "html/messages.hpp"
#include "platform/appkit.h"
#include "platform/owned.h"
#include "plugin/host_owned.hpp"

namespace {

using compare::contents;
using compare::report;
using Styled = Owned<NSAttributedString>;
using Editable = Owned<NSMutableAttributedString>;

int rounds = 3;

Owned<NSString> string(const std::string& utf8) {
  return adopt(CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const uint8_t*>(utf8.data()),
                                       static_cast<CFIndex>(utf8.size()), kCFStringEncodingUTF8, false));
}

Owned<NSData> data(const std::string& bytes) {
  return retain(NSData::dataWithBytes(classOf<NSData>(), bytes.data(), bytes.size()));
}

// Runs of ten units in two styles by turns.

class Runs {
 public:
  explicit Runs(const char* count) : count_(std::atoi(count)) {}

  int count() const { return count_; }
  Editable make() const {
    Editable made = adopt(static_cast<NSMutableAttributedString*>(
        NSAttributedString::initWithString(alloc<NSMutableAttributedString>(), string(""))));
    for (int run = 0; run < count_; ++run) {
      const Styled piece = adopt(NSAttributedString::initWithStringAttributes(alloc<NSAttributedString>(), ten_,
                                                                              run % 2 ? bold_.get() : plain_.get()));
      NSMutableAttributedString::appendAttributedString(made, piece);
    }
    return made;
  }
  // No more than half of the units.
  std::vector<uint32_t> places() const {
    return compare::places(static_cast<uint32_t>(count_) * 10 - 200,
                           std::min<size_t>(100'000, static_cast<size_t>(count_) * 5));
  }

 private:
  static Owned<NSDictionary> style(int level) {
    NSObject* const values[] = {NSNumber::numberWithInt(classOf<NSNumber>(), level)};
    NSObject* const keys[] = {NSUnderlineStyleAttributeName};
    return retain(NSDictionary::dictionaryWithObjects(classOf<NSDictionary>(), values, keys, 1));
  }

  int count_;
  Owned<NSString> ten_ = string("ten chars ");
  Owned<NSDictionary> bold_ = style(1), plain_ = style(0);
};

void append(const char* count) {
  const Runs runs(count);
  report(runs.count(), rounds, [&] { runs.make(); });
}

template <class Body>
void atPlaces(const char* count, Body&& body) {
  const Runs runs(count);
  const Editable text = runs.make();
  const std::vector<uint32_t> places = runs.places();
  report(static_cast<double>(places.size()), rounds, [&] {
    for (const uint32_t place : places) {
      const AutoreleasePool pool;
      body(text.get(), place);
    }
  });
}

void query(const char* count) {
  atPlaces(count, [](NSAttributedString* text, uint32_t place) {
    NSRange range;
    NSAttributedString::attributesAtIndex(text, place, &range);
  });
}

void insert(const char* count) {
  atPlaces(count, [unit = string("z")](NSMutableAttributedString* text, uint32_t place) {
    NSMutableAttributedString::replaceWithString(text, {place, 0}, unit);
  });
}

void erase(const char* count) {
  rounds = 1;  // or little would be left of the text
  atPlaces(count, [](NSMutableAttributedString* text, uint32_t place) {
    NSMutableAttributedString::deleteCharactersInRange(text, {place % (NSAttributedString::length(text) - 1), 1});
  });
}

void addAttribute(const char* count) {
  const Owned<NSNumber> value = retain(NSNumber::numberWithInt(classOf<NSNumber>(), 2));
  atPlaces(count, [&](NSMutableAttributedString* text, uint32_t place) {
    NSMutableAttributedString::addAttribute(text, NSSuperscriptAttributeName, value, {place, 1 + place % 100});
  });
}

void copy(const char* count) {
  const Runs runs(count);
  const Editable text = runs.make();
  constexpr int copies = 10'000;
  report(copies, rounds, [&] {
    for (int index = 0; index < copies; ++index) NSObject::release(NSObject::copy(text));
  });
}

// The HTML dialect.

void withTables(const char* file, const std::function<void(NSString*)>& body) {
  html::didLoad(classOf<NSAttributedString>());
  body(string(contents(file)));
}

void readDialect(const char* file) {
  withTables(file, [](NSString* source) {
    report(1, rounds, [&] {
      const AutoreleasePool pool;
      const Styled text = adopt(html::initWithHTML_ZKT(alloc<NSAttributedString>(), source));
    });
  });
}

void writeDialect(const char* file) {
  withTables(file, [](NSString* source) {
    const Styled text = adopt(html::initWithHTML_ZKT(alloc<NSAttributedString>(), source));
    report(1, rounds, [&] {
      const AutoreleasePool pool;
      html::htmlString_ZKT(text);
    });
  });
}

void escape(const char* file) {
  withTables(file, [](NSString* source) {
    report(1, rounds, [&] {
      const AutoreleasePool pool;
      html::htmlString_ZKT(source);
    });
  });
}

// Host strings.

using HostText = plugin::HostOwned<plugin::REALstringStruct>;

HostText hostString(const char* file) {
  plugin::gResolver = &host::Runtime::resolve;
  plugin::hostVersion = 2019.01;
  return plugin::adoptHost(reinterpret_cast<plugin::REALstring>(host::HostString::make(contents(file)).detach()));
}

void toPlatform(const char* file) {
  const HostText text = hostString(file);
  report(1, rounds, [&] { bridge::ownedString(text); });
}

void toHost(const char* file) {
  const HostText text = hostString(file);
  const auto converted = bridge::ownedString(text);
  report(1, rounds, [&] { const HostText made = plugin::adoptHost(bridge::CFString2RBString(converted)); });
}

// Loading, and a property of one of the library's classes asked for in a loop of a host program.

// With the classes of the siblings, which the library's need, from beside it.
void loadWithSiblings(const std::string& library) {
  host::Runtime::shared().loadPlugin(library.substr(0, library.rfind('/')) + "/SiblingsZKT.so");
  host::Runtime::shared().loadPlugin(library);
}

void load(const char* library) {
  report(1, 1, [&] { host::Runtime::shared().loadPlugin(library); });
}

void length(const char* library) {
  loadWithSiblings(library);
  const std::string program =
      "Dim text As NSAttributedStringZKT = NSAttributedStringZKT.attributedStringWithString(\"text\")\n"
      "Dim sum As Integer\nFor turn As Integer = 1 To 200000\nsum = text.Length\nNext\n";
  std::ostringstream output;
  report(200'000, rounds, [&] {
    const auto failure = language::run(host::Runtime::shared(), program, {"length.bas", {}}, output);
    if (failure) throw std::runtime_error(failure->message);
  });
}

// The same without the interpreter: the function that the class's record names.
void lengthAlone(const char* library) {
  loadWithSiblings(library);
  const auto text = host::Runtime::shared().newInstance("NSAttributedStringZKT");
  const auto methods = text->type->findMethods("initWithString");
  const auto init = reinterpret_cast<bool (*)(host::HostObject*, host::HostString*)>(methods.front()->function);
  const auto characters = host::HostString::make("text");
  if (!init(text.get(), characters.get())) throw std::runtime_error("no text");
  const host::Property* property = text->type->findProperty("Length");
  const auto length = reinterpret_cast<int64_t (*)(host::HostObject*, int64_t)>(property->getter);
  constexpr int calls = 1'000'000;
  report(calls, rounds, [&] {
    for (int call = 0; call < calls; ++call) length(text.get(), property->parameter);
  });
}

// Documents.

NSString* const* documentType(const std::string& format) {
  static const std::map<std::string, NSString* const*> types = {
      {"rtf", &NSRTFTextDocumentType},          {"html", &NSHTMLTextDocumentType},
      {"doc", &NSDocFormatTextDocumentType},    {"docx", &NSOfficeOpenXMLTextDocumentType},
      {"odt", &NSOpenDocumentTextDocumentType}, {"wordml", &NSWordMLTextDocumentType}};
  return types.at(format);
}

NSDictionary* typed(const std::string& format) {
  NSObject *const values[] = {*documentType(format)}, *const keys[] = {NSDocumentTypeDocumentAttribute};
  return NSDictionary::dictionaryWithObjects(classOf<NSDictionary>(), values, keys, 1);
}

Styled documentOf(NSData* bytes) {
  using Init = NSAttributedString*(NSData*, NSDictionary*, NSDictionary**, NSError**);
  static const Message<Init> initWithData("initWithData:options:documentAttributes:error:");
  return adopt(initWithData(alloc<NSAttributedString>(), bytes, nullptr, nullptr, nullptr));
}

void read(const char* file) {
  const Owned<NSData> bytes = data(contents(file));
  report(1, rounds, [&] {
    const AutoreleasePool pool;
    documentOf(bytes);
  });
}

void writeAs(const std::string& format, const char* file) {
  const Styled text = documentOf(data(contents(file)));
  report(1, rounds, [&] {
    const AutoreleasePool pool;
    NSAttributedString::dataFromRange(text, {0, NSAttributedString::length(text)}, typed(format), nullptr);
  });
}

void printText(const char* path, const char* file) {
  const Owned<NSString> source = string(contents(file));
  const Styled text = std::strcmp(path, "dialect") == 0 ? adopt(html::initWithHTML_ZKT(alloc<NSAttributedString>(), source))
                                                        : documentOf(data(contents(file)));
  std::fputs(NSString::UTF8String(NSAttributedString::string(text)), stdout);
}

const std::map<std::string, void (*)(const char*)>& paths() {
  static const std::map<std::string, void (*)(const char*)> table = {{"append", append},
                                                                     {"query", query},
                                                                     {"insert", insert},
                                                                     {"delete", erase},
                                                                     {"add-attribute", addAttribute},
                                                                     {"copy", copy},
                                                                     {"read-dialect", readDialect},
                                                                     {"write-dialect", writeDialect},
                                                                     {"escape", escape},
                                                                     {"to-platform", toPlatform},
                                                                     {"load", load},
                                                                     {"length", length},
                                                                     {"length-alone", lengthAlone},
                                                                     {"to-host", toHost},
                                                                     {"read", read}};
  return table;
}

}  // namespace

int main(int count, char** arguments) {
  const AutoreleasePool pool;
  if (count < 3) return std::fputs("ours PATH ARGUMENT [ROUNDS] | ours text PATH FILE\n", stderr), 2;
  const std::string path = arguments[1];
  if (path == "text" && count > 3) return printText(arguments[2], arguments[3]), 0;
  if (count > 3) rounds = std::atoi(arguments[3]);
  if (path.starts_with("write-") && path != "write-dialect") return writeAs(path.substr(6), arguments[2]), 0;
  paths().at(path)(arguments[2]);
}
