// The table of members and the values that go with it.
#include "tests/library/member_matrix.hpp"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>

#include "host/runtime/array.hpp"
#include "host/runtime/date.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/folder_item.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/runtime/variant.hpp"
#include "html/state.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace member_matrix {
namespace {

namespace fs = std::filesystem;
using host::Kind;

constexpr const char* classNames[] = {"NSAttributedStringZKT", "NSMutableAttributedStringZKT", "NSTextAttachmentZKT",
                                      "NSFileWrapperZKT", "NSShadowZKT"};

const std::set<std::string> documentedExceptions = {"NilObjectException", "OutOfMemoryException", "IllegalCastException",
                                                    "NSExceptionZKT",     "OutOfBoundsException", "RuntimeException"};

std::vector<Target> targetsOf(const host::HostClass& type) {
  std::vector<Target> targets;
  for (const host::Property& property : type.properties()) {
    targets.push_back({&type, nullptr, &property});
    if (property.name == "Handle") targets.pop_back();  // An address.
    if (!property.isReadOnly() && !property.isDirect()) targets.push_back({&type, nullptr, &property, true});
  }
  for (const host::Method& method : type.methods()) targets.push_back({&type, &method, nullptr});
  // Of the shared methods, the constants of keys are one function over one table: the first few stand for all.
  int constants = 0;
  for (const host::Method& method : type.sharedMethods()) {
    const bool isConstant = method.declaration.parameters.empty();
    if (!isConstant || ++constants <= 4) targets.push_back({&type, &method, nullptr});
  }
  return targets;
}

bool isText(const Target& target) { return target.type->name().find("AttributedString") != std::string::npos; }

// A host object around a platform object, as the sibling classes make them.
Value wrapping(const char* className, NSObject* object) {
  Value made = calls::make(className);
  made.asObject()->word<NSObject*>() = retain(object).detach();
  return made;
}

NSImage* image() {
  constexpr Message<NSImage*(NSSize)> initWithSize{"initWithSize:"};
  return adopt(initWithSize(alloc<NSImage>(), {2, 2})).autorelease();
}

Value array(const char* type, const std::vector<Value>& elements) {
  const auto made = host::makeArray(host::typeNamed(type), -1);
  for (const Value& element : elements) host::appendElement(made, element);
  return Value::object(made);
}

Value dictionary(const std::vector<std::pair<std::string, Value>>& entries) {
  Value made = Value::object(host::makeDictionary());
  for (const auto& [key, value] : entries) host::setDictionaryValue(made.asObject(), Value::string(key), value);
  return made;
}

Value date() { return Value::object(host::makeDate({2014, 3, 5, 6, 7, 8})); }
Value text(std::string_view utf8) { return Value::text(host::HostText::make(utf8)); }

std::vector<std::pair<std::string, Value>> arrays() {
  return {{"integers", array("Int32", {Value::integer(1)})},
          {"wide", array("Integer", {Value::integer(int64_t{1} << 40)})},
          {"singles", array("Single", {Value::single(0.5F)})},
          {"doubles", array("Double", {Value::number(0.1)})},
          {"booleans", array("Boolean", {Value::boolean(true)})},
          {"strings", array("String", {Value::string("ä"), Value::string("")})},
          {"texts", array("Text", {text("ü"), text("")})},
          {"dates", array("Date", {date()})},
          {"variants", array("Variant", {Value::integer(1), Value::string("x"), date()})}};
}

}  // namespace

std::string Target::name() const {
  return type->name() + "." + (method != nullptr ? method->text : property->name + (writes ? " (set)" : ""));
}

bool Target::writesFiles() const { return method != nullptr && method->declaration.name.starts_with("writeTo"); }

std::vector<host::Parameter> Target::parameters() const {
  if (method != nullptr) return method->declaration.parameters;
  if (!writes) return {};
  return {host::Parameter{.name = property->name, .type = property->type, .defaultValue = {}}};
}

