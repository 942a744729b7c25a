// Dictionaries in both directions: contents, nesting, the methods in use, and failures in the middle.
#include <limits>

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

bool isMutable(NSDictionary* dictionary) {
  return NSObject::isKindOfClass(dictionary, classOf<NSMutableDictionary>()) != NO;
}

int64_t countAnswer;
bool answerCount(plugin::REALobject, const char* property, int64_t* count) {
  *count = countAnswer;
  return property == std::string_view("Count");
}

TEST_F(Dictionaries, ThatCountNoEntriesAreImmutable) {
  const HostHeld dictionary = made({{Value::string("a"), Value::integer(1)}});
  EXPECT_TRUE(isMutable(toPlatform(dictionary)));
  EXPECT_FALSE(isMutable(toPlatform(made({}))));
  intercept("REALGetPropValueInteger", reinterpret_cast<void*>(&answerCount));
  for (const int64_t count : {int64_t{0}, int64_t{-1}, std::numeric_limits<int64_t>::min()}) {
    countAnswer = count;
    EXPECT_EQ(show(toPlatform(dictionary)), "{}") << count;
    EXPECT_FALSE(isMutable(toPlatform(dictionary))) << count;
  }
}

TEST_F(Dictionaries, WithoutKeysKeepTheirOtherMethods) {
  switchOff(keyGetter);
  NSDictionary* const empty = toPlatform(made({{Value(), Value::integer(1)}}));
  EXPECT_EQ(show(empty), "{}");
  EXPECT_TRUE(isMutable(empty));
  EXPECT_NE(bridge::LastDictionarySetter, nullptr);
  EXPECT_NE(bridge::LastDictionaryGetter, nullptr);
  EXPECT_EQ(bridge::LastDictionaryKeyGetter, nullptr);
}

// Two dictionaries, A and B, with methods of their own, which must be called with their own dictionary; and what was loaded.
plugin::REALobject owners[2];
std::string loaded;

void* realMethod(plugin::REALobject object, const char* declaration) {
  return hostService<decltype(realMethod)>("REALLoadObjectMethod")(object, declaration);
}

template <int owner>
plugin::REALobject ownKey(plugin::REALobject dictionary, int64_t index) {
  EXPECT_EQ(dictionary, owners[owner]);
  return reinterpret_cast<decltype(&ownKey<owner>)>(realMethod(dictionary, keyGetter))(dictionary, index);
}
template <int owner>
plugin::REALobject ownValue(plugin::REALobject dictionary, plugin::REALobject key) {
  EXPECT_EQ(dictionary, owners[owner]);
  return reinterpret_cast<decltype(&ownValue<owner>)>(realMethod(dictionary, getter))(dictionary, key);
}

template <int owner>
void* loadOwn(const char* declaration) {
  const std::string_view wanted = declaration;
  loaded += "AB"[owner] + std::string(wanted == setter ? "= " : wanted == getter ? ". " : "# ");
  if (wanted == keyGetter) return reinterpret_cast<void*>(&ownKey<owner>);
  return wanted == getter ? reinterpret_cast<void*>(&ownValue<owner>) : nullptr;
}

void* loadMethod(plugin::REALobject object, const char* declaration) {
  const std::string_view wanted = declaration;
  if (wanted != setter && wanted != getter && wanted != keyGetter) return realMethod(object, declaration);
  return object == owners[0] ? loadOwn<0>(declaration) : loadOwn<1>(declaration);
}

TEST_F(Dictionaries, AreReachedThroughTheirOwnMethods) {
  const HostHeld b = made({{Value::string("x"), Value::integer(1)}, {Value::string("y"), Value::integer(2)}});
  const HostHeld a = made({{Value::string("after"), Value::integer(3)}});
  const HostHeld outer = made({{Value::string("before"), Value::integer(4)},
                               {Value::string("inner"), Value::object(b)},
                               {Value::string("outer"), Value::integer(5)}});
  intercept("REALLoadObjectMethod", reinterpret_cast<void*>(&loadMethod));
  const struct {
    std::vector<host::HostObject*> converted;
    const char* expected;
    const char* loaded;
  } cases[] = {
      {{b}, "{'x': q 1, 'y': q 2}", "B= B. B# "},
      {{a, b}, "{'after': q 3}{'x': q 1, 'y': q 2}", "A= A. A# B= B. B# "},
      {{a, a}, "{'after': q 3}{'after': q 3}", "A= A. A# A= A. A# "},
      {{outer}, "{'before': q 4, 'inner': {'x': q 1, 'y': q 2}, 'outer': q 5}", "A= A. A# B= B. B# A= A. A# "},
  };
  for (const auto& each : cases) {
    owners[0] = forLibrary(each.converted.front());
    owners[1] = forLibrary(b);
    if (owners[0] == owners[1]) owners[0] = nullptr;
    loaded.clear();
    std::string result;
    for (host::HostObject* const dictionary : each.converted) result += show(toPlatform(dictionary));
    EXPECT_EQ(result, each.expected);
    EXPECT_EQ(loaded, each.loaded) << result;
  }
}

// What happens to an entry, in order.
std::string steps;
plugin::REALobject makeStringVariant(plugin::REALstring string) {
  plugin::REALobject const made = hostService<decltype(makeStringVariant)>("StringToVariant")(string);
  steps += "made " + show(made) + "; ";
  return made;
}
void unlockVariant(plugin::REALobject object) {
  steps += "unlocked " + show(object) + "; ";
  hostService<decltype(unlockVariant)>("REALUnlockObject")(object);
}
NSArray* oneKey(NSObject*, SEL) { return arrayOf({text("k")}); }
NSObject* valueOfKey(NSObject*, SEL, NSObject*) {
  steps += "asked; ";
  return text("v");
}

TEST_F(Dictionaries, TakeEachEntryInOrderAndGiveTheKeyBackFirst) {
  intercept("StringToVariant", reinterpret_cast<void*>(&makeStringVariant));
  intercept("REALUnlockObject", reinterpret_cast<void*>(&unlockVariant));
  steps.clear();
  toPlatform(made({{Value::string("k"), Value::integer(1)}}));
  EXPECT_EQ(steps, "unlocked String k; unlocked Integer 1; ");
  const Class watched = objc_allocateClassPair(classOf<NSObject>(), "WatchedDictionary", 0);
  class_addMethod(watched, NSDictionary::allKeys.selector(), reinterpret_cast<IMP>(&oneKey), "@@:");
  class_addMethod(watched, NSDictionary::objectForKey.selector(), reinterpret_cast<IMP>(&valueOfKey), "@@:@");
  objc_registerClassPair(watched);
  const Owned<NSObject> dictionary = adopt(NSObject::init(NSObject::alloc(watched)));
  steps.clear();
  const Variant converted = toHost(static_cast<NSDictionary*>(dictionary.get()));
  EXPECT_EQ(steps, "asked; made String k; made String v; unlocked String k; unlocked String v; ");
  EXPECT_EQ(show(converted), "{String k: String v}");
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
