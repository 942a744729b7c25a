// The platform's x86-64 calling convention, and its exceptions, in code compiled for macOS.
#include <cstring>
#include <functional>
#include <limits>
#include <stdexcept>

#include "platform/owned.h"
#include "standin/foundation/log.hpp"
#include "tests/macos/probe/probe.hpp"
#include "tests/macos/support.hpp"

namespace macos {
namespace {

const Probe& probed() {
  static const Probe& found = [] {
    const LoadedImage image(Image(probePath), addressOfImport);
    image.initialize();
    return std::ref(*image.symbol<const Probe>("_probe"));
  }();
  return found;
}

class Convention : public BinaryTest {
  AutoreleasePool pool_;
};

template <class Value>
bool same(const Value& left, const Value& right) {
  return std::memcmp(&left, &right, sizeof(Value)) == 0;
}

NSString* text(const char* characters) { return NSString::stringWithUTF8String(classOf<NSString>(), characters); }

std::string logged(const std::function<void()>& action) {
  std::string lines;
  standin_setLogSink(
      [](void* context, const char* line, size_t length) { static_cast<std::string*>(context)->append(line, length); },
      &lines);
  action();
  standin_setLogSink(nullptr, nullptr);
  return lines;
}

TEST_F(Convention, ResultsOverSixteenBytesComeThroughMemory) {
  const NSRect rectangle = {{1.5, -2.5}, {1e300, 4.25}};
  EXPECT_TRUE(same(probed().rectangle(probed().wrapped(rectangle)), rectangle));
}

TEST_F(Convention, ResultsUpToSixteenBytesComeInRegisters) {
  const NSSize size = {0.1, -1e-300};
  EXPECT_TRUE(same(probed().size(NSValue::valueWithSize(classOf<NSValue>(), size)), size));
  const NSRange range = {7, std::numeric_limits<NSUInteger>::max()};
  EXPECT_TRUE(same(probed().range(NSValue::valueWithRange(classOf<NSValue>(), range)), range));
}

TEST_F(Convention, FloatingResultsComeInFloatingRegisters) {
  EXPECT_EQ(probed().number(NSNumber::numberWithDouble(classOf<NSNumber>(), -0.1)), -0.1);
  EXPECT_EQ(probed().single(NSNumber::numberWithFloat(classOf<NSNumber>(), 0.1F)), 0.1F);
}

// Of the register that a BOOL comes in, only the low byte counts.
TEST_F(Convention, OnlyTheLowByteOfABoolCounts) {
  static int answer = 0;
  static const Class odd = [] {
    const Class made = objc_allocateClassPair(classOf<NSObject>(), "OddlyEqual", 0);
    class_addMethod(made, NSObject::isEqual.selector(),
                    reinterpret_cast<IMP>(+[](NSObject*, SEL, NSObject*) -> int { return answer; }), "c@:@");
    objc_registerClassPair(made);
    return made;
  }();
  const auto object = adopt(NSObject::init(NSObject::alloc(odd)));
  answer = 0x7FFFFF00;
  EXPECT_EQ(probed().equal(object, object), NO);
  answer = 0x7FFFFF01;
  EXPECT_EQ(probed().equal(object, object), YES);
}

TEST_F(Convention, ArgumentsBeyondTheRegistersLieOnTheStack) {
  NSTimeZone* const zone = NSTimeZone::localTimeZone(classOf<NSTimeZone>());
  NSCalendarDate* const date = probed().date(2031, zone);
  EXPECT_EQ(NSCalendarDate::yearOfCommonEra(date), 2031);
  EXPECT_EQ(NSCalendarDate::minuteOfHour(date), 5);
  EXPECT_EQ(NSCalendarDate::secondOfMinute(date), 6);
}

TEST_F(Convention, LoggingTakesAnyNumberOfArguments) {
  EXPECT_EQ(logged([] { probed().log(text("%@ %.2f %d"), text("é"), 2.5, -3); }), "é 2.50 -3");
  EXPECT_EQ(logged([] { probed().logMany(text("%.0f %.0f %.0f %.0f %.0f %.0f %.0f %.0f %.0f"), 1.0); }),
            "1 2 3 4 5 6 7 8 9");
}

TEST_F(Convention, NilAnswersTheEmptyValue) {
  EXPECT_TRUE(same(probed().rectangle(nullptr), NSRect{}));
  EXPECT_TRUE(same(probed().size(nullptr), NSSize{}));
  EXPECT_TRUE(same(probed().range(nullptr), NSRange{}));
  EXPECT_EQ(probed().number(nullptr), 0.0);
  EXPECT_EQ(probed().single(nullptr), 0.0F);
  EXPECT_EQ(probed().equal(nullptr, nullptr), NO);
}

constexpr uint64_t values[5] = {1, 10, 100, 1000, 10000};
constexpr uint64_t mixedValues = 1 + 3 * 10 + 5 * 100 + 7 * 1000 + 11 * 10000;

// Leaves nothing of its caller's in the registers before it throws.
void throwFromDirtyRegisters() {
  asm volatile("" ::: "rbx", "r12", "r13", "r14", "r15");
  asm volatile("xor %%rbx, %%rbx\n xor %%r12, %%r12\n xor %%r13, %%r13\n xor %%r14, %%r14\n xor %%r15, %%r15" ::
                   : "rbx", "r12", "r13", "r14", "r15");
  throw 42;
}

TEST_F(Convention, ExceptionsPassAndRestoreRegisters) {
  volatile uint64_t seed = 5;
  const uint64_t kept[] = {seed, seed * 2, seed * 3, seed * 4, seed * 5};
  int left = 0;
  try {
    probed().through(throwFromDirtyRegisters, values, &left);
    ADD_FAILURE() << "nothing was thrown";
  } catch (int thrown) {
    EXPECT_EQ(thrown, 42);
  }
  EXPECT_EQ(left, 1);
  for (uint64_t index = 0; index < 5; ++index) EXPECT_EQ(kept[index], seed * (index + 1));
  EXPECT_EQ(probed().through(
                +[] {}, values, &left),
            mixedValues);
}

TEST_F(Convention, ExceptionsAreCaughtWithEverythingInPlace) {
  EXPECT_EQ(probed().after(throwFromDirtyRegisters, values), mixedValues);
  EXPECT_TRUE(probed().catchesLibraryExceptions());
}

using Body = void (*)(void*);

// The pool that held it is gone by the time that the guard returns.
TEST_F(Convention, TheGuardHandsBackALivingException) {
  const Body raiseInPool = [](void*) {
    const AutoreleasePool inner;
    NSException::raise(NSException::exceptionWithName(classOf<NSException>(), text("Name"), text("Reason"), nullptr));
  };
  NSException* const caught = probed().caught(raiseInPool, nullptr);
  ASSERT_NE(caught, nullptr);
  EXPECT_EQ(NSObject::retainCount(caught), 1U);
  EXPECT_STREQ(NSString::UTF8String(NSException::name(caught)), "Name");
  EXPECT_EQ(probed().caught([](void*) {}, nullptr), nullptr);
}

TEST_F(Convention, TheGuardReportsMessagesThatNobodyAnswers) {
  const Body misuse = [](void*) { probed().rectangle(static_cast<NSValue*>(static_cast<NSObject*>(text("no value")))); };
  NSException* const caught = probed().caught(misuse, nullptr);
  ASSERT_NE(caught, nullptr);
  EXPECT_STREQ(NSString::UTF8String(NSException::name(caught)), "NSInvalidArgumentException");
}

TEST_F(Convention, TheGuardLetsEverythingElsePass) {
  EXPECT_THROW(probed().caught([](void*) { throw std::runtime_error("passes"); }, nullptr), std::runtime_error);
  const Body throwText = [](void*) { objc_exception_throw(text("no exception")); };
  const Body guarded = [](void* body) { probed().caught(*static_cast<Body*>(body), nullptr); };
  EXPECT_ANY_THROW(guarded(const_cast<Body*>(&throwText)));
}

}  // namespace
}  // namespace macos
