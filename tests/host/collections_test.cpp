// Arrays and dictionaries against naive models; memory blocks.
#include <algorithm>
#include <random>

#include "host/runtime/array.hpp"
#include "host/runtime/date.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/runtime/record.hpp"
#include "host/runtime/variant.hpp"
#include "tests/host/runtime_support.hpp"

namespace host_test {
namespace {

class CollectionsTest : public RuntimeTest {};

std::string joined(const HostObject* array) {
  std::string text;
  for (int64_t index = 0; index <= upperBound(array); ++index) text += toUtf8(element(array, index)) + ",";
  return text;
}

TEST_F(CollectionsTest, ArraysFollowANaiveModel) {
  for (const char* type : {"String", "Integer", "Int32", "Single", "Double", "Variant", "Text"}) {
    std::mt19937 random(7);
    const HostOwned<HostObject> array = makeArray(typeNamed(type), -1);
    std::vector<int64_t> model;
    for (int step = 0; step < 400; ++step) {
      const auto place = static_cast<int64_t>(random() % (model.size() + 1));
      const int64_t number = random() % 1000;
      switch (model.empty() ? 0 : random() % 4) {
        case 0:
        case 1:
          insertElement(array, place, Value::integer(number));
          model.insert(model.begin() + place, number);
          break;
        case 2:
          setElement(array, place % static_cast<int64_t>(model.size()), Value::integer(number));
          model[static_cast<size_t>(place) % model.size()] = number;
          break;
        default:
          removeElement(array, place % static_cast<int64_t>(model.size()));
          model.erase(model.begin() + place % static_cast<int64_t>(model.size()));
      }
    }
    std::string expected;
    for (const int64_t number : model) expected += std::to_string(number) + ",";
    ASSERT_EQ(joined(array), expected) << type;
  }
}

TEST_F(CollectionsTest, ArraysKeepTheirBounds) {
  const HostOwned<HostObject> array = makeArray(typeNamed("String"), 2);
  EXPECT_EQ(joined(array), ",,,");
  setElement(array, 2, Value::string("z"));
  resizeArray(array, 3);
  EXPECT_EQ(joined(array), ",,z,,");
  resizeArray(array, -5);
  EXPECT_EQ(upperBound(array), -1);
  EXPECT_EQ(thrownBy([&] { element(array, 0); }), "OutOfBoundsException: Index 0 is not in 0 to -1.");
  EXPECT_EQ(thrownBy([&] { insertElement(array, 1, Value()); }), "OutOfBoundsException: Index 1 is not in 0 to -1.");
  for (const int64_t less : {0, 1}) {
    EXPECT_EQ(thrownBy([&] { resizeArray(array, std::numeric_limits<int64_t>::max() - less); }),
              "OutOfMemoryException: There is no memory for the array.");
  }
}

// What a plug-in reads straight from memory is what the getters give.
TEST_F(CollectionsTest, ArraysShowTheirStorage) {
  for (const bool direct : {true, false}) {
    setDirectArrayStorage(direct);
    const HostOwned<HostObject> integers = makeArray(typeNamed("Int32"), -1), singles = makeArray(typeNamed("Single"), -1);
    const HostOwned<HostObject> booleans = makeArray(typeNamed("Boolean"), -1);
    for (int64_t index = 0; index < 40; ++index) {
      appendElement(integers, Value::integer(-index));
      appendElement(singles, Value::integer(index));
      appendElement(booleans, Value::boolean(index % 2 == 1));
    }
    EXPECT_EQ(integers->word<int64_t*>(1) != nullptr, direct);
    if (!direct) continue;
    EXPECT_EQ(integers->word<int64_t*>(1)[39], -39);
    EXPECT_EQ(singles->word<float*>(1)[39], 39);
    EXPECT_EQ(booleans->word<uint8_t*>(1)[39], 1);
  }
  setDirectArrayStorage(true);
}

// As many calls within each other would not fit on the stack.
TEST_F(CollectionsTest, EndHoweverDeepTheyNest) {
  HostOwned<HostObject> outer;
  for (int level = 0; level < 1'000'000; ++level) {
    const Value inner = Value::object(std::move(outer));
    outer = level % 2 == 0 ? makeDictionary() : makeArray(typeNamed("Variant"), 0);
    if (level % 2 == 0) {
      setDictionaryValue(outer, Value::string("inner"), inner);
    } else {
      setElement(outer, 0, inner);
    }
  }
}

HostObject* companions[2];
int ended;
// The first to end locks and unlocks the other, which waits for its own end.
void touchTheOther(HostObject* self) {
  HostObject* const other = companions[self == companions[0] ? 1 : 0];
  if (++ended > 1) return;
  other->lock();
  other->unlock();
}

TEST_F(CollectionsTest, EndOnceThoughTheyAreTouchedWhileTheyWait) {
  static ClassRecord record;
  record.name = "Companion";
  record.destructor = touchTheOther;
  const HostClass& type = runtime.registerClass(record);
  ended = 0;
  {
    const HostOwned<HostObject> array = makeArray(typeNamed("Companion"), 1);
    for (int index = 0; index < 2; ++index) {
      const HostOwned<HostObject> made = HostObject::make(type);
      companions[index] = made;
      setElement(array, index, Value::object(made));
    }
  }
  EXPECT_EQ(ended, 2);
}

TEST_F(CollectionsTest, ArraysTellTheirTypeCode) {
  const struct {
    const char* type;
    int64_t code;
  } cases[] = {{"Int32", 4098},  {"Integer", 4099}, {"Single", 4100},     {"Double", 4101},  {"Date", 4103},
               {"String", 4104}, {"Variant", 4105}, {"Dictionary", 4105}, {"Boolean", 4107}, {"Text", 4133}};
  for (const auto& each : cases) EXPECT_EQ(typeCodeOf(makeArray(typeNamed(each.type), -1)), each.code) << each.type;
}

TEST_F(CollectionsTest, DictionariesFollowANaiveModel) {
  std::mt19937 random(11);
  const HostOwned<HostObject> dictionary = makeDictionary();
  std::vector<std::pair<std::string, int64_t>> model;
  for (int step = 0; step < 3000; ++step) {
    const std::string key = "Key" + std::to_string(random() % 50);
    const auto known = std::find_if(model.begin(), model.end(), [&](const auto& entry) { return entry.first == key; });
    if (random() % 2 == 0) {
      setDictionaryValue(dictionary, Value::string(key), Value::integer(step));
      if (known == model.end()) {
        model.emplace_back(key, step);
      } else {
        known->second = step;
      }
    } else if (known != model.end()) {
      removeDictionaryKey(dictionary, Value::string(key));
      model.erase(known);
    }
    ASSERT_EQ(dictionaryCount(dictionary), static_cast<int64_t>(model.size()));
    if (model.empty()) continue;
    const size_t place = random() % model.size();
    ASSERT_EQ(toUtf8(dictionaryKey(dictionary, static_cast<int64_t>(place))), model[place].first) << step;
    ASSERT_EQ(toInteger(dictionaryValue(dictionary, Value::string(model[place].first))), model[place].second) << step;
  }
}

TEST_F(CollectionsTest, DictionariesFindEqualKeysAndMissOthers) {
  const HostOwned<HostObject> dictionary = makeDictionary();
  setDictionaryValue(dictionary, Value::string("Größe"), Value::integer(1));
  setDictionaryValue(dictionary, Value::string("GRÖSSE"), Value::integer(2));
  setDictionaryValue(dictionary, Value::integer(3), Value());
  EXPECT_EQ(dictionaryCount(dictionary), 2);
  EXPECT_EQ(toUtf8(dictionaryKey(dictionary, 0)), "Größe");
  EXPECT_EQ(show(dictionaryValue(dictionary, Value::string("größe"))), "Integer 2");
  EXPECT_TRUE(dictionaryHasKey(dictionary, Value::number(3)));
  EXPECT_EQ(show(call(dictionary, "Lookup", {Value::string("x"), Value::integer(9)})), "Integer 9");
  EXPECT_EQ(joined(call(dictionary, "Keys").asObject()), "Größe,3,");
  EXPECT_EQ(thrownBy([&] { dictionaryValue(dictionary, Value::string("x")); }),
            "KeyNotFoundException: The dictionary has no key \"x\".");
  EXPECT_EQ(thrownBy([&] { call(dictionary, "Key", {Value::integer(2)}); }),
            "OutOfBoundsException: Index 2 is not in 0 to 1.");
}

TEST_F(CollectionsTest, MemoryBlocksHoldNumbersInEitherOrder) {
  const HostOwned<HostObject> block = makeMemoryBlock(int64_t{8});
  const struct {
    const char* accessor;
    Value stored;
    const char* read;
    const char* littleEndianBytes;
  } cases[] = {
      {"Int8Value", Value::integer(-2), "Integer -2", "\xFE"},
      {"UInt8Value", Value::integer(254), "Integer 254", "\xFE"},
      {"Int16Value", Value::integer(-2), "Integer -2", "\xFE\xFF"},
      {"UInt16Value", Value::integer(0x1234), "Integer 4660", "\x34\x12"},
      {"Int32Value", Value::integer(-2), "Integer -2", "\xFE\xFF\xFF\xFF"},
      {"UInt32Value", Value::integer(0xFFFFFFFE), "Integer 4294967294", "\xFE\xFF\xFF\xFF"},
      {"Int64Value", Value::integer(-2), "Integer -2", "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF"},
      {"UInt64Value", Value::unsignedInteger(~uint64_t{1}), "UInt64 18446744073709551614",
       "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF"},
      {"SingleValue", Value::number(-1.5), "Single -1.5", nullptr},
      {"DoubleValue", Value::number(-1.5), "Double -1.5", nullptr},
  };
  for (const auto& each : cases) {
    for (const bool littleEndian : {true, false}) {
      block->type->findProperty("LittleEndian")->write(block, Value::boolean(littleEndian));
      call(block, each.accessor, {Value::integer(0), each.stored});
      EXPECT_EQ(show(call(block, each.accessor, {Value::integer(0)})), each.read) << each.accessor;
      if (each.littleEndianBytes == nullptr) continue;
      std::string expected = each.littleEndianBytes;
      if (!littleEndian) std::reverse(expected.begin(), expected.end());
      const Value length = Value::integer(static_cast<int64_t>(expected.size()));
      EXPECT_EQ(toUtf8(call(block, "StringValue", {Value::integer(0), length})), expected) << each.accessor;
    }
  }
}

TEST_F(CollectionsTest, MemoryBlocksKeepWithinTheirSize) {
  const HostOwned<HostObject> block = makeMemoryBlock("hello");
  const char* outside = "OutOfBoundsException: Index 5 is not in 0 to 4.";
  EXPECT_EQ(thrownBy([&] { call(block, "Int32Value", {Value::integer(2)}); }), outside);
  EXPECT_EQ(thrownBy([&] { call(block, "Int32Value", {Value::integer(2), Value::integer(1)}); }), outside);
  EXPECT_EQ(thrownBy([&] { call(block, "StringValue", {Value::integer(1), Value::integer(5)}); }), outside);
  EXPECT_NE(thrownBy([&] { call(block, "Byte", {Value::integer(-1)}); }), "");
  EXPECT_NE(thrownBy([&] {
              call(block, "StringValue", {Value::integer(std::numeric_limits<int64_t>::max()), Value::integer(1)});
            }),
            "");
  block->type->findProperty("Size")->write(block, Value::integer(7));
  EXPECT_EQ(toUtf8(call(block, "StringValue", {Value::integer(0), Value::integer(7)})), std::string("hello\0\0", 7));
  EXPECT_EQ(toUtf8(call(block, "CString", {Value::integer(1)})), "ello");
}

TEST_F(CollectionsTest, MemoryBlocksThatCannotBeMade) {
  setMemoryBlockLimit(1000);
  const HostOwned<HostObject> block = makeMemoryBlock(int64_t{0});
  EXPECT_EQ(thrownBy([&] { call(block, "Constructor", {Value::integer(3'000'000'000)}); }),
            "OutOfMemoryException: There is no memory for 3000000000 bytes.");
  EXPECT_FALSE(makeMemoryBlock(int64_t{1001}));
  EXPECT_FALSE(makeMemoryBlock(int64_t{-1}));
  setMemoryBlockLimit(std::numeric_limits<int64_t>::max());
  call(block, "Constructor", {Value::integer(2'147'483'647)});
  EXPECT_EQ(show(read(block, "Size")), "Integer 2147483647");
}

}  // namespace
}  // namespace host_test
