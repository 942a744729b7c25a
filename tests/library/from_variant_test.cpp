// Host variants as platform objects: every type code, every kind of array by both routes, and what a poorer host gives.
#include "bridge/from_variant.hpp"

#include <set>

#include "bridge/nesting.hpp"
#include "host/runtime/array.hpp"
#include "host/runtime/date.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/variant.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace bridge_test {
namespace {

using host::Kind;
using host::Value;

const std::set<int64_t> stringCodes = {8, 18, 19, 20, 21, 23, 37};

class FromVariant : public BridgeTest {
 protected:
  static std::string shown(host::HostObject* variant) { return show(bridge::GetVariantAsNSObject(forLibrary(variant))); }
  static HostHeld array(Kind kind, std::vector<Value> elements) {
    HostHeld made = host::makeArray(typeOf(kind), -1);
    for (const Value& element : elements) host::appendElement(made, element);
    return made;
  }
  static host::Type typeOf(Kind kind) { return host::typeNamed(kind == Kind::Object ? "Variant" : host::typeName(kind)); }
};

TEST_F(FromVariant, DecidesByTypeCode) {
  EXPECT_EQ(shown(nullptr), "nil");
  const std::map<int64_t, std::pair<Value, std::string>> byCode = {
      {2, {Value::integer(5), "q 5"}},       {3, {Value::integer(int64_t{1} << 40), "q 1099511627776"}},
      {4, {Value::single(1.5F), "f 1.5"}},   {5, {Value::number(-2.25), "d -2.25"}},
      {6, {Value::number(3.5), "d 3.5"}},    {11, {Value::boolean(true), "c 1"}},
      {16, {Value::integer(0xFF), "q 255"}},
  };
  for (int64_t code = -1; code <= 40; ++code) {
    if (code == 7 || code == 9) continue;  // Dates and objects are not boxed.
    const auto row = byCode.find(code);
    const bool isString = stringCodes.count(code) != 0;
    const Value value = row != byCode.end() ? row->second.first : Value::string("héllo");
    const std::string expected = row != byCode.end() ? row->second.second : isString ? "'héllo'" : "nil";
    EXPECT_EQ(shown(host::boxedWithTypeCode(value, code)), expected) << code;
  }
  // Of a boolean's number the low byte alone counts.
  for (const auto& [number, expected] : {std::pair(0, "c 0"), {256, "c 0"}, {512 + 3, "c 1"}}) {
    EXPECT_EQ(shown(host::boxedWithTypeCode(Value::integer(number), 11)), expected) << number;
  }
  // Nothing in these boxes is an array: what is taken for one is empty.
  const std::set<int64_t> arrayCodes = {4098, 4099, 4100, 4101, 4103, 4104, 4105, 4107, 4133};
  for (int64_t code = 4090; code <= 4200; ++code) {
    EXPECT_EQ(shown(host::boxedWithTypeCode(Value::integer(1), code)), arrayCodes.count(code) != 0 ? "[]" : "nil") << code;
  }
  EXPECT_EQ(shown(host::boxedWithTypeCode(Value::string(""), 8)), "''");
}

TEST_F(FromVariant, ReadsPropertiesWhereTheHostHasNoReaders) {
  const struct {
    const char* reader;
    Value value;
    const char* expected;
  } cases[] = {
      {"VarType(value As Variant) As Integer", Value::integer(7), "q 7"},
      {"VariantToInt64", Value::integer(-9), "q -9"},
      {"VariantToInt64", Value::boolean(true), "c 1"},
      {"VariantToSingle", Value::single(2.5F), "f 2.5"},
      {"VariantToDouble", Value::number(0.125), "d 0.125"},
      {"VariantToString", Value::string("text"), "'text'"},
  };
  for (const auto& [reader, value, expected] : cases) {
    switchOff(reader);
    EXPECT_EQ(shown(host::boxed(value)), expected) << reader;
    for (const char* property : {"REALGetPropValueString", "REALGetPropValueInteger", "REALGetPropValueInt64",
                                 "REALGetPropValueSingle", "REALGetPropValueDouble"}) {
      switchOff(property);
    }
    const std::string unread = shown(host::boxed(value));
    EXPECT_TRUE(unread == "nil" || unread == "''" || unread.ends_with(" 0")) << reader << ": " << unread;
    allOn();
  }
}

struct ArrayCase {
  Kind kind;
  const char* getter;
  std::vector<Value> elements;
  const char* expected;
};
const std::vector<ArrayCase>& arrayCases() {
  static const std::vector<ArrayCase> cases = {
      {Kind::Int32, "PluginIntegerArrayGetProc", {Value::integer(1), Value::integer(-2)}, "[q 1, q -2]"},
      {Kind::Integer, "PluginInt64ArrayGetProc", {Value::integer(int64_t{1} << 40)}, "[q 1099511627776]"},
      {Kind::Single, "PluginSingleArrayGetProc", {Value::single(0.5F), Value::single(-1.5F)}, "[f 0.5, f -1.5]"},
      {Kind::Double, "PluginDoubleArrayGetProc", {Value::number(0.1), Value::number(2)}, "[d 0.1, d 2]"},
      {Kind::Boolean, "PluginBooleanArrayGetProc", {Value::boolean(true), Value::boolean(false)}, "[c 1, c 0]"},
  };
  return cases;
}

TEST_F(FromVariant, ConvertsArraysOfEveryKindByBothRoutes) {
  std::vector<ArrayCase> cases = arrayCases();
  cases.push_back({Kind::String,
                   "PluginStringArrayGetProc",
                   {Value::string("ä"), Value::string(""), Value::string("b")},
                   "['ä', '', 'b']"});
  cases.push_back(
      {Kind::Text, "PluginTextArrayGetProc", {Value::text(host::HostText::make("ü")), Value::text(nullptr)}, "['ü', '']"});
  cases.push_back({Kind::Object, "PluginObjectArrayGetProc", {Value::integer(1), Value::string("x")}, "[q 1, 'x']"});
  for (const ArrayCase& each : cases) {
    for (const bool direct : {true, false}) {
      host::setDirectArrayStorage(direct);
      const HostHeld made = array(each.kind, each.elements);
      for (const double version : {2015.04, 2016.0}) {
        plugin::hostVersion = version;
        EXPECT_EQ(shown(made), each.expected) << each.getter << (direct ? " stored " : " ") << version;
      }
    }
    // The elements of an older host's array are read where they lie, without the getter.
    host::setDirectArrayStorage(true);
    switchOff(each.getter);
    plugin::hostVersion = 2015.04;
    EXPECT_EQ(shown(array(each.kind, each.elements)), each.expected) << each.getter;
    allOn();
    EXPECT_EQ(shown(array(each.kind, {})), "[]");
  }
}

TEST_F(FromVariant, ReadsDatesThroughTheirProperty) {
  const HostHeld date = host::makeDate({2014, 3, 5, 6, 7, 8});
  NSObject* const converted = bridge::GetVariantAsNSObject(forLibrary(date));
  ASSERT_NE(converted, nullptr);
  EXPECT_EQ(NSCalendarDate::dayOfMonth(converted), 5);
  EXPECT_EQ(shown(host::boxedWithTypeCode(Value::string("no date"), 7)), "nil");
  switchOff("REALGetPropValueObject");
  EXPECT_EQ(shown(date), "nil");
}

TEST_F(FromVariant, ConvertsArraysOfDates) {
  HostHeld dates = host::makeArray(host::typeNamed("Date"), -1);
  for (const int64_t year : {1999, 2024}) host::appendElement(dates, Value::object(host::makeDate({year, 2, 28, 1, 2, 3})));
  NSObject* const converted = bridge::GetVariantAsNSObject(forLibrary(dates));
  ASSERT_EQ(NSArray::count(converted), 2U);
  EXPECT_EQ(NSCalendarDate::yearOfCommonEra(NSArray::objectAtIndex(converted, 1)), 2024);
}

TEST_F(FromVariant, TakesTheLongWayToATextsCharacters) {
  switchOff("PluginCopyTextCFString");
  EXPECT_EQ(shown(array(Kind::Text, {Value::text(host::HostText::make("grün"))})), "['grün']");
  switchOff("REALGetStringCFString");
  EXPECT_EQ(shown(array(Kind::Text, {Value::text(host::HostText::make("grün"))})), "['']");
}

TEST_F(FromVariant, TakesTheUpperBoundAsZeroWhereTheHostHasNone) {
  switchOff("RuntimeUBound");
  EXPECT_EQ(shown(array(Kind::Double, {Value::number(4), Value::number(5)})), "[d 4]");
}

// What an array does not have is what its element would have been: refused, with all that was in hand given back.
TEST_F(FromVariant, RefusesElementsWithoutAPlatformForm) {
  for (const bool direct : {true, false}) {
    host::setDirectArrayStorage(direct);
    plugin::hostVersion = direct ? 2015.0 : 2019.0;
    const HostHeld made = array(Kind::Object, {Value::string("x"), Value()});
    EXPECT_NE(exceptionOf([&] { shown(made); }).find("NSInvalidArgumentException"), std::string::npos);
  }
  host::setDirectArrayStorage(true);
}

// Answers 2 when the conversion begins, and 1 before each element.
int64_t shrunkBound(plugin::REALobject) {
  static int64_t calls = 0;
  return calls++ % 4 == 0 ? 2 : 1;
}

TEST_F(FromVariant, ReportsElementsThatDisappearWhileTheArrayIsRead) {
  intercept("RuntimeUBound", reinterpret_cast<void*>(&shrunkBound));
  const std::string refused = "nil was refused";
  const struct {
    const char* type;
    Value element;
    std::string expected;
  } cases[] = {
      {"Integer", Value::integer(8), "[q 8, q 8, q 0]"},
      {"Boolean", Value::boolean(true), "[c 1, c 1, c 0]"},
      {"String", Value::string("s"), "['s', 's', '']"},
      {"Text", Value::text(host::HostText::make("t")), "['t', 't', '']"},
      {"Variant", Value::integer(8), refused},
      {"Date", Value::object(host::makeDate({2014, 3, 5, 6, 7, 8})), refused},
  };
  for (const auto& [type, element, expected] : cases) {
    const HostHeld array = host::makeArray(host::typeNamed(type), 2);
    for (int64_t index = 0; index < 3; ++index) host::setElement(array, index, element);
    std::string result = refused;
    const std::string exception = exceptionOf([&] { result = shown(array); });
    EXPECT_EQ(result, expected) << type;
    EXPECT_EQ(exception.find("NSInvalidArgumentException") == 0, expected == refused) << type << ": " << exception;
    EXPECT_EQ(raisedException(), "OutOfBoundsException: Parameter index  is too big. Range is 0 to 1, but value is 2.");
  }
}

// Deeper values are refused as a whole rather than cut short.
TEST_F(FromVariant, RefusesValuesThatNestTooDeeply) {
  const auto nested = [](int levels) {
    HostHeld object;
    for (int level = 0; level < levels; ++level) {
      HostHeld outer = level % 2 == 0 ? array(Kind::Object, {}) : host::makeDictionary();
      const Value inner = object ? Value::object(object) : Value::string("core");
      if (level % 2 == 0) {
        host::appendElement(outer, inner);
      } else {
        host::setDictionaryValue(outer, Value::string("k"), inner);
      }
      object = std::move(outer);
    }
    return object;
  };
  EXPECT_EQ(shown(nested(3)), "[{'k': ['core']}]");
  EXPECT_EQ(exceptionOf([&] { shown(nested(bridge::nestingLimit)); }), "");
  for (const int levels : {bridge::nestingLimit + 1, 100000}) {
    EXPECT_EQ(exceptionOf([&] { shown(nested(levels)); }),
              "NSInvalidArgumentException: Values are nested more than 1000 levels deep, or contain themselves.");
  }
}

TEST_F(FromVariant, RefusesArraysThatContainThemselves) {
  const HostHeld cycle = array(Kind::Object, {});
  host::appendElement(cycle, Value::object(cycle));
  EXPECT_NE(exceptionOf([&] { shown(cycle); }).find("nested more than 1000 levels"), std::string::npos);
  host::removeElement(cycle, 0);
}

}  // namespace
}  // namespace bridge_test
