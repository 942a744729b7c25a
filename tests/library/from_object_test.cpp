// Host objects as platform objects: every class of every list.
#include "bridge/from_object.hpp"

#include <cstdio>
#include <cstdlib>

#include "bridge/host_classes.hpp"
#include "bridge/sibling_messages.hpp"
#include "bridge/to_variant.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/folder_item.hpp"
#include "host/runtime/memory_block.hpp"
#include "platform/appkit.h"
#include "plugin/instance_data.hpp"
#include "plugin/wrappers.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace bridge_test {
namespace {

class FromObject : public BridgeTest {
 protected:
  static NSObject* converted(plugin::REALobject object) { return bridge::GetObjectAsNSObject(object); }
  static NSObject* converted(host::HostObject* object) { return converted(forLibrary(object)); }
};

TEST_F(FromObject, GivesBackWhatAWrapperWraps) {
  const Owned<NSObject> wrapped = adopt(NSObject::init(alloc<NSObject>()));
  const auto check = [&](const char* hostClass) {
    const Variant wrapper = plugin::newInstance(hostClass);
    ASSERT_TRUE(wrapper) << hostClass;
    EXPECT_EQ(converted(wrapper), nullptr) << hostClass;
    plugin::setPlatformObject(wrapper, NSObject::retain(wrapped));
    EXPECT_EQ(converted(wrapper), wrapped.get()) << hostClass;
    EXPECT_EQ(NSObject::retainCount(wrapped), 2U) << hostClass;
  };
  for (const char* hostClass : bridge::wrapperClasses) check(hostClass);
  for (const char* hostClass : bridge::delegateClasses) check(hostClass);
  for (const char* hostClass : bridge::coreClasses) check(hostClass);
  check("NSMutableAttributedStringZKT");
}

TEST_F(FromObject, ConvertsHostValues) {
  EXPECT_EQ(show(converted(host::makeMemoryBlock("bytes"))), "<bytes>");
  EXPECT_EQ(show(converted(host::makeMemoryBlock(0))), "nil");
  EXPECT_EQ(show(converted(host::makeFolderItem("/usr/bin"))), "file:///usr/bin/");
  EXPECT_EQ(show(converted(host::makeDictionary())), "{}");
}

template <class Fields>
Variant structure(const char* hostClass, const Fields& fields) {
  Variant object = plugin::newInstance(hostClass);
  plugin::writeInstanceData(object.get(), fields);
  return object;
}

TEST_F(FromObject, ReadsStructures) {
  NSObject* const range = converted(structure("NSRangeZKT", NSRange{2, 5}));
  EXPECT_EQ(NSValue::rangeValue(range).location, 2U);
  EXPECT_EQ(NSValue::rangeValue(range).length, 5U);
  const NSRect rect = NSValue::rectValue(converted(structure("NSRectZKT", NSRect{{1, 2}, {3, 4}})));
  EXPECT_EQ((std::array{rect.origin.x, rect.origin.y, rect.size.width, rect.size.height}), (std::array{1.0, 2.0, 3.0, 4.0}));
  const NSSize size = NSValue::sizeValue(converted(structure("NSSizeZKT", NSSize{6, 7})));
  EXPECT_EQ((std::array{size.width, size.height}), (std::array{6.0, 7.0}));
  const NSPoint point = NSValue::pointValue(converted(structure("NSPointZKT", NSPoint{8, 9})));
  EXPECT_EQ((std::array{point.x, point.y}), (std::array{8.0, 9.0}));
}

plugin::REALobject handedOver;
NSValue* takeTime(NSObject* values, SEL, plugin::REALobject time) {
  handedOver = time;
  return NSValue::valueWithRange(values, {1, 1});
}

TEST_F(FromObject, HandsMediaTimesToTheSibling) {
  const struct {
    const char* hostClass;
    const Message<NSValue*(plugin::REALobject)>& method;
  } cases[] = {
      {"QTKitTimeZKT", bridge::ValueExtensions::valueWithQTTimeZKT},
      {"QTKitTimeRangeZKT", bridge::ValueExtensions::valueWithQTTimeRangeZKT},
      {"CMTimeMappingZKT", bridge::ValueExtensions::valueWithCMTimeMappingZKT},
      {"CMTimeRangeZKT", bridge::ValueExtensions::valueWithCMTimeRangeZKT},
      {"CMTimeZKT", bridge::ValueExtensions::valueWithCMTimeZKT},
  };
  for (const auto& [hostClass, method] : cases) {
    const Variant time = plugin::newInstance(hostClass);
    EXPECT_NE(exceptionOf([&] { converted(time); }), "") << hostClass << " without its sibling";
    class_addMethod(object_getClass(classOf<NSValue>()), method.selector(), reinterpret_cast<IMP>(&takeTime), "@@:@");
    EXPECT_TRUE(NSObject::isKindOfClass(converted(time), classOf<NSValue>())) << hostClass;
    EXPECT_EQ(handedOver, time.get()) << hostClass;
  }
}

// A carrier of a host object, as the sibling library makes them: here one at a time, kept by the test.
plugin::REALobject carried;
NSObject* wrap(NSObject* carrierClass, SEL, plugin::REALobject object) {
  carried = object;
  return NSObject::autorelease(NSObject::init(NSObject::alloc(carrierClass)));
}
plugin::REALobject unwrap(NSObject*, SEL) { return plugin::lockHost(carried).detach(); }

TEST_F(FromObject, CarriesStrangersThroughThePlatformAndBack) {
  const Variant stranger = plugin::newInstance("StrangerZKT");
  EXPECT_EQ(converted(stranger), nullptr) << "no sibling offers the carrier";
  const Class carrier = objc_allocateClassPair(classOf<NSObject>(), ZKTREALobjectWrapper::className_, 0);
  class_addMethod(object_getClass(carrier), bridge::HostObjectCarrier::wrap.selector(), reinterpret_cast<IMP>(&wrap),
                  "@@:@");
  class_addMethod(carrier, bridge::HostObjectCarrier::unwrap.selector(), reinterpret_cast<IMP>(&unwrap), "@@:");
  objc_registerClassPair(carrier);
  NSObject* const object = converted(stranger);
  ASSERT_NE(object, nullptr);
  const Variant back = plugin::adoptHost(bridge::NewVariantFromNSObject(object));
  EXPECT_EQ(back.get(), stranger.get());
}

// Classes that the host does not know yet.
bool unknownYet;
plugin::REALclassRef lateClass(const char* name) {
  if (unknownYet && (name == std::string_view("NSTaskZKT") || name == std::string_view("CGPathZKT"))) return nullptr;
  return hostService<decltype(lateClass)>("pluginObjectType")(name);
}

// In a process of its own, in which no row has been reached before.
TEST_F(FromObject, KnowsLateClassesOnlyInRowsThatAreLookedUpEachTime) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto knowsLater = [] {
    intercept("pluginObjectType", reinterpret_cast<void*>(&lateClass));
    NSString* const wrapped = text("wrapped");
    std::string known;
    for (const char* hostClass : {"NSTaskZKT", "CGPathZKT"}) {
      const Variant wrapper = plugin::newInstance(hostClass);
      plugin::setPlatformObject(wrapper, NSObject::retain(wrapped));
      for (const bool unknown : {true, false}) {
        unknownYet = unknown;
        if (converted(wrapper) == wrapped) known += std::string(hostClass) + (unknown ? " at once, " : " later, ");
      }
    }
    return known;
  };
  EXPECT_EXIT(
      {
        std::fputs(knowsLater().c_str(), stderr);
        std::_Exit(0);
      },
      testing::ExitedWithCode(0), "^CGPathZKT later, $");
}

TEST_F(FromObject, MatchesNothingWhereTheHostCannotTestClasses) {
  for (const char* service : {"pluginObjectType", "RuntimeObjectIsa"}) {
    switchOff(service);
    NSObject* const object = converted(structure("NSRangeZKT", NSRange{2, 5}));
    EXPECT_FALSE(NSObject::isKindOfClass(object, classOf<NSValue>())) << service;
    allOn();
  }
}

}  // namespace
}  // namespace bridge_test
