// Dictionaries of objects and of bare pointers, against a naive model.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/number.hpp"
#include "tests/standin/foundation_support.hpp"

namespace {

using namespace foundation_support;

// Entries in the order in which their keys came, found by looking at each.
template <class Key, class Value>
struct Model {
  std::vector<std::pair<Key, Value>> entries;
  auto place(Key key) {
    return std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry.first == key; });
  }
  void set(Key key, Value value) {
    if (auto found = place(key); found != entries.end()) {
      found->second = value;
    } else {
      entries.emplace_back(key, value);
    }
  }
  void remove(Key key) {
    if (auto found = place(key); found != entries.end()) entries.erase(found);
  }
};

// Keys come from a few values, so that they meet again; growth and shrinking alternate, so that gaps open and close.
TEST(Dictionaries, BehaveAsTheModel) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    const AutoreleasePool pool;
    std::mt19937 random(seed);
    const unsigned range = seed % 4 == 0 ? 6 : seed % 4 == 1 ? 24 : 400;
    const Owned<NSMutableDictionary> dictionary = newMutableDictionary();
    Model<int, int> model;
    for (int step = 0; step < 1500; ++step) {
      const AutoreleasePool inner;
      const int key = static_cast<int>(random() % range);
      const Owned<NSNumber> keyObject = newNumber(key);
      if (random() % 100 < (step / 300 % 2 == 0 ? 70u : 30u)) {
        model.set(key, step);
        NSMutableDictionary::setObject(dictionary, newNumber(step), keyObject);
      } else {
        model.remove(key);
        NSMutableDictionary::removeObject(dictionary, keyObject);
      }
      const int probe = static_cast<int>(random() % range);
      const auto expected = model.place(probe);
      NSObject* const found = NSDictionary::objectForKey(dictionary, newNumber(static_cast<double>(probe)));
      ASSERT_EQ(found != nullptr, expected != model.entries.end()) << "seed " << seed << " step " << step;
      if (found != nullptr) {
        ASSERT_EQ(integerOf(found), expected->second);
      }
    }
    std::vector<std::pair<int, int>> entries;
    forEachEntry(dictionary, [&](NSObject* key, NSObject* value) {
      entries.emplace_back(static_cast<int>(integerOf(key)), static_cast<int>(integerOf(value)));
    });
    EXPECT_EQ(entries, model.entries) << "seed " << seed;
    const Owned<NSObject> copied = adopt(NSObject::copy(dictionary));
    EXPECT_TRUE(NSObject::isEqual(copied, dictionary));
    EXPECT_EQ(NSDictionary::count(static_cast<NSDictionary*>(copied.get())), model.entries.size());
  }
}

// Addresses are multiples of 16 or near to each other, nil and unaligned ones among them, and nothing may read them.
TEST(PointerDictionaries, BehaveAsTheModel) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    std::mt19937 random(seed);
    const unsigned range = seed % 2 == 0 ? 10 : 1000;
    const uintptr_t stride = seed % 3 == 0 ? 16 : seed % 3 == 1 ? 4096 : 1;
    const Owned<NSMutableDictionary> dictionary = adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0, nullptr, nullptr));
    Model<const void*, const void*> model;
    for (uintptr_t step = 0; step < 4000; ++step) {
      const void* const key = reinterpret_cast<const void*>(random() % range * stride);
      if (random() % 100 < (step / 500 % 2 == 0 ? 60u : 40u)) {
        model.set(key, reinterpret_cast<const void*>(step + 1));
        CFDictionarySetValue(dictionary, key, reinterpret_cast<const void*>(step + 1));
      } else {
        model.remove(key);
        CFDictionaryRemoveValue(dictionary, key);
      }
      ASSERT_EQ(CFDictionaryGetCount(dictionary), static_cast<CFIndex>(model.entries.size()));
    }
    for (uintptr_t key = 0; key < range; ++key) {
      const auto expected = model.place(reinterpret_cast<const void*>(key * stride));
      EXPECT_EQ(CFDictionaryGetValue(dictionary, reinterpret_cast<const void*>(key * stride)),
                expected != model.entries.end() ? expected->second : nullptr);
    }
  }
}

