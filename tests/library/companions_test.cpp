// The companion classes: what they refuse, how empty instances read, and the shadow's values.
#include "host/runtime/dictionary.hpp"
#include "plugin/wrappers.hpp"
#include "tests/library/member_calls.hpp"

namespace {

using calls::Arguments;
using calls::Value;

class Companions : public calls::MemberTest {};

TEST_F(Companions, NilAndEmptyArgumentsAreRefused) {
  const Value attachment = calls::make("NSTextAttachmentZKT"), wrapper = calls::make("NSFileWrapperZKT");
  const Value emptyWrapper = calls::make("NSFileWrapperZKT"), emptyImage = calls::make("NSImageZKT");
  const std::tuple<Value, const char*, Value, const char*> rows[] = {
      {attachment, "Constructor(fileWrapper as NSFileWrapperZKT)", Value(), "fileWrapper is nil"},
      {attachment, "Constructor(fileWrapper as NSFileWrapperZKT)", emptyWrapper, "fileWrapper is nil"},
      {attachment, "Constructor(image as NSImageZKT)", Value(), "image is nil"},
      {attachment, "Constructor(image as NSImageZKT)", emptyImage, "image is nil"},
      {wrapper, "addFileWrapper(child as NSFileWrapperZKT) as String", Value(), "Child is nil"},
      {wrapper, "addFileWrapper(child as NSFileWrapperZKT) as String", emptyWrapper, "Child is invalid"},
      {wrapper, "keyForFileWrapper(child as NSFileWrapperZKT) as String", Value(), "Child is nil"},
      {wrapper, "keyForFileWrapper(child as NSFileWrapperZKT) as String", emptyWrapper, "Child is invalid"},
  };
  for (const auto& [object, declaration, argument, message] : rows) {
    EXPECT_EQ(calls::raisedBy([&, &object = object, &declaration = declaration, &argument = argument] {
                calls::call(object, declaration, {argument});
              }),
              std::string("NilObjectException: ") + message)
        << declaration;
    EXPECT_EQ(calls::handleOf(object), nullptr);
  }
  EXPECT_EQ(calls::raisedBy([&] { calls::call(wrapper, "removeFileWrapper(child as NSFileWrapperZKT)", {Value()}); }), "");
  EXPECT_TRUE(calls::callShared("NSTextAttachmentZKT",
                                "attributedStringWithAttachment(attachment as NSTextAttachmentZKT) as NSAttributedStringZKT",
                                {attachment})
                  .isNil());
}

// Every property of an empty instance reads as nothing, and takes a value without complaint.
TEST_F(Companions, EmptyInstances) {
  for (const char* className : {"NSTextAttachmentZKT", "NSFileWrapperZKT", "NSShadowZKT"}) {
    const Value object = calls::make(className);
    for (const host::Property& property : object.asObject()->type->properties()) {
      SCOPED_TRACE(className + ("." + property.name));
      const Value value = property.read(object.asObject());
      if (property.type.name == "NSSizeZKT") {
        EXPECT_EQ(value.asObject()->word<double>(0), 0.0);
        EXPECT_EQ(value.asObject()->word<double>(1), 0.0);
      } else {
        EXPECT_TRUE(value.isNil() || value.word() == 0);
      }
      if (!property.isReadOnly() && !property.isDirect()) property.write(object.asObject(), value);
      EXPECT_EQ(calls::handleOf(object), nullptr);
    }
  }
}

// The error variable gives up what it held, also when nothing is read or written.
TEST_F(Companions, ErrorVariablesAreCleared) {
  const Value wrapper = calls::make("NSFileWrapperZKT");
  const std::pair<const char*, Arguments> rows[] = {
      {"readFromURL(URL as String, Options as Integer = 0, byref Error as NSErrorZKT) as Boolean",
       {Value::string("file:///nowhere"), Value::integer(0)}},
      {"readFromFile(File as Folderitem, Options as Integer = 0, byref Error as NSErrorZKT) as Boolean",
       {Value(), Value::integer(0)}},
      {"writeToURL(URL as String, Options as Integer = 0, originalContentsURL as String = \"\", byref Error as NSErrorZKT) "
       "as "
       "Boolean",
       {Value::string(""), Value::integer(0), Value::string("")}},
      {"writeToFile(File as Folderitem, Options as Integer = 0, originalContentsURL as FolderItem = nil, byref Error as "
       "NSErrorZKT) as Boolean",
       {Value(), Value::integer(0), Value()}},
  };
  for (const auto& [declaration, arguments] : rows) {
    Arguments given = arguments;
    given.push_back(calls::make("NSErrorZKT"));
    EXPECT_FALSE(calls::call(wrapper, declaration, given).asBoolean()) << declaration;
    EXPECT_TRUE(given.back().isNil()) << declaration;
  }
}

TEST_F(Companions, AShadowKeepsItsValues) {
  const Value shadow = calls::make("NSShadowZKT");
  calls::call(shadow, "Constructor");
  ASSERT_NE(calls::handleOf(shadow), nullptr);
  EXPECT_EQ(reinterpret_cast<host::HostObject*>(plugin::registeredInstance(calls::handleOf(shadow))), shadow.asObject());
  calls::set(shadow, "shadowBlurRadius", Value::number(2.5));
  calls::set(shadow, "shadowOffset", calls::structure("NSSizeZKT", 3.0, -4.0));
  calls::get(shadow, "shadowOffset").asObject()->word<double>() = 99.0;
  const Value copied = calls::call(shadow, "copy as NSShadowZKT");
  EXPECT_NE(copied.asObject(), shadow.asObject());
  for (const Value& each : {shadow, copied}) {
    EXPECT_EQ(calls::get(each, "shadowBlurRadius").asDouble(), 2.5);
    const Value offset = calls::get(each, "shadowOffset");
    EXPECT_EQ(offset.asObject()->word<double>(0), 3.0);
    EXPECT_EQ(offset.asObject()->word<double>(1), -4.0);
  }
  calls::set(copied, "shadowBlurRadius", Value::number(9.0));
  EXPECT_EQ(calls::get(shadow, "shadowBlurRadius").asDouble(), 2.5);
  const Value color = calls::get(shadow, "shadowColor");
  EXPECT_EQ(calls::get(color, "whiteComponent").asDouble(), 0.0);
  EXPECT_EQ(calls::get(shadow, "shadowColor").asObject(), color.asObject());  // one wrapper, for as long as it lives
  calls::set(shadow, "shadowColor", Value());
  EXPECT_TRUE(calls::get(shadow, "shadowColor").isNil());
  calls::set(shadow, "shadowOffset", Value());
  EXPECT_EQ(calls::get(shadow, "shadowOffset").asObject()->word<double>(1), 0.0);
}

// As a new one: the old object is released and no longer registered.
TEST_F(Companions, ConstructingAgainReplacesTheObject) {
  for (const char* className : {"NSShadowZKT", "NSFileWrapperZKT"}) {
    if (objc_getClass(std::string(className).substr(0, std::string_view(className).size() - 3).c_str()) == nullptr) continue;
    const Value object = calls::make(className);
    calls::call(object, "Constructor");
    const Owned<NSObject> old = retain(calls::handleOf(object));
    calls::call(object, "Constructor");
    EXPECT_NE(calls::handleOf(object), old.get());
    EXPECT_EQ(NSObject::retainCount(old), 1U);
    EXPECT_EQ(plugin::registeredInstance(old), nullptr);
  }
}

}  // namespace
