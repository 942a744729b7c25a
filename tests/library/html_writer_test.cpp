// The HTML dialect as it is written, and the escaping of text.
#include <vector>

#include "html/writer.hpp"
#include "tests/library/html_fixture.hpp"

namespace {

using namespace html_test;

class HtmlWriter : public HtmlTest {};

struct Piece {
  std::u16string_view text;
  NSFont* font = nullptr;
  NSObject* link = nullptr;
  NSObject* underline = nullptr;
  NSColor* color = nullptr;
};

NSFont* font(CGFloat size, NSFontTraitMask traits = 0) {
  NSFontManager* const manager = NSFontManager::sharedFontManager(classOf<NSFontManager>());
  return NSFontManager::fontWithFamily(manager, html::literal("Helvetica"), traits, 5, size);
}
NSColor* rgb(CGFloat red, CGFloat green, CGFloat blue) {
  return NSColor::colorWithCalibratedRGB(classOf<NSColor>(), red, green, blue, 1.0);
}
NSString* link(std::u16string_view text) { return newString(text).autorelease(); }
NSNumber* flag(int value) { return NSNumber::numberWithInt(classOf<NSNumber>(), value); }

NSMutableDictionary* attributesOf(const Piece& run) {
  NSMutableDictionary* const attributes = NSMutableDictionary::dictionaryWithCapacity(classOf<NSMutableDictionary>(), 4);
  const std::pair<NSString*, NSObject*> entries[] = {{NSFontAttributeName, run.font},
                                                     {NSLinkAttributeName, run.link},
                                                     {NSUnderlineStyleAttributeName, run.underline},
                                                     {NSForegroundColorAttributeName, run.color}};
  for (const auto& [key, value] : entries) {
    if (value != nullptr) NSMutableDictionary::setObject(attributes, value, key);
  }
  return attributes;
}

Owned<NSAttributedString> styled(const std::vector<Piece>& runs) {
  auto whole = adopt(static_cast<NSMutableAttributedString*>(
      NSAttributedString::initWithString(alloc<NSMutableAttributedString>(), html::literal(""))));
  for (const Piece& run : runs) {
    const auto piece = adopt(
        NSAttributedString::initWithStringAttributes(alloc<NSAttributedString>(), newString(run.text), attributesOf(run)));
    NSMutableAttributedString::appendAttributedString(whole, piece);
  }
  return whole;
}

std::string written(const std::vector<Piece>& runs) { return utf8(unitsOf(html::htmlString_ZKT(styled(runs)))); }

// Programs can put any object where attributes have a font.
TEST_F(HtmlWriter, RefusesWhatIsNoFont) {
  const auto text = styled({{u"x", static_cast<NSFont*>(static_cast<NSObject*>(link(u"bold")))}});
  NSException* const raised = catchException([&] { html::htmlString_ZKT(text); });
  ASSERT_NE(raised, nullptr);
  EXPECT_TRUE(NSObject::isEqual(NSException::name(raised), NSInvalidArgumentException));
}

TEST_F(HtmlWriter, Fonts) {
  EXPECT_EQ(written({{u"x", font(12)}}), "x");
  EXPECT_EQ(written({{u"x", font(14, NSBoldFontMask)}}), "<b><font size=5>x</font></b>");
  EXPECT_EQ(written({{u"a", font(12)}, {u"b", font(12, NSItalicFontMask)}, {u"c", font(12)}}), "a<i>b</i>c");
  EXPECT_EQ(written({{u"a", font(12, NSBoldFontMask | NSItalicFontMask)}, {u"b", font(12, NSBoldFontMask)}}),
            "<b><i>a</i>b</b>");
  const std::pair<CGFloat, const char*> sizes[] = {{10, "1"}, {16, "7"}, {24, "15"}, {8, "-1"}, {10.9, "1"}};
  for (const auto& [size, number] : sizes) {
    EXPECT_EQ(written({{u"x", font(size)}}), std::string("<font size=") + number + ">x</font>") << size;
  }
  EXPECT_EQ(written({{u"a", font(14)}, {u"b", font(12)}}), "<font size=5>a</font><font size=3>b");
  EXPECT_EQ(written({{u"x", font(12.0000001)}}), "x") << "sizes are compared as 32-bit numbers";
}

TEST_F(HtmlWriter, WithoutFonts) {
  EXPECT_EQ(written({}), "</font>");
  EXPECT_EQ(written({{u"x"}}), "x</font>");
  EXPECT_EQ(written({{u"a", font(12, NSBoldFontMask)}, {u"b"}}), "<b>a</b></font><font size=-9>b</font>");
  EXPECT_EQ(written({{u"a"}, {u"b", font(12)}}), "ab");
}

TEST_F(HtmlWriter, LinksAndUnderlines) {
  NSFont* const plain = font(12);
  EXPECT_EQ(written({{u"a", plain, link(u"u")}, {u"b", plain}}), "<a href=\"u\">a</a>b");
  EXPECT_EQ(written({{u"a", plain, link(u"say \"<&\"")}}), "<a href=\"say \"<&\"\">a</a>");
  EXPECT_EQ(written({{u"a", plain, link(u"u")}, {u"b", plain, link(u"v")}}), "<a href=\"u\">a</a><a href=\"v\">b</a>");
  EXPECT_EQ(written({{u"a", plain, flag(7)}}), "<a href=\"7\">a</a>");
  EXPECT_EQ(written({{u"a", plain, nullptr, flag(1)}, {u"b", plain, nullptr, flag(0)}, {u"c", plain}}), "<u>a</u>bc");
  EXPECT_EQ(written({{u"a", plain, nullptr, flag(2)}}), "<u>a</u>");
  EXPECT_EQ(written({{u"a", font(14, NSBoldFontMask | NSItalicFontMask), link(u"u"), flag(1), rgb(1, 0, 0)}}),
            "<a href=\"u\"><b><i><font size=5><u><font color=\"#ff0000\">a</a></font></u></i></b>");
}

TEST_F(HtmlWriter, Colors) {
  NSFont* const plain = font(12);
  NSColor* const black = NSColor::blackColor(classOf<NSColor>());
  const std::vector<Piece> runs = {{u"a", plain, nullptr, nullptr, black}, {u"b", plain, nullptr, nullptr, rgb(0, 0, 1)}};
  EXPECT_EQ(written(runs), "<font color=\"#000000\">a</font><font color=\"#0000ff\">b</font>");
  EXPECT_EQ(written({runs[0]}), "<font color=\"#000000\">a</font>");
  fillTables();
  EXPECT_EQ(written(runs), "a</font><font color=\"#0000ff\">b</font>");
  EXPECT_EQ(written({runs[0]}), "a");
  EXPECT_EQ(written({runs[1], {u"c", plain}}), "<font color=\"#0000ff\">b</font>c");
}

// Links and colours are told apart as objects, fonts by what they are.
TEST_F(HtmlWriter, EqualValuesOfDistinctObjects) {
  NSFont* const plain = font(12);
  NSFont* const slanted = font(12, NSItalicFontMask);
  const auto distinct = [] { return link(u"a target too long to be kept without an object of its own"); };
  const std::string open = "<a href=\"a target too long to be kept without an object of its own\">";
  NSString *const one = distinct(), *const other = distinct();
  ASSERT_NE(one, other);
  EXPECT_EQ(written({{u"a", plain, one}, {u"b", slanted, other}}), open + "a</a>" + open + "<i>b</a></i>");
  EXPECT_EQ(written({{u"a", plain, one}, {u"b", slanted, one}}), open + "a<i>b</a></i>");
  NSColor *const red = rgb(1, 0, 0), *const sameRed = rgb(1, 0, 0);
  ASSERT_NE(red, sameRed);
  EXPECT_EQ(written({{u"a", plain, nullptr, nullptr, red}, {u"b", slanted, nullptr, nullptr, sameRed}}),
            "<font color=\"#ff0000\">a<i></font><font color=\"#ff0000\">b</font></i>");
  EXPECT_EQ(written({{u"a", plain, nullptr, nullptr, red}, {u"b", slanted, nullptr, nullptr, red}}),
            "<font color=\"#ff0000\">a<i>b</font></i>");
}

TEST_F(HtmlWriter, ALinkIsWrittenAsItDescribesItself) {
  NSURL* const url = NSURL::URLWithString(classOf<NSURL>(), link(u"http://example.org/a?b=c&d#e"));
  EXPECT_EQ(written({{u"a", font(12), url}}), "<a href=\"http://example.org/a?b=c&d#e\">a</a>");
  NSURL* const relative = NSURL::URLWithString(classOf<NSURL>(), link(u"page.html"));
  EXPECT_EQ(written({{u"a", font(12), relative}}), "<a href=\"page.html\">a</a>");
}

// A text that says of every character that it is a run of its own.
const std::vector<Piece>* characterRuns;
NSString* charactersOf(NSObject*, SEL) {
  std::u16string text;
  for (const Piece& run : *characterRuns) text += run.text;
  return newString(text).autorelease();
}
NSDictionary* attributesOfCharacter(NSObject*, SEL, NSUInteger index, NSRange* run) {
  *run = {index, 1};
  return attributesOf((*characterRuns)[index]);
}
std::string writtenByCharacters(const std::vector<Piece>& runs) {
  static const Class cls = [] {
    const Class made = objc_allocateClassPair(objc_getClass("NSObject"), "RunsOfOneCharacter", 0);
    class_addMethod(made, NSAttributedString::string.selector(), reinterpret_cast<IMP>(&charactersOf), "@@:");
    class_addMethod(made, NSAttributedString::attributesAtIndex.selector(), reinterpret_cast<IMP>(&attributesOfCharacter),
                    "@@:Q^v");
    objc_registerClassPair(made);
    return made;
  }();
  characterRuns = &runs;
  const auto text = adopt(NSObject::init(NSObject::alloc(cls)));
  return utf8(html::write(static_cast<NSAttributedString*>(text.get())));
}

TEST_F(HtmlWriter, EqualAttributesInConsecutiveRunsWriteNothing) {
  NSFont* const bold = font(14, NSBoldFontMask);
  EXPECT_EQ(writtenByCharacters({{u"a", bold}, {u"b", bold}, {u"c", bold, nullptr, flag(0)}}),
            "<b><font size=5>abc</font></b>");
  NSString *const one = link(u"a target of its own, and long"), *const other = link(u"a target of its own, and long");
  ASSERT_NE(one, other);
  const std::string open = "<a href=\"a target of its own, and long\">";
  // The link that is open is that of the run written, not of an equal one since.
  const std::pair<NSString*, std::string> cases[] = {{one, ""}, {other, "</a>" + open}};
  for (const auto& [last, tags] : cases) {
    EXPECT_EQ(writtenByCharacters({{u"a", bold, one}, {u"b", bold, other}, {u"c", bold, last, flag(1)}}),
              open + "<b><font size=5>ab" + tags + "<u>c</a></font></u></b>");
  }
}

TEST_F(HtmlWriter, ReadsBackWhatItCan) {
  const auto text = read(u"Hello <b>bold</b><i>italic<u>both</u></i><font size=5>big</font><a href=\"u\">link</a>");
  const std::string html = utf8(unitsOf(html::htmlString_ZKT(text)));
  EXPECT_EQ(html,
            "Hello <b>bold</b><i>italic<u>both</i></font><font size=5></u>big<a href=\"u\"></font><font size=3>link</a>");
}

TEST_F(HtmlWriter, EachDocumentStartsAfresh) {
  const std::vector<Piece> bold = {{u"x", font(12, NSBoldFontMask)}};
  for (int writing = 0; writing < 2; ++writing) EXPECT_EQ(written(bold), "<b>x</b>");
  EXPECT_EQ(utf8(unitsOf(html::closeTags(styled({})))), "</b>") << "closes what was written last";
}

TEST_F(HtmlWriter, ColorTexts) {
  const Class palette = classOf<html::ColorPaletteZKT>();
  const auto text = [&](NSColor* color) { return utf8(unitsOf(html::ColorPaletteZKT::stringForColor(palette, color))); };
  EXPECT_EQ(text(rgb(1, 0.5, 0)), "#ff8000");
  EXPECT_EQ(text(NSColor::colorWithCalibratedWhite(classOf<NSColor>(), 0.5, 1.0)), "#808080");
  EXPECT_EQ(text(rgb(1.5, 0, 17)), "#17e0010ef") << "components beyond 1 take more digits";
  EXPECT_EQ(text(rgb(-0.5, 0, 0)), "#ffffff800000") << "and so do those below 0";
  NSColor* const grey = rgb(0.5, 0.25, 1);
  EXPECT_EQ(utf8(unitsOf(html::ColorPaletteZKT::stringForColorGamma(palette, grey, 2.2))), "#ba88ff");
  EXPECT_EQ(html::ColorPaletteZKT::stringForColor(palette, nullptr), nullptr);
  const auto instance = adopt(NSObject::init(NSObject::alloc(palette)));
  const auto copy = adopt(NSObject::copyWithZone(instance, nullptr));
  EXPECT_EQ(copy.get(), instance.get());
  EXPECT_EQ(NSObject::retainCount(instance), 2U);
}

std::string escaped(std::u16string_view text) { return utf8(unitsOf(html::htmlString_ZKT(newString(text)))); }

TEST_F(HtmlWriter, EscapesText) {
  const std::pair<std::u16string_view, const char*> cases[] = {
      {u"", ""},
      {u"it's plain\t\x01\x7F", "it's plain\t\x01\x7F"},
      {u"a\r\nb", "a\r<br/>b"},
      {u"<\"&\">", "&lt;&quot;&amp;&quot;&gt;"},
      {u"caf\u00E9\u00A0\u0080\uFFFF", "caf&#233;&#160;&#128;&#65535;"},
      {u"\U0001F600", "&#55357;&#56832;"},
      {u"\xDC00x", "&#56320;x"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(escaped(text), expected);
}

// Around the length of the blocks that are looked at in one go.
TEST_F(HtmlWriter, EscapesWhereverTheUnitStands) {
  for (std::size_t length = 1; length <= 100; ++length) {
    for (std::size_t place = 0; place < length; ++place) {
      std::u16string text(length, u'x');
      text[place] = u'<';
      ASSERT_EQ(escaped(text), std::string(place, 'x') + "&lt;" + std::string(length - place - 1, 'x'));
    }
  }
}

TEST_F(HtmlWriter, TheEscapedTextIsAMutableStringOfItsOwn) {
  const auto source = newString(u"plain");
  NSString* const result = html::htmlString_ZKT(source);
  NSMutableString::appendString(result, source);
  EXPECT_EQ(utf8(unitsOf(result)), "plainplain");
  EXPECT_EQ(utf8(unitsOf(source)), "plain");
}

TEST_F(HtmlWriter, WritesTheWholeAsRichText) {
  NSData* const data = html::rtf_ZKT(read(u"Hello"));
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(std::string_view(static_cast<const char*>(NSData::bytes(data)), 5), "{\\rtf");
}

}  // namespace
