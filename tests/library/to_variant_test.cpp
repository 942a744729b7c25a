// Platform objects as host variants: every rule, their order, and what each result owns.
#include "bridge/to_variant.hpp"

#include <dlfcn.h>

#include <array>
#include <map>
#include <set>

#include "bridge/nesting.hpp"
#include "bridge/platform_classes.hpp"
#include "bridge/sibling_messages.hpp"
#include "plugin/instance_data.hpp"
#include "plugin/wrappers.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace bridge_test {
namespace {

// How often each platform class was looked up by name, while this is not nil.
std::map<std::string, int>* classLookups = nullptr;

class ToVariant : public BridgeTest {
 protected:
  static Variant converted(NSObject* object) { return plugin::adoptHost(bridge::NewVariantFromNSObject(object)); }
  static std::string shown(NSObject* object) { return show(converted(object)); }

  // From now on the host makes instances of other classes in place of these, or, where that is "", none.
  static void replaceClasses(std::map<std::string, std::string> replacements) {
    replacements_ = std::move(replacements);
    asked_ = "";
    intercept("PluginNewInstance", reinterpret_cast<void*>(&newInstance));
  }
  // The classes of which an instance was asked for since then.
  static const std::string& asked() { return asked_; }

 private:
  static plugin::REALobject newInstance(const char* name) {
    asked_ += std::string(name) + " ";
    const auto found = replacements_.find(name);
    return hostService<plugin::REALobject(const char*)>("PluginNewInstance")(
        found != replacements_.end() ? found->second.c_str() : name);
  }
  static inline std::map<std::string, std::string> replacements_;
  static inline std::string asked_;
};

template <class Value>
NSObject* number(const char* message, Value value) {
  return Message<NSNumber*(Value)>(message)(classOf<NSNumber>(), value);
}

TEST_F(ToVariant, GivesHostValues) {
  NSObject* const null = NSNull::null(classOf<NSNull>());
  NSMutableArray* const mutableArray = NSMutableArray::array(classOf<NSMutableArray>());
  for (const char* element : {"x", "y", "z"}) NSMutableArray::addObject(mutableArray, text(element));
  const struct {
    NSObject* object;
    const char* expected;
  } cases[] = {
      {nullptr, "nil"},
      {null, "nil"},
      {text("äöü 🙂"), "String äöü 🙂"},
      {text(""), "String "},
      {NSData::dataWithBytes(classOf<NSData>(), "abc", 3), "MemoryBlock abc"},
      {NSData::dataWithBytes(classOf<NSData>(), "", 0), "nil"},
      {arrayOf({}), "[]"},
      {arrayOf({text("a"), null, arrayOf({null}), number("numberWithInt:", 3)}), "[String a, nil, [nil], Integer 3]"},
      {mutableArray, "[String x, String y, String z]"},
      {NSSet::setWithArray(classOf<NSSet>(), arrayOf({text("one")})), "[String one]"},
      {dictionaryOf({}), "{}"},
      {dictionaryOf({{text("k"), null}}), "{String k: nil}"},
      {dictionaryOf({{text("k"), dictionaryOf({{text("n"), text("v")}})}}), "{String k: {String n: String v}}"},
      {NSURL::URLWithString(classOf<NSURL>(), text("http://example.com/a?b")), "String http://example.com/a?b"},
      {NSURL::fileURLWithPath(classOf<NSURL>(), text("/usr/bin")), "FolderItem /usr/bin"},
  };
  for (const auto& [object, expected] : cases) EXPECT_EQ(shown(object), expected);
}

TEST_F(ToVariant, ReadsNumbersByTheTypeTheyWereMadeFrom) {
  const struct {
    NSObject* object;
    const char* expected;
  } cases[] = {
      {kCFBooleanTrue, "Boolean True"},
      {kCFBooleanFalse, "Boolean False"},
      {number<char>("numberWithChar:", 5), "Boolean True"},
      {number<char>("numberWithChar:", 0), "Boolean False"},
      {number<unsigned char>("numberWithUnsignedChar:", 200), "Integer 200"},
      {number<short>("numberWithShort:", -3), "Integer -3"},
      {number<unsigned short>("numberWithUnsignedShort:", 65535), "Integer 65535"},
      {number<int>("numberWithInt:", -2147483647 - 1), "Integer -2147483648"},
      {number<unsigned>("numberWithUnsignedInt:", 4294967295U), "UInt32 4294967295"},
      {number<long>("numberWithLong:", -1), "Integer -1"},
      {number<long long>("numberWithLongLong:", 9223372036854775807), "Integer 9223372036854775807"},
      {number<unsigned long>("numberWithUnsignedLong:", 4294967297), "UInt32 1"},
      {number<float>("numberWithFloat:", 1.5F), "Single 1.5"},
      {number<double>("numberWithDouble:", -0.25), "Double -0.25"},
  };
  for (const auto& [object, expected] : cases) EXPECT_EQ(shown(object), expected) << show(object);
}

TEST_F(ToVariant, WritesStructuresIntoHostStructures) {
  const auto convertedTo = [](NSValue* value, const char* hostClass) {
    Variant result = converted(value);
    EXPECT_EQ(show(result), hostClass);
    return result;
  };
  const Class values = classOf<NSValue>();
  const Variant range = convertedTo(NSValue::valueWithRange(values, {3, 4}), "NSRangeZKT");
  EXPECT_EQ(plugin::readInstanceData<NSRange>(range).location, 3U);
  EXPECT_EQ(plugin::readInstanceData<NSRange>(range).length, 4U);
  const Variant rect = convertedTo(NSValue::valueWithRect(values, {{1, 2}, {3, 4}}), "NSRectZKT");
  EXPECT_EQ((plugin::readInstanceData<std::array<double, 4>>(rect)), (std::array<double, 4>{1, 2, 3, 4}));
  const Variant size = convertedTo(NSValue::valueWithSize(values, {5, 6}), "NSSizeZKT");
  EXPECT_EQ((plugin::readInstanceData<std::array<double, 2>>(size)), (std::array<double, 2>{5, 6}));
  const Variant point = convertedTo(NSValue::valueWithPoint(values, {7, 8}), "NSPointZKT");
  EXPECT_EQ((plugin::readInstanceData<std::array<double, 2>>(point)), (std::array<double, 2>{7, 8}));
  const int unknown = 1;
  EXPECT_EQ(shown(NSValue::valueWithBytes(values, &unknown, "i")), "nil");
}

const char* noEncoding(NSObject*, SEL) { return nullptr; }
double twoAndAHalf(NSObject*, SEL) { return 2.5; }

TEST_F(ToVariant, TakesValuesThatDoNotSayTheirTypeForTheLastRow) {
  for (const auto& [className, expected] : {std::pair("NSNumber", "Double 2.5"), {"NSValue", "nil"}}) {
    const Owned<NSObject> value = pretendInstance(className);
    const Class made = object_getClass(value);
    class_addMethod(made, NSValue::objCType.selector(), reinterpret_cast<IMP>(&noEncoding), "*@:");
    class_addMethod(made, NSNumber::doubleValue.selector(), reinterpret_cast<IMP>(&twoAndAHalf), "d@:");
    EXPECT_EQ(shown(value), expected) << className;
  }
}

plugin::REALobject newStranger(NSObject*, SEL) { return plugin::newInstance("StrangerZKT").detach(); }

TEST_F(ToVariant, AsksSiblingsForMediaTimes) {
  const struct {
    const char* encoding;
    const Message<plugin::REALobject()>& method;
  } cases[] = {
      {"{?=qqq}", bridge::ValueExtensions::QTTimeValueZKT},
      {"{?={?=qqq}{?=qqq}}", bridge::ValueExtensions::QTTimeRangeValueZKT},
      {"{?=qiIq}", bridge::ValueExtensions::CMTimeValueZKT},
      {"{?={?=qiIq}{?=qiIq}}", bridge::ValueExtensions::CMTimeRangeValueZKT},
      {"{?={?={?=qiIq}{?=qiIq}}{?={?=qiIq}{?=qiIq}}}", bridge::ValueExtensions::CMTimeMappingValueZKT},
  };
  const std::array<int64_t, 12> bytes{};
  for (const auto& [encoding, method] : cases) {
    NSValue* const value = NSValue::valueWithBytes(classOf<NSValue>(), bytes.data(), encoding);
    EXPECT_EQ(shown(value), "nil") << encoding;
    class_addMethod(classOf<NSValue>(), method.selector(), reinterpret_cast<IMP>(&newStranger), "@@:");
    EXPECT_EQ(shown(value), "StrangerZKT") << encoding;
  }
}

TEST_F(ToVariant, WrapsEveryKnownClassByTheFirstRowThatFits) {
  useRegistry();
  const std::map<std::string, std::string> wrappedAsSuperclass = {
      {"NSSearchField", "NSTextFieldZKT"},          {"NSSecureTextField", "NSTextFieldZKT"},
      {"NSCompoundPredicate", "NSPredicateZKT"},    {"NSComparisonPredicate", "NSPredicateZKT"},
      {"NSDirectoryEnumerator", "NSEnumeratorZKT"},
  };
  const std::set<std::string> unregistered = {
      "NSImageRep", "NSAttributedString", "NSCell",      "NSIndexSet",           "NSView",
      "NSWindow",   "NSResponder",        "NSText",      "NSNotificationCenter", "NSTextFieldCell",
      "NSScroller", "NSTableHeaderView",  "NSTableView", "NSTextView",           "NSDistributedNotificationCenter",
  };
  const auto check = [&](const bridge::WrappedClass& row) {
    const std::string name = row.name.platformClass();
    ASSERT_NE(objc_getClass(name.c_str()), nullptr) << name;
    const Owned<NSObject> object = pretendInstance(name.c_str());
    const auto exception = wrappedAsSuperclass.find(name);
    const Variant first = converted(object);
    EXPECT_EQ(show(first), exception != wrappedAsSuperclass.end() ? exception->second : name + "ZKT");
    ASSERT_TRUE(first);
    EXPECT_EQ(plugin::platformObject(first), object.get());
    EXPECT_EQ(NSObject::retainCount(object), 2U);
    const Variant second = converted(object);
    EXPECT_EQ(first.get() == second.get(), unregistered.count(name) == 0) << name;
    EXPECT_EQ(forHost(first)->references, first.get() == second.get() ? 2 : 1);
  };
  for (const auto& row : bridge::wrappedClasses) check(row);
  for (const auto& row : bridge::optionalClasses) check(row);
}

// No later row and no other rule is tried.
TEST_F(ToVariant, GivesNilWithoutTheWrapperOfTheFirstRowThatFits) {
  for (const auto& [platformClass, wrapper] : {std::pair("NSTask", "NSTaskZKT"), {"NSSearchField", "NSTextFieldZKT"}}) {
    replaceClasses({{wrapper, ""}});
    EXPECT_EQ(shown(pretendInstance(platformClass)), "nil");
    EXPECT_EQ(asked(), std::string(wrapper) + " ");
  }
}

TEST_F(ToVariant, LooksOptionalClassesUpOnceAndTheCarrierEveryTime) {
  const Owned<NSObject> stranger = adopt(NSObject::init(alloc<NSObject>()));
  EXPECT_EQ(shown(stranger), "nil");
  std::map<std::string, int> lookups;
  classLookups = &lookups;
  for (int time = 0; time < 3; ++time) converted(stranger);
  classLookups = nullptr;
  EXPECT_EQ(lookups[ZKTREALobjectWrapper::className_], 3);
  for (const auto& row : bridge::optionalClasses) EXPECT_EQ(lookups[row.name.platformClass()], 0);
}

BOOL raiseOnBeingAsked(NSObject*, SEL, Class) {
  NSException::raise(NSException::exceptionWithName(classOf<NSException>(), NSRangeException, text("no"), nullptr));
  return NO;
}

// The fixture asks for every host value that was in hand.
TEST_F(ToVariant, GivesEverythingBackWhenAnElementRaises) {
  const Class raising = objc_allocateClassPair(classOf<NSObject>(), "RaisingElement", 0);
  class_addMethod(raising, NSObject::isKindOfClass.selector(), reinterpret_cast<IMP>(&raiseOnBeingAsked), "c@:#");
  objc_registerClassPair(raising);
  const Owned<NSObject> element = adopt(NSObject::init(NSObject::alloc(raising)));
  NSArray* const inner = arrayOf({text("b"), element});
  for (NSObject* const object :
       {static_cast<NSObject*>(arrayOf({text("a"), dictionaryOf({{text("k"), text("v")}, {text("in"), inner}})})),
        static_cast<NSObject*>(dictionaryOf({{text("k"), NSSet::setWithArray(classOf<NSSet>(), arrayOf({inner}))}}))}) {
    EXPECT_EQ(exceptionOf([&] { converted(object); }), "NSRangeException: no");
  }
}

TEST_F(ToVariant, GivesTheRegisteredWrapperBeforeAnyOtherRule) {
  useRegistry();
  NSString* const string = text("wrapped");
  const Variant wrapper = plugin::newInstance("StrangerZKT");
  plugin::registerInstance(string, wrapper);
  EXPECT_EQ(converted(string).get(), wrapper.get());
  EXPECT_EQ(forHost(wrapper)->references, 1);
  plugin::unregisterInstance(string);
  EXPECT_EQ(shown(string), "String wrapped");
}

TEST_F(ToVariant, AsksTheMovieViewSiblingBeforeWrappingAView) {
  const Class metaclass = object_getClass(classOf<NSValue>());
  static bool knows;
  class_addMethod(metaclass, bridge::ValueExtensions::NewQTKitNSViewZKT.selector(),
                  reinterpret_cast<IMP>(+[](NSObject*, SEL, NSObject*) -> plugin::REALobject {
                    return knows ? plugin::newInstance("StrangerZKT").detach() : nullptr;
                  }),
                  "@@:@");
  // The later rows of these classes are never reached.
  for (const std::string name : {"NSView", "NSTableView", "NSTextView", "NSScroller", "NSTableHeaderView"}) {
    const Owned<NSObject> view = pretendInstance(name.c_str());
    for (const bool answer : {true, false}) {
      knows = answer;
      EXPECT_EQ(shown(view), answer ? "StrangerZKT" : name + "ZKT");
    }
  }
}

// A platform object that none of the rules before the CoreFoundation rule knows, and its answers.
class CoreObject : public ToVariant {
 protected:
  static inline CFTypeID identifier;
  static inline bool raises;

