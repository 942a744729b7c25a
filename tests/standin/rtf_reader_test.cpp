// RTF read: text in every encoding, formatting, links, properties, hostile bytes, and what the writer wrote read again.
#include <gtest/gtest.h>

#include <string>

#include "standin/formats/rtf/reader.hpp"
#include "standin/formats/rtf/writer.hpp"
#include "standin/text/font_faces.hpp"

namespace {

using standin::formats::Document;
using standin::formats::StyledRuns;
using standin::text::Alignment;
using standin::text::Style;

std::optional<Document> parsed(std::string_view rtf) {
  return standin::formats::rtf::read({reinterpret_cast<const uint8_t*>(rtf.data()), rtf.size()});
}

std::u16string textOf(const std::string& body) {
  const auto document = parsed(
      "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0 Helvetica;}{\\f1\\fcharset128 Osaka;}{\\f2\\fcharset2 "
      "Symbol;}{\\f3\\fcharset204 Arial;}}" +
      body + "}");
  return document ? document->text : u"(not read)";
}

// The style of the character at the position.
const Style& styleAt(const Document& document, uint32_t position) {
  for (const auto& run : document.runs) {
    if (position < run.length) return document.styles[run.style];
    position -= run.length;
  }
  throw std::out_of_range("no such character");
}

TEST(RtfReader, ReadsTextAsRealProgramsWriteIt) {
  const struct {
    const char* body;
    std::u16string text;
  } rows[] = {
      {"plain \\{braces\\} and \\\\", u"plain {braces} and \\"},
      {"a\\par b\\line c\\tab d", u"a\nb\u2028c\td"},
      {"a\\\nb\\\r\nc", u"a\nb\nc"},
      {"line\r\nends mean\n nothing", u"lineends mean nothing"},
      {"caf\\'e9 \\'80", u"caf\u00E9 \u20AC"},
      {"\\u233?\\u8364 ?x", u"\u00E9\u20ACx"},
      {"{\\uc2\\u20013\\'d6\\'d0x}\\u233?", u"\u4E2Dx\u00E9"},
      {"\\uc0\\u-10179\\u-8704 z", u"\U0001F600z"},
      {"\\f1\\'93\\'fa\\'96{\\b\\'7b}", u"\u65E5\uFFFD{"},
      {"\\f1\\'93\\'fa\\'96\\'7b", u"\u65E5\u672C"},
      {"\\f3\\'cf\\'d0", u"\u041F\u0420"},
      {"\\f2\\'b7", u"\uF0B7"},
      {"\\lquote x\\rquote\\emdash\\~\\-\\_\\bullet", u"\u2018x\u2019\u2014\u00A0\u00AD\u2011\u2022"},
      {"{\\*\\unknown hidden {deep}}shown", u"shown"},
      {"{\\unknown shown}", u"shown"},
      {"{\\upr{fallback}{\\*\\ud{\\u233?}}}", u"\u00E9"},
      {"{\\pict\\pngblip 89504e47}after{\\footnote note}", u"after"},
      {"a{\\pict\\bin5 }}}{\\}b", u"ab"},
      {"\\trowd\\intbl One\\cell Two\\cell\\row\\pard End", u"One\nTwo\nEnd"},
      {"{\\listtext\\tab 1.\\tab}item", u"\t1.\titem"},
  };
  for (const auto& row : rows) EXPECT_EQ(textOf(row.body), row.text) << row.body;
}

TEST(RtfReader, ReadsFormattingAndRestoresItWhenGroupsClose) {
  const auto document = parsed(
      "{\\rtf1{\\fonttbl{\\f0 Times New Roman;}{\\f1 Made Up Sans;}}{\\colortbl;\\red255\\green0\\blue51;}"
      "\\f0\\fs36 a{\\b\\i\\ul\\cf1 b}c\\f1\\strike\\super d\\plain e\\par"
      "\\pard\\qc\\li720\\fi-360\\sb120\\sl-400\\tqr\\tx2880 f}");
  ASSERT_TRUE(document);
  ASSERT_EQ(document->text, u"abcde\nf");
  const Style &a = styleAt(*document, 0), &b = styleAt(*document, 1), &d = styleAt(*document, 3), &f = styleAt(*document, 6);
  EXPECT_EQ(a.font->name, "TimesNewRomanPSMT");
  EXPECT_EQ(a.font->size, 18);
  EXPECT_EQ(b.font->name, "TimesNewRomanPS-BoldItalicMT");
  EXPECT_EQ(b.underline, 1);
  EXPECT_EQ(b.foreground->components[2], 0.2);
  EXPECT_EQ(styleAt(*document, 2), a);
  EXPECT_EQ(d.font->family, "Made Up Sans");
  EXPECT_EQ(d.strikethrough, 1);
  EXPECT_EQ(d.superscript, 1);
  EXPECT_EQ(styleAt(*document, 4).font->size, 12);
  EXPECT_EQ(f.paragraph.alignment, Alignment::center);
  EXPECT_EQ(f.paragraph.headIndent, 36);
  EXPECT_EQ(f.paragraph.firstLineIndent, 18);
  EXPECT_EQ(f.paragraph.maximumLineHeight, 20);
  ASSERT_EQ(f.paragraph.tabs->size(), 1u);
  EXPECT_EQ(f.paragraph.tabs->front().position, 144);
  EXPECT_EQ(f.paragraph.tabs->front().kind, standin::text::TabKind::right);
}

TEST(RtfReader, BytesOfAnAnsiFontAreWindowsLatinWhateverTheDocumentIs) {
  const auto document =
      parsed("{\\rtf1\\ansi\\ansicpg936{\\fonttbl\\f0\\fcharset0 SimSun;\\f1 Other;}\\f0\\'93a\\'94 \\f1\\'d6\\'d0}");
  EXPECT_EQ(document->text, u"\u201Ca\u201D \u4E2D");
}

TEST(RtfReader, OddParagraphsAreReadAsTheyAreMeant) {
  const auto document = parsed("{\\rtf1\\qr\\ri-380 a\\par\\qnatural\\ri400 b}");
  EXPECT_EQ(styleAt(*document, 0).paragraph.tailIndent, 0);
  EXPECT_EQ(styleAt(*document, 2).paragraph.tailIndent, -20);
  EXPECT_EQ(styleAt(*document, 2).paragraph.alignment, Alignment::natural);
}

TEST(RtfReader, ReadsLinksPropertiesAndPageSetup) {
  const auto document = parsed(
      "{\\rtf1\\paperw11906\\margl1440{\\info{\\title T\\'e9st}{\\author A. B.}{\\creatim\\yr2014\\mo3\\dy5\\hr6\\min7}}"
      "x{\\field{\\*\\fldinst{HYPERLINK \"http://example.org/\" \\\\l \"top\"}}{\\fldrslt\\ul link}}y"
      "{\\field{\\*\\fldinst PAGE}{\\fldrslt 3}}}");
  ASSERT_TRUE(document);
  EXPECT_EQ(document->text, u"xlinky3");
  EXPECT_EQ(styleAt(*document, 1).link, u"http://example.org/#top");
  EXPECT_EQ(styleAt(*document, 5).link, u"");
  EXPECT_EQ(styleAt(*document, 6).link, u"");
  EXPECT_EQ(document->properties.title, u"T\u00E9st");
  EXPECT_EQ(document->properties.author, u"A. B.");
  EXPECT_EQ(document->properties.created->minute, 7);
  EXPECT_NEAR(*document->page.paperWidth, 595.3, 1e-9);
  EXPECT_EQ(*document->page.leftMargin, 72);
}

TEST(RtfReader, RefusesWhatIsNotRtfAndBoundsWhatIsHostile) {
  for (const char* bytes : {"", "plain", "{\\html1}", "{", "\\rtf1", "{{\\rtf1}}"}) EXPECT_FALSE(parsed(bytes)) << bytes;
  EXPECT_FALSE(parsed("{\\rtf1" + std::string(1'000'000, '{')));
  EXPECT_TRUE(parsed("{\\rtf1" + std::string(4000, '{') + "deep"));
  EXPECT_EQ(parsed("{\\rtf1 a\\bin999999999999 b")->text, u"a");
  EXPECT_EQ(parsed("{\\rtf1\\fs99999999999 a\\u99999999 ?b\\li-99999999999 c")->text.size(), 4u);
  EXPECT_EQ(parsed("{\\rtf1" + std::string(2'000'000, '\'') + "}")->text.size(), 2'000'000u);
  std::string quotes;
  for (int count = 0; count < 500'000; ++count) quotes += "\\'";
  EXPECT_TRUE(parsed("{\\rtf1" + quotes));
}

// Every cut of a document, and every byte of it replaced, must end in a document or a refusal.
TEST(RtfReader, SurvivesEveryCutAndEveryAlteredByte) {
  const std::string sample =
      "{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset128 X;}}{\\colortbl;\\red1;}{\\info{\\title t}}\\f0\\'93\\'fa\\u-10179?"
      "{\\field{\\*\\fldinst{HYPERLINK \"u\"}}{\\fldrslt l}}\\pard\\qj\\tx20\\bin2 ab{\\upr{a}{\\*\\ud b}}\\par}";
  ASSERT_TRUE(parsed(sample));
  for (size_t length = 0; length < sample.size(); ++length) {
    parsed(sample.substr(0, length));
    for (const char altered : {'{', '}', '\\', '\0', '\xFF', '9'}) {
      std::string changed = sample;
      changed[length] = altered;
      const auto document = parsed(changed);
      if (!document) continue;
      size_t total = 0;
      for (const auto& run : document->runs) total += run.length;
      EXPECT_EQ(total, document->text.size());
    }
  }
}

TEST(RtfReader, ReadsWhatTheWriterWrote) {
  std::vector<std::pair<std::u16string, Style>> pieces(6);
  const auto font = [](const char* family, double size, uint64_t traits) {
    return standin::text::Font{family, family, traits, 5, size};
  };
  pieces[0] = {u"Title \u00E9\u4E2D\U0001F600\n", {}};
  pieces[0].second.font = font("Georgia", 24, standin::text::boldTrait);
  pieces[0].second.paragraph.alignment = Alignment::center;
  pieces[0].second.paragraph.spacingAfter = 6;
  pieces[1] = {u"body {} \\ ", {}};
  pieces[1].second.font = font("Times", 11.5, 0);
  pieces[1].second.foreground = standin::text::Color{standin::text::ColorSpace::calibratedRGB, {1, 0, 0.2, 0}, 1};
  pieces[2] = pieces[1];
  pieces[2].second.underline = 9;
  pieces[2].second.kern = 2;
  pieces[3] = {u"link\n", pieces[1].second};
  pieces[3].second.link = u"http://example.org/a b?\u00E9";
  pieces[4] = {u"\tindented\n\n", pieces[1].second};
  standin::text::Paragraph& indented = pieces[4].second.paragraph;
  indented.alignment = Alignment::justified;
  indented.direction = standin::text::WritingDirection::rightToLeft;
  indented.firstLineIndent = 40;
  indented.headIndent = 20;
  indented.tailIndent = -30;
  indented.spacingBefore = 3;
  indented.lineHeightMultiple = 1.5;
  indented.tabs = {{100, standin::text::TabKind::decimal}};
  pieces[5] = {u"end", pieces[1].second};
  pieces[5].second.superscript = -1;
  pieces[5].second.baselineOffset = 4.5;
  StyledRuns styled;
  std::u16string all;
  for (const auto& [units, style] : pieces) {
    styled.text.append(standin::text::Text::utf16(units));
    styled.runs.push_back({static_cast<uint32_t>(units.size()), &style});
    all += units;
  }
  const auto document = parsed(standin::formats::rtf::write(styled));
  ASSERT_TRUE(document);
  ASSERT_EQ(document->text, all);
  uint32_t position = 0;
  for (const auto& [units, style] : pieces) {
    Style read = styleAt(*document, position);
    EXPECT_EQ(read.font->family, style.font->family);
    EXPECT_EQ(read.font->size, style.font->size);
    EXPECT_EQ(read.font->bold(), style.font->bold());
    read.font = style.font;
    // The paragraph of a run that does not begin one is its paragraph's first run's.
    if (position == 0 || all[position - 1] != u'\n') read.paragraph = style.paragraph;
    EXPECT_EQ(read, style) << "at " << position;
    position += static_cast<uint32_t>(units.size());
  }
}

using Pieces = std::vector<std::pair<std::u16string, Style>>;

std::string written(const Pieces& pieces, const standin::formats::DocumentInformation& information = {}) {
  StyledRuns styled;
  for (const auto& [units, style] : pieces) {
    styled.text.append(standin::text::Text::utf16(units));
    styled.runs.push_back({static_cast<uint32_t>(units.size()), &style});
  }
  return standin::formats::rtf::write(styled, information);
}

Style plainStyle() {
  Style style;
  style.font = standin::text::fontMeant("Helvetica", 0, 12);
  return style;
}

standin::text::Color red(double alpha = 1) { return {standin::text::ColorSpace::calibratedRGB, {1, 0, 0, 0}, alpha}; }

TEST(RtfReader, EachAttributeComesBackAndEndsWhereItEnded) {
  const struct {
    const char* what;
    void (*change)(Style&);
  } rows[] = {
      {"light face", [](Style& style) { style.font = standin::text::fontNamed("HelveticaNeue-Light", 12); }},
      {"light italic face", [](Style& style) { style.font = standin::text::fontNamed("HelveticaNeue-LightItalic", 12); }},
      {"medium face", [](Style& style) { style.font = standin::text::fontNamed("HelveticaNeue-Medium", 9); }},
      {"bold face", [](Style& style) { style.font = standin::text::fontNamed("Helvetica-Bold", 12); }},
      {"strikethrough colour", [](Style& style) { style.strikethrough = 1, style.strikethroughColor = red(); }},
      {"stroke", [](Style& style) { style.strokeWidth = -3.5, style.strokeColor = red(); }},
      {"shadow",
       [](Style& style) {
         style.shadow = standin::text::Shadow{3, -3.5, 2, red(0.2)};
       }},
      {"shadow without colour",
       [](Style& style) {
         style.shadow = standin::text::Shadow{1, 2, 3, std::nullopt};
       }},
      {"obliqueness", [](Style& style) { style.obliqueness = 0.16; }},
      {"no ligatures", [](Style& style) { style.ligature = 0; }},
      {"all ligatures", [](Style& style) { style.ligature = 2; }},
      {"two levels up", [](Style& style) { style.superscript = 2; }},
      {"three levels down", [](Style& style) { style.superscript = -3; }},
      {"link to a server", [](Style& style) { style.link = u"\\\\server\\share"; }},
      {"link that looks like a switch", [](Style& style) { style.link = u"\\l"; }},
  };
  for (const auto& row : rows) {
    Pieces pieces = {{u"a", plainStyle()}, {u"b", plainStyle()}, {u"c", plainStyle()}};
    row.change(pieces[1].second);
    const auto document = parsed(written(pieces));
    ASSERT_TRUE(document) << row.what;
    EXPECT_EQ(document->text, u"abc") << row.what;
    for (uint32_t at = 0; at < 3; ++at) EXPECT_EQ(styleAt(*document, at), pieces[at].second) << row.what << " at " << at;
  }
}

TEST(RtfReader, EachParagraphSettingComesBackAndEndsWithItsParagraph) {
  using standin::text::Paragraph;
  const struct {
    const char* what;
    Paragraph paragraph;
  } rows[] = {
      {"line spacing", {.lineSpacing = 2.5}},
      {"tail from the left", {.tailIndent = 100}},
      {"tail from the right", {.tailIndent = -100}},
      {"tab interval", {.defaultTabInterval = 30}},
      {"hyphenation", {.hyphenationFactor = 0.5}},
      {"header level", {.headerLevel = 3}},
      {"least height", {.minimumLineHeight = 10}},
      {"greatest height", {.maximumLineHeight = 20}},
      {"exact height", {.minimumLineHeight = 20, .maximumLineHeight = 20}},
      {"heights apart", {.minimumLineHeight = 10, .maximumLineHeight = 20}},
      {"heights beside a multiple", {.minimumLineHeight = 10, .maximumLineHeight = 20, .lineHeightMultiple = 1.5}},
      {"no tabs", {.tabs = std::vector<standin::text::TabStop>()}},
  };
  for (const auto& row : rows) {
    Pieces pieces = {{u"a\n", plainStyle()}, {u"b", plainStyle()}};
    pieces[0].second.paragraph = row.paragraph;
    const auto document = parsed(written(pieces));
    ASSERT_TRUE(document) << row.what;
    EXPECT_EQ(styleAt(*document, 0).paragraph, row.paragraph) << row.what;
    EXPECT_EQ(styleAt(*document, 2).paragraph, Paragraph()) << row.what;
  }
}

TEST(RtfReader, UnitsThatEndParagraphsComeBackAsTheyWent) {
  const std::u16string text = u"a\rb\u2029c\r\nd\u2028e\nf";
  EXPECT_EQ(parsed(written({{text, plainStyle()}}))->text, text);
}

TEST(RtfReader, WhatWordsSayTogetherDoesNotDependOnTheirOrder) {
  const auto document = parsed(
      "{\\rtf1\\sl-240\\slmult1 a\\par\\pard\\sl-360\\slmult1\\fi142\\li166\\li207\\fi-3\\li331 b\\par"
      "\\pard\\shad\\outlinelevel9 c}");
  EXPECT_EQ(styleAt(*document, 0).paragraph, standin::text::Paragraph());
  EXPECT_EQ(styleAt(*document, 2).paragraph.lineHeightMultiple, 1.5);
  EXPECT_EQ(styleAt(*document, 2).paragraph.headIndent, 331 / 20.0);
  EXPECT_EQ(styleAt(*document, 2).paragraph.firstLineIndent, 328 / 20.0);
  EXPECT_EQ(styleAt(*document, 4).paragraph.headerLevel, 0);
  EXPECT_TRUE(styleAt(*document, 4).shadow->color);
}

TEST(RtfReader, LeavesOutTimesOutsideTheCalendarAndMostOfFontNamesWithoutSense) {
  for (const char* time : {"\\yr2147483647\\mo1\\dy1", "\\yr2001\\mo13\\dy1", "\\yr2001\\mo2\\dy-1", ""}) {
    const auto document = parsed("{\\rtf1{\\info{\\creatim" + std::string(time) + "}{\\revtim\\yr2001\\mo2\\dy3}}x}");
    EXPECT_FALSE(document->properties.created) << time;
    EXPECT_EQ(document->properties.modified->day, 3) << time;
  }
  const auto document = parsed("{\\rtf1{\\fonttbl{\\f0 " + std::string(1000, 'n') + ";}}\\f0 x}");
  EXPECT_EQ(styleAt(*document, 0).font->family, std::string(255, 'n'));
}

TEST(RtfReader, VersionAndBackgroundComeBack) {
  standin::formats::DocumentInformation information;
  information.rtfVersion = 2000;
  information.background = standin::text::Color{standin::text::ColorSpace::calibratedRGB, {1, 0.2, 0.6, 0}, 1};
  const auto document = parsed(written({{u"text", plainStyle()}}, information));
  EXPECT_EQ(document->text, u"text");
  EXPECT_EQ(document->rtfVersion, 2000);
  EXPECT_EQ(document->background, information.background);
  for (const char* shape : {"", "{\\sn fillColor}", "{\\sn fillColor}{\\sv 99999999999999999999}", "{\\sn other}{\\sv 1}"}) {
    EXPECT_EQ(parsed("{\\rtf1{\\*\\background{\\shp{\\*\\shpinst" + std::string(shape) + "}}}a}")->text, u"a") << shape;
  }
}

}  // namespace