int Target::lastContents() const {
  if (!isInstance()) return 1;
  return type->name() == "NSFileWrapperZKT" ? 3 : type->name() == "NSTextAttachmentZKT" ? 2 : 1;
}

std::vector<Target> allTargets() {
  std::vector<Target> targets;
  for (const char* name : classNames) {
    for (const Target& target : targetsOf(*host::Runtime::shared().findClass(name))) targets.push_back(target);
  }
  return targets;
}

void startSiblings() {
  struct Suite : calls::MemberTest {
    using MemberTest::SetUpTestSuite;
  };
  Suite::SetUpTestSuite();
  settle();
  host::Runtime::shared().faults().clear();
}

Arguments::Arguments() {
  const AutoreleasePool pool;
  // In memory where that can be had: folders are made and removed thousands of times.
  const fs::path memory = "/dev/shm";
  std::string pattern = ((fs::exists(memory) ? memory : fs::temp_directory_path()) / "members-XXXXXX").string();
  folder_ = mkdtemp(pattern.data());
  fs::create_directory(folder_ / "folder");
  fs::create_symlink("file.rtf", folder_ / "link");
  makeFiles();
  addObjects();
  addDocuments();
}
Arguments::~Arguments() { fs::remove_all(folder_); }

// Anew for the members that write.
void Arguments::makeFiles() const {
  for (const char* name : {"written", "missing", "folder"}) fs::remove_all(folder_ / name);
  fs::create_directory(folder_ / "folder");
  std::ofstream(folder_ / "folder" / "child.txt") << "child";
  std::ofstream(folder_ / "file.rtf") << "{\\rtf1\\ansi {\\b file}}";
}

Value Arguments::item(const char* name) const { return Value::object(host::makeFolderItem(path(name))); }

// One dictionary has every kind of value; it is also the attribute "custom" of the text.
void Arguments::addObjects() {
  const auto wrapper = [](const char* declaration, const Value& from) {
    return calls::callShared("NSFileWrapperZKT", declaration, {from});
  };
  const auto object = [](const char* className, const char* constructor, std::vector<Value> values) {
    Value made = calls::make(className);
    calls::call(made, constructor, values);
    return made;
  };
  const Value file =
      wrapper("initRegularFileWithContents(data as MemoryBlock) as NSFileWrapperZKT", calls::bytes("contents"));
  Value link = calls::callShared("NSFileWrapperZKT",
                                 "initWithFile(File as folderItem, Options as Integer, byref error as NSErrorZKT) as "
                                 "NSFileWrapperZKT",
                                 {item("link"), Value::integer(0), Value()});
  const Value children = dictionary({{"a.txt", file}, {"link", link}});
  files_ = {file,
            wrapper("initDirectoryWithFileWrappers(childrenByPreferredName as Dictionary) as NSFileWrapperZKT", children),
            link};
  const Value color = wrapping("NSColorZKT", NSColor::colorWithCalibratedRGB(classOf<NSColor>(), 1, 0.5, 0, 1));
  images_ = {wrapping("NSImageZKT", image())};
  const Value shadow = object("NSShadowZKT", "Constructor", {});
  const Value attachment = object("NSTextAttachmentZKT", "Constructor(fileWrapper as NSFileWrapperZKT)", {file});
  const Value range = calls::range(1, 2), size = calls::structure("NSSizeZKT", 3.0, -3.0);
  const Value inner = calls::html("<b>inner</b>");
  std::vector<std::pair<std::string, Value>> values = {
      {"DocumentType", Value::string("NSRTF")},
      {"NSKern", Value::number(1.5)},
      {"NSLink", Value::string("x:y")},
      {"NSUnderline", Value::integer(1, Kind::Int32)},
      {"NSFont", wrapping("NSFontZKT", NSFont::fontWithName(classOf<NSFont>(), bridge_test::text("Helvetica"), 12))},
      {"NSColor", color},
      {"NSShadow", shadow},
      {"NSAttachment", attachment},
      {"string", Value::string("\u00FCber")},
      {"text", text("text")},
      {"integer", Value::integer(int64_t{1} << 40)},
      {"single", Value::single(0.5F)},
      {"boolean", Value::boolean(true)},
      {"date", date()},
      {"block", calls::bytes("block")},
      {"file", item("file.rtf")},
      {"missing", item("missing")},
      {"root", Value::object(host::makeFolderItem("/"))},
      {"nested", dictionary({{"key", Value::string("value")}})},
      {"styled", inner},
      {"wrapper", file},
      {"image", images_[0]},
      {"range", range},
      {"size", size},
      {"nil", Value()},
  };
  for (auto& each : arrays()) values.push_back(each);
  const Value everything = dictionary(values);
  byClass_ = {{"dictionary", everything},
              {"variant", everything},
              {"nsrangezkt", range},
              {"nssizezkt", size},
              {"nsfilewrapperzkt", file},
              {"nstextattachmentzkt", attachment},
              {"nsimagezkt", images_[0]},
              {"nscolorzkt", color},
              {"nserrorzkt", wrapping("NSErrorZKT", NSError::errorWithDomain(classOf<NSError>(), bridge_test::text("domain"),
                                                                             1, nullptr))},
              {"children", children}};
  // Long enough for every way to build a host string.
  const Value styled = calls::html("<b>styled</b> <a href=\"x:y\">text</a> " + std::string(120, 'x') + "\u00E4\U0001F600");
  Value changeable = calls::make("NSMutableAttributedStringZKT");
  calls::call(changeable, "initWithAttributedString(text as NSAttributedStringZKT) as boolean", {styled});
  calls::call(changeable, "addAttributes(attrs as Dictionary, range as NSRangeZKT)", {everything, calls::range(0, 3)});
  calls::call(changeable, "addAttribute(name as string, value as variant, range as NSRangeZKT)",
              {Value::string("custom"), everything, calls::range(1, 4)});
  texts_ = {changeable};
  byClass_["nsattributedstringzkt"] = changeable;
}

