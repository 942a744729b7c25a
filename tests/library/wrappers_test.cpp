// Platform objects in host objects: who owns what, and which wrapper is found again.
#include "plugin/wrappers.hpp"

#include "bridge/platform_classes.hpp"
#include "plugin/exceptions.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace {

using namespace plugin;
using bridge_test::raisedException;
using bridge_test::Variant;

class Wrappers : public bridge_test::BridgeTest {
 protected:
  static std::string classOfWrapper(REALobject wrapper) { return bridge_test::forHost(wrapper)->type->name(); }
  static int64_t references(REALobject wrapper) { return bridge_test::forHost(wrapper)->references; }
};

Owned<NSObject> newObject(const char* className) { return adopt(NSObject::init(NSObject::alloc(objc_getClass(className)))); }

TEST_F(Wrappers, TheRegisteredOneIsGivenOutAgainUntilItIsDestroyed) {
  useRegistry();
  const auto shadow = newObject("NSShadow");
  const NSUInteger before = NSObject::retainCount(shadow);
  Variant first = adoptHost(NewNSShadowZKT(static_cast<NSShadow*>(shadow.get())));
  EXPECT_EQ(classOfWrapper(first), "NSShadowZKT");
  EXPECT_EQ(platformObject(first), shadow);
  EXPECT_EQ(NSObject::retainCount(shadow), before + 1);
  Variant second = adoptHost(NewNSShadowZKT(static_cast<NSShadow*>(shadow.get())));
  EXPECT_EQ(first.get(), second.get());
  EXPECT_EQ(references(first), 2);
  first = nullptr;
  second = nullptr;
  EXPECT_EQ(NSObject::retainCount(shadow), before);
  EXPECT_EQ(registeredInstance(shadow), nullptr);
  const Variant third = adoptHost(NewNSShadowZKT(static_cast<NSShadow*>(shadow.get())));
  EXPECT_EQ(registeredInstance(shadow), third.get());
}

TEST_F(Wrappers, WithoutARegistryEveryWrappingIsNewAndNothingIsLost) {
  const auto shadow = newObject("NSShadow");
  const NSUInteger before = NSObject::retainCount(shadow);
  {
    const Variant first = adoptHost(NewNSShadowZKT(static_cast<NSShadow*>(shadow.get())));
    const Variant second = adoptHost(NewNSShadowZKT(static_cast<NSShadow*>(shadow.get())));
    EXPECT_NE(first.get(), second.get());
  }
  EXPECT_EQ(NSObject::retainCount(shadow), before);
}

TEST_F(Wrappers, AMissingServiceOrClassMeansNil) {
  useRegistry();
  const auto shadow = newObject("NSShadow");
  EXPECT_EQ(NewNSShadowZKT(nullptr), nullptr);
  EXPECT_EQ(wrapRegistered(shadow, "NoSuchZKT"), nullptr);
  switchOff("PluginNewInstance");
  EXPECT_EQ(NewNSShadowZKT(static_cast<NSShadow*>(shadow.get())), nullptr);
  EXPECT_EQ(NewNSObjectZKT(shadow, objc_getClass("NSShadow")), nullptr);
}

TEST_F(Wrappers, WithoutALockTheRegisteredOneComesWithoutAReference) {
  useRegistry();
  const auto shadow = newObject("NSShadow");
  const Variant wrapper = adoptHost(NewNSShadowZKT(static_cast<NSShadow*>(shadow.get())));
  switchOff("REALLockObject");
  EXPECT_EQ(NewNSShadowZKT(static_cast<NSShadow*>(shadow.get())), wrapper.get());
  EXPECT_EQ(references(wrapper), 1);
}

TEST_F(Wrappers, TheNearestClassThatTheHostHasIsChosen) {
  useRegistry();
  const auto plain = newObject("NSAttributedString");
  const auto changeable = newObject("NSMutableAttributedString");
  const Class cls = objc_getClass("NSAttributedString");
  const Variant first = adoptHost(NewNSObjectZKT(plain, cls));
  const Variant second = adoptHost(NewNSObjectZKT(plain, cls));
  EXPECT_EQ(classOfWrapper(first), "NSAttributedStringZKT");
  EXPECT_NE(first.get(), second.get());
  EXPECT_EQ(registeredInstance(plain), nullptr);
  EXPECT_EQ(classOfWrapper(adoptHost(NewNSObjectZKT(changeable, cls))), "NSMutableAttributedStringZKT");
  EXPECT_EQ(NewNSObjectZKT(plain, objc_getClass("NSShadow")), nullptr) << "of another class than asked for";
  EXPECT_EQ(NewNSObjectZKT(nullptr, cls), nullptr);
  EXPECT_EQ(NewNSObjectZKT(plain, nullptr), nullptr);
}

TEST_F(Wrappers, AClassNameThatIsTooLongIsPassedOver) {
  for (const std::size_t length : {std::size_t{199}, std::size_t{200}, std::size_t{5000}}) {
    const std::string name(length, 'N');
    const Class cls = objc_allocateClassPair(objc_getClass("NSShadow"), name.c_str(), 0);
    ASSERT_NE(cls, nullptr);
    objc_registerClassPair(cls);
    const auto object = newObject(name.c_str());
    const Variant wrapper = adoptHost(NewNSObjectZKT(object, objc_getClass("NSShadow")));
    EXPECT_EQ(classOfWrapper(wrapper), "NSShadowZKT") << length;
  }
}

bool refusesRelease;
IMP plainRelease;
void releaseOrRefuse(NSObject* self, SEL selector) {
  if (refusesRelease) NSArray::objectAtIndex(NSArray::array(classOf<NSArray>()), 0);
  reinterpret_cast<void (*)(NSObject*, SEL)>(plainRelease)(self, selector);
}

TEST_F(Wrappers, AReleaseThatRaisesIsReportedAndLeavesThePointer) {
  plainRelease = objc_msg_lookup(newObject("NSObject"), NSObject::release.selector());
  const Class cls = objc_allocateClassPair(objc_getClass("NSObject"), "RefusesRelease", 0);
  class_addMethod(cls, NSObject::release.selector(), reinterpret_cast<IMP>(&releaseOrRefuse), "v@:");
  objc_registerClassPair(cls);
  const Variant wrapper = newInstance("NSShadowZKT");
  NSObject* const object = NSObject::init(NSObject::alloc(cls));
  setPlatformObject(wrapper, object);
  refusesRelease = true;
  destroyWrapper(wrapper);
  EXPECT_EQ(platformObject(wrapper), object);
  raisedException();
  refusesRelease = false;
  destroyWrapper(wrapper);
  EXPECT_EQ(platformObject(wrapper), nullptr);
}

TEST_F(Wrappers, AnEmptyOneIsDestroyedWithoutMoreAdo) {
  useRegistry();
  const Variant wrapper = newInstance("NSFileWrapperZKT");
  EXPECT_EQ(platformObject(wrapper), nullptr);
  destroyWrapper(wrapper);
  EXPECT_EQ(platformObject<NSObject>(nullptr), nullptr);
}

}  // namespace
