// Numbers and values: encodings, conversions, equality, descriptions.
#include "standin/foundation/number.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "standin/foundation/type_encoding.hpp"
#include "tests/standin/foundation_support.hpp"

namespace {

using namespace foundation_support;

template <class Value>
NSNumber* number(const char* factory, Value value) {
  return static_cast<NSNumber*>(send(classNamed("NSNumber"), factory, value));
}

struct FactoryCase {
  const char* factory;
  const char* encoding;
  const char* description;
  std::function<NSNumber*()> make;
};

TEST(Numbers, KeepTheTypeTheyWereMadeFrom) {
  const AutoreleasePool pool;
  const FactoryCase cases[] = {
      {"Char", "c", "-5", [] { return number<signed char>("numberWithChar:", -5); }},
      {"UnsignedChar", "C", "200", [] { return number<unsigned char>("numberWithUnsignedChar:", 200); }},
      {"Short", "s", "-30000", [] { return number<short>("numberWithShort:", -30000); }},
      {"UnsignedShort", "S", "60000", [] { return number<unsigned short>("numberWithUnsignedShort:", 60000); }},
      {"Int", "i", "-2147483648", [] { return number<int>("numberWithInt:", INT32_MIN); }},
      {"UnsignedInt", "I", "4294967295", [] { return number<unsigned>("numberWithUnsignedInt:", UINT32_MAX); }},
      {"Long", "q", "-1", [] { return number<long>("numberWithLong:", -1); }},
      {"UnsignedLong", "Q", "4294967297", [] { return number<unsigned long>("numberWithUnsignedLong:", 4294967297); }},
      {"LongLong", "q", "-9223372036854775808", [] { return number<long long>("numberWithLongLong:", INT64_MIN); }},
      {"UnsignedLongLong", "Q", "18446744073709551615",
       [] { return number<unsigned long long>("numberWithUnsignedLongLong:", UINT64_MAX); }},
      {"Float", "f", "0.1", [] { return number<float>("numberWithFloat:", 0.1f); }},
      {"Double", "d", "-0.25", [] { return number<double>("numberWithDouble:", -0.25); }},
      {"Bool", "c", "1", [] { return number<BOOL>("numberWithBool:", YES); }},
  };
  for (const FactoryCase& row : cases) {
    NSNumber* const made = row.make();
    EXPECT_STREQ(NSNumber::objCType(made), row.encoding) << row.factory;
    EXPECT_EQ(utf8(NSObject::description(made)), row.description) << row.factory;
    EXPECT_TRUE(NSObject::isKindOfClass(made, classOf<NSValue>())) << row.factory;
  }
}

TEST(Numbers, ConvertAsTheMessagesSay) {
  const AutoreleasePool pool;
  struct Case {
    NSNumber* number;
    int8_t c;
    uint8_t uc;
    int16_t s;
    uint32_t ui;
    int64_t q;
    uint64_t uq;
    double d;
    bool b;
  };
  const Case cases[] = {
      {newNumber(5).autorelease(), 5, 5, 5, 5, 5, 5, 5, true},
      {newNumber(-1L).autorelease(), -1, 255, -1, UINT32_MAX, -1, UINT64_MAX, -1, true},
      {newNumber(0x1FFFFFFFFul).autorelease(), -1, 255, -1, UINT32_MAX, 0x1FFFFFFFF, 0x1FFFFFFFF, 8589934591., true},
      {newNumber(2.9).autorelease(), 2, 2, 2, 2, 2, 2, 2.9, true},
      {newNumber(-2.9).autorelease(), -2, 254, -2, UINT32_MAX - 1, -2, UINT64_MAX - 1, -2.9, true},
      {newNumber(0.25f).autorelease(), 0, 0, 0, 0, 0, 0, 0.25, true},
      {newNumber(1e30).autorelease(), -1, 255, -1, UINT32_MAX, INT64_MAX, UINT64_MAX, 1e30, true},
      {newNumber(1e19).autorelease(), -1, 0, -1, 0x89E80000u, INT64_MAX, 10000000000000000000u, 1e19, true},
      {newNumber(0).autorelease(), 0, 0, 0, 0, 0, 0, 0, false},
      {newNumber(true).autorelease(), 1, 1, 1, 1, 1, 1, 1, true},
      {newNumber(false).autorelease(), 0, 0, 0, 0, 0, 0, 0, false},
  };
  for (const Case& row : cases) {
    const std::string name = utf8(NSObject::description(row.number));
    EXPECT_EQ(static_cast<int8_t>(NSNumber::charValue(row.number)), row.c) << name;
    EXPECT_EQ(NSNumber::unsignedCharValue(row.number), row.uc) << name;
    EXPECT_EQ(NSNumber::shortValue(row.number), row.s) << name;
    EXPECT_EQ(NSNumber::unsignedIntValue(row.number), row.ui) << name;
    EXPECT_EQ(NSNumber::longLongValue(row.number), row.q) << name;
    EXPECT_EQ(NSNumber::unsignedLongValue(row.number), row.uq) << name;
    EXPECT_EQ(NSNumber::doubleValue(row.number), row.d) << name;
    EXPECT_EQ(NSNumber::boolValue(row.number) != NO, row.b) << name;
  }
  EXPECT_EQ(integerOf(newNumber(std::nan(""))), 0);
  EXPECT_EQ(integerOf(ns("7")), 0);
  EXPECT_EQ(integerOf(nullptr), 0);
}

TEST(Numbers, BooleansAreTheTwoSharedObjects) {
  EXPECT_EQ(NSNumber::numberWithBool(classOf<NSNumber>(), YES), kCFBooleanTrue);
  EXPECT_EQ(NSNumber::numberWithBool(classOf<NSNumber>(), 64), kCFBooleanTrue);
  EXPECT_EQ(NSNumber::numberWithBool(classOf<NSNumber>(), NO), kCFBooleanFalse);
  EXPECT_EQ(send(NSObject::alloc(classOf<NSNumber>()), "initWithBool:", YES), kCFBooleanTrue);
  NSObject::release(kCFBooleanTrue);
  EXPECT_STREQ(object_getClassName(kCFBooleanTrue), "__NSCFBoolean");
}

TEST(Numbers, AreEqualByValueAcrossTypes) {
  const AutoreleasePool pool;
  constexpr double infinity = std::numeric_limits<double>::infinity();
  struct Case {
    NSNumber* left;
    NSNumber* right;
    NSInteger order;
  };
  const Case cases[] = {
      {newNumber(1).autorelease(), newNumber(1.0).autorelease(), 0},
      {newNumber(1).autorelease(), kCFBooleanTrue, 0},
      {newNumber(0.0).autorelease(), newNumber(-0.0).autorelease(), 0},
      {newNumber(9007199254740993L).autorelease(), newNumber(9007199254740992.0).autorelease(), 1},
      {newNumber(INT64_MAX).autorelease(), newNumber(9223372036854775808.0).autorelease(), -1},
      {newNumber(9223372036854775808ul).autorelease(), newNumber(9223372036854775808.0).autorelease(), 0},
      {newNumber(-1L).autorelease(), newNumber(UINT64_MAX).autorelease(), -1},
      {newNumber(0.5f).autorelease(), newNumber(0.5).autorelease(), 0},
      {newNumber(0.1f).autorelease(), newNumber(0.1).autorelease(), 1},
      {newNumber(infinity).autorelease(), newNumber(UINT64_MAX).autorelease(), 1},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(send<NSInteger>(row.left, "compare:", row.right), row.order);
    EXPECT_EQ(send<NSInteger>(row.right, "compare:", row.left), -row.order);
    EXPECT_EQ(NSObject::isEqual(row.left, row.right) != NO, row.order == 0);
    if (row.order == 0) {
      EXPECT_EQ(NSObject::hash(row.left), NSObject::hash(row.right));
    }
  }
  EXPECT_FALSE(NSObject::isEqual(newNumber(1), ns("1")));
}

TEST(Numbers, GiveTheirBytes) {
  const AutoreleasePool pool;
  float single = 0;
  NSValue::getValue(newNumber(1.5f), &single);
  EXPECT_EQ(single, 1.5f);
  int whole[2] = {7, 7};
  NSValue::getValue(newNumber(-3), whole);
  EXPECT_EQ(whole[0], -3);
  EXPECT_EQ(whole[1], 7);
}

TEST(Values, StructuresComeBack) {
  const AutoreleasePool pool;
  const Class cls = classOf<NSValue>();
  NSValue* const range = NSValue::valueWithRange(cls, {3, 4});
  EXPECT_EQ(NSValue::rangeValue(range).location, 3u);
  EXPECT_EQ(NSValue::rangeValue(range).length, 4u);
  EXPECT_STREQ(NSValue::objCType(range), "{_NSRange=QQ}");
  NSValue* const rect = NSValue::valueWithRect(cls, {{1, 2}, {3, 4}});
  EXPECT_EQ(NSValue::rectValue(rect).origin.y, 2);
  EXPECT_EQ(NSValue::rectValue(rect).size.width, 3);
  EXPECT_STREQ(NSValue::objCType(rect), "{CGRect={CGPoint=dd}{CGSize=dd}}");
  NSValue* const point = NSValue::valueWithPoint(cls, {5, 6});
  NSValue* const size = NSValue::valueWithSize(cls, {5, 6});
  EXPECT_EQ(NSValue::pointValue(point).y, 6);
  EXPECT_EQ(NSValue::sizeValue(size).width, 5);
  EXPECT_STREQ(NSValue::objCType(point), "{CGPoint=dd}");
  EXPECT_STREQ(NSValue::objCType(size), "{CGSize=dd}");
  EXPECT_FALSE(NSObject::isEqual(point, size));
  EXPECT_TRUE(NSObject::isEqual(range, NSValue::valueWithRange(cls, {3, 4})));
  EXPECT_FALSE(NSObject::isEqual(range, NSValue::valueWithRange(cls, {3, 5})));
  EXPECT_NE(raised([&] { NSValue::rectValue(range); }), "");
}

TEST(Values, AnyEncodedStructure) {
  const AutoreleasePool pool;
  struct Time {
    int64_t value;
    int32_t scale;
    uint32_t flags;
    int64_t epoch;
  } const time{1, 600, 1, 0};
  NSValue* const value = NSValue::valueWithBytes(classOf<NSValue>(), &time, "{?=qiIq}");
  EXPECT_STREQ(NSValue::objCType(value), "{?=qiIq}");
  Time copied{};
  NSValue::getValue(value, &copied);
  EXPECT_EQ(copied.scale, 600);
  for (const char* encoding : {"", "{?=qi", "v", "qq", "{opaque}", "?", "[4", "{?={?={?="})
    EXPECT_NE(raised([&] { NSValue::valueWithBytes(classOf<NSValue>(), &time, encoding); }), "") << encoding;
}

TEST(TypeEncodings, Sizes) {
  struct Case {
    const char* encoding;
    size_t size;
  };
  for (const Case& row : {Case{"c", 1},
                          {"{?=cd}", 16},
                          {"{?=dc}", 16},
                          {"{?=csi}", 8},
                          {"(?=cd)", 8},
                          {"[12s]", 24},
                          {"^v", 8},
                          {"^{node=^{node}}", 8},
                          {"@", 8},
                          {"{?={?=qqq}{?=qqq}}", 48},
                          {"{?=}", 0},
                          {"{outer=c{inner=cq}c}", 32},
                          {"[2{?=ic}]", 16}}) {
    EXPECT_EQ(encodedSize(row.encoding), row.size) << row.encoding;
  }
  EXPECT_EQ(encodedSize("[99999999999999999999c]"), std::nullopt);
  EXPECT_EQ(encodedSize(std::string(100'000, '^').c_str()), std::nullopt);
}

}  // namespace