TEST(PointerDictionaries, NeitherRetainNorCompareByValue) {
  const AutoreleasePool pool;
  const Owned<NSMutableDictionary> dictionary = adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0, nullptr, nullptr));
  const Owned<NSNumber> key = newNumber(70000), twin = newNumber(70000);
  CFDictionarySetValue(dictionary, key.get(), "host");
  EXPECT_EQ(NSObject::retainCount(key), 1u);
  EXPECT_STREQ(static_cast<const char*>(CFDictionaryGetValue(dictionary, key.get())), "host");
  EXPECT_EQ(CFDictionaryGetValue(dictionary, twin.get()), nullptr);
  EXPECT_NE(raised([&] { NSObject::copy(dictionary); }), "");
  EXPECT_NE(raised([&] { NSDictionary::allKeys(dictionary); }), "");
  const Owned<NSDictionary> plain = newDictionary({{ns("k"), dictionary.get()}});
  EXPECT_NE(utf8(NSObject::description(plain)).find("1 bare pointers"), std::string::npos);
  EXPECT_FALSE(NSObject::isEqual(plain, dictionary));
  EXPECT_NE(raised([&] { NSMutableDictionary::addEntries(newMutableDictionary(), dictionary); }), "");
}

TEST(Dictionaries, CopyTheirKeysAndRetainValues) {
  const AutoreleasePool pool;
  const Owned<NSMutableDictionary> dictionary = newMutableDictionary();
  const Owned<NSMutableString> key = newMutableString(standin::text::Text::latin1("key"));
  const Owned<NSNumber> first = newNumber(100000), second = newNumber(200000);
  NSMutableDictionary::setObject(dictionary, first, key);
  EXPECT_EQ(NSObject::retainCount(first), 2u);
  NSMutableString::appendString(key, ns("!"));
  EXPECT_EQ(NSDictionary::objectForKey(dictionary, ns("key")), first.get());
  EXPECT_EQ(NSDictionary::objectForKey(dictionary, key), nullptr);
  NSMutableDictionary::setObject(dictionary, second, ns("key"));
  EXPECT_EQ(NSObject::retainCount(first), 1u);
  EXPECT_EQ(NSDictionary::count(dictionary), 1u);
}

TEST(Dictionaries, RefuseNil) {
  const AutoreleasePool pool;
  const Owned<NSMutableDictionary> dictionary = newMutableDictionary();
  NSObject* const withNil[] = {nullptr};
  NSObject* const whole[] = {ns("k")};
  const std::function<void()> refused[] = {
      [&] { NSMutableDictionary::setObject(dictionary, ns("v"), nullptr); },
      [&] { NSMutableDictionary::setObject(dictionary, nullptr, ns("k")); },
      [&] { NSMutableDictionary::removeObject(dictionary, nullptr); },
      [&] { NSDictionary::dictionaryWithObjects(classOf<NSDictionary>(), withNil, whole, 1); },
      [&] { NSDictionary::dictionaryWithObjects(classOf<NSMutableDictionary>(), whole, withNil, 1); },
      [&] {
        NSMutableDictionary::setObject(static_cast<NSMutableDictionary*>(newDictionary({}).get()), whole[0], whole[0]);
      },
  };
  for (const auto& action : refused)
    EXPECT_EQ(raised(action).rfind("NSInvalidArgumentException: ", 0), 0u) << raised(action);
  EXPECT_EQ(NSDictionary::count(dictionary), 0u);
  EXPECT_EQ(NSDictionary::objectForKey(dictionary, nullptr), nullptr);
}

TEST(Dictionaries, FactoriesMakeTheReceiversKind) {
  const AutoreleasePool pool;
  NSObject* const keys[] = {ns("a"), ns("b"), ns("a")};
  NSObject* const values[] = {ns("1"), ns("2"), ns("3")};
  NSDictionary* const fixed = NSDictionary::dictionaryWithObjects(classOf<NSDictionary>(), values, keys, 3);
  EXPECT_STREQ(object_getClassName(fixed), "__NSDictionaryI");
  EXPECT_EQ(NSDictionary::count(fixed), 2u);
  EXPECT_EQ(utf8(NSDictionary::objectForKey(fixed, ns("a"))), "3");
  NSDictionary* const changing = NSDictionary::dictionaryWithObjects(classOf<NSMutableDictionary>(), values, keys, 2);
  EXPECT_TRUE(NSObject::isKindOfClass(changing, classOf<NSMutableDictionary>()));
  NSMutableDictionary::addEntries(static_cast<NSMutableDictionary*>(changing), fixed);
  EXPECT_TRUE(NSObject::isEqual(changing, fixed));
  EXPECT_EQ(NSArray::count(NSDictionary::allKeys(changing)), 2u);
  NSMutableDictionary::setObject(static_cast<NSMutableDictionary*>(changing), ns("x"), ns("b"));
  EXPECT_FALSE(NSDictionary::isEqualToDictionary(changing, fixed));
  EXPECT_FALSE(NSDictionary::isEqualToDictionary(changing, nullptr));
}

}  // namespace
