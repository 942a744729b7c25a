// Binary Word documents read: pieces, styles, fields, lists, tables, pictures, properties, older versions, hostile bytes.
#include <gtest/gtest.h>

#include <functional>

#include "standin/formats/doc/drawing_records.hpp"
#include "standin/formats/doc/reader.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "tests/standin/word_document.hpp"

namespace {

using standin::formats::Document;
using standin::text::Alignment;
using standin::text::Style;
using namespace tests;
namespace doc = standin::formats::doc;

std::optional<Document> parsed(std::string_view bytes) {
  return doc::read({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
}

Document read(WordDocument document) {
  auto read = parsed(document.bytes());
  EXPECT_TRUE(read);
  return read.value_or(Document());
}

// The style of the first unit equal to this.
const Style& styleOf(const Document& document, char16_t unit) {
  size_t position = document.text.find(unit);
  for (const auto& run : document.runs) {
    if (position < run.length) return document.styles[run.style];
    position -= run.length;
  }
  throw std::out_of_range("no such character");
}

WordDocument simple(const std::string& text) { return {.pieces = {{.bytes = text}}}; }

TEST(DocReader, SpecialCharactersAndFieldsBecomeText) {
  const struct {
    std::string text;
    std::u16string expected;
  } rows[] = {
      {"a\rb\r", u"a\nb"},
      {"no mark", u"no mark"},
      {"", u""},
      {"a\vb\fc\x0E"
       "d\x1E"
       "e\x1F"
       "f\tg\xA0h\r",
       u"a\u2028b\fc\fd\u2011e\u00ADf\tg\u00A0h"},
      {"\x80 \x93q\x94 \xE9\r", u"\u20AC \u201Cq\u201D \u00E9"},
      {"note\x02, comment\x05, nothing\x01\x08\x03.\r", u"note, comment, nothing."},
      {"a\x13 DATE \\@ \"d\" \x14today\x15z\r", u"atodayz"},
      {"a\x13 XE \"entry\" \x15z\r", u"az"},
      {"a\x13 IF \x13 PAGE \x14"
       "1\x15 = 2 \x14no\x15z\r",
       u"anoz"},
      {"a\x13 TOC \x14one\rtwo\r\x15z\r", u"aone\ntwo\nz"},
      {"a\x15z\x14y\r", u"azy"},
  };
  for (const auto& row : rows) EXPECT_EQ(read(simple(row.text)).text, row.expected) << row.text;
}

TEST(DocReader, HyperlinksAreOverTheirResults) {
  const Document document =
      read(simple("a\x13 HYPERLINK \"http://x.org/a\" \\l \"here\" \\o \"tip\" \x14"
                  "bc\x15"
                  "d\x13 HYPERLINK \\l \"mark\" \x14"
                  "e\x13 PAGEREF mark \x14"
                  "7\x15\x15z\r"));
  EXPECT_EQ(document.text, u"abcde7z");
  for (const auto& [unit, link] : std::initializer_list<std::pair<char16_t, std::u16string>>{
           {u'a', u""}, {u'b', u"http://x.org/a#here"}, {u'd', u""}, {u'e', u"#mark"}, {u'7', u"#mark"}, {u'z', u""}}) {
    EXPECT_EQ(styleOf(document, unit).link, link) << static_cast<char>(unit);
  }
}

TEST(DocReader, CharacterModifiersBecomeStyles) {
  const auto red = [](const Style& style) {
    return style.foreground && style.foreground->components[0] == 1 && style.foreground->components[2] == 0;
  };
  const struct {
    const char* what;
    std::string modifiers;
    std::function<bool(const Style&)> holds;
  } rows[] = {
      {"nothing", "",
       [](const Style& s) { return s.font->name == "TimesNewRomanPSMT" && s.font->size == 10 && !s.foreground; }},
      {"bold", list({{Property::bold, 1}}), [](const Style& s) { return s.font->bold(); }},
      {"italic of the style's contrary", list({{Property::italic, 0x81}}), [](const Style& s) { return s.font->italic(); }},
      {"font and size", list({{Property::font, 1}, {Property::size, 27}}),
       [](const Style& s) { return s.font->family == "Arial" && s.font->size == 13.5; }},
      {"single underline", list({{Property::underline, 1}}), [](const Style& s) { return s.underline == 1; }},
      {"words underlined", list({{Property::underline, 2}}), [](const Style& s) { return s.underline == 0x8001; }},
      {"unknown underline", list({{Property::underline, 99}}), [](const Style& s) { return s.underline == 1; }},
      {"strike", list({{Property::strikethrough, 1}}), [](const Style& s) { return s.strikethrough == 1; }},
      {"double strike", list({{Property::doubleStrikethrough, 1}}), [](const Style& s) { return s.strikethrough == 9; }},
      {"subscript", list({{Property::superscript, 2}}), [](const Style& s) { return s.superscript == -1; }},
      {"lowered", list({{Property::position, -6}}), [](const Style& s) { return s.baselineOffset == -3; }},
      {"spacing", list({{Property::spacing, -30}}), [](const Style& s) { return s.kern == -1.5; }},
      {"width", list({{Property::widthScale, 150}}), [](const Style& s) { return s.expansion == 0.5; }},
      {"red by number", list({{Property::colorIndex, 6}}), red},
      {"red by value", list({{Property::color, 0x0000FF}}), red},
      {"automatic over red", list({{Property::color, 0x0000FF}, {Property::color, 0xFF000000}}),
       [](const Style& s) { return !s.foreground; }},
      {"highlight", list({{Property::highlight, 7}}),
       [](const Style& s) { return s.background && s.background->components[1] == 1 && s.background->components[2] == 0; }},
      {"shading", counted(Property::shading, std::string("\0\0\0\xFF\0\0\xFF\0\0\0", 10)),
       [](const Style& s) { return s.background && s.background->components[2] == 1; }},
      {"shadow", list({{Property::shadow, 1}}), [](const Style& s) { return s.shadow.has_value(); }},
      {"outline", list({{Property::outline, 1}}), [](const Style& s) { return s.strokeWidth > 0; }},
      {"plain again", list({{Property::bold, 1}, {Property::plain, 0}}), [](const Style& s) { return !s.font->bold(); }},
      {"unknown ones passed over",
       list({{Property(0x6888), 1}}) + counted(Property(0xCA99), "abc") + list({{Property::bold, 1}}),
       [](const Style& s) { return s.font->bold(); }},
  };
  for (const auto& row : rows) {
    WordDocument document = simple("ab\r");
    document.characters = {{1, ""}, {1, row.modifiers}};
    EXPECT_TRUE(row.holds(styleOf(read(document), u'b'))) << row.what;
  }
}

TEST(DocReader, FontsFollowScripts) {
  WordDocument document{.pieces = {{wide(u"a\u4E2D\u0416\r\u05D0\r"), true}}};
  const std::string fonts = list({{Property::font, 0},
                                  {Property::eastAsianFont, 1},
                                  {Property::otherFont, 2},
                                  {Property::complexFont, 3},
                                  {Property::complexSize, 40}});
  document.characters = {{4, fonts}, {2, fonts + list({{Property::isRightToLeft, 1}})}};
  const Document found = read(document);
  EXPECT_EQ(styleOf(found, u'a').font->family, "Times New Roman");
  EXPECT_EQ(styleOf(found, u'\u4E2D').font->family, "Arial");
  EXPECT_EQ(styleOf(found, u'\u0416').font->family, "Courier New");
  EXPECT_EQ(styleOf(found, u'\u05D0').font->family, "Georgia");
  EXPECT_EQ(styleOf(found, u'\u05D0').font->size, 20);
}

TEST(DocReader, SymbolsAndTextThatIsNotToBeSeen) {
  WordDocument document = simple("a(bcde\rf\r");
  document.characters = {{1, ""},
                         {1, list({{Property::symbol, 0xF0E0'0001}, {Property::isSpecial, 1}})},
                         {1, list({{Property::hidden, 1}})},
                         {1, list({{Property::deleted, 1}})},
                         {1, list({{Property::inserted, 1}})},
                         {1, ""},
                         {1, list({{Property::deleted, 1}})},
                         {2, ""}};
  const Document found = read(document);
  EXPECT_EQ(found.text, u"a\uF0E0def");
  EXPECT_EQ(styleOf(found, u'\uF0E0').font->family, "Arial");
}

TEST(DocReader, ParagraphModifiersBecomeParagraphs) {
  using standin::text::Paragraph;
  using standin::text::TabKind;
  using standin::text::WritingDirection;
  const std::string twoTabs("\0\2\x68\1\xD0\2\0\2", 8), lessOne = "\1\x68\1\1\x90\3\1";
  const struct {
    const char* what;
    std::string modifiers;
    std::function<bool(const Paragraph&)> holds;
  } rows[] = {
      {"nothing", "", [](const Paragraph& p) { return p == Paragraph(); }},
      {"centred", list({{Property::physicalAlignment, 1}}),
       [](const Paragraph& p) { return p.alignment == Alignment::center; }},
      {"justified", list({{Property::alignment, 3}}),
       [](const Paragraph& p) { return p.alignment == Alignment::justified; }},
      {"the leading side of right to left", list({{Property::isRightToLeftParagraph, 1}, {Property::alignment, 0}}),
       [](const Paragraph& p) { return p.alignment == Alignment::right && p.direction == WritingDirection::rightToLeft; }},
      {"indents", list({{Property::leftIndent, 720}, {Property::firstLineIndent97, -360}, {Property::rightIndent97, 200}}),
       [](const Paragraph& p) { return p.headIndent == 36 && p.firstLineIndent == 18 && p.tailIndent == -10; }},
      {"spacing", list({{Property::spaceBefore, 120}, {Property::spaceAfter, 60}}),
       [](const Paragraph& p) { return p.spacingBefore == 6 && p.spacingAfter == 3; }},
      {"one and a half lines", list({{Property::lineHeight, 0x1'0168}}),
       [](const Paragraph& p) { return p.lineHeightMultiple == 1.5 && p.minimumLineHeight == 0; }},
      {"single lines", list({{Property::lineHeight, 0x1'00F0}}),
       [](const Paragraph& p) { return p.lineHeightMultiple == 0; }},
      {"at least", list({{Property::lineHeight, 300}}),
       [](const Paragraph& p) { return p.minimumLineHeight == 15 && p.maximumLineHeight == 0; }},
      {"exactly", list({{Property::lineHeight, 0xFED4}}),
       [](const Paragraph& p) { return p.minimumLineHeight == 15 && p.maximumLineHeight == 15; }},
      {"heading", list({{Property::outlineLevel, 1}}), [](const Paragraph& p) { return p.headerLevel == 2; }},
      {"no heading", list({{Property::outlineLevel, 9}}), [](const Paragraph& p) { return p.headerLevel == 0; }},
      {"tabs", counted(Property::tabsOfStyle, twoTabs),
       [](const Paragraph& p) {
         return p.tabs && p.tabs->size() == 2 && p.tabs->at(1).position == 36 && p.tabs->at(1).kind == TabKind::right;
       }},
      {"tabs changed", counted(Property::tabsOfStyle, twoTabs) + counted(Property::tabsOfStyle, lessOne),
       [](const Paragraph& p) {
         return p.tabs && p.tabs->size() == 2 && p.tabs->at(0).position == 36 && p.tabs->at(1).kind == TabKind::center;
       }},
  };
  for (const auto& row : rows) {
    WordDocument document = simple("a\rb\r");
    document.paragraphs = {{2, ""}, {2, row.modifiers}};
    EXPECT_TRUE(row.holds(styleOf(read(document), u'b').paragraph)) << row.what;
  }
}

TEST(DocReader, LongParagraphModifiersAreInTheDataStream) {
  WordDocument document = simple("a\r");
  const std::string modifiers = list({{Property::physicalAlignment, 2}, {Property::storedElsewhere, 4}});
  append32(document.data, 0);
  append16(document.data, modifiers.size());
  document.data += modifiers;
  document.paragraphs = {{2, list({{Property::storedElsewhere, 4}})}};
  EXPECT_EQ(styleOf(read(document), u'a').paragraph.alignment, Alignment::right);
}

TEST(DocReader, StylesInheritAndToggle) {
  WordDocument document = simple("abcde\rf\rg\r");
  document.styles = {{.kind = 1, .characters = list({{Property::size, 24}}), .identifier = 0},
                     {.kind = 1,
                      .parent = 0,
                      .paragraph = list({{Property::spaceBefore, 240}}),
                      .characters = list({{Property::bold, 1}, {Property::font, 1}}),
                      .identifier = 1},
                     {.kind = 1,
                      .parent = 1,
                      .paragraph = list({{Property::physicalAlignment, 1}}),
                      .characters = list({{Property::italic, 1}})},
                     {.kind = 2, .characters = list({{Property::underline, 1}, {Property::bold, 0x81}})},
                     {.kind = 1, .parent = 5, .characters = list({{Property::strikethrough, 1}})},
                     {.kind = 1, .parent = 4, .characters = list({{Property::shadow, 1}})}};
  document.paragraphs = {{6, "", 2}, {2, "", 4}, {2, "", 77}};
  document.characters = {{1, ""},
                         {1, list({{Property::bold, 0x81}})},
                         {1, list({{Property::bold, 0x80}, {Property::italic, 0}})},
                         {1, list({{Property::characterStyle, 3}})},
                         {1, list({{Property::characterStyle, 3}, {Property::bold, 0x81}})},
                         {5, ""}};
  const Document found = read(document);
  const Style &whole = styleOf(found, u'a'), &styled = styleOf(found, u'd');
  EXPECT_TRUE(whole.font->bold() && whole.font->italic() && whole.font->size == 12 && whole.font->family == "Arial");
  EXPECT_EQ(whole.paragraph.alignment, Alignment::center);
  EXPECT_EQ(whole.paragraph.spacingBefore, 12);
  EXPECT_FALSE(styleOf(found, u'b').font->bold());
  EXPECT_TRUE(styleOf(found, u'c').font->bold() && !styleOf(found, u'c').font->italic());
  EXPECT_TRUE(styled.underline == 1 && !styled.font->bold() && styled.font->italic());
  EXPECT_TRUE(styleOf(found, u'e').font->bold());
  EXPECT_TRUE(styleOf(found, u'f').strikethrough == 1 && styleOf(found, u'f').shadow);
  EXPECT_EQ(styleOf(found, u'g').font->size, 10);
}

TEST(DocReader, HeadingsAreKnownByTheirBuiltInStyles) {
  WordDocument document = simple("a\rb\r");
  document.styles.push_back({.kind = 1, .identifier = 3});
  document.paragraphs = {{2, "", 1}, {2, ""}};
  const Document found = read(document);
  EXPECT_EQ(styleOf(found, u'a').paragraph.headerLevel, 3);
  EXPECT_EQ(styleOf(found, u'b').paragraph.headerLevel, 0);
}

TEST(DocReader, PiecesComeInTheOrderOfTheirTable) {
  const auto single = [](int property, int value) { return static_cast<uint16_t>(property << 1 | value << 8); };
  WordDocument document{.pieces = {{.bytes = "ab", .isMoved = true},
                                   {wide(u"\u0416\u4E2D"), true},
                                   {.bytes = "c", .modifier = single(85, 1), .isMoved = true},
                                   {.bytes = "d", .modifier = 1 | 1 << 1},
                                   {.bytes = "\r"}},
                        .pieceLists = {"", list({{Property::italic, 1}, {Property::physicalAlignment, 1}})}};
  document.paragraphs = {{4, list({{Property::physicalAlignment, 2}})}};
  const Document found = read(document);
  EXPECT_EQ(found.text, u"ab\u0416\u4E2Dcd");
  EXPECT_TRUE(styleOf(found, u'c').font->bold());
  EXPECT_TRUE(styleOf(found, u'd').font->italic() && !styleOf(found, u'd').font->bold());
  EXPECT_EQ(styleOf(found, u'a').paragraph.alignment, Alignment::right);
}

TEST(DocReader, TextBehindTheMainTextIsLeftOut) {
  WordDocument document = simple("main\rfootnote\r");
  document.textLength = 5;
  EXPECT_EQ(read(document).text, u"main");
}

TEST(DocReader, CellsAreParagraphsAndRowEndsNothing) {
  WordDocument document = simple("a\rb\x07\x07\x07z\r");
  const std::string inTable = list({{Property::isInTable, 1}});
  document.paragraphs = {{2, inTable}, {2, inTable}, {1, inTable}, {1, inTable + list({{Property::isRowEnd, 1}})}, {2, ""}};
  EXPECT_EQ(read(document).text, u"a\nb\n\nz");
}

TEST(DocReader, SectionsEndParagraphsAndSayThePage) {
  WordDocument document = simple("a\fb\fc\r");
  const std::string page = list({{Property::pageWidth, 11906}, {Property::topMargin, -1000}, {Property::leftMargin, 500}});
  document.parts[Part::sections] =
      numbers({0, 4, 6}) + std::string(2, '\0') + numbers({1536, 0}) + std::string(2, '\0') + std::string(12, '\xFF');
  document.parts[Part::documentProperties] = std::string(10, '\0') + std::string("\x68\1", 2);
  append16(document.behindDocument, page.size());
  document.behindDocument += page;
  const Document found = read(document);
  EXPECT_EQ(found.text, u"a\fb\nc");
  EXPECT_EQ(found.page.paperWidth, 595.3);
  EXPECT_EQ(found.page.paperHeight, 792);
  EXPECT_EQ(found.page.topMargin, 50);
  EXPECT_EQ(found.page.leftMargin, 25);
  EXPECT_EQ(found.defaultTabInterval, 18);
}

// A level of a list: its start, the kind of number, the text around it.
std::string level(int start, uint8_t format, std::u16string_view text, const std::string& modifiers = {}) {
  std::string bytes = numbers({static_cast<uint32_t>(start)});
  bytes += static_cast<char>(format);
  bytes.resize(25);
  bytes += static_cast<char>(modifiers.size());
  bytes.resize(28);
  bytes += modifiers;
  append16(bytes, text.size());
  return bytes + wide(text);
}

TEST(DocReader, ListsCountAndIndent) {
  WordDocument document = simple("a\rb\rc\rd\re\rf\rg\rh\r");
  std::string lists("\2\0", 2), simpleList = numbers({8, 0});
  lists += numbers({7, 0}) + std::string(20, '\0');
  simpleList.resize(26);
  document.parts[Part::lists] = lists + simpleList + std::string("\1\0", 2);
  const std::string indent = list({{Property::leftIndent, 720}, {Property::firstLineIndent, -360}});
  document.behindLists = level(3, 0, std::u16string(u"\0.", 2), indent) + level(1, 4, std::u16string(u"\0.\1)", 4));
  for (int rest = 2; rest < 9; ++rest) document.behindLists += level(1, 255, u"");
  document.behindLists += level(1, 23, u"\uF0B7");
  const auto use = [](uint32_t list, uint32_t changes) { return numbers({list, 0, 0, changes}); };
  document.parts[Part::listOverrides] = numbers({4}) + use(7, 0) + use(8, 0) + use(7, 1) + use(99, 0) +
                                        numbers({0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 10, 0x10, 0xFFFFFFFF});
  const auto item = [](int number, int place) { return list({{Property::listLevel, place}, {Property::list, number}}); };
  document.paragraphs = {{2, item(1, 0)}, {2, item(1, 1)}, {2, item(1, 1)}, {2, item(1, 0)},
                         {2, item(2, 0)}, {2, item(3, 0)}, {2, item(4, 0)}, {2, item(0, 0)}};
  const Document found = read(document);
  EXPECT_EQ(found.text, u"\t3.\ta\n\t3.a)\tb\n\t3.b)\tc\n\t4.\td\n\t\u2022\te\n\t10.\tf\ng\nh");
  const auto& paragraph = styleOf(found, u'a').paragraph;
  EXPECT_EQ(paragraph.headIndent, 36);
  EXPECT_EQ(paragraph.firstLineIndent, 0);
  ASSERT_TRUE(paragraph.tabs);
  EXPECT_EQ(paragraph.tabs->front().position, 18);
  EXPECT_EQ(paragraph.tabs->back().position, 36);
}

std::string record(int version, int instance, int type, const std::string& contents) {
  std::string bytes;
  doc::appendRecord(bytes, {static_cast<uint16_t>(version), static_cast<uint16_t>(instance), static_cast<uint16_t>(type)},
                    contents);
  return bytes;
}

std::string pngOf(int width, int height) {
  const std::vector<uint8_t> pixels(static_cast<size_t>(width * height * 4), 0x80);
  return standin::formats::pictures::encode(pixels, {width, height}).value();
}

// A picture's description for the line of the text, 100 by 50 points at half its size, and its records.
std::string inLine(const std::string& records) {
  std::string bytes = numbers({static_cast<uint32_t>(68 + records.size()), 68 | 100 << 16});
  bytes.resize(28);
  bytes += numbers({2000 | 1000 << 16, 500 | 500 << 16});
  bytes.resize(68);
  return bytes + records;
}

TEST(DocReader, PicturesAreAttachments) {
  const std::string png = pngOf(3, 2), bitmap = numbers({40, 2, 1, 1 | 24 << 16, 0, 8, 0, 0, 0, 0}) + std::string(8, '\x7F');
  const struct {
    const char* what;
    std::string records, contents;
  } rows[] = {
      {"png", record(0, 0x6E0, 0xF01E, std::string(17, 'i') + png), png},
      {"png of two identifiers in a container",
       record(15, 0, 0xF004,
              record(2, 6, 0xF007, std::string(36, '\0') + record(0, 0x6E1, 0xF01E, std::string(33, 'i') + png))),
       png},
      {"bitmap", record(0, 0x7A8, 0xF01F, std::string(17, 'i') + bitmap), "BM" + numbers({62, 0, 54}) + bitmap},
      {"metafile", record(0, 0x216, 0xF01B, std::string(60, 'w')), ""},
      {"damaged", record(0, 0x6E0, 0xF01E, png).substr(0, 30), ""},
  };
  for (const auto& row : rows) {
    WordDocument document = simple("a\1b\r");
    document.data = "skip" + inLine(row.records);
    document.characters = {{1, ""}, {1, list({{Property::isSpecial, 1}, {Property::pictureLocation, 4}})}, {2, ""}};
    const Document found = read(document);
    EXPECT_EQ(found.text, row.contents.empty() ? u"ab" : u"a\uFFFCb") << row.what;
    if (row.contents.empty()) continue;
    const auto& picture = *styleOf(found, u'\uFFFC').attachment;
    EXPECT_EQ(std::string(picture.contents.begin(), picture.contents.end()), row.contents) << row.what;
    EXPECT_EQ(picture.width, 50) << row.what;
    EXPECT_EQ(picture.height, 25) << row.what;
  }
}

TEST(DocReader, DrawnShapesHaveTheirPictures) {
  WordDocument document = simple(
      "a\x08"
      "b\x08\r");
  const std::string description = std::string(28, '\0') + numbers({2048, 0}), png = pngOf(2, 2);
  document.behindDocument = record(0, 0x6E0, 0xF01E, std::string(17, 'i') + png);
  const auto shape = [](uint32_t number, uint32_t picture) {
    return record(
        15, 0, 0xF004,
        record(2, 75, 0xF00A, numbers({number, 0})) + record(3, 1, 0xF00B, std::string("\4\x41", 2) + numbers({picture})));
  };
  document.parts[Part::drawings] = record(15, 0, 0xF000, record(15, 1, 0xF001, record(2, 6, 0xF007, description))) + '\0' +
                                   record(15, 0, 0xF002, record(15, 0, 0xF003, shape(1025, 1) + shape(1026, 9)));
  const auto anchor = [](uint32_t shape) { return numbers({shape, 100, 200, 2100, 1200, 0}) + std::string(2, '\0'); };
  document.parts[Part::shapes] = numbers({1, 3, 5}) + anchor(1025) + anchor(1026);
  document.characters = {{5, list({{Property::isSpecial, 1}})}};
  const Document found = read(document);
  EXPECT_EQ(found.text, u"a\uFFFCb");
  EXPECT_EQ(styleOf(found, u'\uFFFC').attachment->width, 100);
  EXPECT_EQ(styleOf(found, u'\uFFFC').attachment->height, 50);
}

TEST(DocReader, PropertiesAreInTheCodePageOfTheirSet) {
  std::string set(44, '\0'), values;
  set += numbers({48, 120, 4, 1, 40, 2, 48, 3, 60, 12, 76});
  values = numbers({2, 1251, 30, 3}) + std::string("\xC6!\0\0", 4) + numbers({31, 2}) +
           wide(std::u16string(u"\u4E2D\0", 2)) + std::string(4, '\0');
  values += numbers({64}) + std::string("\0\x80\x3E\xD5\xDE\xB1\x9D\1", 8);
  WordDocument document = simple("a\r");
  document.streams["\5SummaryInformation"] = set + values;
  const auto properties = read(document).properties;
  EXPECT_EQ(properties.title, u"\u0416!");
  EXPECT_EQ(properties.subject, u"\u4E2D");
  ASSERT_TRUE(properties.created);
  EXPECT_EQ(properties.created->year, 1970);
}

// A document of version 6: one stream, bytes for characters, modifiers with numbers of one byte.
std::string oldDocument(const std::string& text, const std::string& characters, const std::string& paragraph) {
  std::string document(768, '\0');
  const auto set = [&](size_t place, uint32_t number) { standin::formats::setNumber(document, place, number); };
  set(0, 0xA5DC | 101 << 16);
  set(0x18, 768);
  set(0x34, static_cast<uint32_t>(text.size()));
  document += text;
  document.resize(1024);
  for (const bool ofParagraphs : {false, true}) {
    std::string page = numbers({768, static_cast<uint32_t>(768 + text.size())}) + '\x40';
    page.resize(128);
    if (ofParagraphs) page += static_cast<char>((paragraph.size() + 3) / 2) + std::string(2, '\0') + paragraph;
    if (!ofParagraphs) page += static_cast<char>(characters.size()) + characters;
    page.resize(511);
    document += page + '\1';
  }
  const std::string fonts =
      std::string("\x1E\0", 2) + std::string("\xD\0\0\0\0\0First\0\0\0", 14) + std::string("\xD\0\0\0\xCC\0Second\0\0", 14);
  const std::pair<size_t, std::string> parts[] = {{0xB8, numbers({768, 1024}) + std::string("\2\0", 2)},
                                                  {0xC0, numbers({768, 1024}) + std::string("\3\0", 2)},
                                                  {0xD0, fonts}};
  for (const auto& [place, contents] : parts) {
    set(place, static_cast<uint32_t>(document.size()));
    set(place + 4, static_cast<uint32_t>(contents.size()));
    document += contents;
  }
  const standin::formats::compound_file::Stream stream{doc::documentStream, document};
  return standin::formats::compound_file::write({&stream, 1}, {}).value();
}

TEST(DocReader, OlderVersionsHaveBytesInTheCodePageOfTheFont) {
  const auto found = parsed(oldDocument("\xC6\xE8\rb\r", std::string("\x55\1\x5D\1\0", 5), std::string("\5\1", 2)));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->text, u"\u0416\u0438\nb");
  EXPECT_TRUE(styleOf(*found, u'b').font->bold());
  EXPECT_EQ(styleOf(*found, u'b').font->family, "Second");
  EXPECT_EQ(styleOf(*found, u'b').paragraph.alignment, Alignment::center);
}

TEST(DocReader, OlderVersionsNumberTheirParagraphs) {
  std::string numbering(52, '\0');
  numbering.replace(0, 3, "\4\1\1");
  numbering[10] = 2;
  numbering.replace(20, 2, "()");
  const auto found = parsed(oldDocument("a\rb\r", "", "\x0D\x0A\x0C\x34" + numbering));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->text, u"\t(b)\ta\n\t(c)\tb");
}

TEST(DocReader, EncryptedDocumentsAreRefused) {
  WordDocument document = simple("secret\r");
  document.flags = doc::encrypted;
  const std::string bytes = document.bytes(), plain = simple("a\r").bytes();
  const auto isEncrypted = [](const std::string& all) {
    return doc::isEncrypted({reinterpret_cast<const uint8_t*>(all.data()), all.size()});
  };
  EXPECT_FALSE(parsed(bytes));
  EXPECT_TRUE(isEncrypted(bytes));
  EXPECT_FALSE(isEncrypted(plain));
  EXPECT_FALSE(isEncrypted("no document"));
}

// Whatever is damaged, the runs cover the text and use styles that there are.
void expectWhole(const std::optional<Document>& document) {
  if (!document) return;
  size_t length = 0;
  for (const auto& run : document->runs) {
    ASSERT_LT(run.style, document->styles.size());
    length += run.length;
  }
  ASSERT_EQ(length, document->text.size());
}

TEST(DocReader, DamagedDocumentsGiveNothingOrAText) {
  WordDocument document = simple(
      "a\x13 HYPERLINK \"x\" \x14"
      "b\x15\x07\x07"
      "c\1\r");
  document.styles.push_back({.kind = 1, .parent = 1});
  document.characters = {{4, list({{Property::bold, 1}})},
                         {20, list({{Property::pictureLocation, 0}, {Property::characterStyle, 1}})}};
  document.paragraphs = {{4, list({{Property::list, 1}}), 1}, {20, list({{Property::storedElsewhere, 0}})}};
  document.data = inLine(record(0, 0x6E0, 0xF01E, std::string(17, 'i') + pngOf(2, 2)));
  document.parts[Part::lists] = numbers({0xFFFF'FFFF, 1, 2});
  document.parts[Part::listOverrides] = numbers({0xFFFF'FFFF, 1, 2});
  const std::string bytes = document.bytes();
  for (size_t size = 0; size < bytes.size(); size += 37) expectWhole(parsed(std::string_view(bytes).substr(0, size)));
  for (size_t place = 0; place + 4 < bytes.size(); place += 3) {
    for (const uint32_t number : {0xFFFFFFFFu, 0x7FFFFFFFu, 0x200u}) {
      std::string damaged = bytes;
      standin::formats::setNumber(damaged, place, number);
      expectWhole(parsed(damaged));
    }
  }
}

TEST(DocReader, PiecesOverOnePlaceDoNotMultiplyTheText) {
  WordDocument document{.pieces = std::vector(200, WordDocument::Piece{std::string(20'000, 'a')}), .isOnePlace = true};
  const auto found = parsed(document.bytes());
  ASSERT_TRUE(found);
  EXPECT_GE(found->text.size(), 20'000u);
  EXPECT_LE(found->text.size(), 25'000u);
}

}  // namespace