void Arguments::addDocuments() {
  const Value plain = calls::html("<b>plain</b>");
  const auto from = [&](const char* declaration) { return calls::call(plain, declaration, {Value()}); };
  documents_ = {{"HTML", calls::bytes("<p><b>html</b> <a href=\"http://example.com/\">link</a></p>")},
                {"RTF", from("RTFFromRange(documentAttributes as dictionary = nil) as memoryblock")},
                {"RTFD", from("RTFDFromRange(documentAttributes as dictionary = nil) as memoryblock")},
                {"DocFormat", from("docFormatFromRange(documentAttributes as dictionary = nil) as memoryblock")},
                {"SerializedRepresentation", calls::get(files_[0], "serializedRepresentation")}};
}

Value Arguments::documentFor(const Target& target) const {
  for (const auto& [format, document] : documents_) {
    if (target.method != nullptr && target.method->declaration.name.ends_with(format)) return document;
  }
  return documents_.at("RTF");
}

Value Arguments::stringFor(const Target& target, const std::string& parameter) const {
  if (parameter == "url" || parameter == "originalcontentsurl") {
    return Value::string("file://" + path(target.writesFiles() ? "written" : "file.rtf"));
  }
  if (parameter == "baseurl") return Value::string("http://example.com/");
  if (parameter == "path") return Value::string(path("file.rtf"));
  return Value::string(parameter == "name" ? "custom" : parameter == "data" ? "<i>dialect</i>" : "\u00FCber");
}

Value Arguments::plain(const Target& target, const host::Parameter& parameter) const {
  const host::Type& type = parameter.type;
  const std::string name = host::lowerCase(parameter.name);
  if (type.kind == Kind::Boolean) return Value::boolean(true);
  if (type.kind == Kind::String) return stringFor(target, name);
  if (type.kind == Kind::Double) return Value::number(2);
  if (type.kind == Kind::Single) return Value::single(2);
  if (type.kind == Kind::UInt64 || type.kind == Kind::UInt32) return Value::unsignedInteger(1, type.kind);
  if (type.kind != Kind::Object) return Value::integer(1, type.kind);
  const std::string className = host::lowerCase(type.name);
  if (name == "printoptions") return {};
  if (className == "memoryblock") return documentFor(target);
  if (className == "folderitem") return item(target.writesFiles() ? "written" : "file.rtf");
  return byClass_.at(name == "childrenbypreferredname" ? "children" : className);
}

