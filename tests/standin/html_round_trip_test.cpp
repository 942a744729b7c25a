// HTML that is written and read again: the same text in the same looks.
#include <gtest/gtest.h>

#include <string>

#include "standin/formats/html/reader.hpp"
#include "standin/formats/html/writer.hpp"
#include "standin/text/font_faces.hpp"

namespace {

using namespace standin::formats;
using standin::text::Style;
using standin::text::Text;
using Pieces = std::vector<std::pair<std::u16string, Style>>;

Document again(const Pieces& pieces, const DocumentInformation& information = {}) {
  StyledRuns styled;
  for (const auto& [units, style] : pieces) {
    styled.text.append(Text::utf16(units));
    styled.runs.push_back({static_cast<uint32_t>(units.size()), &style});
  }
  const std::string written = html::write(styled, information).value();
  return html::read({reinterpret_cast<const uint8_t*>(written.data()), written.size()}).value_or(Document());
}

// The style at each unit.
std::vector<const Style*> stylesOf(const Document& document) {
  std::vector<const Style*> styles;
  for (const DocumentRun& run : document.runs) styles.insert(styles.end(), run.length, &document.styles[run.style]);
  return styles;
}

standin::text::Color color(double red, double green, double blue, double alpha = 1) {
  return {standin::text::ColorSpace::calibratedRGB, {red, green, blue, 0}, alpha};
}
Style font(const char* family, double size, uint64_t traits = 0) {
  Style style;
  style.font = standin::text::fontMeant(family, traits, size);
  return style;
}
Style with(auto&& change) {
  Style style = font("Helvetica", 12);
  change(style);
  return style;
}

TEST(HtmlRoundTrip, EveryCharacterComesBack) {
  for (const std::u16string text :
       {u"plain", u" a  b ", u"\ttabs\t\tand \t spaces \t", u"one\n\n\ntwo\n", u"\n", u"line\u2028break\u2028", u"\u2028",
        u"\u2028\nx", u"<&>\"' &amp; \u00A0x\u00AD\u2011", u"漢字 😀 é\u0301 \uFFFD", u"a \nb", u"a\n b", u"   ", u"  \n  ",
        u"", u"a\u2028 b \u2028c", u"\u0001\u0080\u0085x", u"page\fbreak"}) {
    const Document document = again({{text, {}}});
    EXPECT_TRUE(document.text == text) << testing::PrintToString(text) << "\n" << testing::PrintToString(document.text);
  }
}

TEST(HtmlRoundTrip, EveryLookOfARunComesBack) {
  const standin::text::Shadow shadow{2, -3, 4, color(1, 0, 0)};
  const Style rows[] = {
      font("Helvetica", 12, standin::text::boldTrait),
      font("Helvetica", 12, standin::text::italicTrait | standin::text::boldTrait),
      font("Times New Roman", 10.5),
      font("Courier", 9, standin::text::boldTrait),
      font("Some Family", 30),
      with([](Style& style) { style.font = standin::text::fontNamed("HelveticaNeue-Light", 12); }),
      with([](Style& style) { style.foreground = color(1, 0, 0.2); }),
      with([](Style& style) { style.foreground = color(0, 0, 0, 0.4); }),
      with([](Style& style) { style.background = color(1, 1, 0); }),
      with([](Style& style) { style.underline = 1; }),
      with([](Style& style) { style.underline = 9, style.underlineColor = color(0, 1, 0); }),
      with([](Style& style) { style.underline = 0x101; }),
      with([](Style& style) { style.strikethrough = 1; }),
      with([](Style& style) { style.strikethrough = 9, style.strikethroughColor = color(0, 0, 1); }),
      with([](Style& style) { style.underline = style.strikethrough = 1; }),
      with([](Style& style) { style.underline = 9, style.strikethrough = 1, style.strikethroughColor = color(0, 0, 1); }),
      with([](Style& style) { style.superscript = 1; }),
      with([](Style& style) { style.superscript = -2; }),
      with([](Style& style) { style.baselineOffset = 4; }),
      with([](Style& style) { style.kern = 1.5; }),
      with([](Style& style) { style.ligature = 0; }),
      with([](Style& style) { style.link = u"http://example.org/?a=1&b=\u00E9"; }),
      with(
          [](Style& style) { style.link = u"http://example.org/", style.underline = 1, style.foreground = color(0, 0, 1); }),
      with([&](Style& style) { style.shadow = shadow; }),
  };
  for (size_t row = 0; row < std::size(rows); ++row) {
    const Document document =
        again({{u"around it ", font("Helvetica", 12)}, {u"it", rows[row]}, {u" around", font("Helvetica", 12)}});
    ASSERT_EQ(document.text, u"around it it around");
    const auto styles = stylesOf(document);
    EXPECT_TRUE(*styles[10] == rows[row]) << "row " << row;
    EXPECT_TRUE(*styles[9] == font("Helvetica", 12) && *styles[12] == *styles[9]) << "row " << row;
  }
}

TEST(HtmlRoundTrip, TheLayoutOfParagraphsComesBack) {
  using standin::text::Alignment;
  const standin::text::Paragraph rows[] = {
      {},
      {.alignment = Alignment::center, .spacingBefore = 6, .spacingAfter = 12},
      {.alignment = Alignment::justified, .firstLineIndent = 20, .spacingBefore = 6, .spacingAfter = 3},
      {.alignment = Alignment::right, .headIndent = 36, .spacingAfter = 8},
      {.alignment = Alignment::left, .firstLineIndent = 10, .headIndent = 30, .tailIndent = -15},
      {.direction = standin::text::WritingDirection::rightToLeft},
      {.headerLevel = 1},
      {.spacingBefore = 4, .headerLevel = 6},
      {.minimumLineHeight = 20, .maximumLineHeight = 20},
      {.lineHeightMultiple = 1.5},
      {.defaultTabInterval = 48},
      {},
  };
  Pieces pieces;
  for (const auto& paragraph : rows) {
    Style style = font("Times", 13);
    style.paragraph = paragraph;
    pieces.push_back({u"x\n", style});
  }
  pieces.push_back({u"x", font("Times", 13)});
  const Document document = again(pieces);
  const auto styles = stylesOf(document);
  ASSERT_EQ(styles.size(), std::size(rows) * 2 + 1);
  for (size_t row = 0; row < std::size(rows); ++row) {
    EXPECT_TRUE(styles[row * 2]->paragraph == rows[row]) << "row " << row;
    EXPECT_EQ(styles[row * 2]->font, font("Times", 13).font) << "row " << row;
  }
}

TEST(HtmlRoundTrip, WhatTheDocumentSaysOfItselfComesBack) {
  DocumentInformation information;
  auto& properties = information.properties;
  properties.title = u"T < \"U\"", properties.author = u"A & B", properties.keywords = u"one, two",
  properties.comment = u"c";
  properties.subject = u"s", properties.company = u"& Sons", properties.copyright = u"©", properties.editor = u"e";
  properties.category = u"k", properties.manager = u"m", properties.created = {2004, 5, 6, 7, 8, 9};
  information.background = color(1, 1, 0);
  const Document document = again({{u"x", {}}}, information);
  const auto& found = document.properties;
  for (const auto member :
       {&Properties::title, &Properties::author, &Properties::keywords, &Properties::comment, &Properties::subject,
        &Properties::company, &Properties::copyright, &Properties::editor, &Properties::category, &Properties::manager})
    EXPECT_TRUE(found.*member == properties.*member) << testing::PrintToString(properties.*member);
  EXPECT_TRUE(found.created && found.created->minute == 8);
  EXPECT_EQ(document.background, information.background);
}

}  // namespace
