// What the host program gets to see of failures.
#include "plugin/exceptions.hpp"

#include <new>
#include <stdexcept>
#include <typeinfo>

#include "plugin/wrappers.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace {

using namespace plugin;
using bridge_test::raisedException;

class Exceptions : public bridge_test::BridgeTest {};

TEST_F(Exceptions, AreRaisedByClassAndMessage) {
  RaiseException("NilObjectException", "Child is nil");
  EXPECT_EQ(raisedException(), "NilObjectException: Child is nil");
  RaiseException("NoSuchException", "still told", 5, -1);
  EXPECT_EQ(raisedException(), "RuntimeException: still told");
  RaiseException("RuntimeException", nullptr);
  EXPECT_EQ(raisedException(), "RuntimeException: ");
}

TEST_F(Exceptions, WithoutAWayToMakeThemNothingIsRaised) {
  for (const char* service : {"PluginNewInstance", "RuntimeRaiseException"}) {
    switchOff(service);
    RaiseException("NilObjectException", "Child is nil");
    EXPECT_EQ(raisedException(), "") << service;
    allOn();
  }
}

TEST_F(Exceptions, WithoutPropertiesTheClassAloneTells) {
  switchOff("REALSetPropValueString");
  switchOff("REALSetPropValueInteger");
  RaiseException("NilObjectException", "Child is nil");
  EXPECT_EQ(raisedException(), "NilObjectException: ");
}

TEST_F(Exceptions, AnIndexOutOfBoundsIsToldWithItsRange) {
  const struct {
    int64_t value, count;
    const char* message;
  } cases[] = {
      {7, 5, "Parameter index  is too big. Range is 0 to 4, but value is 7."},
      {3, 3, "Parameter index  is too big. Range is 0 to 2, but value is 3."},
      {0, 0, "Parameter index  is too big. Range is 0 to -1, but value is 0."},
      {-1, 3, "Parameter index  is too small. Range is 0 to 2, but value is -1."},
      {INT64_MIN, INT64_MAX,
       "Parameter index  is too small. Range is 0 to 9223372036854775806, but value is -9223372036854775808."},
  };
  for (const auto& [value, count, message] : cases) {
    RaiseOutOfBoundsException(value, count);
    EXPECT_EQ(raisedException(), std::string("OutOfBoundsException: ") + message);
  }
}

template <class Thrown>
std::string translationOf(const Thrown& thrown) {
  const int result = translatingStandardExceptions([&]() -> int { throw thrown; });
  EXPECT_EQ(result, 0);
  return raisedException();
}

struct OwnException : std::exception {
  const char* what() const noexcept override { return "own"; }
};
struct OwnRangeError : std::range_error {
  using std::range_error::range_error;
};

TEST_F(Exceptions, StandardOnesBecomeTheHosts) {
  EXPECT_EQ(translationOf(std::bad_alloc()), "OutOfMemoryException: Failed to allocate memory.");
  EXPECT_EQ(translationOf(std::bad_array_new_length()), "OutOfMemoryException: Failed to allocate memory.");
  EXPECT_EQ(translationOf(std::range_error("r")), "OutOfBoundsException: r");
  EXPECT_EQ(translationOf(OwnRangeError("o")), "OutOfBoundsException: o");
  EXPECT_EQ(translationOf(std::out_of_range("r")), "OutOfBoundsException: r");
  EXPECT_EQ(translationOf(std::overflow_error("o")), "OutOfBoundsException: o");
  EXPECT_EQ(translationOf(std::underflow_error("u")), "OutOfBoundsException: u");
  EXPECT_EQ(translationOf(std::length_error("l")), "RuntimeException: l");
  EXPECT_EQ(translationOf(std::runtime_error("r")), "RuntimeException: r");
  EXPECT_EQ(translationOf(std::bad_cast()), std::string("IllegalCastException: ") + std::bad_cast().what());
  EXPECT_EQ(translationOf(OwnException()), "RuntimeException: own");
  EXPECT_EQ(translationOf(5), "RuntimeException: Sorry, but there was an unnamed C++ Exception.");
}

[[noreturn]] void raiseOnPlatform() {
  NSArray::objectAtIndex(NSArray::array(classOf<NSArray>()), 0);
  std::abort();
}

// What a sibling library adds to NSException; it stays for the rest of the process.
bool siblingTranslates = true;
REALobject translate(Class, SEL, NSException* exception) {
  if (!siblingTranslates) return nullptr;
  const std::string name = NSString::UTF8String(NSException::name(exception));
  return bridge_test::forLibrary(host::makeException("RuntimeException", name).detach());
}
void addSibling() {
  const Class metaclass = object_getClass(classOf<NSException>());
  class_addMethod(metaclass, sel_registerName("NewNSExceptionZKT:"), reinterpret_cast<IMP>(&translate), "@@:@");
}

TEST_F(Exceptions, OfThePlatformEndAGuardedFunctionWithTheEmptyValue) {
  if (NSObject::respondsToSelector(classOf<NSException>(), sel_registerName("NewNSExceptionZKT:"))) {
    GTEST_SKIP() << "a sibling is loaded already";
  }
  EXPECT_EQ(guarded([] { return 3; }), 3);
  EXPECT_EQ(guarded([]() -> int { raiseOnPlatform(); }), 0);
  EXPECT_EQ(raisedException(), "") << "without a sibling the exception is only logged";
  addSibling();
  for (const bool translates : {true, false}) {
    siblingTranslates = translates;
    EXPECT_EQ(guarded([]() -> REALobject { raiseOnPlatform(); }), nullptr);
    EXPECT_EQ(raisedException(), translates ? "RuntimeException: NSRangeException" : "");
  }
  siblingTranslates = true;
}

TEST_F(Exceptions, OfThePlatformLeaveWhatAFunctionHasProduced) {
  addSibling();
  const auto body = [](int& produced) {
    produced = 5;
    raiseOnPlatform();
  };
  EXPECT_EQ(guardedKeeping<int>(body), 5);
  EXPECT_EQ(raisedException(), "RuntimeException: NSRangeException");
}

TEST_F(Exceptions, OfOtherKindsPassTheGuard) {
  EXPECT_THROW(guarded([]() -> int { throw std::runtime_error("passes"); }), std::runtime_error);
  EXPECT_THROW(guarded([] { host::throwException("RuntimeException", "passes"); }), host::HostException);
}

}  // namespace