std::vector<Value> Arguments::plainFor(const Target& target) const {
  std::vector<Value> values;
  for (const host::Parameter& parameter : target.parameters()) values.push_back(plain(target, parameter));
  return values;
}

std::vector<Value> Arguments::others(const host::Type& type) const {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  constexpr auto least = std::numeric_limits<int64_t>::min(), most = std::numeric_limits<int64_t>::max();
  const auto tagged = [](std::string_view bytes, uint32_t encoding) {
    return Value::string(host::HostString::make(bytes, encoding));
  };
  const std::string name = host::lowerCase(type.name);
  switch (type.kind) {
    case Kind::Double:
      return {Value::number(0), Value::number(infinite), Value::number(-infinite), Value::number(std::nan("")),
              Value::number(1e308)};
    case Kind::UInt64:
      return {Value::unsignedInteger(0), Value::unsignedInteger(~uint64_t{0}), Value::unsignedInteger(uint64_t{1} << 63)};
    case Kind::Integer:
      return {Value::integer(0), Value::integer(least), Value::integer(most), Value::integer(-1)};
    case Kind::UInt32:
      return {Value::unsignedInteger(0, Kind::UInt32), Value::unsignedInteger(0xFFFFFFFF, Kind::UInt32)};
    case Kind::String:
      return {Value::string(""), tagged("caf\x8E", 0xFFFF), tagged(std::string_view("a\0b\0", 4), 0x14000100)};
    case Kind::Object:
      break;
    default:
      return {Value::integer(0, type.kind)};
  }
  std::vector<Value> values = {Value()};
  const auto add = [&](std::initializer_list<Value> more) { values.insert(values.end(), more); };
  if (name == "nsrangezkt") {
    add({calls::range(~uint64_t{0}, ~uint64_t{0}), calls::range(0, ~uint64_t{0}), calls::range(1000, 0)});
  }
  if (name == "nssizezkt") add({calls::structure("NSSizeZKT", infinite, std::nan(""))});
  if (name == "folderitem") add({item("folder"), item("missing")});
  if (name == "memoryblock") add({calls::bytes("neither"), calls::bytes("")});
  if (name == "dictionary") add({dictionary({}), dictionary({{"array", array("Variant", {Value()})}})});
  if (name == "variant") add({Value::integer(1), Value::string("x"), array("Variant", {Value()})});
  if (name == "nsfilewrapperzkt") add({files_[1], files_[2], calls::make("NSFileWrapperZKT")});
  return values;
}

Value Arguments::objectFor(const Target& target, int contents) const {
  if (target.writesFiles()) makeFiles();
  Value made = calls::make(target.type->name());
  if (contents == 0) return made;
  const std::string& name = target.type->name();
  if (isText(target)) {
    calls::call(made, "initWithAttributedString(text as NSAttributedStringZKT) as boolean", {texts_[0]});
  } else if (name == "NSFileWrapperZKT") {
    // A copy: the members change it.
    const auto copy = [&](const Value& file) {
      return calls::callShared("NSFileWrapperZKT",
                               "initWithSerializedRepresentation(data as MemoryBlock) as NSFileWrapperZKT", {file});
    };
    return copy(calls::get(files_[static_cast<size_t>(contents - 1)], "serializedRepresentation"));
  } else if (name == "NSTextAttachmentZKT") {
    const bool ofFile = contents == 1;
    calls::call(made, ofFile ? "Constructor(fileWrapper as NSFileWrapperZKT)" : "Constructor(image as NSImageZKT)",
                {ofFile ? files_[0] : images_[0]});
  } else {
    calls::call(made, "Constructor");
  }
  return made;
}

