// The object runtime: classes by name and at run time, messages, counts, pools, exceptions through C++ frames.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "platform/foundation.h"
#include "platform/guard.h"
#include "platform/owned.h"
#include "standin/runtime/accounting.hpp"
#include "standin/runtime/class_definition.hpp"
#include "standin/runtime/exception.hpp"

namespace {

struct Counter : standin::Object {
  int value = 7;
};
int value(Counter& self) { return self.value; }
void increase(Counter& self, int by) { self.value += by; }
NSRect wide(Counter& self, double x) { return {{x, 1}, {static_cast<double>(self.value), 3}}; }
int sharedAnswer(Class) { return 42; }

const standin::ClassDefinition counter = standin::defineClass<Counter>("RuntimeTestCounter", "NSObject")
                                             .classMethod<sharedAnswer>("answer")
                                             .method<value>("value")
                                             .method<increase>("increase:")
                                             .method<wide>("wide:");

const Message<int()> valueMessage{"value"};
const Message<void(int)> increaseMessage{"increase:"};
const Message<NSRect(double)> wideMessage{"wide:"};
const Message<int()> answerMessage{"answer"};
const Message<int(int)> addedMessage{"addedLater:"};

Owned<NSObject> newCounter() { return adopt(NSObject::init(NSObject::alloc(objc_getClass("RuntimeTestCounter")))); }

TEST(Messages, ReachStateTakeStructuresAndAnswerEmptyForNil) {
  const Owned<NSObject> object = newCounter();
  increaseMessage(object, 5);
  EXPECT_EQ(valueMessage(object), 12);
  EXPECT_EQ(wideMessage(object, 2.5).origin.x, 2.5);
  EXPECT_EQ(wideMessage(object, 2.5).size.width, 12);
  EXPECT_EQ(answerMessage(counter.platformClass()), 42);
  EXPECT_EQ(valueMessage(nullptr), 0);
  EXPECT_EQ(wideMessage(nullptr, 1).size.width, 0);
}

TEST(Messages, AnUnknownSelectorRaisesAndNamesClassAndSelector) {
  const Owned<NSObject> object = newCounter();
  const Message<void()> unknown{"noSuchSelector:either:"};
  for (NSObject* receiver : {object.get(), static_cast<NSObject*>(counter.platformClass())}) {
    const AutoreleasePool pool;
    NSException* caught = catchException([&] { unknown(receiver); });
    ASSERT_NE(caught, nullptr);
    EXPECT_TRUE(NSString::isEqualToString(NSException::name(caught), NSInvalidArgumentException));
    const std::string reason = NSString::UTF8String(NSException::reason(caught));
    EXPECT_NE(reason.find("[RuntimeTestCounter noSuchSelector:either:]"), std::string::npos) << reason;
  }
}

TEST(Messages, MethodsCanBeAddedAtRunTimeToClassesAndMetaclasses) {
  const Owned<NSObject> object = newCounter();
  EXPECT_FALSE(NSObject::respondsToSelector(object, addedMessage.selector()));
  const auto added = +[](NSObject* self, SEL, int argument) { return valueMessage(self) + argument; };
  const auto onClass = +[](Class, SEL, int argument) { return argument * 2; };
  // The lookup that fails first must not be remembered.
  EXPECT_NE(catchException([&] { addedMessage(object, 1); }), nullptr);
  EXPECT_TRUE(class_addMethod(counter.platformClass(), addedMessage.selector(), reinterpret_cast<IMP>(added), "i@:i"));
  EXPECT_FALSE(class_addMethod(counter.platformClass(), addedMessage.selector(), reinterpret_cast<IMP>(added), "i@:i"));
  EXPECT_TRUE(class_addMethod(object_getClass(counter.platformClass()), addedMessage.selector(),
                              reinterpret_cast<IMP>(onClass), "i@:i"));
  EXPECT_EQ(addedMessage(object, 3), 10);
  EXPECT_EQ(addedMessage(counter.platformClass(), 3), 6);
  EXPECT_TRUE(NSObject::respondsToSelector(object, addedMessage.selector()));
}

TEST(Classes, MadeAtRunTimeInheritOverrideAndCarryVariables) {
  const Class made = objc_allocateClassPair(counter.platformClass(), "RuntimeTestMade", 0);
  ASSERT_NE(made, nullptr);
  EXPECT_TRUE(class_addIvar(made, "extra", sizeof(void*), 3, "^v"));
  objc_registerClassPair(made);
  EXPECT_EQ(objc_getClass("RuntimeTestMade"), made);
  EXPECT_EQ(objc_allocateClassPair(counter.platformClass(), "RuntimeTestMade", 0), nullptr);
  const Owned<NSObject> object = adopt(NSObject::init(NSObject::alloc(made)));
  const ptrdiff_t offset = ivar_getOffset(class_getInstanceVariable(made, "extra"));
  auto* extra = reinterpret_cast<void**>(reinterpret_cast<char*>(object.get()) + offset);
  EXPECT_EQ(*extra, nullptr);
  EXPECT_EQ(valueMessage(object), 7);
  EXPECT_TRUE(NSObject::isKindOfClass(object, counter.platformClass()));
  EXPECT_STREQ(object_getClassName(object), "RuntimeTestMade");
}

TEST(Counts, LastReleaseEndsTheObjectAndPoolsReleaseWhenTheyPop) {
  const long before = standin::liveObjects();
  {
    const AutoreleasePool outer;
    NSObject* object = newCounter().autorelease();
    {
      const AutoreleasePool inner;
      NSObject::autorelease(NSObject::retain(object));
      EXPECT_EQ(NSObject::retainCount(object), 2u);
    }
    EXPECT_EQ(NSObject::retainCount(object), 1u);
    EXPECT_EQ(standin::liveObjects(), before + 1);
  }
  EXPECT_EQ(standin::liveObjects(), before);
}

TEST(Exceptions, OnlyPlatformExceptionsAreCaughtAndFramesAreUnwound) {
  const AutoreleasePool pool;
  const long before = standin::liveObjects();
  NSException* caught = catchException([&] {
    const Owned<NSObject> held = newCounter();
    standin::raise(NSRangeException, "out of bounds");
  });
  ASSERT_NE(caught, nullptr);
  EXPECT_STREQ(NSString::UTF8String(NSException::reason(caught)), "out of bounds");
  EXPECT_EQ(catchException([] {}), nullptr);
  EXPECT_THROW(catchException([] { throw std::runtime_error("other"); }), std::runtime_error);
  EXPECT_GE(standin::liveObjects(), before);
  // Something thrown that is no exception object passes the guard.
  const Owned<NSObject> thrown = newCounter();
  EXPECT_ANY_THROW(catchException([&] { objc_exception_throw(thrown); }));
}

}  // namespace
