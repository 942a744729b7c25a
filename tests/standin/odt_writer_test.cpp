// OpenDocument text written: what other programs find in the package, and everything read again as it was.
#include "standin/formats/colors.hpp"
#include "standin/text/font_faces.hpp"
#include "tests/standin/odt_support.hpp"

namespace {

using namespace odt_support;
using standin::text::Alignment;
using standin::text::Color;
using standin::text::ColorSpace;
using standin::text::Paragraph;
using standin::text::TabKind;
using standin::text::WritingDirection;

Style plain(const char* font = "Georgia", double size = 12, uint64_t traits = 0) {
  Style style;
  style.font = standin::text::fontMeant(font, traits, size);
  return style;
}

Document documentOf(std::initializer_list<std::pair<std::u16string, Style>> runs) {
  Document document;
  for (const auto& [text, style] : runs) {
    document.runs.push_back({static_cast<uint32_t>(text.size()), static_cast<uint32_t>(document.styles.size())});
    document.text += text;
    document.styles.push_back(style);
  }
  return document;
}

Document readAgain(const Document& document) { return parsed(written(document)).value(); }

std::string bodyOf(const Document& document) {
  const std::string content = partOf(written(document), "content.xml");
  const size_t start = content.find("<office:text>") + 13;
  std::string paragraphs = content.substr(start, content.find("</office:text>") - start);
  std::erase(paragraphs, '\n');
  return paragraphs;
}

TEST(OdtWriter, KeepsEveryCharacterThatXMLCanHold) {
  const struct {
    const char16_t* text;
    const char16_t* again;
  } rows[] = {
      {u"", u""},
      {u"one\ntwo\n\n", u"one\ntwo\n\n"},
      {u" lead  two   three \n  \n ", u" lead  two   three \n  \n "},
      {u"\ta\t\t b\u2028 c\u2028", u"\ta\t\t b\u2028 c\u2028"},
      {u"<a href=\"x\">&amp;</a> ]]>", u"<a href=\"x\">&amp;</a> ]]>"},
      {u"\u00A0\u00AD\u2011\u200B\U0001F600\u05d0\u6f22", u"\u00A0\u00AD\u2011\u200B\U0001F600\u05d0\u6f22"},
      {u"\fa\nb\f\n\f\n\fc", u"\fa\nb\f\n\f\n\fc"},
      {u"a\fb\f", u"a\n\fb\f"},
      {u"a\r\nb\rc\u2029d", u"a\nb\nc\nd"},
      {u"bell\u0007\uFFFE\xD800x", u"bellx"},
      {u"no picture \uFFFC.", u"no picture ."},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(readAgain(documentOf({{row.text, plain()}})).text, row.again) << standin::formats::utf8Of(row.text);
  }
}

TEST(OdtWriter, KeepsSpacesAcrossRuns) {
  const Style bold = plain("Georgia", 12, standin::text::boldTrait);
  for (const std::u16string_view pieces : {u"a | b", u" | |a", u"a|  |b ", u"a |\n| b"}) {
    const size_t bar = pieces.find(u'|'), second = pieces.find(u'|', bar + 1);
    const std::u16string first(pieces.substr(0, bar)), middle(pieces.substr(bar + 1, second - bar - 1));
    const std::u16string last(second == pieces.npos ? std::u16string_view() : pieces.substr(second + 1));
    EXPECT_EQ(readAgain(documentOf({{first, plain()}, {middle, bold}, {last, plain()}})).text, first + middle + last);
  }
}

Color color(double red, double green, double blue) {
  const auto byte = [](double share) { return static_cast<uint8_t>(share * 255 + 0.5); };
  return standin::formats::colorOf(byte(red), byte(green), byte(blue));
}

// Styles with one property each.
std::vector<Style> characterStyles() {
  std::vector<Style> styles;
  const auto add = [&](auto change) {
    styles.push_back(plain());
    change(styles.back());
  };
  add([](Style&) {});
  add([](Style& style) { style = plain("Helvetica", 13.5, standin::text::boldTrait | standin::text::italicTrait); });
  add([](Style& style) { style = plain("HelveticaNeue-Light", 9); });
  add([](Style& style) { style = plain("Made Up & Sans", 20, standin::text::italicTrait); });
  add([](Style& style) { style.foreground = color(1, 0.2, 0); });
  add([](Style& style) { style.background = color(0, 1, 0.4); });
  for (const int line : {1, 2, 9, 0x101, 0x202, 0x309, 0x401, 0x8001}) {
    add([&](Style& style) { style.underline = line; });
  }
  add([](Style& style) {
    style.underline = 1;
    style.underlineColor = color(0, 0, 1);
  });
  add([](Style& style) { style.strikethrough = 9; });
  add([](Style& style) {
    style.strikethrough = 1;
    style.strikethroughColor = color(0, 1, 0);
  });
  for (const int levels : {1, -1, 2, -3}) add([&](Style& style) { style.superscript = levels; });
  add([](Style& style) { style.baselineOffset = -3.5; });
  add([](Style& style) { style.kern = 1.25; });
  add([](Style& style) { style.expansion = -0.25; });
  add([](Style& style) { style.strokeWidth = 3; });
  add([](Style& style) { style.shadow = {1, -1, 0, Color{ColorSpace::deviceRGB, {}, 1.0 / 3}}; });
  add([](Style& style) { style.shadow = {-2, 3, 4, color(1, 0, 0)}; });
  add([](Style& style) { style.link = u"http://example.org/?a=\"1\"&b=<2>"; });
  return styles;
}

TEST(OdtWriter, KeepsPropertiesOfText) {
  Document document;
  for (const Style& style : characterStyles()) {
    document.text += u"xy";
    document.runs.push_back({2, static_cast<uint32_t>(document.styles.size())});
    document.styles.push_back(style);
  }
  const Document again = readAgain(document);
  ASSERT_EQ(again.text, document.text);
  for (size_t index = 0; index < document.styles.size(); ++index) {
    EXPECT_TRUE(styleAt(again, 2 * index) == document.styles[index]) << index;
  }
}

TEST(OdtWriter, KeepsPropertiesOfParagraphs) {
  std::vector<Paragraph> paragraphs(1);
  const auto add = [&](auto change) { change(paragraphs.emplace_back()); };
  for (const auto alignment : {Alignment::left, Alignment::right, Alignment::center, Alignment::justified}) {
    add([&](Paragraph& paragraph) { paragraph.alignment = alignment; });
  }
  for (const auto alignment : {Alignment::left, Alignment::right, Alignment::natural}) {
    add([&](Paragraph& paragraph) {
      paragraph.alignment = alignment;
      paragraph.direction = WritingDirection::rightToLeft;
    });
  }
  add([](Paragraph& paragraph) { paragraph.direction = WritingDirection::leftToRight; });
  add([](Paragraph& paragraph) {
    paragraph.headIndent = 36;
    paragraph.firstLineIndent = 18;
    paragraph.tailIndent = -20;
    paragraph.spacingBefore = 6.5;
    paragraph.spacingAfter = 3;
  });
  add([](Paragraph& paragraph) { paragraph.lineHeightMultiple = 1.15; });
  add([](Paragraph& paragraph) { paragraph.minimumLineHeight = paragraph.maximumLineHeight = 20; });
  add([](Paragraph& paragraph) { paragraph.minimumLineHeight = 18; });
  add([](Paragraph& paragraph) {
    paragraph.lineSpacing = 4;
    paragraph.defaultTabInterval = 50;
  });
  add([](Paragraph& paragraph) {
    paragraph.headIndent = 30;
    paragraph.firstLineIndent = 30;
    paragraph.tabs = {{{20, TabKind::left}, {72, TabKind::right}, {144, TabKind::center}, {200, TabKind::decimal}}};
  });
  add([](Paragraph& paragraph) { paragraph.tabs.emplace(); });
  for (const int level : {1, 6}) add([&](Paragraph& paragraph) { paragraph.headerLevel = level; });
  Document document;
  for (const Paragraph& paragraph : paragraphs) {
    Style style = plain();
    style.paragraph = paragraph;
    document.text += u"ab\n";
    document.runs.push_back({3, static_cast<uint32_t>(document.styles.size())});
    document.styles.push_back(style);
  }
  const Document again = readAgain(document);
  ASSERT_EQ(again.text, document.text);
  for (size_t index = 0; index < paragraphs.size(); ++index) {
    EXPECT_TRUE(styleAt(again, 3 * index) == document.styles[index]) << index;
    EXPECT_TRUE(styleAt(again, 3 * index + 2) == document.styles[index]) << index;  // its end as well
  }
}

TEST(OdtWriter, WritesSpansOnlyWhereTheParagraphLooksDifferent) {
  const Style bold = plain("Georgia", 12, standin::text::boldTrait);
  Style link = plain();
  link.link = u"x:1";
  Style other = link;
  other.link = u"x:2";
  EXPECT_EQ(bodyOf(documentOf({{u"all bold\n", bold}, {u"a ", plain()}, {u"b", bold}, {u" c", plain()}})),
            "<text:p text:style-name=\"P1\">all bold</text:p><text:p text:style-name=\"P2\">a "
            "<text:span text:style-name=\"T1\">b</text:span> c</text:p>");
  const std::string links = bodyOf(documentOf({{u"one", link}, {u"two", other}, {u"\nthree", other}}));
  const std::string opening =
      "<text:a xlink:type=\"simple\" text:style-name=\"Link\" text:visited-style-name=\"Link\" xlink:href=";
  EXPECT_EQ(links, "<text:p text:style-name=\"P1\">" + opening + "\"x:1\">one</text:a>" + opening +
                       "\"x:2\">two</text:a></text:p><text:p text:style-name=\"P1\">" + opening +
                       "\"x:2\">three</text:a></text:p>");
}

TEST(OdtWriter, RepeatsAddressesUpToABound) {
  Style first = plain(), second = plain();
  first.link = std::u16string(1'000'000, u'a');
  second.link = u"x:";
  std::u16string paragraphs;
  for (int paragraph = 0; paragraph < 60; ++paragraph) paragraphs += u"a\n";
  const std::string body = bodyOf(documentOf({{paragraphs, first}, {u"b", second}}));
  EXPECT_LT(body.size(), 20'000'000u);
  EXPECT_NE(body.find("x:"), std::string::npos) << "a new address is written all the same";
}

TEST(OdtWriter, PacksEachPictureOnce) {
  const auto owner = std::make_shared<const std::string>(pixel);
  const auto attachment = [&](double width, double height) {
    Style style = plain();
    style.attachment = std::make_shared<standin::text::Attachment>(standin::text::Attachment{
        {}, {reinterpret_cast<const uint8_t*>(owner->data()), owner->size()}, owner, width, height, nullptr});
    return style;
  };
  Style file = plain();
  file.attachment = std::make_shared<standin::text::Attachment>();
  const std::string bytes = written(
      documentOf({{u"\uFFFC", attachment(40, 30)}, {u"a", plain()}, {u"\uFFFC", attachment(0, 0)}, {u"\uFFFC", file}}));
  const Document again = parsed(bytes).value();
  ASSERT_EQ(again.text, u"\uFFFCa\uFFFC");
  EXPECT_EQ(styleAt(again, 0).attachment->width, 40);
  EXPECT_EQ(styleAt(again, 2).attachment->height, 1);  // a point a pixel
  EXPECT_EQ(partOf(bytes, "Pictures/1.png"), pixel);
  EXPECT_EQ(partOf(bytes, "Pictures/2.png"), "(no such part)");
  EXPECT_NE(partOf(bytes, "META-INF/manifest.xml").find("\"Pictures/1.png\" manifest:media-type=\"image/png\""),
            std::string::npos);
}

TEST(OdtWriter, KeepsWhatTheDocumentSaysOfItself) {
  Document document = documentOf({{u"x", plain()}});
  document.page = {{500}, {400}, {60}, {50}, {40}, {30}};
  document.defaultTabInterval = 33;
  document.background = color(0, 1, 0);
  document.properties = {u"T & t",
                         u"subject",
                         u"author",
                         u"manager",
                         u"company",
                         u"category",
                         u"one, two",
                         u"comment",
                         u"editor",
                         u"copyright",
                         standin::formats::CalendarTime{2004, 5, 6, 7, 8, 9},
                         standin::formats::CalendarTime{2011, 12, 13, 14, 15, 16}};
  const std::string bytes = written(document);
  EXPECT_EQ(bytes.substr(30, 47), "mimetypeapplication/vnd.oasis.opendocument.text");
  EXPECT_EQ(bytes, written(document));
  EXPECT_NE(partOf(bytes, "styles.xml").find("style:print-orientation=\"landscape\""), std::string::npos);
  const Document again = parsed(bytes).value();
  EXPECT_EQ(again.page.paperWidth, 500);
  EXPECT_EQ(again.page.paperHeight, 400);
  EXPECT_EQ(again.page.leftMargin, 60);
  EXPECT_EQ(again.page.bottomMargin, 30);
  EXPECT_EQ(again.defaultTabInterval, 33);
  EXPECT_TRUE(again.background == document.background);
  for (const auto member : {&standin::formats::Properties::title, &standin::formats::Properties::subject,
                            &standin::formats::Properties::author, &standin::formats::Properties::manager,
                            &standin::formats::Properties::company, &standin::formats::Properties::category,
                            &standin::formats::Properties::keywords, &standin::formats::Properties::comment,
                            &standin::formats::Properties::editor, &standin::formats::Properties::copyright}) {
    EXPECT_EQ(again.properties.*member, document.properties.*member);
  }
  EXPECT_EQ(again.properties.created->hour, 7);
  EXPECT_EQ(again.properties.modified->second, 16);
}

}  // namespace
