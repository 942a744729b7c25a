// Both editions of Word's XML written: what comes back, and what other programs require of the files.
#include <gtest/gtest.h>

#include "standin/formats/docx/writer.hpp"
#include "standin/formats/pictures/embedded.hpp"
#include "standin/formats/wordml/writer.hpp"
#include "standin/text/font_faces.hpp"
#include "tests/standin/word_xml_support.hpp"

namespace {

using standin::formats::DocumentInformation;
using standin::text::Alignment;
using tests::Document;
using tests::Pieces;
using tests::Style;
using tests::styleAt;

// An edition of the format, written and read.
struct EditionRow {
  const char* name;
  std::optional<std::string> (*write)(const standin::formats::StyledRuns&, const DocumentInformation&);
  std::optional<Document> (*read)(std::span<const uint8_t>);
};
const EditionRow editions[] = {
    {"docx", standin::formats::docx::write, standin::formats::docx::read},
    {"wordml", standin::formats::wordml::write, standin::formats::wordml::read},
};

Document rewritten(const EditionRow& edition, const Pieces& pieces, const DocumentInformation& information = {}) {
  return edition.read(tests::bytesOf(edition.write(tests::styledRunsOf(pieces), information).value())).value();
}

Style plainStyle() {
  Style style;
  style.font = standin::text::fontMeant("Georgia", 0, 13.5);
  return style;
}

TEST(WordXmlWriters, EveryCharacterComesBack) {
  const std::u16string texts[] = {u"",
                                  u"\n",
                                  u"a\n",
                                  u"\n\n",
                                  u"a\n\nb",
                                  u"\t\u2028\f\u00AD\u2011\u00A0",
                                  u" a  b ",
                                  u"<&>\"'",
                                  u"\U0001F600\u4E2D\u05D0",
                                  u"\uF0B7",
                                  u"\fa\n\fb\n\f\n\f\fc\f"};
  for (const EditionRow& edition : editions) {
    for (const std::u16string& text : texts)
      EXPECT_EQ(rewritten(edition, {{text, plainStyle()}}).text, text) << edition.name;
    EXPECT_EQ(rewritten(edition, {{u"a\r\nb\rc\u2029d", plainStyle()}}).text, u"a\nb\nc\nd");
    EXPECT_EQ(rewritten(edition, {{u"a\1\uFFFEb", plainStyle()}}).text, u"ab") << "what XML cannot hold";
    EXPECT_EQ(rewritten(edition, {}).text, u"");
  }
}

TEST(WordXmlWriters, EachAttributeComesBackAndEndsWhereItEnded) {
  const standin::text::Color red{standin::text::ColorSpace::calibratedRGB, {1, 0, 0.2, 0}, 1};
  std::vector<std::pair<std::string, Style>> rows;
  const auto row = [&](const char* what) -> Style& { return rows.emplace_back(what, plainStyle()).second; };
  row("bold italic").font = standin::text::fontMeant("Arial", standin::text::boldTrait | standin::text::italicTrait, 9);
  row("face").font = standin::text::fontNamed("HelveticaNeue-Light", 12);
  row("made up family").font = standin::text::fontMeant("A & B", 0, 12);
  for (const int underline : {1, 2, 9, 0x101, 0x202, 0x301, 0x402, 0x8001}) row("underline").underline = underline;
  row("double strike").strikethrough = 9;
  row("strike").strikethrough = 1;
  row("colours").foreground = red;
  row("background").background = red;
  row("superscript").superscript = 1;
  row("subscript").superscript = -1;
  row("raised").baselineOffset = -2.5;
  row("kern").kern = -1.25;
  row("expansion").expansion = 0.25;
  row("no ligatures").ligature = 0;
  row("all ligatures").ligature = 2;
  for (const char16_t* link : {u"http://a.org/?b=1&c=2#d", u"#place", u"http://a.org/a b", u"mailto:a@b.c", u"\u00E9"})
    row("link").link = link;
  for (const EditionRow& edition : editions) {
    for (const auto& [what, style] : rows) {
      const Document document = rewritten(edition, {{u"a", plainStyle()}, {u"b", style}, {u"c", plainStyle()}});
      ASSERT_EQ(document.text, u"abc") << edition.name << ' ' << what;
      EXPECT_EQ(styleAt(document, 0), plainStyle()) << edition.name << ' ' << what;
      EXPECT_EQ(styleAt(document, 1), style) << edition.name << ' ' << what;
      EXPECT_EQ(styleAt(document, 2), plainStyle()) << edition.name << ' ' << what;
    }
  }
}

TEST(WordXmlWriters, ALongAddressIsWrittenOnceForAllParagraphs) {
  Style style = plainStyle();
  for (const std::u16string start : {u"#", u"x:", u"x: "}) {
    style.link = start + std::u16string(5000, u'a') + u"&";
    std::u16string text;
    for (int paragraph = 0; paragraph < 300; ++paragraph) text += u"a\n";
    const Document document = rewritten(editions[0], {{text, style}});
    EXPECT_EQ(styleAt(document, 0).link, style.link);
    EXPECT_EQ(styleAt(document, 598).link, style.link);
    const std::string file = *standin::formats::docx::write(tests::styledRunsOf({{text, style}}), {});
    const std::string main = *standin::formats::zip::Archive::open(tests::bytesOf(file))->read("word/document.xml");
    EXPECT_LT(main.size(), 300'000u);
  }
}

TEST(WordXmlWriters, EachParagraphKeepsItsLayoutAndItsMark) {
  using standin::text::Paragraph;
  using standin::text::TabKind;
  using standin::text::WritingDirection;
  const Paragraph layouts[] = {
      {.alignment = Alignment::left},
      {.alignment = Alignment::right, .direction = WritingDirection::rightToLeft},
      {.alignment = Alignment::left, .direction = WritingDirection::leftToRight},
      {.firstLineIndent = 10, .headIndent = 30, .tailIndent = -20},
      {.firstLineIndent = 30, .headIndent = 10.5},
      {.spacingBefore = 3, .spacingAfter = 4.5, .minimumLineHeight = 20},
      {.minimumLineHeight = 20, .maximumLineHeight = 20},
      {.lineHeightMultiple = 1.25, .headerLevel = 3},
      {.tabs = {{{20, TabKind::left}, {50.5, TabKind::decimal}, {90, TabKind::center}, {120, TabKind::right}}}},
  };
  for (const EditionRow& edition : editions) {
    for (const Paragraph& layout : layouts) {
      Style style = plainStyle(), mark = plainStyle();
      style.paragraph = mark.paragraph = layout;
      mark.font->size = 30;
      const Document document =
          rewritten(edition, {{u"before\n", plainStyle()}, {u"x", style}, {u"\n", mark}, {u"after", plainStyle()}});
      EXPECT_EQ(styleAt(document, 0), plainStyle()) << edition.name;
      EXPECT_EQ(styleAt(document, 7), style) << edition.name;
      EXPECT_EQ(styleAt(document, 8), mark) << edition.name;
      EXPECT_EQ(styleAt(document, 9), plainStyle()) << edition.name;
    }
    Style reaching = plainStyle();
    reaching.paragraph.tailIndent = 400;
    DocumentInformation information;
    information.page.paperWidth = 600;
    information.page.leftMargin = information.page.rightMargin = 50;
    const Document document = rewritten(edition, {{u"x", reaching}}, information);
    EXPECT_EQ(styleAt(document, 0).paragraph.tailIndent, -100) << edition.name;
  }
}

TEST(WordXmlWriters, PicturesComeBackOnceAndOtherFilesAreLeftOut) {
  Style shown = plainStyle(), again = plainStyle(), other = plainStyle();
  const auto picture = standin::formats::pictures::newAttachment(tests::pixel, {}, 20, 10);
  shown.attachment = picture;
  again.attachment = standin::formats::pictures::withSize(*picture, 5, 5);
  other.attachment = standin::formats::pictures::newAttachment("no picture", {});
  for (const EditionRow& edition : editions) {
    const Document document = rewritten(edition, {{u"a\uFFFC", shown}, {u"\uFFFC", again}, {u"\uFFFCb", other}});
    ASSERT_EQ(document.text, u"a\uFFFC\uFFFCb") << edition.name;
    const auto &first = styleAt(document, 1).attachment, &second = styleAt(document, 2).attachment;
    EXPECT_EQ(std::string(first->contents.begin(), first->contents.end()), tests::pixel);
    EXPECT_EQ(first->width, 20);
    EXPECT_EQ(second->height, 5);
    EXPECT_EQ(first->contents.data(), second->contents.data()) << edition.name;
  }
}

TEST(WordXmlWriters, PropertiesSettingsAndThePageComeBack) {
  using standin::formats::Properties;
  DocumentInformation all;
  const std::u16string Properties::*const members[] = {
      &Properties::title,    &Properties::subject,  &Properties::author,  &Properties::manager, &Properties::company,
      &Properties::category, &Properties::keywords, &Properties::comment, &Properties::editor,  &Properties::copyright};
  all.properties = {u"T & <\u00E9>", u"S", u"A", u"M", u"Co", u"Ca", u"K", u"R", u"E", u"\u00A9", {}, {}};
  all.properties.created = {2014, 3, 5, 6, 7, 8};
  all.properties.modified = {2015, 3, 5, 6, 7, 8};
  all.page = {595, 842, 50, 60, 70, 80};
  all.defaultTabInterval = 25;
  all.hyphenationFactor = 1;
  all.viewMode = 1;
  all.viewZoom = 150;
  all.readOnly = 1;
  all.background = standin::text::Color{standin::text::ColorSpace::calibratedRGB, {1, 1, 0, 0}, 1};
  for (const EditionRow& edition : editions) {
    const Document document = rewritten(edition, {{u"x", plainStyle()}}, all);
    for (const auto member : members) EXPECT_EQ(document.properties.*member, all.properties.*member) << edition.name;
    EXPECT_EQ(document.properties.created->second, 8);
    EXPECT_EQ(document.properties.modified->year, 2015);
    EXPECT_EQ(document.page.paperHeight, 842);
    EXPECT_EQ(document.page.leftMargin, 50);
    EXPECT_EQ(document.page.rightMargin, 60);
    EXPECT_EQ(document.page.topMargin, 70);
    EXPECT_EQ(document.page.bottomMargin, 80);
    EXPECT_EQ(document.defaultTabInterval, 25);
    EXPECT_EQ(document.hyphenationFactor, 1);
    EXPECT_EQ(document.viewMode, 1);
    EXPECT_EQ(document.viewZoom, 150);
    EXPECT_EQ(document.readOnly, 1);
    EXPECT_EQ(document.background, all.background);
    const Document bare = rewritten(edition, {{u"x", plainStyle()}});
    EXPECT_FALSE(bare.page.paperWidth || bare.page.leftMargin || bare.background || bare.viewZoom) << edition.name;
  }
}

// The names of the elements below the first of the name, in order.
std::vector<std::string> childrenOf(const std::string& xml, const std::string& name) {
  std::vector<std::string> children;
  const size_t start = xml.find("<w:" + name + ">"), end = xml.find("</w:" + name + ">");
  int depth = 0;
  for (size_t at = xml.find('<', start + 1); at < end; at = xml.find('<', at + 1)) {
    const bool closes = xml[at + 1] == '/';
    if (!closes && depth == 0) children.push_back(xml.substr(at + 1, xml.find_first_of(" />", at + 1) - at - 1));
    if (closes) --depth;
    if (!closes && xml[xml.find('>', at) - 1] != '/') ++depth;
  }
  return children;
}

// Word calls a file damaged whose elements are in another order than the schema's.
TEST(WordXmlWriters, ElementsAreInTheOrderOfTheSchema) {
  Style style = plainStyle();
  style.font = standin::text::fontMeant("Arial", standin::text::boldTrait | standin::text::italicTrait, 9);
  style.foreground = style.background = style.underlineColor = standin::text::Color{};
  style.underline = style.strikethrough = style.superscript = 1;
  style.baselineOffset = style.kern = style.expansion = style.strokeWidth = 1;
  style.shadow.emplace();
  style.ligature = 0;
  style.paragraph = {Alignment::center, standin::text::WritingDirection::rightToLeft, 1, 2, -3, 4, 5, 0, 6, 6};
  style.paragraph.headerLevel = 1;
  style.paragraph.tabs = {{10, standin::text::TabKind::left}};
  DocumentInformation information;
  information.page = {595, 842, 50, 60, 70, 80};
  const Pieces pieces = {{u"x", style}};
  const std::string written = standin::formats::docx::write(tests::styledRunsOf(pieces), information).value();
  const std::string document =
      standin::formats::zip::Archive::open(tests::bytesOf(written))->read("word/document.xml").value();
  const std::vector<std::string> run = {"w:rFonts",  "w:b",      "w:bCs",   "w:i",       "w:iCs",       "w:strike",
                                        "w:outline", "w:shadow", "w:color", "w:spacing", "w:w",         "w:position",
                                        "w:sz",      "w:szCs",   "w:u",     "w:shd",     "w:vertAlign", "w14:ligatures"};
  EXPECT_EQ(childrenOf(document, "rPr"), run);
  const std::vector<std::string> paragraph = {"w:pStyle", "w:tabs", "w:bidi", "w:spacing", "w:ind", "w:jc", "w:rPr"};
  EXPECT_EQ(childrenOf(document, "pPr"), paragraph);
  EXPECT_EQ(childrenOf(document, "sectPr"), (std::vector<std::string>{"w:pgSz", "w:pgMar"}));
}

}  // namespace
