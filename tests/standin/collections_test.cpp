// Arrays, sets, enumerators, null: contents, ownership, refusals, equality and description.
#include <gtest/gtest.h>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/number.hpp"
#include "tests/standin/foundation_support.hpp"

namespace {

using namespace foundation_support;

NSArray* words(std::initializer_list<const char*> texts) {
  Owned<NSMutableArray> array = newMutableArray();
  for (const char* text : texts) append(array, ns(text));
  return array.autorelease();
}

std::string joinedText(NSObject* array) { return utf8(send(array, "componentsJoinedByString:", ns(","))); }

TEST(Arrays, MessagesThatChangeThem) {
  const AutoreleasePool pool;
  NSMutableArray* const array = NSMutableArray::array(classOf<NSMutableArray>());
  NSMutableArray::addObject(array, ns("b"));
  NSMutableArray::addObject(array, ns("d"));
  send<void>(array, "insertObject:atIndex:", static_cast<NSObject*>(ns("a")), NSUInteger{0});
  send<void>(array, "insertObject:atIndex:", static_cast<NSObject*>(ns("c")), NSUInteger{2});
  EXPECT_EQ(joinedText(array), "a,b,c,d");
  send<void>(array, "replaceObjectAtIndex:withObject:", NSUInteger{1}, static_cast<NSObject*>(ns("B")));
  send<void>(array, "removeObjectAtIndex:", NSUInteger{0});
  EXPECT_EQ(joinedText(array), "B,c,d");
  send<void>(array, "addObjectsFromArray:", static_cast<NSObject*>(array));
  send<void>(array, "removeObject:", static_cast<NSObject*>(ns("c")));
  EXPECT_EQ(joinedText(array), "B,d,B,d");
  NSMutableArray::removeLastObject(array);
  EXPECT_EQ(joinedText(array), "B,d,B");
  NSMutableArray::removeAllObjects(array);
  EXPECT_EQ(NSArray::count(array), 0u);
  NSMutableArray::removeLastObject(array);
}

TEST(Arrays, RefuseNilAndPositionsOutside) {
  const AutoreleasePool pool;
  NSMutableArray* const array = static_cast<NSMutableArray*>(NSObject::mutableCopy(words({"a", "b"})));
  NSObject* const owned = adopt<NSObject>(array).autorelease();
  NSObject* const withNil[] = {owned, nullptr};
  struct Case {
    const char* expected;
    std::function<void()> action;
  };
  const Case cases[] = {
      {"NSInvalidArgumentException: -[__NSArrayM addObject:]", [&] { NSMutableArray::addObject(array, nullptr); }},
      {"NSInvalidArgumentException: ", [&] { NSArray::arrayWithObjects(classOf<NSArray>(), withNil, 2); }},
      {"NSRangeException: -[__NSArrayM objectAtIndex:]: Index 2 out of bounds", [&] { NSArray::objectAtIndex(array, 2); }},
      {"NSRangeException: ", [&] { NSArray::objectAtIndex(array, NSNotFound); }},
      {"NSRangeException: ", [&] { NSArray::objectAtIndex(NSArray::array(classOf<NSArray>()), 0); }},
      {"NSRangeException: ", [&] { send<void>(array, "insertObject:atIndex:", owned, NSUInteger{3}); }},
      {"NSRangeException: ", [&] { send<void>(array, "removeObjectAtIndex:", NSUInteger{2}); }},
      {"NSRangeException: ",
       [&] {
         send(array, "subarrayWithRange:", NSRange{1, 2});
       }},
      {"NSInvalidArgumentException: -[__NSArrayI addObject:]",
       [&] { NSMutableArray::addObject(static_cast<NSMutableArray*>(NSArray::array(classOf<NSArray>())), owned); }},
  };
  for (const Case& row : cases)
    EXPECT_EQ(raised(row.action).rfind(row.expected, 0), 0u) << row.expected << " but " << raised(row.action);
  EXPECT_EQ(joinedText(array), "a,b");
}

TEST(Arrays, CopiesAndClasses) {
  const AutoreleasePool pool;
  NSArray* const array = words({"a", "b"});
  const Owned<NSObject> frozen = adopt(NSObject::copy(array));
  EXPECT_STREQ(object_getClassName(frozen), "__NSArrayI");
  EXPECT_EQ(adopt(NSObject::copy(frozen)).get(), frozen.get());
  const Owned<NSObject> changing = adopt(NSObject::mutableCopy(frozen));
  NSMutableArray::addObject(static_cast<NSMutableArray*>(changing.get()), ns("c"));
  EXPECT_EQ(joinedText(frozen), "a,b");
  EXPECT_EQ(joinedText(changing), "a,b,c");
  EXPECT_TRUE(NSObject::isKindOfClass(changing, classOf<NSMutableArray>()));
  EXPECT_FALSE(NSObject::isKindOfClass(frozen, classOf<NSMutableArray>()));
}

TEST(Arrays, EqualityLooksAtElementsInOrder) {
  const AutoreleasePool pool;
  struct Case {
    NSArray* left;
    NSObject* right;
    bool equal;
  };
  const Case cases[] = {
      {words({}), words({}), true},
      {words({"a", "b"}), words({"a", "b"}), true},
      {words({"a", "b"}), words({"b", "a"}), false},
      {words({"a"}), words({"a", "a"}), false},
      {words({"a"}), ns("a"), false},
      {words({"a"}), nullptr, false},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(NSObject::isEqual(row.left, row.right) != NO, row.equal);
    if (row.equal) {
      EXPECT_EQ(NSObject::hash(row.left), NSObject::hash(row.right));
    }
  }
  EXPECT_EQ(send<NSUInteger>(words({"a", "b"}), "indexOfObject:", static_cast<NSObject*>(ns("b"))), 1u);
  EXPECT_EQ(send<NSUInteger>(words({"a"}), "indexOfObject:", static_cast<NSObject*>(ns("x"))), NSNotFound);
}

TEST(Enumerators, KeepWhatTheyWalk) {
  const AutoreleasePool pool;
  Owned<NSMutableArray> array = newMutableArray();
  for (const char* text : {"x", "y"}) append(array, ns(text));
  NSEnumerator* const enumerator = NSArray::objectEnumerator(array);
  array = nullptr;
  EXPECT_EQ(utf8(NSEnumerator::nextObject(enumerator)), "x");
  EXPECT_EQ(joinedText(send(enumerator, "allObjects")), "y");
  EXPECT_EQ(NSEnumerator::nextObject(enumerator), nullptr);
  EXPECT_EQ(NSEnumerator::nextObject(enumerator), nullptr);
}

TEST(Sets, HoldEqualMembersOnce) {
  const AutoreleasePool pool;
  NSSet* const set = NSSet::setWithArray(classOf<NSSet>(), words({"b", "a", "b", "c"}));
  EXPECT_EQ(NSSet::count(set), 3u);
  EXPECT_EQ(joinedText(NSSet::allObjects(set)), "b,a,c");
  EXPECT_TRUE(send<BOOL>(set, "containsObject:", static_cast<NSObject*>(ns("a"))));
  EXPECT_FALSE(send<BOOL>(set, "containsObject:", static_cast<NSObject*>(ns("z"))));
  EXPECT_FALSE(send<BOOL>(set, "containsObject:", static_cast<NSObject*>(nullptr)));
  EXPECT_TRUE(NSObject::isEqual(set, NSSet::setWithArray(classOf<NSSet>(), words({"c", "b", "a"}))));
  EXPECT_FALSE(NSObject::isEqual(set, NSSet::setWithArray(classOf<NSSet>(), words({"c", "b", "d"}))));
  const Owned<NSObject> changing = adopt(NSObject::mutableCopy(set));
  send<void>(changing, "addObject:", static_cast<NSObject*>(ns("d")));
  send<void>(changing, "removeObject:", static_cast<NSObject*>(ns("b")));
  EXPECT_EQ(joinedText(NSSet::allObjects(static_cast<NSSet*>(changing.get()))), "a,c,d");
  EXPECT_EQ(NSSet::count(set), 3u);
  EXPECT_NE(raised([&] { send<void>(changing, "addObject:", static_cast<NSObject*>(nullptr)); }), "");
}

TEST(Null, IsOneObject) {
  NSObject* const null = NSNull::null(classOf<NSNull>());
  EXPECT_EQ(NSObject::init(NSObject::alloc(classOf<NSNull>())), null);
  EXPECT_EQ(NSObject::copy(null), null);
  for (int round = 0; round < 3; ++round) NSObject::release(null);
  EXPECT_EQ(utf8(NSObject::description(null)), "<null>");
}

TEST(Descriptions, OldPropertyListNotation) {
  const AutoreleasePool pool;
  const Owned<NSNumber> one = newNumber(1), half = newNumber(0.5);
  NSObject* const nested[] = {ns("plain"), ns("two words"), ns(""), ns("\xC3\xA9\"\\\n"), one, half};
  const Owned<NSArray> array = newArray(nested);
  EXPECT_EQ(utf8(NSObject::description(array)),
            "(\n    plain,\n    \"two words\",\n    \"\",\n    \"\\U00e9\\\"\\\\\\n\",\n    1,\n    \"0.5\"\n)");
  const Owned<NSDictionary> inner = newDictionary({{ns("k"), NSArray::array(classOf<NSArray>())}});
  const Owned<NSDictionary> outer = newDictionary({{ns("z"), one}, {ns("a"), inner}});
  EXPECT_EQ(utf8(NSObject::description(outer)), "{\n    a = {\n        k = (\n        );\n    };\n    z = 1;\n}");
  NSObject* const members[] = {ns("m")};
  EXPECT_EQ(utf8(NSObject::description(newSet(members))), "{(\n    m\n)}");
}

// The end of the outermost releases the next one, and so on: this must not be a recursion a level.
TEST(Nesting, DeepStructuresAreTakenApart) {
  const AutoreleasePool pool;
  Owned<NSObject> nested = newArray({});
  Owned<NSString> key = newString(std::string_view("key"));
  for (int depth = 0; depth < 200'000; ++depth) {
    if (depth % 2 == 0) {
      nested = newArray({nested.get()});
    } else {
      nested = newDictionary({{key.get(), nested.get()}});
    }
  }
  nested = nullptr;
}

// An element's end may come back to the collection that is just giving it up.
TEST(Ownership, ElementsAreReleasedAfterTheyLeft) {
  const AutoreleasePool pool;
  const Owned<NSMutableArray> array = newMutableArray();
  const Owned<NSString> element = newString(std::string_view("element that is counted"));
  const NSUInteger before = NSObject::retainCount(element);
  append(array, element);
  append(array, element);
  EXPECT_EQ(NSObject::retainCount(element), before + 2);
  send<void>(array, "replaceObjectAtIndex:withObject:", NSUInteger{0}, static_cast<NSObject*>(element.get()));
  EXPECT_EQ(NSObject::retainCount(element), before + 2);
  NSMutableArray::removeAllObjects(array);
  EXPECT_EQ(NSObject::retainCount(element), before);
}

}  // namespace