Result invoke(const Target& target, const Value& object, std::vector<Value>& values) {
  try {
    if (target.method != nullptr) {
      return {target.method->invoke(target.isInstance() ? object.asObject() : nullptr, values)};
    }
    if (!target.writes) return {target.property->read(object.asObject())};
    target.property->write(object.asObject(), values[0]);
  } catch (const host::HostException& exception) {
    return {Value(), host::retain(exception.object())};
  }
  return {};
}

namespace {

Shape shapeOfObject(host::HostObject* object) {
  if (host::isBoxed(object)) return shapeOf(host::unboxed(object));
  Shape shape{object->type->name(), ""};
  if (host::isArray(object)) {
    for (int64_t index = 0; index <= host::upperBound(object); ++index) {
      shape.entries.emplace_back(Shape{"index", std::to_string(index)}, shapeOf(host::element(object, index)));
    }
  } else if (host::isDictionary(object)) {
    for (int64_t index = 0; index < host::dictionaryCount(object); ++index) {
      const Value key = host::dictionaryKey(object, index);
      shape.entries.emplace_back(shapeOf(key), shapeOf(host::dictionaryValue(object, key)));
    }
  } else if (shape.type == "NSRangeZKT" || shape.type == "NSSizeZKT") {
    shape.text = std::to_string(object->word<uint64_t>(0)) + " " + std::to_string(object->word<uint64_t>(1));
  } else {
    shape.text = bridge_test::show(object);
  }
  return shape;
}

}  // namespace

Shape shapeOf(const Value& value) {
  if (value.isNil()) return {};
  if (value.isObject()) return shapeOfObject(value.asObject());
  const bool isCounted = value.isString() || value.isText();
  if (isCounted ? bridge_test::show(host::boxed(value)) == "String " : value.word() == 0) return {};
  return {host::typeName(value.kind()), bridge_test::show(host::boxed(value))};
}

std::string Shape::excess(const Shape& less) const {
  const bool isURL = type == "FolderItem" && less.text.starts_with("String file:");
  if (less.isEmpty() || isURL || (isEmpty() && less.type == "NSErrorZKT")) return "";
  if (type != less.type || text != less.text) return less.type + " " + less.text + " instead of " + type + " " + text;
  for (const auto& entry : less.entries) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&entry](const auto& own) {
      return entry.first.isEmpty() ? own.second.excess(entry.second).empty() : own.first == entry.first;
    });
    if (found == entries.end()) return "under " + entry.first.text + ": " + entry.second.text;
    const std::string deeper = found->second.excess(entry.second);
    if (!deeper.empty()) return "under " + entry.first.text + ": " + deeper;
  }
  return "";
}

Outcome outcomeOf(const Target& target, const Result& result, const std::vector<Value>& values) {
  Outcome outcome{result.exception ? result.exception->type->name() : "", {shapeOf(result.value)}};
  const auto parameters = target.parameters();
  for (size_t index = 0; index < values.size(); ++index) {
    if (parameters[index].byref) outcome.shapes.push_back(shapeOf(values[index]));
  }
  return outcome;
}

void expectNoMore(const std::string& where, const Outcome& outcome, const Outcome& whole, const std::string& hostRaises) {
  EXPECT_TRUE(outcome.raised.empty() || outcome.raised == hostRaises || documentedExceptions.contains(outcome.raised))
      << where << " raised " << outcome.raised;
  const bool isComparable = outcome.raised.empty() && whole.raised.empty();
  for (size_t index = 0; isComparable && index < outcome.shapes.size(); ++index) {
    EXPECT_EQ(whole.shapes[index].excess(outcome.shapes[index]), "") << where;
  }
}

void settle() {
  html::hold(html::cachedAttributes, Owned<NSDictionary>());
  html::hold(html::fontDirectiveStack, Owned<NSMutableArray>());
}

}  // namespace member_matrix
