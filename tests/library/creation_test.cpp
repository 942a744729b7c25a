// How attributed strings come to be: every init method and factory, their failures, what they register and release.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "host/runtime/dictionary.hpp"
#include "host/runtime/folder_item.hpp"
#include "plugin/wrappers.hpp"
#include "tests/library/member_calls.hpp"

namespace {

using calls::Arguments;
using calls::Value;

class Creation : public calls::MemberTest {};

constexpr const char* className = "NSAttributedStringZKT";
constexpr const char* mutableClassName = "NSMutableAttributedStringZKT";

bool isByReference(const host::Parameter& parameter) { return parameter.byref; }

// No text, no data, no file; a dictionary in the variable that takes the document attributes.
Arguments nothingFor(const host::Declaration& declaration) {
  Arguments arguments;
  for (const host::Parameter& parameter : declaration.parameters) {
    if (isByReference(parameter)) {
      arguments.push_back(Value::object(host::makeDictionary()));
    } else if (parameter.type.kind == host::Kind::String) {
      arguments.push_back(Value::string(""));
    } else {
      arguments.emplace_back();
    }
  }
  return arguments;
}

// The methods whose names begin like that.
std::vector<const host::Method*> members(std::span<const host::Method> methods, std::string_view prefix) {
  std::vector<const host::Method*> found;
  for (const host::Method& method : methods) {
    if (method.text.starts_with(prefix)) found.push_back(&method);
  }
  return found;
}

void expectVariablesCleared(const host::Declaration& declaration, const Arguments& arguments) {
  for (size_t index = 0; index < arguments.size(); ++index) {
    EXPECT_TRUE(arguments[index].isNil() || !isByReference(declaration.parameters[index]));
  }
}

TEST_F(Creation, NothingEmptiesTheObject) {
  const auto inits = members(host::Runtime::shared().findClass(className)->methods(), "initWith");
  ASSERT_EQ(inits.size(), 22U);
  for (const host::Method* init : inits) {
    SCOPED_TRACE(init->text);
    for (const char* objectClass : {className, mutableClassName}) {
      const Value object = calls::text("old", objectClass);
      const Owned<NSObject> old = retain(calls::handleOf(object));
      Arguments arguments = nothingFor(init->declaration);
      const bool made = init->invoke(object.asObject(), arguments).asBoolean();
      EXPECT_EQ(made, init->text == "initWithString(text as string) as boolean");
      EXPECT_EQ(calls::handleOf(object) != nullptr, made);
      EXPECT_EQ(calls::get(object, "Length").asInteger(), 0);
      EXPECT_EQ(plugin::registeredInstance(old), nullptr);
      EXPECT_EQ(NSObject::retainCount(old), 1U);
      expectVariablesCleared(init->declaration, arguments);
    }
  }
}

TEST_F(Creation, NothingMakesNothing) {
  const auto factories = members(host::Runtime::shared().findClass(className)->sharedMethods(), "attributedStringWith");
  ASSERT_EQ(factories.size(), 23U);
  for (const host::Method* factory : factories) {
    SCOPED_TRACE(factory->text);
    Arguments arguments = nothingFor(factory->declaration);
    EXPECT_TRUE(factory->invoke(nullptr, arguments).isNil());
    expectVariablesCleared(factory->declaration, arguments);
  }
}

// A folder of small documents, gone at the end.
class Documents {
 public:
  Documents() {
    EXPECT_NE(mkdtemp(folder_.data()), nullptr);
    std::ofstream(path("rich")) << richText;
    std::ofstream(path("plain.txt")) << "plain text";
  }
  ~Documents() { std::filesystem::remove_all(folder_); }

  static constexpr const char* richText = "{\\rtf1\\ansi rich {\\b text}}";
  std::string path(const std::string& name) const { return folder_ + "/" + name; }

 private:
  std::string folder_ = std::filesystem::temp_directory_path().string() + "/creation_XXXXXX";
};

std::string pathOf(const std::string& name) {
  static const Documents documents;
  return documents.path(name);
}
Value itemOf(const std::string& name) { return Value::object(host::makeFolderItem(pathOf(name))); }

Value packageOf(const char* plain) {
  return calls::call(calls::text(plain), "RTFDFromRange(documentAttributes as dictionary = nil) as memoryblock", {Value()});
}

struct Source {
  std::string init;
  std::string factory;
  std::function<Arguments()> arguments;
  std::string text;
  bool registered;
  std::string type;  // of the document, "" where no attributes are asked for

