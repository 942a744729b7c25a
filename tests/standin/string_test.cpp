// Strings: their classes, making, cutting, editing, comparing, finding, values, and what they refuse.
#include <gtest/gtest.h>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/string.hpp"
#include "tests/standin/string_support.hpp"

namespace {

using string_support::raised;
using string_support::text;
using string_support::units;

const Message<NSString*(const void*, NSUInteger, NSUInteger)> initWithBytes{"initWithBytes:length:encoding:"};
const Message<NSString*(const char*)> initWithUTF8String{"initWithUTF8String:"};
const Message<NSInteger(NSString*)> compare{"compare:"};
const Message<NSInteger(NSString*)> caseInsensitiveCompare{"caseInsensitiveCompare:"};
const Message<NSRange(NSString*, NSUInteger)> rangeWithOptions{"rangeOfString:options:"};
const Message<NSString*(NSString*, NSString*)> replacing{"stringByReplacingOccurrencesOfString:withString:"};
const Message<NSArray*(NSString*)> components{"componentsSeparatedByString:"};
const Message<void(NSString*, NSUInteger)> insert{"insertString:atIndex:"};
const Message<void(NSRange)> deleteRange{"deleteCharactersInRange:"};
const Message<void(NSRange, NSString*)> replaceRange{"replaceCharactersInRange:withString:"};
const Message<void(NSString*)> setString{"setString:"};

Owned<NSMutableString> mutableText(std::u16string_view units) {
  return adopt(static_cast<NSMutableString*>(NSObject::mutableCopy(text(units))));
}

TEST(Strings, BelongToTheClassTheyWereAskedFor) {
  const AutoreleasePool pool;
  NSString* const plain = NSString::stringWithUTF8String(classOf<NSString>(), "é");
  NSString* const editable = NSString::stringWithUTF8String(classOf<NSMutableString>(), "é");
  EXPECT_FALSE(NSObject::isKindOfClass(plain, classOf<NSMutableString>()));
  EXPECT_TRUE(NSObject::isKindOfClass(editable, classOf<NSMutableString>()));
  EXPECT_TRUE(NSObject::isEqual(plain, editable));
  EXPECT_EQ(NSObject::hash(plain), NSObject::hash(editable));
  EXPECT_STRNE(object_getClassName(plain), "NSString");
  const Message<void(NSString*)> append{"appendString:"};
  EXPECT_NE(raised([&] { append(plain, plain); }), "");
}

TEST(Strings, AConstantIsOneObjectAndLivesForEver) {
  NSString* const constant = __CFStringMakeConstantString("constant text");
  EXPECT_EQ(constant, __CFStringMakeConstantString(std::string("constant text").c_str()));
  for (int time = 0; time < 3; ++time) NSObject::release(constant);
  EXPECT_EQ(units(constant), u"constant text");
  EXPECT_TRUE(NSString::isEqualToString(NSRangeException, __CFStringMakeConstantString("NSRangeException")));
}

TEST(Strings, InitialisersFillTheObjectOrGiveItBackForNil) {
  const AutoreleasePool pool;
  const auto made = [](const void* bytes, NSUInteger count, NSUInteger encoding) {
    return adopt(initWithBytes(alloc<NSString>(), bytes, count, encoding));
  };
  EXPECT_EQ(units(made("\x8E", 1, 30)), u"é");
  EXPECT_EQ(units(made("\xFE\xFF\0a", 4, 10)), u"a");
  EXPECT_EQ(units(made("\0a", 2, 0x90000100)), u"a");
  EXPECT_FALSE(made("\xFF", 1, 4));
  EXPECT_FALSE(made("a", 1, 999));
  EXPECT_EQ(raised([] { initWithUTF8String(alloc<NSString>(), nullptr); }),
            "NSInvalidArgumentException: -[__NSCFString initWithUTF8String:]: nil argument");
  EXPECT_EQ(raised([] { NSString::stringWithUTF8String(classOf<NSString>(), nullptr); }),
            "NSInvalidArgumentException: +[NSString stringWithUTF8String:]: nil argument");
  EXPECT_EQ(NSString::stringWithUTF8String(classOf<NSString>(), "\xED\xA0\x80"), nullptr);
  EXPECT_EQ(NSString::UTF8String(text(u"\xD800")), nullptr);
}

TEST(Strings, HashesFollowTheUnitsHoweverTheyAreStored) {
  const AutoreleasePool pool;
  for (const size_t length : {0U, 1U, 31U, 96U, 97U, 5000U}) {
    const Owned<NSMutableString> wide = mutableText(std::u16string(length, u'x'));
    NSMutableString::appendString(wide, text(u"漢"));
    deleteRange(wide, {length, 1});
    NSString* const narrow = text(std::u16string(length, u'x'));
    EXPECT_TRUE(NSObject::isEqual(wide, narrow));
    EXPECT_EQ(NSObject::hash(wide), NSObject::hash(narrow));
    const NSUInteger before = NSObject::hash(wide);
    NSMutableString::appendString(wide, text(u"y"));
    EXPECT_NE(NSObject::hash(wide), before);
  }
}

TEST(Strings, CopiesOfMutableStringsKeepWhatWasThere) {
  const AutoreleasePool pool;
  const Owned<NSMutableString> original = mutableText(u"before");
  const Owned<NSObject> copy = adopt(NSObject::copy(original));
  NSString* const described = NSObject::description(original);
  setString(original, text(u"after"));
  EXPECT_EQ(units(static_cast<NSString*>(copy.get())), u"before");
  EXPECT_EQ(units(described), u"before");
  const Owned<NSObject> same = adopt(NSObject::copy(copy));
  EXPECT_EQ(same.get(), copy.get());
}

TEST(Strings, RefuseWhatLiesOutside) {
  const AutoreleasePool pool;
  NSString* const five = text(u"five!");
  unichar buffer[8];
  EXPECT_EQ(raised([&] { NSString::substringFromIndex(five, 9); }),
            "NSRangeException: -[__NSCFString substringFromIndex:]: Index 9 out of bounds; string length 5");
  EXPECT_EQ(raised([&] {
              NSString::substringWithRange(five, {3, NSNotFound});
            }),
            "NSRangeException: -[__NSCFString substringWithRange:]: Range {3, 9223372036854775807} out of bounds; "
            "string length 5");
  EXPECT_NE(raised([&] { NSString::substringToIndex(five, 6); }), "");
  EXPECT_NE(raised([&] { NSString::characterAtIndex(five, 5); }), "");
  EXPECT_NE(raised([&] { NSString::getCharactersInRange(five, buffer, {5, 1}); }), "");
  EXPECT_NE(raised([&] { NSString::stringByAppendingString(five, nullptr); }), "");
  EXPECT_NE(raised([&] { NSString::rangeOfString(five, nullptr); }), "");
  EXPECT_NE(raised([&] { CFStringGetCharacters(five, {4, 2}, buffer); }), "");
  EXPECT_NE(raised([&] { CFStringGetLength(nullptr); }), "");
  EXPECT_EQ(raised([&] { NSString::substringWithRange(five, {5, 0}); }), "");
  EXPECT_EQ(units(NSString::substringFromIndex(five, 5)), u"");
  EXPECT_EQ(units(NSString::substringToIndex(five, 4)), u"five");
}

TEST(MutableStrings, EditsLandWhereTheySayAndRefusalsChangeNothing) {
  const AutoreleasePool pool;
  const Owned<NSMutableString> string = mutableText(u"0123456789");
  insert(string, text(u"漢"), 10);
  insert(string, text(u"<"), 0);
  replaceRange(string, {1, 3}, text(u"abc-"));
  deleteRange(string, {11, 1});
  EXPECT_EQ(units(string), u"<abc-345678漢");
  NSMutableString::appendString(string, string);
  EXPECT_EQ(units(string), u"<abc-345678漢<abc-345678漢");
  const std::u16string before = units(string);
  EXPECT_NE(raised([&] { insert(string, text(u"x"), 25); }), "");
  EXPECT_NE(raised([&] { deleteRange(string, {24, 1}); }), "");
  EXPECT_NE(raised([&] { replaceRange(string, {0, 25}, text(u"x")); }), "");
  EXPECT_NE(raised([&] { NSMutableString::appendString(string, nullptr); }), "");
  EXPECT_EQ(units(string), before);
  EXPECT_EQ(raised([&] { replaceRange(string, {24, 0}, text(u"")); }), "");
}

TEST(Search, FindsCharactersInEitherForm) {
  constexpr NSUInteger none = 0, ignoringCase = 1, literal = 2, backwards = 4, anchored = 8;
  const struct {
    std::u16string text, pattern;
    NSUInteger options, location, length;
  } rows[] = {
      {u"one two one", u"one", none, 0, 3},
      {u"one two one", u"one", backwards, 8, 3},
      {u"one two one", u"two", anchored, NSNotFound, 0},
      {u"one two one", u"one", anchored | backwards, 8, 3},
      {u"abc", u"", none, NSNotFound, 0},
      {u"", u"a", none, NSNotFound, 0},
      {u"ab", u"abc", anchored | ignoringCase, NSNotFound, 0},
      {u"cafe\u0301!", u"é", none, 3, 2},
      {u"café!", u"e\u0301", none, 3, 1},
      {u"cafe\u0301!", u"é", literal, NSNotFound, 0},
      {u"cafe\u0301!", u"e", none, NSNotFound, 0},
      {u"cafe\u0301e", u"e", backwards, 5, 1},
      {u"cafe\u0301!", u"e", literal, 3, 1},
      {u"CAFÉ", u"é", ignoringCase, 3, 1},
      {u"GROSSE", u"ß", ignoringCase, 3, 2},
      {u"Straße", u"SS", ignoringCase, 4, 1},
      {u"a\U0001F600b", u"\U0001F600", none, 1, 2},
      {u"漢漢字", u"漢字", none, 1, 2},
  };
  for (const auto& row : rows) {
    const AutoreleasePool pool;
    const NSRange found = rangeWithOptions(text(row.text), text(row.pattern), row.options);
    EXPECT_EQ(found.location, row.location) << testing::PrintToString(row.text) << row.options;
    EXPECT_EQ(found.length, row.length) << testing::PrintToString(row.text) << row.options;
  }
  const AutoreleasePool pool;
  EXPECT_NE(raised([] { rangeWithOptions(text(u"a"), text(u"a"), 1024); }), "") << "regular expressions are not there";
  EXPECT_TRUE(NSString::hasPrefix(text(u"&amp;"), text(u"&")));
  EXPECT_FALSE(NSString::hasSuffix(text(u"a"), text(u"ba")));
}

TEST(Search, OrdersReplacesAndSplits) {
  const AutoreleasePool pool;
  EXPECT_EQ(compare(text(u"a"), text(u"b")), -1);
  EXPECT_EQ(compare(text(u"é"), text(u"e\u0301")), 0);
  EXPECT_EQ(compare(text(u"a"), text(u"A")), 1);
  EXPECT_EQ(caseInsensitiveCompare(text(u"STRASSE"), text(u"straße")), 0);
  EXPECT_EQ(units(replacing(text(u"aXbXX"), text(u"X"), text(u"漢"))), u"a漢b漢漢");
  EXPECT_EQ(units(replacing(text(u"abc"), text(u""), text(u"x"))), u"abc");
  const struct {
    std::u16string text, separator;
    std::vector<std::u16string> pieces;
  } rows[] = {
      {u"a,b,,c", u",", {u"a", u"b", u"", u"c"}}, {u",", u",", {u"", u""}}, {u"", u",", {u""}}, {u"ab", u"", {u"ab"}}};
  for (const auto& row : rows) {
    std::vector<std::u16string> pieces;
    for (NSObject* piece : standin::foundation::arraySpan(components(text(row.text), text(row.separator)))) {
      pieces.push_back(units(static_cast<NSString*>(piece)));
    }
    EXPECT_EQ(pieces, row.pieces);
  }
}

TEST(StringValues, ReadTheNumberAtTheStart) {
  const Message<int()> intValue{"intValue"};
  const Message<double()> doubleValue{"doubleValue"};
  const Message<BOOL()> boolValue{"boolValue"};
  const struct {
    std::u16string text;
    int integer;
    double real;
    bool truth;
  } rows[] = {
      {u" 42 apples", 42, 42, true},
      {u"-7.5e1", -7, -75, true},
      {u"+3", 3, 3, true},
      {u"99999999999", 2147483647, 99999999999, true},
      {u"-99999999999", -2147483648, -99999999999.0, true},
      {u"0x10", 0, 0, false},
      {u"yes", 0, 0, true},
      {u"-0001", -1, -1, true},
      {u"", 0, 0, false},
      {u"nan", 0, 0, false},
      {u".5", 0, 0.5, false},
      {u"no", 0, 0, false},
  };
  for (const auto& row : rows) {
    const AutoreleasePool pool;
    EXPECT_EQ(intValue(text(row.text)), row.integer) << testing::PrintToString(row.text);
    EXPECT_EQ(doubleValue(text(row.text)), row.real) << testing::PrintToString(row.text);
    EXPECT_EQ(boolValue(text(row.text)) != NO, row.truth) << testing::PrintToString(row.text);
  }
  const AutoreleasePool pool;
  const Message<NSString*()> upper{"uppercaseString"}, lower{"lowercaseString"};
  EXPECT_EQ(units(upper(text(u"straße é"))), u"STRASSE É");
  EXPECT_EQ(units(lower(text(u"ÉΣ"))), u"éς");
}

}  // namespace
