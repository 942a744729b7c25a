// The sibling classes, as programs and the libraries of the family use them.
#include <unistd.h>

#include "host/runtime/dictionary.hpp"
#include "platform/appkit.h"
#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/owned.h"
#include "tests/host/runtime_support.hpp"

namespace host_test {
namespace {

// Loaded once, before the first test counts what is alive.
class Siblings : public testing::Environment {
 public:
  void SetUp() override {
    char path[4096] = {};
    if (readlink("/proc/self/exe", path, sizeof path - 1) < 0) FAIL();
    const std::string program = path;
    Runtime::shared().loadPlugin(program.substr(0, program.rfind('/')) + "/SiblingsZKT.so");
  }
};
const testing::Environment* const siblings = testing::AddGlobalTestEnvironment(new Siblings);

class SiblingsTest : public RuntimeTest {
 protected:
  Value shared(const char* className, const char* name, std::vector<Value> arguments = {}) {
    for (const Method* method : runtime.findClass(className)->findSharedMethods(name)) {
      if (method->declaration.parameters.size() == arguments.size()) return method->invoke(nullptr, arguments);
    }
    ADD_FAILURE() << className << "." << name;
    return {};
  }
  static HostObject* platformException(const char* name, const char* reason, NSDictionary* info) {
    const Message<HostObject*(NSException*)> make{"NewNSExceptionZKT:"};
    const auto text = [](const char* utf8) { return NSString::stringWithUTF8String(classOf<NSString>(), utf8); };
    return make(classOf<NSException>(),
                NSException::exceptionWithName(classOf<NSException>(), text(name), text(reason), info));
  }
};

TEST_F(SiblingsTest, StructuresLayOutTheirFields) {
  const struct {
    const char* className;
    std::vector<Value> arguments;
    const char* description;
  } cases[] = {
      {"NSRangeZKT", {Value::integer(3), Value::integer(4)}, "{3, 4}"},
      {"NSRangeZKT", {}, "{0, 0}"},
      {"NSSizeZKT", {Value::number(1.5), Value::integer(2)}, "{1.5, 2}"},
      {"NSPointZKT", {Value::integer(-1), Value::integer(2)}, "{-1, 2}"},
      {"NSRectZKT", {Value::integer(1), Value::integer(2), Value::integer(3), Value::integer(4)}, "{{1, 2}, {3, 4}}"},
  };
  for (const auto& each : cases) {
    const HostOwned<HostObject> made = runtime.newInstance(each.className);
    call(made, "Constructor", each.arguments);
    EXPECT_EQ(toUtf8(read(made, "description")), each.description);
  }
  const HostOwned<HostObject> range = runtime.newInstance("NSRangeZKT");
  range->type->findProperty("location")->write(range, Value::unsignedInteger(NSNotFound));
  EXPECT_EQ(range->word<NSRange>().location, NSNotFound);
}

TEST_F(SiblingsTest, PlatformExceptionsBecomeHostExceptions) {
  const AutoreleasePool pool;
  NSObject* keys[] = {NSString::stringWithUTF8String(classOf<NSString>(), "count")};
  NSObject* values[] = {NSNumber::numberWithInt(classOf<NSNumber>(), 5)};
  NSDictionary* info = NSDictionary::dictionaryWithObjects(classOf<NSDictionary>(), values, keys, 1);
  const HostOwned<HostObject> exception = adopt(platformException("NSRangeException", "too far", info));
  EXPECT_TRUE(isA(exception, runtime.findClass("RuntimeException")));
  EXPECT_EQ(exception->references, 1);
  EXPECT_EQ(HostException(exception).message(), "too far");
  EXPECT_EQ(toUtf8(read(exception, "Name")), "NSRangeException");
  const Value userInfo = read(exception, "UserInfo");
  EXPECT_EQ(show(dictionaryValue(userInfo.asObject(), Value::string("count"))), "Integer 5");
}

TEST_F(SiblingsTest, WrappersShareOneRegistry) {
  const AutoreleasePool pool;
  const Message<CFMutableDictionaryRef()> instances{"GetInstancesDictionaryZKT"};
  CFMutableDictionaryRef registry = instances(classOf<NSException>());
  const CFIndex before = CFDictionaryGetCount(registry);
  {
    const Value manager = shared("NSFontManagerZKT", "sharedFontManager"),
                again = shared("NSFontManagerZKT", "sharedFontManager");
    EXPECT_EQ(manager.asObject(), again.asObject());
    EXPECT_EQ(manager.asObject()->references, 2);
    const Value error = shared("NSErrorZKT", "errorWithDomain", {Value::string("d"), Value::integer(7)});
    auto* platformError = error.asObject()->word<NSError*>();
    EXPECT_EQ(CFDictionaryGetValue(registry, platformError), error.asObject());
    EXPECT_EQ(NSError::code(platformError), 7);
    EXPECT_EQ(toUtf8(read(error.asObject(), "domain")), "d");
    EXPECT_EQ(CFDictionaryGetCount(registry), before + 2);
  }
  EXPECT_EQ(CFDictionaryGetCount(registry), before);
}

TEST_F(SiblingsTest, FontsAndColoursAreMadeAndRead) {
  const Value font = shared("NSFontZKT", "fontWithName", {Value::string("Helvetica-Bold"), Value::integer(12)});
  ASSERT_TRUE(font.isObject());
  EXPECT_EQ(toUtf8(read(font.asObject(), "familyName")) + " " + toUtf8(read(font.asObject(), "pointSize")), "Helvetica 12");
  EXPECT_TRUE(toBoolean(read(font.asObject(), "isBold")));
  EXPECT_FALSE(toBoolean(read(font.asObject(), "isItalic")));
  const Value manager = shared("NSFontManagerZKT", "sharedFontManager");
  const Value italic = call(manager.asObject(), "fontWithFamily",
                            {Value::string("Helvetica"), Value::integer(1), Value::integer(5), Value::integer(9)});
  ASSERT_TRUE(italic.isObject());
  EXPECT_TRUE(toBoolean(read(italic.asObject(), "isItalic")));
  const Value orange = shared("NSColorZKT", "colorWithDeviceRGB",
                              {Value::integer(1), Value::number(0.5), Value::integer(0), Value::integer(1)});
  EXPECT_EQ(toDouble(read(orange.asObject(), "greenComponent")), 0.5);
  const Value ink = shared("NSColorZKT", "colorWithDeviceCMYK", std::vector<Value>(5, Value::number(0.25)));
  EXPECT_EQ(toDouble(read(ink.asObject(), "yellowComponent")), 0.25);
  EXPECT_EQ(toDouble(read(shared("NSColorZKT", "redColor").asObject(), "redComponent")), 1);
  // A grey has no green: the platform refuses, and the program sees its exception.
  const Value grey = shared("NSColorZKT", "colorWithDeviceWhite", {Value::number(0.5), Value::integer(1)});
  EXPECT_EQ(toDouble(read(grey.asObject(), "whiteComponent")), 0.5);
  EXPECT_EQ(thrownBy([&] { read(grey.asObject(), "greenComponent"); }).substr(0, 14), "NSExceptionZKT");
}

TEST_F(SiblingsTest, ParagraphStylesChangeOnlyWhenMutable) {
  const Value fixed = shared("NSParagraphStyleZKT", "defaultParagraphStyle");
  EXPECT_TRUE(fixed.asObject()->type->findProperty("alignment")->isReadOnly());
  const HostOwned<HostObject> style = runtime.newInstance("NSMutableParagraphStyleZKT");
  EXPECT_EQ(toDouble(read(style, "headIndent")), 0);
  call(style, "Constructor");
  for (const char* property : {"firstLineHeadIndent", "headIndent", "lineSpacing", "maximumLineHeight", "alignment"}) {
    style->type->findProperty(property)->write(style, Value::integer(2));
    EXPECT_EQ(toDouble(read(style, property)), 2) << property;
  }
  const Property* alignment = style->type->findProperty("alignment");
  EXPECT_EQ(thrownBy([&] { alignment->write(style, Value::integer(99)); }).substr(0, 14), "NSExceptionZKT");
  // Constructed again it starts afresh.
  call(style, "Constructor");
  EXPECT_EQ(toDouble(read(style, "headIndent")), 0);
}

TEST_F(SiblingsTest, CoreFoundationWrappersCarryTheirTag) {
  const AutoreleasePool pool;
  for (const char* name : {"CFObjectZKT", "CFStringZKT", "CFMutableAttributedStringZKT", "CGColorZKT", "CTRunDelegateZKT"}) {
    const HostOwned<HostObject> wrapper = runtime.newInstance(name);
    ASSERT_TRUE(wrapper) << name;
    EXPECT_EQ(wrapper->word<uint64_t>(2), 0x52424346U) << name;
    EXPECT_TRUE(isA(wrapper, runtime.findClass("CFObjectZKT"))) << name;
    wrapper->word<NSObject*>() =
        CFRetain(NSString::stringWithUTF8String(classOf<NSString>(), "a text long enough to be counted"));
    EXPECT_EQ(toUtf8(read(wrapper, "description")), "a text long enough to be counted");
  }
}

TEST_F(SiblingsTest, AreNotLoadedTwice) {
  const size_t before = runtime.classes().size();
  try {
    Siblings().SetUp();
    ADD_FAILURE();
  } catch (const PluginError& error) {
    EXPECT_EQ(error.message, "the class NSExceptionZKT is there already");
  }
  EXPECT_EQ(runtime.classes().size(), before);
}

// A wrapper that was not filled, and one whose Handle the program has cleared, hold nothing and release nothing.
TEST_F(SiblingsTest, EmptyWrappersAnswerWithEmptyValues) {
  for (const auto& type : runtime.classes()) {
    if (type->record() == nullptr || !type->name().ends_with("ZKT")) continue;
    const HostOwned<HostObject> wrapper = HostObject::make(*type);
    for (const Property& property : type->properties()) {
      const Value value = property.read(wrapper);
      EXPECT_TRUE(value.isObject() || toUtf8(value).empty() || toDouble(value) == 0) << type->name() << "." << property.name;
    }
  }
}

// A host structure to a platform value and back, for every time class.
TEST_F(SiblingsTest, TimesCrossTheBoundaryBothWays) {
  const AutoreleasePool pool;
  const struct {
    const char* className;
    const char* there;
    const char* back;
    const char* encoding;
    size_t words;
  } cases[] = {
      {"QTKitTimeZKT", "valueWithQTTimeZKT:", "QTTimeValueZKT", "{?=qqq}", 3},
      {"QTKitTimeRangeZKT", "valueWithQTTimeRangeZKT:", "QTTimeRangeValueZKT", "{?={?=qqq}{?=qqq}}", 6},
      {"CMTimeZKT", "valueWithCMTimeZKT:", "CMTimeValueZKT", "{?=qiIq}", 3},
      {"CMTimeRangeZKT", "valueWithCMTimeRangeZKT:", "CMTimeRangeValueZKT", "{?={?=qiIq}{?=qiIq}}", 6},
      {"CMTimeMappingZKT", "valueWithCMTimeMappingZKT:", "CMTimeMappingValueZKT",
       "{?={?={?=qiIq}{?=qiIq}}{?={?=qiIq}{?=qiIq}}}", 12},
  };
  for (const auto& each : cases) {
    const HostOwned<HostObject> time = runtime.newInstance(each.className);
    for (size_t word = 0; word < each.words; ++word) time->word<uint64_t>(word) = 1000 + word;
    const Message<NSValue*(HostObject*)> there{each.there};
    const Message<HostObject*()> back{each.back};
    NSValue* value = there(classOf<NSValue>(), time);
    ASSERT_NE(value, nullptr) << each.className;
    EXPECT_STREQ(NSValue::objCType(value), each.encoding);
    const HostOwned<HostObject> again = adopt(back(value));
    EXPECT_EQ(again->type->name(), each.className);
    for (size_t word = 0; word < each.words; ++word) EXPECT_EQ(again->word<uint64_t>(word), 1000 + word) << each.className;
  }
  const HostOwned<HostObject> start = runtime.newInstance("CMTimeZKT"), range = runtime.newInstance("CMTimeRangeZKT");
  call(start, "Constructor", {Value::integer(600), Value::integer(30), Value::integer(1), Value::integer(0)});
  call(range, "Constructor", {Value::object(start), Value()});
  EXPECT_EQ(toInteger(read(read(range, "start").asObject(), "TimeScale")), 30);
  EXPECT_EQ(toInteger(read(read(range, "duration").asObject(), "Value")), 0);
}

TEST_F(SiblingsTest, PlatformObjectsCarryHostObjects) {
  const HostOwned<HostObject> carried = runtime.newInstance("NSRangeZKT");
  {
    const AutoreleasePool pool;
    const Message<NSObject*(HostObject*)> wrap{"wrap:"};
    const Message<HostObject*()> unwrap{"unwrap"};
    NSObject* carrier = wrap(objc_getClass("ZKTREALobjectWrapper"), carried);
    EXPECT_EQ(carried->references, 2);
    EXPECT_EQ(adopt(unwrap(carrier)), carried);
    EXPECT_EQ(carried->references, 2);
  }
  EXPECT_EQ(carried->references, 1);
}

TEST_F(SiblingsTest, WrapperClassesFollowThePlatformsHierarchy) {
  const struct {
    const char* name;
    const char* ancestor;
  } cases[] = {{"NSSearchFieldZKT", "NSResponderZKT"},
               {"NSSecureTextFieldCellZKT", "NSCellZKT"},
               {"NSTextViewZKT", "NSTextZKT"},
               {"NSComparisonPredicateZKT", "NSPredicateZKT"},
               {"NSMutableParagraphStyleZKT", "NSParagraphStyleZKT"}};
  for (const auto& each : cases) {
    ASSERT_NE(runtime.findClass(each.name), nullptr) << each.name;
    EXPECT_TRUE(runtime.findClass(each.name)->isKindOf(runtime.findClass(each.ancestor))) << each.name;
  }
  const HostOwned<HostObject> task = runtime.newInstance("NSTaskZKT");
  EXPECT_EQ(toInteger(read(task, "Handle")), 0);
  EXPECT_EQ(toUtf8(read(task, "description")), "");
}

}  // namespace
}  // namespace host_test
