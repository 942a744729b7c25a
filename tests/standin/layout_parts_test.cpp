// Parts of the layout against plain models: line breaks, directions, stretches of text, tab stops, PDF syntax and structure.
#include <gtest/gtest.h>
#include <unicode/ubidi.h>
#include <unicode/ubrk.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <numeric>
#include <random>
#include <string>

#include "standin/formats/pictures/picture.hpp"
#include "standin/layout/directions.hpp"
#include "standin/layout/line_breaks.hpp"
#include "standin/layout/pdf.hpp"
#include "standin/layout/pdf/file.hpp"
#include "standin/layout/pdf/images.hpp"
#include "standin/layout/pdf/outline.hpp"
#include "standin/layout/pdf/syntax.hpp"
#include "standin/layout/pdf/unicode_map.hpp"
#include "standin/layout/pen.hpp"
#include "standin/layout/shaper.hpp"
#include "standin/layout/stretch.hpp"
#include "standin/text/font_faces.hpp"

namespace {

using namespace standin::layout;
namespace text = standin::text;
using standin::formats::StyledRuns;
using namespace std::string_literals;

std::vector<uint32_t> breaksByICU(std::u16string_view word) {
  UErrorCode status = U_ZERO_ERROR;
  UBreakIterator* iterator = ubrk_open(UBRK_LINE, "en", word.data(), static_cast<int32_t>(word.size()), &status);
  std::vector<uint32_t> found;
  for (int32_t at = ubrk_next(iterator); at != UBRK_DONE && at < static_cast<int32_t>(word.size());
       at = ubrk_next(iterator)) {
    found.push_back(static_cast<uint32_t>(at));
  }
  ubrk_close(iterator);
  return found;
}

TEST(LineBreaks, OfPlainWordsAreThoseOfTheFullRules) {
  LineBreaks breaks;
  std::mt19937 random(7);
  constexpr std::u16string_view letters = u"abzAZ09\u00E9\u0159", marks = u".,'&_:;!?-/()\"\u2019\u201C\u65E5";
  for (int round = 0; round < 20'000; ++round) {
    std::u16string word;
    const auto pick = [&](std::u16string_view from) { word += from[random() % from.size()]; };
    for (size_t length = 1 + random() % 7; length > 0; --length) pick(random() % 4 != 0 ? letters : marks);
    ASSERT_EQ(breaks.in(word), breaksByICU(word)) << testing::PrintToString(word);
  }
}

TEST(Directions, OrderPiecesAsTheirLevelsSay) {
  std::mt19937 random(11);
  for (int round = 0; round < 2'000; ++round) {
    std::vector<Piece> line(1 + random() % 8);
    std::vector<UBiDiLevel> levels;
    for (uint32_t index = 0; index < line.size(); ++index) {
      line[index].kind = PieceKind::word;
      line[index].start = index;
      line[index].level = static_cast<uint8_t>(random() % 4);
      levels.push_back(line[index].level);
    }
    std::vector<int32_t> order(line.size());
    ubidi_reorderVisual(levels.data(), static_cast<int32_t>(levels.size()), order.data());
    orderVisually(line, false);
    for (size_t place = 0; place < line.size(); ++place) ASSERT_EQ(line[place].start, static_cast<uint32_t>(order[place]));
  }
}

TEST(Stretches, TogetherAreTheText) {
  std::mt19937 random(13);
  std::vector<text::Style> styles(3);
  for (int round = 0; round < 50; ++round) {
    std::u16string whole;
    StyledRuns styled;
    for (size_t run = 0; run < 40; ++run) {
      const size_t start = whole.size();
      for (size_t count = random() % (round % 10 == 0 ? 9000 : 60); count > 0; --count) {
        whole += random() % 30 == 0 ? u"\n\r\u2029\f"[random() % 4] : static_cast<char16_t>(u'a' + random() % 26);
      }
      styled.runs.push_back({static_cast<uint32_t>(whole.size() - start), &styles[run % 3]});
    }
    styled.text = text::Text::utf16(whole);
    StretchReader reader(styled);
    Stretch stretch;
    for (uint32_t at = 0; at < reader.size(); at = stretch.endsParagraph ? stretch.next : stretch.end()) {
      reader.read(at, stretch);
      ASSERT_EQ(stretch.units, whole.substr(at, stretch.units.size()));
      ASSERT_EQ(stretch.units.find_first_of(u"\n\r\u2029\f"), std::u16string::npos);
      uint32_t reached = at;
      for (const StyledStretch& run : stretch.runs) {
        ASSERT_EQ(run.start, reached);
        reached = run.end;
      }
      ASSERT_EQ(reached, stretch.end());
      if (stretch.endsParagraph && stretch.end() < reader.size()) {
        const bool isPair = whole.compare(stretch.end(), 2, u"\r\n") == 0;
        ASSERT_EQ(stretch.next, stretch.end() + (isPair ? 2 : 1));
        ASSERT_EQ(stretch.endsPage, whole[stretch.end()] == u'\f');
      }
    }
  }
}

TEST(Words, AreCutBetweenCharactersAndShapedByFace) {
  Faces faces;
  Shaper shaper(faces);
  const text::Font font = *text::fontNamed("Courier", 10);
  const FontChoice choice{0, font, faces.forFont(font), 1};
  const struct {
    std::u16string word;
    double width;  // of characters of this font
    uint32_t units;
  } rows[] = {{u"abcdef", 3.5, 3}, {u"abcdef", 6.1, 6}, {u"abcdef", 0.5, 0}, {u"ae\u0301b", 2.5, 3}, {u"ae\u0301b", 1.5, 1}};
  for (const auto& row : rows) {
    const Word& word = shaper.word(row.word, choice, false);
    EXPECT_EQ(unitsThatFit(word, row.word, row.width * 0.6, 0), row.units) << row.width;
  }
  EXPECT_EQ(firstCharacter(shaper.word(u"e\u0301a", choice, false), u"e\u0301a"), 2u);
  // What the font lacks comes from another face, the rest of the word does not.
  const Word& mixed = shaper.word(u"a\u65E5b", choice, false);
  ASSERT_EQ(mixed.runs.size(), 3u);
  EXPECT_EQ(mixed.runs[0].use, mixed.runs[2].use);
  EXPECT_NE(mixed.runs[0].use, mixed.runs[1].use);
  EXPECT_EQ(&shaper.word(u"abcdef", choice, false), &shaper.word(u"abcdef", choice, false));
}

TEST(Words, HaveAllTheirMarks) {
  const struct {
    const char* font;
    std::u16string word;
    size_t runs;
  } rows[] = {
      {"Helvetica", u"e\u0301", 1},       {"Helvetica", u"e\u0323", 1},      {"Helvetica", u"i\u0330", 1},
      {"Helvetica", u"ae\u0323b", 3},     {"Helvetica", u"x\u20D7", 1},      {"Times-Roman", u"\u03B2\u0301", 1},
      {"Times-Roman", u"o\u0361o", 2},    {"Helvetica", u"\u00E9\u0323", 1}, {"Helvetica", u"\u65E5\u0323\u20D7", 2},
      {"Helvetica", u"a\u0301\uFE0F", 1},
  };
  for (const auto& row : rows) {
    Faces faces;
    Shaper shaper(faces);
    const text::Font font = *text::fontNamed(row.font, 10);
    const Word& word = shaper.word(row.word, {0, font, faces.forFont(font), 1}, false);
    EXPECT_EQ(word.runs.size(), row.runs) << testing::PrintToString(row.word);
    for (const GlyphRun& run : word.runs) {
      for (const Glyph& glyph : run.glyphs) EXPECT_NE(glyph.id, 0u) << testing::PrintToString(row.word);
    }
  }
}

TEST(Words, HaveMarksOfOtherFacesInTheMiddleOfTheirBases) {
  for (const bool isRightToLeft : {false, true}) {
    Faces faces;
    Shaper shaper(faces);
    const text::Font font = *text::fontNamed("Helvetica", 10);
    const FontChoice choice{0, font, faces.forFont(font), 1};
    const double base = shaper.word(u"\u65E5", choice, isRightToLeft).width;
    const Word& word = shaper.word(u"\u65E5\u20D7\u0361", choice, isRightToLeft);
    ASSERT_GT(word.runs.size(), 1u);
    EXPECT_NEAR(word.width, base, 1e-6);
    for (const GlyphRun& run : word.runs) {
      if (run.start == 0) continue;
      const double em = run.use.face->unitsPerEm(), origin = isRightToLeft ? 0 : base;
      for (const Glyph& glyph : run.glyphs) {
        hb_glyph_extents_t extents;
        ASSERT_TRUE(hb_font_get_glyph_extents(run.use.face->font(), glyph.id, &extents));
        const double middle = origin + (glyph.offsetX + extents.x_bearing + extents.width / 2.0) / em;
        EXPECT_NEAR(middle, base / 2, 0.01) << isRightToLeft;
      }
    }
  }
}

TEST(Faces, StandForTheFontsThatDocumentsName) {
  const std::pair<const char*, const char*> rows[] = {
      {"Helvetica", "NimbusSans-Regular"},           {"Helvetica-Bold", "NimbusSans-Bold"},
      {"Helvetica-Oblique", "NimbusSans-Italic"},    {"Times-Roman", "NimbusRoman-Regular"},
      {"Courier-Bold", "NimbusMonoPS-Bold"},         {"No Such Family", "NimbusSans-Regular"},
      {"HelveticaNeue-Italic", "NimbusSans-Italic"},
  };
  for (const auto& [name, face] : rows) {
    text::Style style;
    style.font = text::fontMeant(name, 0, 12);
    const std::string path = std::filesystem::temp_directory_path() / ("layout_parts_test." + std::to_string(getpid()));
    const StyledRuns styled{text::Text::latin1("x"), {{1, &style}}};
    ASSERT_TRUE(writePDF(styled, {}, {}, path, {}));
    std::ifstream file(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    std::filesystem::remove(path);
    EXPECT_NE(bytes.find(std::string("AAAAAB+") + face), std::string::npos) << name;
  }
}

TEST(TabStops, FollowOneAnother) {
  text::Paragraph paragraph;
  for (const auto& [position, next] : {std::pair{0.0, 28.0}, {27.0, 28.0}, {28.0, 56.0}, {335.0, 336.0}, {336.0, 364.0}}) {
    EXPECT_NEAR(tabAfter(paragraph, position).position, next, 0.01) << position;
  }
  paragraph.defaultTabInterval = 100;
  EXPECT_NEAR(tabAfter(paragraph, 300).position, 308, 0.01);
  EXPECT_NEAR(tabAfter(paragraph, 336).position, 400, 0.01);
}

TEST(PdfSyntax, WritesNumbersAndStringsAsReadersTakeThem) {
  const std::pair<double, const char*> numbers[] = {
      {0, "0"},         {1, "1"},           {-1.5, "-1.5"}, {0.01, "0.01"},
      {-0.004, "0"},    {12.346, "12.35"},  {100, "100"},   {99.999, "100"},
      {1e9, "1000000"}, {-1e9, "-1000000"}, {2.10, "2.1"},  {std::numeric_limits<double>::quiet_NaN(), "0"}};
  for (const auto& [value, written] : numbers) {
    std::string out;
    pdf::appendNumber(out, value);
    EXPECT_EQ(out, written) << value;
  }
  EXPECT_EQ(pdf::textString(u"a(b)\\c"), "(a\\(b\\)\\\\c)");
  EXPECT_EQ(pdf::textString(u"\u00E9"), "<FEFF00E9>");
  EXPECT_EQ(pdf::byteString("line\rend"), "(line\\rend)");
  std::string codes;
  for (const uint32_t code : {0x0028u, 0x0D5Cu, 0x4142u}) pdf::appendCode(codes, code);
  EXPECT_EQ(codes, std::string("\0\\(\\r\\\\AB", 9));
}

TEST(PdfSyntax, MapsCodesInBlocksOfAHundred) {
  std::map<uint32_t, std::u16string> texts;
  for (uint32_t code = 1; code <= 250; ++code)
    texts[code] = code == 7 ? u"" : std::u16string(1, static_cast<char16_t>(code));
  texts[7] = u"";
  texts[300] = u"ffi";
  const std::string map = pdf::unicodeMap(texts, true);
  EXPECT_NE(map.find("100 beginbfchar\n<0001><0001>"), std::string::npos);
  EXPECT_NE(map.find("50 beginbfchar\n"), std::string::npos);
  EXPECT_NE(map.find("<012C><006600660069>"), std::string::npos);
  EXPECT_EQ(map.find("<0007>"), std::string::npos);
  EXPECT_NE(pdf::unicodeMap({{9, u"x"}}, false).find("<09><0078>"), std::string::npos);
}

// What a file holds after `write` has put objects into it.
template <class Write>
std::string fileOf(Write&& write) {
  const std::string path = std::filesystem::temp_directory_path() / ("layout_parts_test." + std::to_string(getpid()));
  {
    pdf::File file(path);
    write(file);
  }
  std::ifstream stream(path, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(stream), {});
  std::filesystem::remove(path);
  return bytes;
}

TEST(PdfFile, TellsWhereEachObjectIs) {
  const std::string bytes = fileOf([](pdf::File& file) {
    const int first = file.reserve(), second = file.reserve(), third = file.reserve();
    file.putStream(third, "", std::string(5000, 'x'));
    file.put(first, "<</Type/Catalog>>");
    file.put(second, "<<>>");
    EXPECT_TRUE(file.finish(first, second));
  });
  const size_t table = std::stoul(bytes.substr(bytes.find("startxref\n") + 10));
  ASSERT_EQ(bytes.compare(table, 9, "xref\n0 4\n"), 0);
  for (size_t object = 1; object <= 3; ++object) {
    const std::string line = bytes.substr(table + 9 + object * 20, 20);
    const std::string expected = std::to_string(object) + " 0 obj\n";
    EXPECT_EQ(line.substr(10), " 00000 n \n");
    EXPECT_EQ(bytes.compare(std::stoul(line), expected.size(), expected), 0);
  }
  const size_t length = std::stoul(bytes.substr(bytes.find("/Length ") + 8));
  const size_t data = bytes.find("stream\n") + 7;
  EXPECT_EQ(bytes.compare(data + length, 11, "\nendstream\n"), 0);
  EXPECT_LT(length, 100u);
}

TEST(PdfOutline, NestsHeadingsBelowThoseOfLowerLevels) {
  std::vector<pdf::Heading> headings;
  for (const int level : {3, 1, 2, 2, 4, 1})
    headings.push_back({level, std::u16string(1, static_cast<char16_t>(u'a' + headings.size())), 9, 1});
  const std::string bytes = fileOf([&](pdf::File& file) { EXPECT_EQ(pdf::writeOutline(file, headings), 1); });
  // Object 1 is the outline, 2 to 7 are a to f.
  for (const char* part :
       {"/First 2 0 R/Last 7 0 R/Count 3", "/Title(a)/Parent 1 0 R/Next 3 0 R/Dest",
        "/Title(b)/Parent 1 0 R/Prev 2 0 R/Next 7 0 R/First 4 0 R/Last 5 0 R/Count -2",
        "/Title(d)/Parent 3 0 R/Prev 4 0 R/First 6 0 R/Last 6 0 R/Count -1", "/Title(e)/Parent 5 0 R/Dest"}) {
    EXPECT_NE(bytes.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(fileOf([&](pdf::File& file) { EXPECT_EQ(pdf::writeOutline(file, {}), 0); }).find("obj"), std::string::npos);
}

TEST(PdfImages, KeepJPEGAndDecodeTheRest) {
  using standin::formats::pictures::Format;
  std::string pixels;
  for (int pixel = 0; pixel < 8 * 4; ++pixel) pixels += "\x10\x20\x30\x80";
  const auto span = [](const std::string& bytes) {
    return std::span(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
  };
  const std::string png = *standin::formats::pictures::encode(span(pixels), {8, 4});
  const std::string jpeg = *standin::formats::pictures::convert(span(png), Format::jpeg);
  const auto written = [&](const std::string& picture) {
    return fileOf([&](pdf::File& file) { EXPECT_NE(pdf::writeImage(file, span(picture)), 0); });
  };
  EXPECT_NE(written(jpeg).find(jpeg), std::string::npos);
  EXPECT_NE(written(jpeg).find("/Width 8/Height 4/ColorSpace/DeviceRGB/BitsPerComponent 8/Filter/DCTDecode"),
            std::string::npos);
  EXPECT_NE(written(png).find("/SMask "), std::string::npos);
  for (const std::string& broken :
       {std::string(), std::string("text"), png.substr(0, 50), std::string("\xFF\xD8\xFF\xC0")}) {
    fileOf([&](pdf::File& file) { EXPECT_EQ(pdf::writeImage(file, span(broken)), 0); });
  }
  // Its size is far beyond what its bytes earn: there is room for one. Pictures that are shown as they are take none.
  const std::string gif = "GIF89a\xC8\0\xC8\0\x80\0\0\1\2\3\4\5\6,\0\0\0\0\1\0\1\0\0\2\2\x44\1\0;"s;
  fileOf([&](pdf::File& file) {
    pdf::Images images(file, 30'000);
    EXPECT_NE(images.write(span(gif)), 0);
    EXPECT_EQ(images.write(span(gif)), 0);
    EXPECT_NE(images.write(span(jpeg)), 0);
  });
}

TEST(Beginnings, EndBetweenCharacters) {
  EXPECT_EQ(beginningOf(u"ab\U0001F600c", 3), u"ab");
  EXPECT_EQ(beginningOf(u"ab\U0001F600c", 4), u"ab\U0001F600");
  EXPECT_EQ(beginningOf(u"\U0001F600", 1), u"");
  EXPECT_EQ(beginningOf(u"ab", 2), u"ab");
}

}  // namespace
