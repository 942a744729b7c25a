// When the registry and the exception support of a sibling library are obtained.
#include "plugin/sibling.hpp"
#include "plugin/wrappers.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace {

using namespace plugin;
using bridge_test::Variant;

// What a sibling library adds to NSException, for the rest of the process.
CFMutableDictionaryRef offeredRegistry;
int registryRequests;
int preparations;
CFMutableDictionaryRef giveRegistry(Class, SEL) {
  ++registryRequests;
  return offeredRegistry;
}
void prepare(Class, SEL) { ++preparations; }

template <class Signature, class Function>
void addToNSException(const Message<Signature>& message, Function* function, const char* types) {
  class_addMethod(object_getClass(classOf<NSException>()), message.selector(), reinterpret_cast<IMP>(function), types);
}
void offerRegistry() { addToNSException(sibling::GetInstancesDictionary, &giveRegistry, "@@:"); }
void offerExceptions() { addToNSException(sibling::PrepareNSException, &prepare, "v@:"); }

class SharedServices : public bridge_test::BridgeTest {
 protected:
  void SetUp() override {
    if (testing::UnitTest::GetInstance()->test_to_run_count() != 1) GTEST_SKIP() << "wants a process of its own";
    ASSERT_FALSE(sibling::offers(sibling::GetInstancesDictionary));
    ExceptionsInitialized = false;
  }

  // Keys by identity, neither keys nor values retained.
  const Owned<NSMutableDictionary> registry_ = adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0, nullptr, nullptr));
  const Owned<NSObject> object_ = adopt(NSObject::init(NSObject::alloc(objc_getClass("NSShadow"))));
};

TEST_F(SharedServices, AreSoughtByEveryConstructorAndDestructorUntilASiblingIsThere) {
  Variant early = newInstance("NSShadowZKT");
  EXPECT_EQ(instances, nullptr);
  EXPECT_FALSE(ExceptionsInitialized);
  offerRegistry();
  Variant late = newInstance("NSShadowZKT");
  EXPECT_EQ(registryRequests, 1);
  EXPECT_EQ(instances, nullptr) << "the sibling has no registry yet";
  offeredRegistry = registry_;
  early = nullptr;
  EXPECT_EQ(instances, registry_.get()) << "the destructor obtains it too";
  EXPECT_EQ(registryRequests, 2);
  EXPECT_FALSE(ExceptionsInitialized);
  offerExceptions();
  late = nullptr;
  EXPECT_EQ(preparations, 1);
  for (int time = 0; time < 3; ++time) {
    for (const char* name : {"NSAttributedStringZKT", "NSMutableAttributedStringZKT", "NSTextAttachmentZKT",
                             "NSFileWrapperZKT", "NSShadowZKT"}) {
      const Variant another = newInstance(name);
      EXPECT_TRUE(another) << name;
    }
  }
  EXPECT_EQ(registryRequests, 2) << "what is there is not asked for again";
  EXPECT_EQ(preparations, 1) << "prepared exactly once";
}

TEST_F(SharedServices, AreNotSoughtByWrapping) {
  offeredRegistry = registry_;
  offerRegistry();
  offerExceptions();
  const Variant first = adoptHost(wrapRegistered(object_, "StrangerZKT"));
  const Variant second = adoptHost(wrapRegistered(object_, "StrangerZKT"));
  EXPECT_NE(first.get(), second.get());
  EXPECT_EQ(registryRequests + preparations, 0);
  EXPECT_EQ(instances, nullptr);
  EXPECT_EQ(CFDictionaryGetCount(registry_), 0);
  emptyWrapper(first);
  emptyWrapper(second);
}

TEST_F(SharedServices, ObtainedInTheMiddleOfWrappingTakeTheEntry) {
  offeredRegistry = registry_;
  offerRegistry();
  const NSUInteger before = NSObject::retainCount(object_);
  {
    const Variant first = adoptHost(wrapRegistered(object_, "NSShadowZKT"));
    EXPECT_EQ(instances, registry_.get()) << "the constructor of the new wrapper ran";
    EXPECT_EQ(registeredInstance(object_), first.get());
    const Variant second = adoptHost(wrapRegistered(object_, "NSShadowZKT"));
    EXPECT_EQ(second.get(), first.get());
    EXPECT_EQ(NSObject::retainCount(object_), before + 1);
  }
  EXPECT_EQ(NSObject::retainCount(object_), before);
  EXPECT_EQ(CFDictionaryGetCount(registry_), 0) << "the destructor took the entry out";
}

}  // namespace
