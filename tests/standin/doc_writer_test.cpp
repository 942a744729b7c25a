// Word documents written and read again: characters, formats by the page, links, pictures, the container.
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>

#include "standin/formats/compound_file/reader.hpp"
#include "standin/formats/compound_file/writer.hpp"
#include "standin/formats/doc/background.hpp"
#include "standin/formats/doc/reader.hpp"
#include "standin/formats/doc/writer.hpp"
#include "standin/formats/doc/writer_scripts.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/text/font_faces.hpp"

namespace {

using standin::formats::Document;
using standin::formats::DocumentInformation;
using standin::formats::StyledRuns;
using standin::formats::compound_file::File;
using standin::formats::compound_file::Stream;
using standin::text::Alignment;
using standin::text::Style;
using standin::text::Text;

std::span<const uint8_t> bytesOf(std::string_view bytes) {
  return {reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()};
}

struct Piece {
  std::u16string units;
  Style style;
};

std::string written(const std::vector<Piece>& pieces, const DocumentInformation& information = {}) {
  StyledRuns styled;
  for (const Piece& piece : pieces) {
    styled.text.append(Text::utf16(piece.units));
    styled.runs.push_back({static_cast<uint32_t>(piece.units.size()), &piece.style});
  }
  return standin::formats::doc::write(styled, information).value();
}

Document readAgain(const std::vector<Piece>& pieces, const DocumentInformation& information = {}) {
  return standin::formats::doc::read(bytesOf(written(pieces, information))).value();
}

const Style& styleAt(const Document& document, size_t position) {
  for (const auto& run : document.runs) {
    if (position < run.length) return document.styles[run.style];
    position -= run.length;
  }
  throw std::out_of_range("no such character");
}

Style sized(double size, uint64_t traits = 0, const char* family = "Times New Roman") {
  Style style;
  style.font = standin::text::fontMeant(family, traits, size);
  return style;
}

Style linked(const char16_t* target) {
  Style style = sized(12);
  style.link = target;
  return style;
}

std::string streamOf(const std::string& file, std::string_view name) {
  const auto bytes = File::open(bytesOf(file)).value().read(name).value_or(std::vector<uint8_t>());
  return {bytes.begin(), bytes.end()};
}

TEST(DocWriter, CharactersKeepTheirMeaning) {
  const struct {
    std::u16string text, again;
  } rows[] = {
      {u"", u""},
      {u"\n", u"\n"},
      {u"one\n\ntwo\n", u"one\n\ntwo\n"},
      {u"cr\rcrlf\r\n\nx", u"cr\ncrlf\n\nx"},
      {u"tab\tline\u2028page\fend", u"tab\tline\u2028page\fend"},
      {u"no\u00A0break soft\u00ADhyphen no\u2011hyphen", u"no\u00A0break soft\u00ADhyphen no\u2011hyphen"},
      {u"\u201Cquotes\u201D \u2013 \u0160 \u0178 \u00FF", u"\u201Cquotes\u201D \u2013 \u0160 \u0178 \u00FF"},
      {u"euro \u20AC \u017D", u"euro \u20AC \u017D"},
      {u"\u0085 \u009F is no letter", u"\u0085 \u009F is no letter"},
      {u"\u6F22\u5B57 \U0001F600 \u05D0\u05D1 c", u"\u6F22\u5B57 \U0001F600 \u05D0\u05D1 c"},
      {{u'a', 0, 1, 2, 5, 7, 8, 0x0E, 0x13, 0x14, 0x15, 0x1E, 0x1F, 'b'}, u"ab"},
      {u"lonely \uFFFC", u"lonely \uFFFC"},
  };
  for (const auto& row : rows) EXPECT_EQ(readAgain({{row.text, sized(12)}}).text, row.again);
}

TEST(DocWriter, TextIsInBytesWhereTheFormatHasThem) {
  const auto sizeOf = [](const char16_t* unit) {
    std::u16string text;
    for (int count = 0; count < 20'000; ++count) text += unit;
    return streamOf(written({{text, sized(12)}}), "WordDocument").size();
  };
  EXPECT_LT(sizeOf(u"\u0152"), 25'000u);
  EXPECT_GT(sizeOf(u"\u20AC"), 40'000u);
}

// So many formats and paragraphs that both take many pages; each must be found again where it was.
TEST(DocWriter, EveryStretchFindsItsFormatAcrossPages) {
  std::vector<Piece> pieces;
  for (int number = 0; number < 5'000; ++number) {
    Style style = sized(6 + number % 97, number % 3 == 0 ? uint64_t{standin::text::boldTrait} : 0);
    style.kern = number % 31;
    style.paragraph.headIndent = number % 211;
    for (int tab = 0; tab < number % 13; ++tab) style.paragraph.tabs.emplace().push_back({20.0 * (tab + 1)});
    pieces.push_back({u"p" + std::u16string(static_cast<size_t>(number % 7), u'x') + u"\n", style});
  }
  const Document again = readAgain(pieces);
  size_t position = 0;
  for (const Piece& piece : pieces) {
    ASSERT_EQ(again.text.substr(position, piece.units.size()), piece.units);
    const Style& style = styleAt(again, position);
    ASSERT_EQ(style.font, piece.style.font) << position;
    ASSERT_EQ(style.kern, piece.style.kern) << position;
    ASSERT_EQ(style.paragraph.headIndent, piece.style.paragraph.headIndent) << position;
    ASSERT_EQ(style.paragraph.tabs, piece.style.paragraph.tabs) << position;
    position += piece.units.size();
  }
  EXPECT_EQ(again.text.size(), position);
}

// Each change of a plain style alone, and what of it the format keeps.
TEST(DocWriter, EveryAttributeOfCharactersComesBackByItself) {
  using Change = void (*)(Style&);
  const standin::text::Color teal{standin::text::ColorSpace::calibratedRGB, {0, 0.6, 0.8, 0}, 1};
  static const auto color = teal;
  const struct {
    Change change, kept;
  } rows[] = {
      {[](Style& style) { style.font = sized(10.5, standin::text::boldTrait | standin::text::italicTrait).font; }, nullptr},
      {[](Style& style) { style.font = standin::text::fontNamed("Helvetica-Light", 9); }, nullptr},
      {[](Style& style) { style.font = sized(20, 0, "Unheard Of").font; }, nullptr},
      {[](Style& style) { style.font = sized(12, 0, "Zapfino \xC3\xA9").font; }, nullptr},
      {[](Style& style) { style.font = sized(7.3).font; }, [](Style& style) { style.font = sized(7.5).font; }},
      {[](Style& style) { style.foreground = color; }, nullptr},
      {[](Style& style) { style.background = color; }, nullptr},
      {[](Style& style) { style.underline = 9, style.underlineColor = color; }, nullptr},
      {[](Style& style) { style.underline = 0x8001; }, nullptr},
      {[](Style& style) { style.underline = 0x402; }, nullptr},
      {[](Style& style) { style.underline = 0x777; }, [](Style& style) { style.underline = 1; }},
      {[](Style& style) { style.strikethrough = 1; }, nullptr},
      {[](Style& style) { style.strikethrough = 9; }, nullptr},
      {[](Style& style) { style.superscript = 1; }, nullptr},
      {[](Style& style) { style.superscript = -3; }, [](Style& style) { style.superscript = -1; }},
      {[](Style& style) { style.baselineOffset = -4.5; }, nullptr},
      {[](Style& style) { style.kern = -1.05; }, nullptr},
      {[](Style& style) { style.expansion = 0.25; }, nullptr},
      {[](Style& style) { style.strokeWidth = 3; }, nullptr},
      {[](Style& style) { style.strokeWidth = -3; }, [](Style&) {}},
  };
  for (const auto& row : rows) {
    Style changed = sized(12), kept = sized(12);
    row.change(changed);
    (row.kept != nullptr ? row.kept : row.change)(kept);
    const Document again = readAgain({{u"plain", sized(12)}, {u"x", changed}, {u"plain", sized(12)}});
    EXPECT_EQ(styleAt(again, 4), sized(12)) << &row - rows;
    EXPECT_EQ(styleAt(again, 5), kept) << &row - rows;
    EXPECT_EQ(styleAt(again, 6), sized(12)) << &row - rows;
  }
}

TEST(DocWriter, EveryAttributeOfParagraphsComesBackByItself) {
  using Paragraph = standin::text::Paragraph;
  using Change = void (*)(Paragraph&);
  using standin::text::TabKind;
  const struct {
    Change change, kept;
  } rows[] = {
      {[](Paragraph& paragraph) { paragraph.alignment = Alignment::left; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.alignment = Alignment::justified; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.direction = standin::text::WritingDirection::leftToRight; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.headIndent = 36, paragraph.firstLineIndent = 18; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.headIndent = 36, paragraph.firstLineIndent = 54; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.tailIndent = -12.5; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.spacingBefore = 3, paragraph.spacingAfter = 4.5; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.minimumLineHeight = 15; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.minimumLineHeight = paragraph.maximumLineHeight = 15; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.maximumLineHeight = 15; },
       [](Paragraph& paragraph) { paragraph.minimumLineHeight = paragraph.maximumLineHeight = 15; }},
      {[](Paragraph& paragraph) { paragraph.lineHeightMultiple = 1.5; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.headerLevel = 1; }, nullptr},
      {[](Paragraph& paragraph) { paragraph.headerLevel = 6; }, nullptr},
      {[](Paragraph& paragraph) {
         paragraph.tabs = {{10, TabKind::left}, {20, TabKind::right}, {30, TabKind::center}, {40, TabKind::decimal}};
       },
       nullptr},
      {[](Paragraph& paragraph) {
         paragraph.tabs = {{30}, {10}, {30.01}, {20}};
       },
       [](Paragraph& paragraph) {
         paragraph.tabs = {{10}, {20}, {30}};
       }},
  };
  for (const auto& row : rows) {
    Style changed = sized(12), kept = sized(12);
    row.change(changed.paragraph);
    (row.kept != nullptr ? row.kept : row.change)(kept.paragraph);
    const Document again = readAgain({{u"plain\n", sized(12)}, {u"x\n", changed}, {u"plain", sized(12)}});
    EXPECT_EQ(styleAt(again, 5), sized(12)) << &row - rows;
    EXPECT_EQ(styleAt(again, 6), kept) << &row - rows;
    EXPECT_EQ(styleAt(again, 7), kept) << &row - rows;
    EXPECT_EQ(styleAt(again, 8), sized(12)) << &row - rows;
  }
}

TEST(DocWriter, ParagraphsAreLaidOutByTheirFirstRun) {
  Style first = sized(12), second = sized(12);
  first.paragraph.alignment = Alignment::center;
  second.paragraph.alignment = Alignment::right;
  const Document again = readAgain({{u"a", first}, {u"b\nc", second}, {u"d", first}});
  EXPECT_EQ(styleAt(again, 1).paragraph.alignment, Alignment::center);
  EXPECT_EQ(styleAt(again, 4).paragraph.alignment, Alignment::right);
}

TEST(DocWriter, SidesOfRightToLeftParagraphsComeBack) {
  for (const Alignment alignment : {Alignment::left, Alignment::right, Alignment::center, Alignment::natural}) {
    Style style = sized(17, standin::text::italicTrait);
    style.paragraph.alignment = alignment;
    style.paragraph.direction = standin::text::WritingDirection::rightToLeft;
    style.paragraph.headIndent = 30;
    style.paragraph.firstLineIndent = 10;
    style.paragraph.tailIndent = -20;
    const Document again = readAgain({{u"\u05E9\u05DC\u05D5\u05DD 12 \u05D0 abc", style}});
    EXPECT_EQ(styleAt(again, 0), style);
    EXPECT_EQ(styleAt(again, 12), style);
  }
}

TEST(DocWriter, IndentsFromTheLeftMarginBecomeIndentsFromTheRight) {
  Style style = sized(12);
  style.paragraph.tailIndent = 300;
  DocumentInformation information;
  information.page.paperWidth = 500;
  information.page.leftMargin = information.page.rightMargin = 50;
  EXPECT_EQ(styleAt(readAgain({{u"x", style}}, information), 0).paragraph.tailIndent, -100);
}

TEST(DocWriter, TextThatIsNotBoldStaysSoInADocumentThatMostlyIs) {
  const Document again =
      readAgain({{u"all of this is bold", sized(14, standin::text::boldTrait)}, {u"not this", sized(12)}});
  EXPECT_TRUE(styleAt(again, 0).font->bold());
  EXPECT_FALSE(styleAt(again, 20).font->bold());
}

TEST(DocWriter, LinksAreFieldsWithinTheirParagraphs) {
  Style bold = linked(u"http://example.org/?a=\"b\"");
  bold.font = sized(12, standin::text::boldTrait).font;
  const std::vector<Piece> pieces = {{u"see ", sized(12)},
                                     {u"one ", linked(u"http://example.org/?a=\"b\"")},
                                     {u"more\nnext", bold},
                                     {u"place", linked(u"#there")},
                                     {u" end", sized(12)}};
  const Document again = readAgain(pieces);
  EXPECT_EQ(again.text, u"see one more\nnextplace end");
  const std::map<size_t, std::u16string> links = {{3, u""},
                                                  {4, u"http://example.org/?a=%22b%22"},
                                                  {11, u"http://example.org/?a=%22b%22"},
                                                  {13, u"http://example.org/?a=%22b%22"},
                                                  {17, u"#there"},
                                                  {22, u""}};
  for (const auto& [position, link] : links) EXPECT_EQ(styleAt(again, position).link, link) << position;
  EXPECT_EQ(styleAt(again, 5).underline, 0);
  EXPECT_FALSE(styleAt(again, 5).foreground);
  // Three characters mark a field, of which the first run and the second share the first.
  const std::string document = streamOf(written(pieces), "WordDocument");
  EXPECT_EQ(std::count(document.begin() + 1024, document.begin() + 1300, '\x13'), 3);
}

TEST(DocWriter, PicturesAreInTheLineAndOtherFilesAreLeftOut) {
  const std::vector<uint8_t> pixels(6 * 4 * 4, 0x80);
  const std::string png = standin::formats::pictures::encode(pixels, {6, 4}).value();
  Style small = linked(u"http://example.org/"), plain = sized(12), other = sized(12);
  small.attachment = std::make_shared<standin::text::Attachment>(
      standin::text::Attachment{.contents = bytesOf(png), .width = 24.5, .height = 12});
  plain.attachment = std::make_shared<standin::text::Attachment>(standin::text::Attachment{.contents = bytesOf(png)});
  other.attachment =
      std::make_shared<standin::text::Attachment>(standin::text::Attachment{.contents = bytesOf("no picture")});
  const Document again =
      readAgain({{u"a\uFFFC\uFFFC", small}, {u"\uFFFC", other}, {u"b", sized(12)}, {u"\uFFFC", plain}, {u"c", sized(12)}});
  ASSERT_EQ(again.text, u"a\uFFFC\uFFFCb\uFFFCc");
  for (const auto& [position, width, height] : {std::tuple(1, 24.5, 12.0), {2, 24.5, 12.0}, {4, 6.0, 4.0}}) {
    const auto& attachment = styleAt(again, static_cast<size_t>(position)).attachment;
    ASSERT_NE(attachment, nullptr);
    EXPECT_EQ(std::string(attachment->contents.begin(), attachment->contents.end()), png);
    EXPECT_EQ(attachment->width, width);
    EXPECT_EQ(attachment->height, height);
  }
  EXPECT_EQ(styleAt(again, 1).link, small.link);
}

// Formats that take most of a page each: the next one goes to another page.
TEST(DocWriter, ManyTabStopsInEveryParagraphComeBack) {
  for (const int count : {10, 60}) {
    std::vector<Piece> pieces(12, {u"a\n", sized(12)});
    for (size_t index = 0; index < pieces.size(); ++index) {
      auto& paragraph = pieces[index].style.paragraph;
      paragraph.headIndent = static_cast<double>(index + 1);
      paragraph.tabs.emplace();
      for (int tab = 1; tab <= count; ++tab) paragraph.tabs->push_back({5.0 * tab});
    }
    const Document again = readAgain(pieces);
    for (size_t index = 0; index < pieces.size(); ++index) {
      EXPECT_EQ(styleAt(again, 2 * index).paragraph.tabs, pieces[index].style.paragraph.tabs) << count << ", " << index;
    }
  }
}

TEST(DocWriter, NonsenseIsHeldWithinWhatTheFormatHas) {
  constexpr double infinite = std::numeric_limits<double>::infinity(), none = std::numeric_limits<double>::quiet_NaN();
  for (const double value : {1e300, -1e300, infinite, none}) {
    Style style = sized(value);
    style.kern = style.baselineOffset = style.expansion = style.strokeWidth = value;
    style.foreground = standin::text::Color{standin::text::ColorSpace::deviceRGB, {value, value, value, 0}, value};
    auto& paragraph = style.paragraph;
    paragraph.headIndent = paragraph.firstLineIndent = paragraph.tailIndent = paragraph.spacingBefore = value;
    paragraph.minimumLineHeight = paragraph.maximumLineHeight = paragraph.lineHeightMultiple = value;
    paragraph.headerLevel = 1000;
    paragraph.tabs.emplace();
    for (int tab = 0; tab < 500; ++tab) paragraph.tabs->push_back({value * tab});
    DocumentInformation information;
    information.page.paperWidth = information.page.leftMargin = information.defaultTabInterval = value;
    EXPECT_EQ(readAgain({{u"text", style}}, information).text, u"text") << value;
  }
}

TEST(DocWriter, WhatTheDocumentSaysOfItselfComesBack) {
  DocumentInformation information;
  information.properties.title = u"Title \u03A9";
  information.properties.company = u"\u6F22";
  information.properties.created = {1999, 12, 31, 23, 59, 58};
  information.background = standin::text::Color{standin::text::ColorSpace::calibratedRGB, {1, 0.2, 0, 0}, 1};
  information.page.paperWidth = 842;
  information.page.paperHeight = 595;
  const Document again = readAgain({{u"x", sized(12)}}, information);
  EXPECT_EQ(again.properties.title, information.properties.title);
  EXPECT_EQ(again.properties.company, information.properties.company);
  EXPECT_EQ(again.properties.created->second, 58);
  EXPECT_EQ(again.properties.created->year, 1999);
  EXPECT_EQ(again.background, information.background);
  EXPECT_EQ(again.page.paperWidth, 842);
}

TEST(DocWriter, RightToLeftStretchesEndWithTheirLastLetter) {
  const struct {
    std::u16string text, marked;
  } rows[] = {
      {u"plain text", u"plain text"},
      {u"\u05D0\u05D1", u"[\u05D0\u05D1]"},
      {u"a \u05D0 \u05D1. b", u"a [\u05D0 \u05D1]. b"},
      {u"\u05D0 12 \uFB2A c \u0627", u"[\u05D0 12 \uFB2A] c [\u0627]"},
      {u"\u05D0\u6F22\u05D1", u"[\u05D0]\u6F22[\u05D1]"},
      {u"\u05D0 \u2013 \u05D1 \u00E9", u"[\u05D0 \u2013 \u05D1] \u00E9"},
  };
  for (const auto& row : rows) {
    std::u16string marked = row.text;
    size_t added = 0;
    standin::formats::doc::forEachRightToLeft(row.text, [&](size_t from, size_t end) {
      marked.insert(from + added++, u"[");
      marked.insert(end + added++, u"]");
    });
    EXPECT_EQ(marked, row.marked);
  }
}

TEST(DocWriter, TheSameDocumentIsTheSameBytes) {
  const auto make = [] {
    std::vector<Piece> pieces;
    for (int number = 0; number < 300; ++number) pieces.push_back({u"x\n", sized(8 + number % 50)});
    return written(pieces);
  };
  EXPECT_EQ(make(), make());
}

TEST(DocBackground, DamagedDrawingsHaveAColourOrNone) {
  const standin::text::Color red{standin::text::ColorSpace::calibratedRGB, {1, 0, 0, 0}, 1};
  const std::string drawings = standin::formats::doc::backgroundDrawings(red);
  EXPECT_EQ(standin::formats::doc::backgroundIn(bytesOf(drawings)), red);
  size_t found = 0;
  for (size_t size = 0; size < drawings.size(); ++size) {
    const auto color = standin::formats::doc::backgroundIn(bytesOf(std::string_view(drawings).substr(0, size)));
    found += color == red;
    std::string damaged = drawings;
    damaged[size] = '\xFF';
    standin::formats::doc::backgroundIn(bytesOf(damaged));
  }
  EXPECT_LT(found, drawings.size() / 4);
}

// Sizes around where streams move among the small ones, and where the list of tables outgrows the header.
TEST(CompoundFile, StreamsOfEverySizeComeBack) {
  std::map<std::string, std::string> streams;
  for (const size_t size : std::initializer_list<size_t>{0, 1, 63, 64, 65, 511, 512, 4095, 4096, 4097, 70'000, 8'000'000}) {
    std::string& bytes = streams["Stream " + std::to_string(size)];
    for (size_t index = 0; index < size; ++index) bytes += static_cast<char>(index * 7 + index / 256 + size);
  }
  std::vector<Stream> list;
  for (const auto& [name, bytes] : streams) list.push_back({name, bytes});
  const std::string file = standin::formats::compound_file::write(list, {}).value();
  EXPECT_EQ(file.size() % 512, 0u);
  for (const auto& [name, bytes] : streams) EXPECT_EQ(streamOf(file, name) == bytes, true) << name;
  EXPECT_FALSE(File::open(bytesOf(file)).value().read("Stream 2").has_value());
}

}  // namespace