  bool asks() const { return !type.empty(); }
};

const std::vector<Source> texts = {
    {"initWithString(text as string) as boolean", "attributedStringWithString(text as string) as NSAttributedStringZKT",
     [] { return Arguments{Value::string("a\u00e9\U0001F600")}; }, "a\u00e9\U0001F600", true, ""},
    {"initWithString(text as string, withAttributes as Dictionary) as boolean",
     "attributedStringWithString(text as string, withAttributes as dictionary) as NSAttributedStringZKT",
     [] {
       return Arguments{Value::string("plain"), Value()};
     },
     "plain", true, ""},
    {"initWithAttributedString(text as NSAttributedStringZKT) as boolean",
     "attributedStringWithAttributedString(text as NSAttributedStringZKT) as NSAttributedStringZKT",
     [] { return Arguments{calls::text("other")}; }, "other", true, ""},
    {"initWithHTMLOld(data as string) as boolean", "attributedStringWithHTMLOld(data as string) as NSAttributedStringZKT",
     [] { return Arguments{Value::string("<b>bold</b>")}; }, "bold", false, ""},
};

// What is read as a document: the members' common name, their parameter, something to read, and something that cannot be.
struct DocumentSource {
  std::string name;
  std::string parameter;
  std::function<Value()> good;
  std::string text;
  std::string type;
  std::function<Value()> bad;
};

const std::vector<DocumentSource> documentSources = {
    {"RTF", "data as memoryblock", [] { return calls::bytes(Documents::richText); }, "rich text", "NSRTF",
     [] { return calls::bytes("rich text"); }},
    {"RTFD", "data as memoryblock", [] { return packageOf("packed"); }, "packed", "NSRTFD",
     [] { return calls::bytes("rtfd"); }},
    {"URL", "file as folderitem", [] { return itemOf("rich"); }, "rich text", "NSRTF", [] { return itemOf("missing"); }},
    {"URL", "url as string", [] { return Value::string("file://" + pathOf("rich")); }, "rich text", "NSRTF",
     [] { return Value::string("file://" + pathOf("missing")); }},
    {"Path", "file as folderitem", [] { return itemOf("plain.txt"); }, "plain text", "NSPlainText",
     [] { return itemOf("missing"); }},
    {"Path", "path as string", [] { return Value::string(pathOf("rich")); }, "rich text", "NSRTF",
     [] { return Value::string(pathOf("missing")); }},
};

// The members that read the document, without its attributes and with them; a variable that is asked about holds a
// dictionary.
std::vector<Source> membersOf(const DocumentSource& document, const std::function<Value()>& value) {
  const std::string init = "initWith" + document.name + "(" + document.parameter;
  const std::string factory = "attributedStringWith" + document.name + "(" + document.parameter;
  const std::string boolean = ") as boolean", object = ") as NSAttributedStringZKT";
  return {
      {init + boolean, factory + object, [=] { return Arguments{value()}; }, document.text, true, ""},
      {init + ", byref documentAttributes as dictionary" + boolean,
       factory + ", byref DocumentAttributes as dictionary" + object,
       [=] {
         return Arguments{value(), Value::object(host::makeDictionary())};
       },
       document.text, true, document.type},
  };
}

std::vector<Source> sources() {
  std::vector<Source> all = texts;
  for (const DocumentSource& document : documentSources) {
    for (const Source& source : membersOf(document, document.good)) all.push_back(source);
  }
  return all;
}

void expectDocumentAttributes(const Source& source, const Arguments& arguments) {
  if (!source.asks()) return;
  ASSERT_FALSE(arguments.back().isNil());
  const Value key = calls::callShared(className, "NSDocumentTypeDocumentAttribute as string");
  EXPECT_EQ(calls::utf8(host::dictionaryValue(arguments.back().asObject(), key)), source.type);
}

TEST_F(Creation, InitFillsAndRegisters) {
  for (const Source& source : sources()) {
    SCOPED_TRACE(source.init);
    for (const char* objectClass : {className, mutableClassName}) {
      const Value object = calls::text("old", objectClass);
      Arguments arguments = source.arguments();
      EXPECT_TRUE(calls::call(object, source.init.c_str(), arguments).asBoolean());
      EXPECT_EQ(calls::textOf(object), source.text);
      expectDocumentAttributes(source, arguments);
      NSObject* const made = calls::handleOf(object);
      EXPECT_EQ(NSObject::retainCount(made), 1U);
      EXPECT_EQ(NSObject::isKindOfClass(made, classOf<NSMutableAttributedString>()) != NO, objectClass == mutableClassName);
      const auto registered = reinterpret_cast<host::HostObject*>(plugin::registeredInstance(made));
      EXPECT_EQ(registered, source.registered ? object.asObject() : nullptr);
    }
  }
}

TEST_F(Creation, FactoriesMakeAnUnregisteredObjectEachTime) {
  for (const Source& source : sources()) {
    SCOPED_TRACE(source.factory);
    Arguments arguments = source.arguments();
    const Value object = calls::callShared(className, source.factory, arguments);
    EXPECT_EQ(calls::classNameOf(object), className);
    EXPECT_EQ(calls::textOf(object), source.text);
    expectDocumentAttributes(source, arguments);
    EXPECT_EQ(plugin::registeredInstance(calls::handleOf(object)), nullptr);
    EXPECT_EQ(NSObject::isKindOfClass(calls::handleOf(object), classOf<NSMutableAttributedString>()), NO);
  }
}

TEST_F(Creation, DocumentsThatCannotBeReadEmptyTheObjectAndTheVariable) {
  for (const DocumentSource& document : documentSources) {
    for (const Source& source : membersOf(document, document.bad)) {
      SCOPED_TRACE(source.init);
      for (const char* objectClass : {className, mutableClassName}) {
        const Value object = calls::text("old", objectClass);
        Arguments arguments = source.arguments();
        EXPECT_FALSE(calls::call(object, source.init.c_str(), arguments).asBoolean());
        EXPECT_EQ(calls::handleOf(object), nullptr);
        EXPECT_TRUE(!source.asks() || arguments.back().isNil());
      }
      Arguments arguments = source.arguments();
      EXPECT_TRUE(calls::callShared(className, source.factory, arguments).isNil());
      EXPECT_TRUE(!source.asks() || arguments.back().isNil());
    }
  }
}

TEST_F(Creation, LengthCountsUTF16Units) {
  EXPECT_EQ(calls::get(calls::text("abc"), "Length").asInteger(), 3);
  EXPECT_EQ(calls::get(calls::text("\U0001F600"), "Length").asInteger(), 2);
}

TEST_F(Creation, ANewObjectIsEmpty) {
  const Value object = calls::make(className);
  EXPECT_EQ(calls::get(object, "Handle").asInteger(), 0);
  EXPECT_EQ(calls::get(object, "Length").asInteger(), 0);
  EXPECT_EQ(calls::textOf(object), "");
  EXPECT_FALSE(calls::get(object, "containsAttachments").asBoolean());
  EXPECT_EQ(calls::htmlOf(object), "");
  for (const char* member : {"AsCFAttributedString as Variant", "copy as NSAttributedStringZKT", "rtf as memoryblock",
                             "mutableCopy as NSMutableAttributedStringZKT"}) {
    EXPECT_TRUE(calls::call(object, member).isNil()) << member;
  }
}

TEST_F(Creation, AnObjectGivenItselfEndsEmpty) {
  const Value object = calls::text("self");
  EXPECT_FALSE(
      calls::call(object, "initWithAttributedString(text as NSAttributedStringZKT) as boolean", {object}).asBoolean());
  EXPECT_EQ(calls::get(object, "Handle").asInteger(), 0);
}

TEST_F(Creation, AttributesReachTheText) {
  const Value attributes = Value::object(host::makeDictionary());
  const Value key = calls::callShared(className, "NSToolTipAttributeName as string");
  host::setDictionaryValue(attributes.asObject(), key, Value::string("tip"));
  const Value object = calls::make(className);
  ASSERT_TRUE(calls::call(object, "initWithString(text as string, withAttributes as Dictionary) as boolean",
                          {Value::string("word"), attributes})
                  .asBoolean());
  const Value found = calls::call(object, "attributeAtIndex(name as string, location as UInt64) as variant",
                                  {key, Value::unsignedInteger(3)});
  EXPECT_EQ(calls::utf8(found), "tip");
}

TEST_F(Creation, TextsThatAreNoURLsAreRefused) {
  const Value notURL = Value::string("not a url %%");
  for (const char* init :
       {"initWithURL(url as string) as boolean", "initWithHTML(data as memoryblock, BaseURL as string) as boolean"}) {
    const Value object = calls::text("old");
    Arguments arguments{notURL};
    if (std::string_view(init).find("BaseURL") != std::string_view::npos)
      arguments.insert(arguments.begin(), calls::bytes("<p>"));
    EXPECT_FALSE(calls::call(object, init, arguments).asBoolean()) << init;
    EXPECT_EQ(calls::handleOf(object), nullptr) << init;
  }
}

TEST_F(Creation, CoreFoundationTwinsShareThePlatformObject) {
  const std::pair<const char*, const char*> rows[] = {
      {"AsCFAttributedString as Variant", "CFAttributedStringZKT"},
      {"AsCFMutableAttributedString as Variant", "CFMutableAttributedStringZKT"},
  };
  const Value object = calls::text("shared", mutableClassName);
  for (const auto& [member, twinClass] : rows) {
    const Value first = calls::call(object, member), second = calls::call(object, member);
    EXPECT_NE(first.asObject(), second.asObject());
    for (const Value& twin : {first, second}) {
      EXPECT_EQ(calls::classNameOf(twin), twinClass);
      EXPECT_EQ(calls::handleOf(twin), calls::handleOf(object));
    }
    EXPECT_EQ(NSObject::retainCount(calls::handleOf(object)), 3U);
  }
}

}  // namespace
