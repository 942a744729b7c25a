// Attributed strings as programs see them: by message.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/appkit.h"
#include "platform/guard.h"
#include "standin/appkit/attributed_string.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "tests/standin/random_edits.hpp"

namespace {

using namespace standin;
using foundation::constantString;
using foundation::describe;
using foundation::newDictionary;
using foundation::newNumber;
using foundation::newString;
using foundation::utf8Of;
using Immutable = NSAttributedString;
using Mutable = NSMutableAttributedString;

NSString* const bold = constantString("bold");
NSString* const size = constantString("size");

Owned<NSDictionary> attributes(NSString* key, int value) { return newDictionary({{key, newNumber(value).get()}}); }

template <class Type = Mutable>
Owned<Type> make(std::string_view text, NSDictionary* style = nullptr) {
  return adopt(static_cast<Type*>(Type::initWithStringAttributes(alloc<Type>(), newString(text), style)));
}

// "aaaBBBccc": plain, bold, plain.
Owned<Mutable> threeRuns() {
  Owned<Mutable> string = make("aaaBBBccc");
  Mutable::addAttribute(string, bold, newNumber(1), {3, 3});
  return string;
}

// Every run as "text" or "text(key=value,...)", joined by "|".
std::string runs(NSAttributedString* string) {
  std::string shown;
  const text::StyledText& styled = appkit::styledTextOf(string);
  styled.checkInvariants();
  appkit::forEachRun(styled, 0, styled.length(), [&](const text::RunPlace& run, NSDictionary* dictionary) {
    if (run.start > 0) shown += "|";
    shown += utf8Of(newString(styled.text().slice(run.start, run.length)));
    std::string list;
    foundation::forEachEntry(dictionary, [&](NSObject* key, NSObject* value) {
      list += (list.empty() ? "" : ",") + describe(key) + "=" + describe(value);
    });
    if (!list.empty()) shown += "(" + list + ")";
  });
  return shown;
}

TEST(AttributedString, IsMadeFromStringsAndOtherAttributedStrings) {
  const AutoreleasePool pool;
  const Owned<NSDictionary> style = attributes(bold, 1);
  const Owned<Immutable> plain = adopt(Immutable::initWithString(alloc<Immutable>(), constantString("h\u00E9"
                                                                                                    "llo")));
  const Owned<Immutable> styled = make<Immutable>("styled", style);
  const Owned<Immutable> copied = adopt(Immutable::initWithAttributedString(alloc<Immutable>(), threeRuns()));
  const Owned<Immutable> empty = adopt(static_cast<Immutable*>(NSObject::init(alloc<Immutable>())));
  EXPECT_EQ(Immutable::length(styled), 6U);
  EXPECT_EQ(runs(styled), "styled(bold=1)");
  EXPECT_EQ(runs(copied), "aaa|BBB(bold=1)|ccc");
  EXPECT_EQ(utf8Of(Immutable::string(copied)), "aaaBBBccc");
  EXPECT_EQ(runs(empty), "");
  EXPECT_EQ(utf8Of(Immutable::string(empty)), "");

  EXPECT_STREQ(object_getClassName(plain), "NSConcreteAttributedString");
  EXPECT_STREQ(object_getClassName(threeRuns()), "NSConcreteMutableAttributedString");
  EXPECT_TRUE(NSObject::isKindOfClass(make<NSTextStorage>("x"), classOf<NSMutableAttributedString>()));
}

TEST(AttributedString, CopiesDoNotChangeWithTheOriginal) {
  const AutoreleasePool pool;
  const Owned<Mutable> original = threeRuns();
  const Owned<NSObject> copy = adopt(NSObject::copy(original)), mutableCopy = adopt(NSObject::mutableCopy(copy));
  const Owned<NSObject> secondCopy = adopt(NSObject::copy(copy));
  NSString* const text = Immutable::string(original);
  Mutable::deleteCharactersInRange(original, {0, 4});
  Mutable::setAttributes(static_cast<Mutable*>(mutableCopy.get()), nullptr, {0, 9});
  EXPECT_EQ(runs(original), "BB(bold=1)|ccc");
  EXPECT_EQ(runs(static_cast<Immutable*>(copy.get())), "aaa|BBB(bold=1)|ccc");
  EXPECT_EQ(runs(static_cast<Immutable*>(mutableCopy.get())), "aaaBBBccc");
  EXPECT_EQ(utf8Of(text), "aaaBBBccc");
  EXPECT_EQ(copy, secondCopy);  // what cannot change is its own copy
}

TEST(AttributedString, AnswersAttributesWithTheirRanges) {
  const AutoreleasePool pool;
  const Owned<Mutable> string = threeRuns();
  Mutable::addAttribute(string, size, newNumber(9), {5, 3});  // aaa|BB(bold)|B(bold,size)|cc(size)|c
  const struct {
    NSUInteger index;
    NSRange effective, longestBold, longestAll;
    bool isBold;
  } rows[] = {
      {0, {0, 3}, {0, 3}, {0, 3}, false}, {2, {0, 3}, {0, 3}, {0, 3}, false}, {3, {3, 2}, {3, 3}, {3, 2}, true},
      {5, {5, 1}, {3, 3}, {5, 1}, true},  {6, {6, 2}, {6, 3}, {6, 2}, false}, {8, {8, 1}, {6, 3}, {8, 1}, false},
  };
  for (const auto& row : rows) {
    const auto expectRange = [&](const NSRange& range, const NSRange& expected) {
      EXPECT_TRUE(range.location == expected.location && range.length == expected.length)
          << row.index << ": " << range.location << ", " << range.length;
    };
    NSRange range{99, 99};
    NSDictionary* const all = Immutable::attributesAtIndex(string, row.index, &range);
    expectRange(range, row.effective);
    EXPECT_EQ(foundation::find(all, bold) != nullptr, row.isBold);
    EXPECT_EQ(all, Immutable::attributesAtIndex(string, row.index, nullptr));  // one dictionary for one set
    EXPECT_EQ(Immutable::attributeAtIndex(string, bold, row.index, &range) != nullptr, row.isBold);
    expectRange(range, row.effective);
    EXPECT_EQ(Immutable::attributesAtIndexLongest(string, row.index, &range, {0, 9}), all);
    expectRange(range, row.longestAll);
    EXPECT_EQ(Immutable::attributeAtIndexLongest(string, bold, row.index, &range, {0, 9}) != nullptr, row.isBold);
    expectRange(range, row.longestBold);
    EXPECT_EQ(Immutable::attributeAtIndex(string, nullptr, row.index, nullptr), nullptr);
  }
}

TEST(AttributedString, CutsTheLongestRangeToTheLimit) {
  const AutoreleasePool pool;
  const Owned<Mutable> string = make("abcdefghij", attributes(bold, 1));
  Mutable::addAttribute(string, size, newNumber(2), {4, 2});
  const struct {
    NSUInteger index;
    NSRange limit, expected;
  } rows[] = {
      {5, {0, 10}, {0, 10}}, {5, {2, 5}, {2, 5}}, {5, {5, 1}, {5, 1}}, {1, {3, 4}, {3, 4}},  // the index need not lie in it
      {5, {5, 0}, {0, 0}},   {0, {0, 0}, {0, 0}},
  };
  for (const auto& row : rows) {
    NSRange range{99, 99};
    Immutable::attributeAtIndexLongest(string, bold, row.index, &range, row.limit);
    EXPECT_EQ(range.location, row.expected.location) << row.index;
    EXPECT_EQ(range.length, row.expected.length) << row.index;
  }
}

// Numbers of different types stay apart as runs, and are equal values all the same.
TEST(AttributedString, ComparesByValue) {
  const AutoreleasePool pool;
  const Owned<Mutable> string = make("ab");
  Mutable::addAttribute(string, size, newNumber(1), {0, 1});
  Mutable::addAttribute(string, size, newNumber(1.0), {1, 1});
  NSRange range{};
  Immutable::attributesAtIndex(string, 0, &range);
  EXPECT_EQ(range.length, 1U);
  Immutable::attributesAtIndexLongest(string, 0, &range, {0, 2});
  EXPECT_EQ(range.length, 2U);

  const Owned<Immutable> uniform = make<Immutable>("ab", attributes(size, 1)),
                         unlike = make<Immutable>("ab", attributes(size, 2));
  const Owned<Immutable> otherText = make<Immutable>("aB", attributes(size, 1));
  EXPECT_TRUE(NSObject::isEqual(string, uniform));
  EXPECT_EQ(NSObject::hash(string), NSObject::hash(uniform));
  EXPECT_TRUE(Immutable::isEqualToAttributedString(make(""), make("", attributes(size, 1))));
  for (Immutable* other :
       {unlike.get(), otherText.get(), make<Immutable>("ab").autorelease(), static_cast<Immutable*>(nullptr)}) {
    EXPECT_FALSE(Immutable::isEqualToAttributedString(string, other));
    EXPECT_FALSE(NSObject::isEqual(string, other));
  }
  EXPECT_FALSE(NSObject::isEqual(string, constantString("ab")));
}

TEST(AttributedString, SlicesAndDescribesItself) {
  const AutoreleasePool pool;
  const Owned<Mutable> string = threeRuns();
  EXPECT_EQ(runs(Immutable::attributedSubstringFromRange(string, {2, 5})), "a|BBB(bold=1)|c");
  EXPECT_EQ(runs(Immutable::attributedSubstringFromRange(string, {9, 0})), "");
  EXPECT_EQ(describe(string), "aaa{\n}BBB{\n    bold = 1;\n}ccc{\n}");
}

TEST(AttributedString, KnowsAttachmentsByTheirAttribute) {
  const AutoreleasePool pool;
  const Owned<Mutable> string = make("ab\uFFFC");
  EXPECT_FALSE(Immutable::containsAttachments(string));
  Mutable::addAttribute(string, NSAttachmentAttributeName, adopt(NSObject::init(alloc<NSObject>())), {1, 1});
  EXPECT_TRUE(Immutable::containsAttachments(string));
  EXPECT_FALSE(Mutable::containsAttachmentsInRange(string, {0, 1}));
  EXPECT_TRUE(Mutable::containsAttachmentsInRange(string, {0, 2}));
  EXPECT_FALSE(Mutable::containsAttachmentsInRange(string, {2, 1}));
  EXPECT_FALSE(Mutable::containsAttachmentsInRange(string, {1, 0}));
}

TEST(MutableAttributedString, EditsCharactersAndAttributes) {
  const AutoreleasePool pool;
  const Owned<Immutable> piece = make<Immutable>("XY", attributes(size, 9));
  const Owned<NSDictionary> two = newDictionary({{bold, newNumber(2).get()}, {size, newNumber(3).get()}});
  NSString* const text = constantString("new");
  const struct {
    const char* what;
    std::function<void(Mutable*)> edit;
    std::string expected;
  } rows[] = {
      // Text takes over the attributes of the first character it replaces, or else of the one before, or else behind.
      {"replace inside",
       [&](Mutable* s) {
         Mutable::replaceWithString(s, {4, 1}, text);
       },
       "aaa|BnewB(bold=1)|ccc"},
      {"replace across",
       [&](Mutable* s) {
         Mutable::replaceWithString(s, {2, 2}, text);
       },
       "aanew|BB(bold=1)|ccc"},
      {"replace from a run",
       [&](Mutable* s) {
         Mutable::replaceWithString(s, {3, 4}, text);
       },
       "aaa|new(bold=1)|cc"},
      {"insert between",
       [&](Mutable* s) {
         Mutable::replaceWithString(s, {6, 0}, text);
       },
       "aaa|BBBnew(bold=1)|ccc"},
      {"insert in front",
       [&](Mutable* s) {
         Mutable::replaceWithString(s, {0, 0}, text);
       },
       "newaaa|BBB(bold=1)|ccc"},
      {"insert at the end",
       [&](Mutable* s) {
         Mutable::replaceWithString(s, {9, 0}, text);
       },
       "aaa|BBB(bold=1)|cccnew"},
      {"replace all",
       [&](Mutable* s) {
         Mutable::replaceWithString(s, {0, 9}, text);
       },
       "new"},
      {"replace by nothing",
       [&](Mutable* s) {
         Mutable::replaceWithString(s, {3, 3}, constantString(""));
       },
       "aaaccc"},
      {"insert styled", [&](Mutable* s) { Mutable::insertAttributedString(s, piece, 4); },
       "aaa|B(bold=1)|XY(size=9)|BB(bold=1)|ccc"},
      {"replace styled",
       [&](Mutable* s) {
         Mutable::replaceWithAttributedString(s, {2, 5}, piece);
       },
       "aa|XY(size=9)|cc"},
      {"append styled", [&](Mutable* s) { Mutable::appendAttributedString(s, piece); }, "aaa|BBB(bold=1)|ccc|XY(size=9)"},
      {"append itself", [&](Mutable* s) { Mutable::appendAttributedString(s, s); },
       "aaa|BBB(bold=1)|cccaaa|BBB(bold=1)|ccc"},
      {"set styled", [&](Mutable* s) { Mutable::setAttributedString(s, piece); }, "XY(size=9)"},
      {"set to itself", [&](Mutable* s) { Mutable::setAttributedString(s, s); }, "aaa|BBB(bold=1)|ccc"},
      {"delete",
       [&](Mutable* s) {
         Mutable::deleteCharactersInRange(s, {2, 2});
       },
       "aa|BB(bold=1)|ccc"},
      {"delete a run",
       [&](Mutable* s) {
         Mutable::deleteCharactersInRange(s, {3, 3});
       },
       "aaaccc"},
      {"delete nothing",
       [&](Mutable* s) {
         Mutable::deleteCharactersInRange(s, {9, 0});
       },
       "aaa|BBB(bold=1)|ccc"},
      {"set attributes",
       [&](Mutable* s) {
         Mutable::setAttributes(s, two, {2, 2});
       },
       "aa|aB(bold=2,size=3)|BB(bold=1)|ccc"},
      {"set none",
       [&](Mutable* s) {
         Mutable::setAttributes(s, nullptr, {4, 1});
       },
       "aaa|B(bold=1)|B|B(bold=1)|ccc"},
      {"add attributes",
       [&](Mutable* s) {
         Mutable::addAttributes(s, two, {5, 2});
       },
       "aaa|BB(bold=1)|Bc(bold=2,size=3)|cc"},
      {"add what joins runs",
       [&](Mutable* s) {
         Mutable::addAttribute(s, bold, newNumber(1), {0, 9});
       },
       "aaaBBBccc(bold=1)"},
      {"add over nothing",
       [&](Mutable* s) {
         Mutable::addAttribute(s, size, newNumber(1), {4, 0});
       },
       "aaa|BBB(bold=1)|ccc"},
      {"remove",
       [&](Mutable* s) {
         Mutable::removeAttribute(s, bold, {0, 5});
       },
       "aaaBB|B(bold=1)|ccc"},
      {"remove what is not there",
       [&](Mutable* s) {
         Mutable::removeAttribute(s, size, {0, 9});
       },
       "aaa|BBB(bold=1)|ccc"},
  };
  for (const auto& row : rows) {
    const Owned<Mutable> string = threeRuns();
    Mutable::beginEditing(string);
    row.edit(string);
    Mutable::endEditing(string);
    EXPECT_EQ(runs(string), row.expected) << row.what;
  }
  const Owned<Mutable> empty = make("");
  Mutable::replaceWithString(empty, {0, 0}, text);
  EXPECT_EQ(runs(empty), "new");
}

TEST(AttributedString, RefusesBadRangesAndNilArguments) {
  const AutoreleasePool pool;
  const Owned<Mutable> string = threeRuns();
  const Owned<Mutable> other = make("x");
  const Owned<NSNumber> value = newNumber(1);
  const Owned<NSDictionary> style = attributes(size, 1);
  NSString* const text = constantString("t");
  NSRange range{};
  const struct {
    const char* selector;
    std::function<void(NSRange)> send;
  } ranged[] = {
      {"attributedSubstringFromRange:", [&](NSRange r) { Immutable::attributedSubstringFromRange(string, r); }},
      {"attributesAtIndex:longestEffectiveRange:inRange:",
       [&](NSRange r) { Immutable::attributesAtIndexLongest(string, 0, &range, r); }},
      {"attribute:atIndex:longestEffectiveRange:inRange:",
       [&](NSRange r) { Immutable::attributeAtIndexLongest(string, bold, 0, &range, r); }},
      {"containsAttachmentsInRange:", [&](NSRange r) { Mutable::containsAttachmentsInRange(string, r); }},
      {"replaceCharactersInRange:withString:", [&](NSRange r) { Mutable::replaceWithString(string, r, text); }},
      {"replaceCharactersInRange:withAttributedString:",
       [&](NSRange r) { Mutable::replaceWithAttributedString(string, r, other); }},
      {"deleteCharactersInRange:", [&](NSRange r) { Mutable::deleteCharactersInRange(string, r); }},
      {"setAttributes:range:", [&](NSRange r) { Mutable::setAttributes(string, style, r); }},
      {"addAttributes:range:", [&](NSRange r) { Mutable::addAttributes(string, style, r); }},
      {"addAttribute:value:range:", [&](NSRange r) { Mutable::addAttribute(string, bold, value, r); }},
      {"removeAttribute:range:", [&](NSRange r) { Mutable::removeAttribute(string, bold, r); }},
  };
  for (const auto& row : ranged) {
    for (const NSRange bad :
         {NSRange{0, 10}, NSRange{9, 1}, NSRange{10, 0}, NSRange{5, NSUInteger(-2)}, NSRange{NSNotFound, 0}}) {
      NSException* const thrown = catchException([&] { row.send(bad); });
      ASSERT_NE(thrown, nullptr) << row.selector;
      EXPECT_EQ(NSException::name(thrown), NSRangeException);
      EXPECT_EQ(utf8Of(NSException::reason(thrown)), std::string("-[NSConcreteMutableAttributedString ") + row.selector +
                                                         "]: Range {" + std::to_string(bad.location) + ", " +
                                                         std::to_string(bad.length) + "} out of bounds; string length 9");
    }
  }
  const struct {
    NSString* name;
    std::function<void()> send;
  } rows[] = {
      {NSRangeException, [&] { Immutable::attributesAtIndex(string, 9, nullptr); }},
      {NSRangeException, [&] { Immutable::attributesAtIndex(make(""), 0, nullptr); }},
      {NSRangeException, [&] { Immutable::attributeAtIndex(string, bold, NSUInteger(-1), nullptr); }},
      {NSRangeException,
       [&] {
         Immutable::attributesAtIndexLongest(string, 9, nullptr, {0, 9});
       }},
      {NSRangeException, [&] { Mutable::insertAttributedString(string, other, 10); }},
      {NSInvalidArgumentException, [&] { Immutable::initWithString(alloc<Immutable>(), nullptr); }},
      {NSInvalidArgumentException, [&] { Immutable::initWithStringAttributes(alloc<Mutable>(), nullptr, style); }},
      {NSInvalidArgumentException, [&] { Immutable::initWithAttributedString(alloc<Immutable>(), nullptr); }},
      {NSInvalidArgumentException,
       [&] {
         Mutable::replaceWithString(string, {0, 1}, nullptr);
       }},
      {NSInvalidArgumentException,
       [&] {
         Mutable::replaceWithAttributedString(string, {0, 1}, nullptr);
       }},
      {NSInvalidArgumentException, [&] { Mutable::insertAttributedString(string, nullptr, 0); }},
      {NSInvalidArgumentException, [&] { Mutable::appendAttributedString(string, nullptr); }},
      {NSInvalidArgumentException, [&] { Mutable::setAttributedString(string, nullptr); }},
      {NSInvalidArgumentException,
       [&] {
         Mutable::addAttribute(string, nullptr, value, {0, 1});
       }},
      {NSInvalidArgumentException,
       [&] {
         Mutable::addAttribute(string, bold, nullptr, {0, 1});
       }},
      {NSInvalidArgumentException,
       [&] {
         Mutable::addAttributes(string, nullptr, {0, 1});
       }},
      {NSInvalidArgumentException,
       [&] {
         Mutable::removeAttribute(string, nullptr, {0, 1});
       }},
      {NSInvalidArgumentException,  // only mutable strings can be edited
       [&] { Mutable::beginEditing(static_cast<Mutable*>(static_cast<NSObject*>(make<Immutable>("x").autorelease()))); }},
  };
  for (const auto& row : rows) {
    NSException* const thrown = catchException(row.send);
    ASSERT_NE(thrown, nullptr) << &row - rows;
    EXPECT_EQ(NSException::name(thrown), row.name) << &row - rows;
  }
  EXPECT_EQ(runs(string), "aaa|BBB(bold=1)|ccc");
}

TEST(MutableAttributedString, RefusesToGrowBeyond32Bits) {
  const AutoreleasePool pool;
  const Owned<Mutable> string = make(std::string(1 << 20, 'x'));
  Mutable::deleteCharactersInRange(string, {5, 1});  // edited inside, it shares what is appended to it
  Mutable::replaceWithString(string, {5, 0}, constantString("y"));
  NSException* thrown = nullptr;
  int doublings = 0;
  while (thrown == nullptr && ++doublings < 20) {
    thrown = catchException([&] { Mutable::appendAttributedString(string, string); });
  }
  ASSERT_NE(thrown, nullptr);
  EXPECT_EQ(NSException::name(thrown), NSMallocException);
  EXPECT_EQ(doublings, 12);
  EXPECT_EQ(Immutable::length(string), NSUInteger{1} << 31);
}

// Random edits by message, text and attributes together, against one (character, level) a unit.
TEST(MutableAttributedString, KeepsTextAndAttributesTogether) {
  RandomEdits random(1500);
  SCOPED_TRACE(RandomEdits::seed());
  const Owned<Mutable> string = make("");
  std::vector<std::pair<char, int>> model;
  for (int round = 0; round < random.rounds(); ++round) {
    const AutoreleasePool pool;
    const size_t from = random.upTo(model.size()), count = std::min<size_t>(random.upTo(4), model.size() - from);
    const int level = static_cast<int>(random.upTo(4));
    const auto begin = model.begin() + static_cast<long>(from), end = begin + static_cast<long>(count);
    if (random.oneIn(2)) {
      const std::string text(random.upTo(6), static_cast<char>('a' + random.upTo(25)));
      Mutable::replaceWithAttributedString(string, {from, count}, make(text, attributes(size, level)));
      model.insert(model.erase(begin, end), text.size(), {text.empty() ? ' ' : text[0], level});
    } else {
      Mutable::addAttribute(string, size, newNumber(level), {from, count});
      std::for_each(begin, end, [&](auto& unit) { unit.second = level; });
    }
    if (round % 50 != 0) continue;
    appkit::styledTextOf(string).checkInvariants();
    ASSERT_EQ(Immutable::length(string), model.size());
    for (size_t unit = 0; unit < model.size(); ++unit) {
      ASSERT_EQ(NSString::characterAtIndex(Immutable::string(string), unit), static_cast<unichar>(model[unit].first));
      ASSERT_EQ(foundation::integerOf(Immutable::attributeAtIndex(string, size, unit, nullptr)), model[unit].second);
    }
  }
}

}  // namespace