  CoreObject() {
    identifier = 0;
    raises = false;
  }
  static CFTypeID identify(NSObject*, SEL) {
    if (raises)
      NSException::raise(NSException::exceptionWithName(classOf<NSException>(), NSRangeException, text("no"), nullptr));
    return identifier;
  }
  static Owned<NSObject> make(const char* className = "CoreProbe") {
    if (objc_getClass(className) == nullptr) {
      const Class made = objc_allocateClassPair(classOf<NSObject>(), className, 0);
      class_addMethod(made, sel_registerName("_cfTypeID"), reinterpret_cast<IMP>(&identify), "Q@:");
      objc_registerClassPair(made);
    }
    return adopt(NSObject::init(NSObject::alloc(objc_getClass(className))));
  }
};

TEST_F(CoreObject, IsWrappedByItsTypeIdentifier) {
  const Owned<NSObject> object = make();
  const auto check = [&](CFTypeID type, std::string expected) {
    identifier = type;
    const Variant wrapper = converted(object);
    EXPECT_EQ(show(wrapper), expected);
    ASSERT_TRUE(wrapper);
    EXPECT_EQ(plugin::platformObject(wrapper), object.get());
    EXPECT_EQ(plugin::readInstanceData<uint64_t>(wrapper, 2), 0x52424346U);
    EXPECT_EQ(NSObject::retainCount(object), 2U);
  };
#define CHECK_TYPE(type) check(type##GetTypeID(), std::string(#type) == "CFData" ? "CFBinaryDataZKT" : #type "ZKT");
  PLATFORM_TYPE_IDENTIFIERS(CHECK_TYPE)
#undef CHECK_TYPE
  check(999999, "CFObjectZKT");
}

// A wrapper without the tag, here one of another class, is not written to.
TEST_F(CoreObject, NeedsAWrapperWithTheTag) {
  identifier = CFURLGetTypeID();
  const Owned<NSObject> object = make();
  const struct {
    std::map<std::string, std::string> replacements;
    const char* expected;
    const char* asked;
  } cases[] = {
      {{{"CFURLZKT", ""}}, "CFObjectZKT", "CFURLZKT CFObjectZKT "},
      {{{"CFURLZKT", ""}, {"CFObjectZKT", ""}}, "nil", "CFURLZKT CFObjectZKT "},
      {{{"CFURLZKT", "StrangerZKT"}}, "nil", "CFURLZKT "},
      {{{"CFURLZKT", ""}, {"CFObjectZKT", "StrangerZKT"}}, "nil", "CFURLZKT CFObjectZKT "},
  };
  for (const auto& each : cases) {
    replaceClasses(each.replacements);
    EXPECT_EQ(shown(object), each.expected) << each.asked;
    EXPECT_EQ(asked(), each.asked);
    EXPECT_EQ(NSObject::retainCount(object), 1U) << each.asked;
  }
}

TEST_F(CoreObject, WithoutAnIdentifierIsWrappedByItsClassName) {
  const Owned<NSObject> object = make();
  EXPECT_EQ(shown(object), "nil");
  identifier = 0xFFFFFFFF;
  EXPECT_EQ(shown(object), "nil");
  const std::string longName(200, 'L');
  const Class nearest = objc_allocateClassPair(classOf<NSObject>(), "Stranger", 0);
  objc_registerClassPair(nearest);
  for (const std::string& name : {std::string("StrangerStill"), longName}) {
    objc_registerClassPair(objc_allocateClassPair(nearest, name.c_str(), 0));
    const Owned<NSObject> descendant = adopt(NSObject::init(NSObject::alloc(objc_getClass(name.c_str()))));
    const Variant wrapper = converted(descendant);
    EXPECT_EQ(show(wrapper), "StrangerZKT");
    NSObject::release(plugin::platformObject(wrapper));
  }
}

TEST_F(CoreObject, ThatRaisesIsWrappedByItsClassName) {
  raises = true;
  replaceClasses({{"CoreProbeZKT", "StrangerZKT"}});
  const Owned<NSObject> object = make();
  EXPECT_EQ(shown(object), "StrangerZKT");
  NSObject::release(object);
}

// What the host lacks takes away what needs it, and nothing that was in hand stays behind.
TEST_F(ToVariant, WithoutAServiceGivesNil) {
  const struct {
    const char* service;
    NSObject* object;
    const char* expected;
  } cases[] = {
      {"StringToVariant", text("a"), "nil"},
      {"IntegerToVariant", number("numberWithInt:", 1), "nil"},
      {"DoubleToVariant", number("numberWithDouble:", 1.0), "nil"},
      {"BooleanToVariant", kCFBooleanTrue, "nil"},
      {"UInt32ToVariant", number("numberWithUnsignedInt:", 1U), "nil"},
      {"UInt32ToVariant", number("numberWithUnsignedLong:", 1UL), "nil"},
      {"SingleToVariant", number("numberWithFloat:", 1.0F), "nil"},
      {"RuntimeArrayCreateSingleDimBoundedArray", arrayOf({text("a")}), "nil"},
      {"PluginObjectArrayInsertProc", arrayOf({text("a")}), "[]"},
      {"StringToVariant", arrayOf({text("a")}), "[nil]"},
      {"PluginNewInstance", dictionaryOf({{text("a"), text("b")}}), "nil"},
      {"PluginNewInstance", NSValue::valueWithRange(classOf<NSValue>(), {1, 2}), "nil"},
      {"PluginNewInstance", NSDate::dateWithTimeIntervalSinceReferenceDate(classOf<NSDate>(), 0), "nil"},
      {"REALLoadObjectMethod", dictionaryOf({{text("a"), text("b")}}), "{}"},
      {"Value(key As Variant, Assigns _value As Variant)", dictionaryOf({{text("a"), text("b")}}), "{}"},
  };
  for (const auto& [service, object, expected] : cases) {
    switchOff(service);
    EXPECT_EQ(shown(object), expected) << service;
    allOn();
  }
}

// Deeper values are refused as a whole rather than cut short.
TEST_F(ToVariant, RefusesValuesThatNestTooDeeply) {
  const auto nested = [](int levels) {
    NSObject* object = text("core");
    for (int level = 0; level < levels; ++level) {
      object = level % 2 == 0 ? static_cast<NSObject*>(arrayOf({object})) : dictionaryOf({{text("k"), object}});
    }
    return object;
  };
  EXPECT_TRUE(converted(nested(bridge::nestingLimit)));
  NSMutableArray* const cycle = NSMutableArray::array(classOf<NSMutableArray>());
  NSMutableArray::addObject(cycle, dictionaryOf({{text("self"), cycle}}));
  for (NSObject* const object : {nested(bridge::nestingLimit + 1), nested(100000), static_cast<NSObject*>(cycle)}) {
    EXPECT_EQ(exceptionOf([&] { converted(object); }),
              "NSInvalidArgumentException: Values are nested more than 1000 levels deep, or contain themselves.");
  }
  EXPECT_EQ(shown(nested(1)), "[String core]");
  NSMutableArray::removeAllObjects(cycle);
}

}  // namespace
}  // namespace bridge_test

// Stands in front of the platform's.
Class objc_getClass(const char* name) {
  static auto* const found = reinterpret_cast<decltype(&objc_getClass)>(dlsym(RTLD_NEXT, "objc_getClass"));
  if (bridge_test::classLookups != nullptr) ++(*bridge_test::classLookups)[name];
  return found(name);
}
