// What AppKit adds to mutable attributed strings: raising, font traits, paragraphs, fixing, attribute groups, text storages.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "standin/appkit/attributed_string.hpp"
#include "standin/appkit/font.hpp"
#include "standin/appkit/font_substitution.hpp"
#include "standin/appkit/paragraph_style.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/text/font_faces.hpp"
#include "tests/standin/string_support.hpp"

namespace {

using namespace standin;
using foundation::constantString;
using foundation::newNumber;
using foundation::newString;
using foundation::utf8Of;
using string_support::raised;
using Mutable = NSMutableAttributedString;

template <class Type = Mutable>
Owned<Type> make(std::string_view text) {
  return adopt(static_cast<Type*>(Type::initWithString(alloc<Type>(), newString(text))));
}

void setFont(Mutable* string, const char* name, NSRange range, double size = 12) {
  Mutable::addAttribute(string, NSFontAttributeName, NSFont::fontWithName(classOf<NSFont>(), newString(name), size), range);
}

Owned<NSParagraphStyle> aligned(text::Alignment alignment) {
  text::Paragraph paragraph;
  paragraph.alignment = alignment;
  return appkit::newParagraphStyle(paragraph);
}

// What the tests look at of a value.
std::string shown(NSString* key, NSObject* value) {
  if (key == NSFontAttributeName) return appkit::fontOf(static_cast<NSFont*>(value)).name;
  if (key == NSParagraphStyleAttributeName) {
    const text::Paragraph& paragraph = appkit::paragraphOf(static_cast<NSParagraphStyle*>(value));
    return std::to_string(static_cast<int>(paragraph.alignment)) + "/" +
           std::to_string(static_cast<int>(paragraph.direction));
  }
  return NSObject::isKindOfClass(value, classOf<NSNumber>()) ? foundation::describe(value) : "*";
}

// Every run as "text" or "text(value of the key)", joined by "|", line ends as "/" and attachment characters as "@".
std::string runs(NSAttributedString* string, NSString* key) {
  std::string all;
  const text::StyledText& styled = appkit::styledTextOf(string);
  styled.checkInvariants();
  for (uint32_t at = 0; at < styled.length();) {
    NSRange range{};
    NSObject* const value = NSAttributedString::attributeAtIndexLongest(string, key, at, &range, {at, styled.length() - at});
    std::string part = utf8Of(newString(styled.text().slice(at, static_cast<uint32_t>(range.length))));
    for (size_t found; (found = part.find_first_of("\r\n")) != std::string::npos;) part.replace(found, 1, "/");
    for (size_t found; (found = part.find("\uFFFC")) != std::string::npos;) part.replace(found, 3, "@");
    all += (at > 0 ? "|" : "") + part + (value != nullptr ? "(" + shown(key, value) + ")" : "");
    at += static_cast<uint32_t>(range.length);
  }
  return all;
}

struct Row {
  const char* what;
  std::function<void(Mutable*)> edit;
  std::string expected;
};

void expectRows(const std::vector<Row>& rows, NSString* key, const std::function<Owned<Mutable>()>& start) {
  for (const Row& row : rows) {
    const Owned<Mutable> string = start();
    row.edit(string);
    EXPECT_EQ(runs(string, key), row.expected) << row.what;
  }
}

TEST(AttributedStringEditing, RaisesAndLowersByOneLevel) {
  const AutoreleasePool pool;
  const auto start = [] {
    Owned<Mutable> string = make("abcdef");
    Mutable::addAttribute(string, NSSuperscriptAttributeName, newNumber(-1), {2, 2});
    return string;
  };
  expectRows({{"up",
               [](Mutable* s) {
                 Mutable::superscriptRange(s, {0, 6});
               },
               "ab(1)|cd|ef(1)"},
              {"down",
               [](Mutable* s) {
                 Mutable::subscriptRange(s, {1, 2});
               },
               "a|b(-1)|c(-2)|d(-1)|ef"},
              {"twice",
               [](Mutable* s) {
                 Mutable::superscriptRange(s, {5, 1});
                 Mutable::superscriptRange(s, {5, 1});
               },
               "ab|cd(-1)|e|f(2)"},
              {"back",
               [](Mutable* s) {
                 Mutable::subscriptRange(s, {0, 6});
                 Mutable::superscriptRange(s, {0, 6});
               },
               "ab|cd(-1)|ef"},
              {"none",
               [](Mutable* s) {
                 Mutable::unscriptRange(s, {3, 3});
               },
               "ab|c(-1)|def"},
              {"nothing",
               [](Mutable* s) {
                 Mutable::superscriptRange(s, {6, 0});
               },
               "ab|cd(-1)|ef"}},
             NSSuperscriptAttributeName, start);
}

// Each trait as far as the family has a face with it; text without a font is in Helvetica.
TEST(AttributedStringEditing, AppliesFontTraits) {
  const AutoreleasePool pool;
  const auto start = [] {
    Owned<Mutable> string = make("abcdef");
    setFont(string, "Times-Italic", {2, 2});
    setFont(string, "Monaco", {4, 1});
    return string;
  };
  const auto applied = [](NSFontTraitMask traits) {
    return [=](Mutable* s) { Mutable::applyFontTraits(s, traits, {1, 4}); };
  };
  expectRows(
      {{"bold", applied(text::boldTrait), "a|b(Helvetica-Bold)|cd(Times-BoldItalic)|e(Monaco)|f"},
       {"italic", applied(text::italicTrait), "a|b(Helvetica-Oblique)|cd(Times-Italic)|e(Monaco)|f"},
       {"both", applied(text::boldTrait | text::italicTrait), "a|b(Helvetica-BoldOblique)|cd(Times-BoldItalic)|e(Monaco)|f"},
       {"unitalic", applied(text::unitalicTrait), "ab|cd(Times-Roman)|e(Monaco)|f"},
       {"bold and unitalic", applied(text::boldTrait | text::unitalicTrait),
        "a|b(Helvetica-Bold)|cd(Times-Bold)|e(Monaco)|f"},
       {"unbold", applied(text::unboldTrait), "ab|cd(Times-Italic)|e(Monaco)|f"},
       {"no such face", applied(text::condensedTrait | text::smallCapsTrait), "ab|cd(Times-Italic)|e(Monaco)|f"},
       {"no trait", applied(0), "ab|cd(Times-Italic)|e(Monaco)|f"}},
      NSFontAttributeName, start);

  // Size and weight stay.
  const Owned<Mutable> large = make("x");
  setFont(large, "Helvetica-Light", {0, 1}, 40);
  Mutable::applyFontTraits(large, NSItalicFontMask, {0, 1});
  NSObject* const font = Mutable::attributeAtIndex(large, NSFontAttributeName, 0, nullptr);
  EXPECT_EQ(foundation::describe(font), "\"Helvetica-LightOblique 40.00 pt.\"");
}

TEST(AttributedStringEditing, SetsWholeParagraphs) {
  const AutoreleasePool pool;
  const auto start = [] {
    Owned<Mutable> string = make("one\ntwo\r\nthree");
    Mutable::addAttribute(string, NSParagraphStyleAttributeName, aligned(text::Alignment::justified), {4, 5});
    return string;
  };
  expectRows({{"inside one",
               [](Mutable* s) {
                 Mutable::setAlignment(s, 2, {1, 1});
               },
               "one/(2/-1)|two//(3/-1)|three"},
              {"across the break",
               [](Mutable* s) {
                 Mutable::setAlignment(s, 1, {3, 2});
               },
               "one/two//(1/-1)|three"},
              {"the end",
               [](Mutable* s) {
                 Mutable::setAlignment(s, 0, {13, 1});
               },
               "one/|two//(3/-1)|three(0/-1)"},
              {"direction",
               [](Mutable* s) {
                 Mutable::setBaseWritingDirection(s, 1, {5, 6});
               },
               "one/|two//(3/1)|three(4/1)"},
              {"natural again",
               [](Mutable* s) {
                 Mutable::setBaseWritingDirection(s, -1, {5, 1});
               },
               "one/|two//(3/-1)|three"},
              {"no characters",
               [](Mutable* s) {
                 Mutable::setAlignment(s, 1, {5, 0});
               },
               "one/|two//(3/-1)|three"}},
             NSParagraphStyleAttributeName, start);
}

TEST(AttributedStringEditing, FixesParagraphsByTheirFirstCharacter) {
  const AutoreleasePool pool;
  const auto start = [] {
    Owned<Mutable> string = make("one\ntwo\nthree");
    Mutable::addAttribute(string, NSParagraphStyleAttributeName, aligned(text::Alignment::right), {0, 2});
    Mutable::addAttribute(string, NSParagraphStyleAttributeName, aligned(text::Alignment::center), {5, 4});
    return string;
  };
  const auto fixed = [](NSRange range) { return [=](Mutable* s) { Mutable::fixParagraphStyleAttributeInRange(s, range); }; };
  expectRows({{"all", fixed({0, 13}), "one/(1/-1)|two/|three(2/-1)"},
              {"the first", fixed({3, 1}), "one/(1/-1)|t|wo/t(2/-1)|hree"},
              {"the middle", fixed({5, 0}), "on(1/-1)|e/two/|t(2/-1)|hree"},
              {"the end", fixed({13, 0}), "on(1/-1)|e/t|wo/three(2/-1)"}},
             NSParagraphStyleAttributeName, start);
  const Owned<Mutable> empty = make("");
  Mutable::fixAttributesInRange(empty, {0, 0});
}

TEST(AttributedStringEditing, KeepsAttachmentsOnTheirCharactersAlone) {
  const AutoreleasePool pool;
  const auto start = [] {
    const Owned<NSObject> attachment = adopt(NSObject::init(alloc<NSObject>()));
    Owned<Mutable> string = make("a\uFFFC\uFFFCb\uFFFCc\uFFFC");
    Mutable::addAttribute(string, NSAttachmentAttributeName, attachment, {2, 2});
    Mutable::addAttribute(string, NSAttachmentAttributeName, attachment, {5, 1});
    return string;
  };
  const auto fixed = [](NSRange range) { return [=](Mutable* s) { Mutable::fixAttachmentAttributeInRange(s, range); }; };
  expectRows({{"all", fixed({0, 7}), "a|@(*)|bc"},
              {"some", fixed({1, 3}), "a|@(*)|b@|c(*)|@"},
              {"the last", fixed({6, 1}), "a@|@b(*)|@|c(*)"},
              {"nothing", fixed({1, 0}), "a@|@b(*)|@|c(*)|@"}},
             NSAttachmentAttributeName, start);
}

TEST(AttributedStringEditing, GivesCharactersAFontThatHasThem) {
  const auto hebrew = appkit::substitutions(text::Text::utf16(u"\u05E9"), {0, 1}, "Helvetica");
  if (hebrew.empty()) GTEST_SKIP() << "wants a Helvetica without Hebrew, and another font with it";
  const std::string regular = text::fontMeant(hebrew[0].family, 0, 12).name;
  const std::string bold = text::fontMeant(hebrew[0].family, text::boldTrait, 12).name;
  const AutoreleasePool pool;
  const auto fixed = [](std::string_view text, NSRange range) {
    const Owned<Mutable> string = make(text);
    setFont(string, "Helvetica-Bold", {2, NSAttributedString::length(string) - 2}, 20);
    Mutable::fixFontAttributeInRange(string, range);
    return runs(string, NSFontAttributeName);
  };
  // Hebrew in a Latin font; the mark goes with the letter before it, the space is the font's own.
  EXPECT_EQ(
      fixed("ab cd \u05E9\u05B8\u05DC \u05DD.", {0, 12}),
      "ab| cd (Helvetica-Bold)|\u05E9\u05B8\u05DC(" + bold + ")| (Helvetica-Bold)|\u05DD(" + bold + ")|.(Helvetica-Bold)");
  EXPECT_EQ(fixed("ab\u05E9\u05DC", {3, 1}), "ab|\u05E9(Helvetica-Bold)|\u05DC(" + bold + ")");
  // Without a font of their own only those characters get one that need it.
  EXPECT_EQ(fixed("\u05E9b", {0, 2}), "\u05E9(" + regular + ")|b");
  // What the font has, and what none has, stays.
  EXPECT_EQ(fixed("ab\u00E9\u03B1\u0416\n\uFFFC\U0010FFFD\uE000", {0, 9}),
            "ab|\u00E9\u03B1\u0416/@\U0010FFFD\uE000(Helvetica-Bold)");

  const Owned<Mutable> twice = make("x\u05E9");
  Mutable::fixFontAttributeInRange(twice, {0, 2});
  const std::string once = runs(twice, NSFontAttributeName);
  Mutable::fixFontAttributeInRange(twice, {0, 2});
  EXPECT_EQ(runs(twice, NSFontAttributeName), once);
}

TEST(AttributedStringEditing, GroupsAttributesOfTheFirstCharacter) {
  const AutoreleasePool pool;
  const Owned<Mutable> string = make("ab");
  const Owned<NSNumber> one = newNumber(1);
  for (NSString* name : {NSLinkAttributeName, NSAttachmentAttributeName, NSUnderlineStyleAttributeName,
                         NSToolTipAttributeName, constantString("of my own")}) {
    Mutable::addAttribute(string, name, one, {1, 1});
  }
  setFont(string, "Times-Roman", {1, 1});
  Mutable::addAttribute(string, NSParagraphStyleAttributeName, aligned(text::Alignment::right), {1, 1});
  const auto keys = [](NSDictionary* dictionary) {
    std::string list;
    foundation::forEachEntry(dictionary, [&](NSObject* key, NSObject*) { list += foundation::describe(key) + " "; });
    return list;
  };
  EXPECT_EQ(keys(NSMutableAttributedString::fontAttributesInRange(string, {1, 1})), "NSFont NSUnderline NSToolTip ");
  EXPECT_EQ(keys(NSMutableAttributedString::rulerAttributesInRange(string, {1, 1})), "NSParagraphStyle ");
  for (const NSRange range : {NSRange{0, 2}, NSRange{1, 0}, NSRange{2, 0}}) {
    EXPECT_EQ(keys(NSMutableAttributedString::fontAttributesInRange(string, range)), "");
    EXPECT_EQ(keys(NSMutableAttributedString::rulerAttributesInRange(string, range)), "");
  }
}

TEST(AttributedStringEditing, RefusesBadRangesAndValues) {
  const AutoreleasePool pool;
  const Owned<Mutable> string = make("abc\ndef");
  const struct {
    const char* selector;
    std::function<void(NSRange)> send;
  } rows[] = {
      {"superscriptRange:", [&](NSRange r) { Mutable::superscriptRange(string, r); }},
      {"subscriptRange:", [&](NSRange r) { Mutable::subscriptRange(string, r); }},
      {"unscriptRange:", [&](NSRange r) { Mutable::unscriptRange(string, r); }},
      {"applyFontTraits:range:", [&](NSRange r) { Mutable::applyFontTraits(string, 2, r); }},
      {"setAlignment:range:", [&](NSRange r) { Mutable::setAlignment(string, 1, r); }},
      {"setBaseWritingDirection:range:", [&](NSRange r) { Mutable::setBaseWritingDirection(string, 1, r); }},
      {"fixAttributesInRange:", [&](NSRange r) { Mutable::fixAttributesInRange(string, r); }},
      {"fixFontAttributeInRange:", [&](NSRange r) { Mutable::fixFontAttributeInRange(string, r); }},
      {"fixParagraphStyleAttributeInRange:", [&](NSRange r) { Mutable::fixParagraphStyleAttributeInRange(string, r); }},
      {"fixAttachmentAttributeInRange:", [&](NSRange r) { Mutable::fixAttachmentAttributeInRange(string, r); }},
      {"rulerAttributesInRange:", [&](NSRange r) { Mutable::rulerAttributesInRange(string, r); }},
      {"fontAttributesInRange:", [&](NSRange r) { Mutable::fontAttributesInRange(string, r); }},
  };
  for (const auto& row : rows) {
    for (const NSRange bad : {NSRange{0, 8}, NSRange{8, 0}, NSRange{5, NSUInteger(-2)}, NSRange{NSNotFound, 0}}) {
      EXPECT_EQ(raised([&] { row.send(bad); }), std::string("NSRangeException: -[NSConcreteMutableAttributedString ") +
                                                    row.selector + "]: Range {" + std::to_string(bad.location) + ", " +
                                                    std::to_string(bad.length) + "} out of bounds; string length 7");
    }
  }
  for (const std::string& refused : {raised([&] {
                                       Mutable::setAlignment(string, 5, {0, 1});
                                     }),
                                     raised([&] {
                                       Mutable::setAlignment(string, NSUInteger(-1), {0, 1});
                                     }),
                                     raised([&] {
                                       Mutable::setBaseWritingDirection(string, 2, {0, 1});
                                     })}) {
    EXPECT_TRUE(refused.starts_with("NSInvalidArgumentException: -[NSConcreteMutableAttributedString set")) << refused;
  }
  EXPECT_EQ(runs(string, NSParagraphStyleAttributeName), "abc/def");
}

// "one\ntwo", both paragraphs with a style; joined by a deletion they have the first one's once the storage has fixed them.
TEST(TextStorage, FixesWhatWasEditedWhenTheLastEditEnds) {
  const AutoreleasePool pool;
  const auto start = [] {
    Owned<NSTextStorage> storage = make<NSTextStorage>("one\ntwo\nend");
    Mutable::beginEditing(storage);
    Mutable::addAttribute(storage, NSParagraphStyleAttributeName, aligned(text::Alignment::left), {0, 4});
    Mutable::addAttribute(storage, NSParagraphStyleAttributeName, aligned(text::Alignment::right), {4, 4});
    Mutable::endEditing(storage);
    return storage;
  };
  const Owned<NSTextStorage> atOnce = start();
  Mutable::deleteCharactersInRange(atOnce, {3, 1});
  EXPECT_EQ(runs(atOnce, NSParagraphStyleAttributeName), "onetwo/(0/-1)|end");

  const Owned<NSTextStorage> nested = start();
  Mutable::beginEditing(nested);
  Mutable::deleteCharactersInRange(nested, {3, 1});
  Mutable::beginEditing(nested);
  Mutable::replaceWithString(nested, {0, 0}, newString("\uFFFC"));
  Mutable::endEditing(nested);
  EXPECT_EQ(runs(nested, NSParagraphStyleAttributeName), "@one(0/-1)|two/(1/-1)|end");
  Mutable::endEditing(nested);
  EXPECT_EQ(runs(nested, NSParagraphStyleAttributeName), "onetwo/(0/-1)|end");
  Mutable::endEditing(nested);  // one too many does nothing
  Mutable::superscriptRange(nested, {0, 3});
  EXPECT_EQ(runs(nested, NSSuperscriptAttributeName), "one(1)|two/end");

  const Owned<Mutable> plain = make("\uFFFC");
  Mutable::beginEditing(plain);
  Mutable::endEditing(plain);
  EXPECT_EQ(NSAttributedString::length(plain), 1U);
}

// Edits in any order: what is fixed at the end lies in the text that they left.
TEST(TextStorage, GathersEditsAcrossInsertionsAndDeletions) {
  const AutoreleasePool pool;
  const struct {
    std::vector<NSRange> replaced;  // each by "\uFFFC", which stands for nothing
    std::string expected;
  } rows[] = {
      {{{0, 0}, {11, 0}}, "abcdefghij"}, {{{9, 1}, {0, 1}}, "bcdefghi"},    {{{2, 5}, {3, 1}}, "abij"},
      {{{4, 1}, {0, 10}}, ""},           {{{3, 3}, {0, 2}, {3, 2}}, "cij"},
  };
  for (const auto& row : rows) {
    const Owned<NSTextStorage> storage = make<NSTextStorage>("abcdefghij");
    Mutable::beginEditing(storage);
    for (const NSRange& range : row.replaced) Mutable::replaceWithString(storage, range, newString("\uFFFC"));
    Mutable::fixAttachmentAttributeInRange(storage, {0, 1});
    Mutable::endEditing(storage);
    EXPECT_EQ(utf8Of(NSAttributedString::string(storage)), row.expected);
  }
}

}  // namespace
