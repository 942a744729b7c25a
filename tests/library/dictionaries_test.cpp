// Dictionaries in both directions: contents, nesting, the methods in use, and failures in the middle.
#include "bridge/dictionary_access.hpp"
#include "bridge/from_object.hpp"
#include "bridge/to_dictionary.hpp"
#include "host/runtime/array.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/exception.hpp"
#include "tests/library/bridge_fixture.hpp"

namespace bridge_test {
namespace {

using host::Value;

constexpr const char* setter = "Value(key As Variant, Assigns _value As Variant)";
constexpr const char* getter = "Value(key As Variant) As Variant";
constexpr const char* keyGetter = "Key(index As Integer) As Variant";

class Dictionaries : public BridgeTest {
 protected:
  static plugin::REALdictionary* asDictionary(host::HostObject* object) {
    return static_cast<plugin::REALdictionary*>(forLibrary(object));
  }
  static NSDictionary* toPlatform(host::HostObject* dictionary) { return bridge::NewNSDictionary(asDictionary(dictionary)); }
  static Variant toHost(NSDictionary* dictionary) { return plugin::adoptHost(bridge::NSDictionaryRB(dictionary)); }
  static HostHeld made(std::vector<std::pair<Value, Value>> entries) {
    HostHeld dictionary = host::makeDictionary();
    for (const auto& [key, value] : entries) host::setDictionaryValue(dictionary, key, value);
    return dictionary;
  }
};

TEST_F(Dictionaries, OfTheHostBecomeThePlatforms) {
  EXPECT_EQ(toPlatform(nullptr), nullptr);
  EXPECT_EQ(show(toPlatform(made({}))), "{}");
  const HostHeld inner = made({{Value::string("deep"), Value::number(0.5)}});
  const HostHeld outer = made({{Value::string("a"), Value::integer(1)},
                               {Value::string("inner"), Value::object(inner)},
                               {Value::object(inner), Value::string("by identity")},
                               {Value::string("nil"), Value()},
                               {Value::integer(7), Value::boolean(true)}});
  EXPECT_EQ(show(toPlatform(outer)),
            "{'a': q 1, 'inner': {'deep': d 0.5}, 'nil': null, q 7: c 1, {'deep': d 0.5}: 'by identity'}");
}

TEST_F(Dictionaries, OfThePlatformBecomeTheHosts) {
  EXPECT_EQ(show(toHost(nullptr)), "nil");
  EXPECT_EQ(show(toHost(NSDictionary::dictionary(classOf<NSDictionary>()))), "{}");
  NSDictionary* const inner = dictionaryOf({{text("deep"), text("value")}});
  const Variant both = toHost(dictionaryOf({{text("first"), inner}, {text("second"), arrayOf({inner})}}));
  EXPECT_EQ(show(toPlatform(forHost(both))), "{'first': {'deep': 'value'}, 'second': [{'deep': 'value'}]}");
}

TEST_F(Dictionaries, OfThousandsOfEntriesComeBackWhole) {
  HostHeld large = host::makeDictionary();
  for (int64_t index = 0; index < 5000; ++index) {
    const std::string name = "key " + std::to_string(index);
    host::setDictionaryValue(large, Value::string(name), index % 2 == 0 ? Value::integer(index) : Value::string(name));
  }
  NSDictionary* const across = toPlatform(large);
  EXPECT_EQ(NSDictionary::count(across), 5000U);
  const Variant back = toHost(across);
  EXPECT_EQ(host::dictionaryCount(forHost(back)), 5000);
  for (int64_t index = 0; index < 5000; index += 499) {
    const Value key = host::dictionaryKey(large, index);
    EXPECT_EQ(host::toUtf8(host::dictionaryValue(forHost(back), key)), host::toUtf8(host::dictionaryValue(large, key)));
  }
}

TEST_F(Dictionaries, WithoutAMethodLoseWhatItReaches) {
  const struct {
    const char* missing;
    const char* expected;
  } cases[] = {
      {keyGetter, "{}"},
      {getter, "{'a': null, 'b': null}"},
      {setter, "{'a': q 1, 'b': {'c': 'd'}}"},
      {"REALLoadObjectMethod", "{}"},
      {"REALGetPropValueInteger", "{}"},
  };
  // Without keys, the value of nil is asked for all the same.
  const HostHeld dictionary = made({{Value::string("a"), Value::integer(1)},
                                    {Value(), Value::string("left out")},
                                    {Value::string("b"), Value::object(made({{Value::string("c"), Value::string("d")}}))}});
  for (const auto& [missing, expected] : cases) {
    switchOff(missing);
    EXPECT_EQ(show(toPlatform(dictionary)), expected) << missing;
    allOn();
  }
}

void throwingSetter(plugin::REALobject, plugin::REALobject, plugin::REALobject) {
  host::throwException("KeyNotFoundException", "refused");
}
void* loadThrowingSetter(plugin::REALobject, const char* declaration) {
  return declaration == std::string_view(setter) ? reinterpret_cast<void*>(&throwingSetter) : nullptr;
}

// The fixture asks for every reference that was in hand, and for the methods to be forgotten.
TEST_F(Dictionaries, GiveEverythingBackWhenTheHostThrows) {
  intercept("REALLoadObjectMethod", reinterpret_cast<void*>(&loadThrowingSetter));
  EXPECT_THROW(toHost(dictionaryOf({{text("k"), arrayOf({text("v")})}})), host::HostException);
}

TEST_F(Dictionaries, GiveEverythingBackWhenAValueIsRefused) {
  HostHeld refused = host::makeArray(host::typeNamed("Variant"), 0);
  const HostHeld dictionary =
      made({{Value::string("fine"), Value::integer(1)}, {Value::string("bad"), Value::object(refused)}});
  EXPECT_NE(exceptionOf([&] { toPlatform(dictionary); }).find("NSInvalidArgumentException"), std::string::npos);
}

TEST_F(Dictionaries, ThatContainThemselvesAreRefused) {
  const HostHeld cycle = host::makeDictionary();
  for (const char* name : {"one", "two"}) host::setDictionaryValue(cycle, Value::string(name), Value::object(cycle));
  EXPECT_NE(exceptionOf([&] { toPlatform(cycle); }).find("nested more than 1000 levels"), std::string::npos);
  for (const char* name : {"one", "two"}) host::removeDictionaryKey(cycle, Value::string(name));
}

}  // namespace
}  // namespace bridge_test
