// Values from kind to kind, strings from encoding to encoding.
#include "host/runtime/conversion.hpp"

#include <sys/mman.h>

#include <limits>

#include "host/runtime/date.hpp"
#include "host/runtime/encoding.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/runtime/variant.hpp"
#include "tests/host/runtime_support.hpp"

namespace host_test {
namespace {

class ConversionTest : public RuntimeTest {};

TEST_F(ConversionTest, GivesTheNearestValueOfTheType) {
  const struct {
    Value value;
    const char* type;
    const char* result;
  } cases[] = {
      {Value::number(2.9), "Integer", "Integer 2"},
      {Value::number(-2.9), "Integer", "Integer -2"},
      {Value::number(1e300), "Integer", "Integer 9223372036854775807"},
      {Value::number(-1e300), "Integer", "Integer -9223372036854775808"},
      {Value::number(std::numeric_limits<double>::quiet_NaN()), "Integer", "Integer 0"},
      {Value::number(-1), "UInt64", "UInt64 0"},
      {Value::number(1.8e19), "UInt64", "UInt64 18000000000000000000"},
      {Value::integer(-1), "UInt64", "UInt64 18446744073709551615"},
      {Value::integer(1), "Boolean", "Boolean True"},
      {Value::boolean(true), "Double", "Double 1"},
      {Value::unsignedInteger(std::numeric_limits<uint64_t>::max()), "Double", "Double 1.8446744073709552e+19"},
      {Value::string(" 12.5 apples"), "Double", "Double 12.5"},
      {Value::string("9223372036854775807"), "Integer", "Integer 9223372036854775807"},
      {Value::string("&hFF"), "Integer", "Integer 255"},
      {Value::string("inf"), "Double", "Double 0"},
      {Value::string("TRUE"), "Boolean", "Boolean True"},
      {Value::number(0.1), "String", "String 0.1"},
      {Value::single(0.1F), "String", "String 0.1"},
      {Value::number(100000), "String", "String 100000"},
      {Value::string("é"), "Text", "Text é"},
      {Value(), "String", "String "},
      {Value(), "Integer", "Integer 0"},
      {Value(), "Date", "nil"},
      {Value::integer(3), "Variant", "Integer 3"},
      {Value::object(makeDate({2014, 3, 5, 6, 7, 8})), "String", "String 2014-03-05 06:07:08"},
      {Value::object(makeMemoryBlock("abc")), "String", "String abc"},
      {Value::string("abc"), "memoryblock", "a MemoryBlock"},
      {Value::object(makeException("IOException", "")), "RuntimeException", "a IOException"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(show(convert(each.value, typeNamed(each.type))), each.result) << show(each.value) << " as " << each.type;
  }
}

TEST_F(ConversionTest, RefusesWhatCannotBe) {
  const Value date = Value::object(makeDate({2000, 1, 1, 0, 0, 0}));
  const struct {
    Value value;
    const char* type;
    const char* exception;
  } cases[] = {
      {date, "Integer", "TypeMismatchException: A Date is no Integer."},
      {date, "Dictionary", "IllegalCastException: A Date is no Dictionary."},
      {Value::integer(1), "Date", "TypeMismatchException: A Integer is no Date."},
      {Value::object(makeException("RuntimeException", "")), "IOException",
       "IllegalCastException: A RuntimeException is no IOException."},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(thrownBy([&] { convert(each.value, typeNamed(each.type)); }), each.exception);
  }
}

// Each row's types go from the best choice to the worst, and end with one that is none.
TEST_F(ConversionTest, ChoosesTheNearestOverload) {
  const std::vector<std::pair<Value, std::vector<const char*>>> rows = {
      {Value::integer(1), {"Integer", "UInt64", "Double", "Boolean", "String", "Variant", "Date"}},
      {Value::number(1), {"Double", "Single", "Integer", "String", "Variant", "Date"}},
      {Value::string("x"), {"String", "Text", "MemoryBlock", "Integer", "Variant", "Dictionary"}},
      {Value::object(makeException("IOException", "")), {"IOException", "RuntimeException", "Variant", "String"}},
      {Value(), {"Date", "String", "Variant", "Integer"}},
  };
  for (const auto& [value, types] : rows) {
    std::optional<int> last = -1;
    for (const char* type : types) {
      const std::optional<int> cost = conversionCost(value, typeNamed(type));
      EXPECT_TRUE(type == types.back() ? !cost : cost && *cost > *last) << show(value) << " to " << type;
      last = cost;
    }
  }
}

TEST_F(ConversionTest, ComparesByValueAndIdentity) {
  const Value date = Value::object(makeDate({2000, 1, 1, 0, 0, 0}));
  const struct {
    Value left, right;
    bool equal;
  } cases[] = {
      {Value::string("Straße"), Value::string("STRASSE"), true},
      {Value::string("É"), Value::string("é"), true},
      {Value::string(""), Value(), false},
      {Value::integer(5), Value::number(5), true},
      {Value::integer(5), Value::number(5.5), false},
      {Value::integer(1), Value::boolean(true), false},
      {Value::string("5"), Value::integer(5), false},
      {Value::unsignedInteger(~uint64_t{0}), Value::integer(-1), false},
      {date, date, true},
      {date, Value::object(makeDate({2000, 1, 1, 0, 0, 0})), false},
  };
  for (const auto& each : cases) EXPECT_EQ(equalValues(each.left, each.right), each.equal) << show(each.left);
}

TEST_F(ConversionTest, StringsChangeTheirEncoding) {
  const struct {
    std::string bytes;
    uint32_t from, to;
    std::string result;
  } cases[] = {
      {"caf\x8E", encodingMacRoman, encodingUTF8, "café"},
      {"café", encodingUTF8, encodingMacRoman, "caf\x8E"},
      {"\x80", encodingWindowsLatin1, encodingUTF8, "€"},
      {"€", encodingUTF8, encodingLatin1, "?"},
      {"é", encodingUTF8, encodingASCII, "?"},
      {"é", encodingUnknown, encodingUTF16, std::string("\xE9\0", 2)},
      {std::string("\x3D\xD8\x00\xDE", 4), encodingUTF16, encodingUTF8, "😀"},
      {std::string("\x00\xF6\x01\x00", 4), encodingUTF32, encodingUTF8, "😀"},
      {"abc", encodingUTF8, 0x12345678, "abc"},
  };
  for (const auto& each : cases) {
    const HostOwned<HostString> made = HostString::make(each.bytes, each.from);
    EXPECT_EQ(bytesOf(converted(made, each.to)), each.result) << each.from << " to " << each.to;
  }
  for (const Encoding& each : encodings()) {
    const auto there = convertBytes("plain text", encodingUTF8, each.number);
    ASSERT_TRUE(there) << each.converter;
    EXPECT_EQ(convertBytes(*there, each.number, encodingUTF8), "plain text") << each.converter;
  }
}

// Their length is held in 32 bits. What is too long is not looked at.
TEST_F(ConversionTest, StringsTooLongAreRefused) {
  constexpr size_t tooMany = size_t{INT32_MAX} + 1;
  void* const mapped = mmap(nullptr, tooMany, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(mapped, MAP_FAILED);
  const std::string_view bytes(static_cast<const char*>(mapped), tooMany);
  EXPECT_EQ(thrownBy([&] { HostString::make(bytes); }), "OutOfMemoryException: The string is too long.");
  EXPECT_EQ(thrownBy([&] { HostText::make(bytes); }), "OutOfMemoryException: The string is too long.");
  munmap(mapped, tooMany);
}

TEST_F(ConversionTest, VariantsSayTheirTypeAndReadAsOthers) {
  const struct {
    HostOwned<HostObject> variant;
    int64_t code;
    const char* text;
    int64_t number;
  } cases[] = {
      {boxed(Value()), 0, "", 0},
      {boxed(Value::integer(7, Kind::Int32)), 2, "7", 7},
      {boxed(Value::integer(int64_t{1} << 40)), 3, "1099511627776", int64_t{1} << 40},
      {boxed(Value::single(1.5F)), 4, "1.5", 1},
      {boxed(Value::number(2.5)), 5, "2.5", 2},
      {boxed(Value::number(2.5, Kind::Currency)), 6, "2.5", 2},
      {boxed(Value::string("12")), 8, "12", 12},
      {boxed(Value::boolean(true)), 11, "True", 1},
      {boxed(Value::integer(0xFF8000, Kind::Color)), 16, "16744448", 0xFF8000},
      {boxed(Value::text(HostText::make("12"))), 37, "12", 12},
      {boxedWithTypeCode(Value::string("c"), 18), 18, "c", 0},
      {makeDate({2001, 2, 3, 4, 5, 6}), 7, "2001-02-03 04:05:06", 0},
      {makeMemoryBlock("m"), 9, "m", 0},
  };
  const auto typeCode = reinterpret_cast<int64_t (*)(HostObject*)>(
      service<void*(void*, const char*)>("REALLoadGlobalMethod")(nullptr, "VarType(value As Variant) As Integer"));
  for (const auto& each : cases) {
    EXPECT_EQ(typeCode(each.variant), each.code) << each.text;
    EXPECT_EQ(service<int64_t(HostObject*)>("VariantToInt64")(each.variant), each.number) << each.text;
    const auto text = adopt(service<HostString*(HostObject*)>("VariantToString")(each.variant));
    EXPECT_EQ(bytesOf(text), each.text);
  }
}

}  // namespace
}  // namespace host_test
