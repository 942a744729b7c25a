// Layout: where lines break, how high they are and where their pieces stand.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <string>

#include "standin/layout/column.hpp"
#include "standin/text/font_faces.hpp"

namespace {

using namespace standin::layout;
namespace text = standin::text;
using standin::formats::StyledRuns;
using standin::text::Alignment;
using standin::text::Style;
using standin::text::TabKind;

struct Span {
  std::u16string text;
  double x, width;
};
struct Laid {
  std::u16string text;   // that the pieces stand for, from left to right
  std::u16string shown;  // the same with an ellipsis where one is drawn
  std::vector<Span> pieces;
  double top, height, baseline;
  bool endsPage;
};

// Takes every line, and keeps where everything is.
class Collector : public LineTaker {
 public:
  explicit Collector(std::u16string_view text, Shaper* shaper = nullptr) : text_(text), shaper_(shaper) {}
  bool take(const Line& line) override {
    Laid laid{{}, {}, {}, y_ + line.spaceBefore, line.height, line.baseline, line.endsPage};
    for (const Piece& piece : line.pieces) {
      laid.pieces.push_back({std::u16string(text_.substr(piece.start, piece.length)), piece.x, piece.width});
      laid.text += laid.pieces.back().text;
      laid.shown += isEllipsis(piece) ? u"\u2026" : laid.pieces.back().text;
    }
    y_ += line.spaceBefore + line.height + line.spaceAfter;
    lines.push_back(std::move(laid));
    return true;
  }
  std::vector<Laid> lines;

 private:
  bool isEllipsis(const Piece& piece) {
    const bool isRightToLeft = (piece.level & 1) != 0;
    return shaper_ != nullptr && piece.word == &shaper_->word(u"\u2026", *piece.look->choice, isRightToLeft);
  }

  std::u16string_view text_;
  Shaper* shaper_;
  double y_ = 0;
};

// Every character of this is 6 points wide, a line 10 points high without its leading.
Style fixedPitch() {
  Style style;
  style.font = text::fontNamed("Courier", 10);
  return style;
}

bool nothingIsPicture(const text::Attachment&) { return false; }

std::vector<Laid> laidOut(std::u16string_view text, const Style& style, double width = 60) {
  const StyledRuns styled{text::Text::utf16(text), {{static_cast<uint32_t>(text.size()), &style}}};
  Faces faces;
  Column column(styled, faces, width, 500, nothingIsPicture);
  Collector collector(text, &column.shaper());
  column.layOut(collector);
  return std::move(collector.lines);
}

std::vector<std::u16string> linesOf(std::u16string_view text, const Style& style = fixedPitch(), double width = 60) {
  std::vector<std::u16string> lines;
  for (const Laid& line : laidOut(text, style, width)) lines.push_back(line.text);
  return lines;
}

using Lines = std::vector<std::u16string>;

TEST(Layout, BreaksLinesWhereTextAllowsIt) {
  const struct {
    std::u16string text;
    Lines lines;
  } rows[] = {
      {u"", {}},
      {u"one two three", {u"one two ", u"three"}},
      {u"exactly 10 wide", {u"exactly 10 ", u"wide"}},
      {u"many      spaces hang", {u"many      ", u"spaces ", u"hang"}},
      {u"a well-known thing", {u"a well-", u"known ", u"thing"}},
      {u"see http://a.example/b/c", {u"see ", u"http://", u"a.example/", u"b/c"}},
      {u"unbreakablelongword end", {u"unbreakabl", u"elongword ", u"end"}},
      {u"abcd non\u00A0break", {u"abcd ", u"non\u00A0break"}},
      {u"one\u2028two", {u"one\u2028", u"two"}},
      {u"one\n\ntwo\r\nthree\u2029four", {u"one", u"", u"two", u"three", u"four"}},
      {u"ab cdefgh(\uFFFC)x", {u"ab ", u"cdefgh(\uFFFC)x"}},
      {u"ab cdefg\uFFFC\uFFFCijk", {u"ab cdefg\uFFFC\uFFFC", u"ijk"}},
      {u"inter\u00ADnational", {u"inter\u00AD", u"national"}},
      {u"short\u00ADly", {u"short\u00ADly"}},
      {u"e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301",
       {u"e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301", u"e\u0301"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(linesOf(row.text), row.lines) << std::string(row.text.begin(), row.text.end());
  }
}

TEST(Layout, BreaksByModeAndKeepsOneLineWhenAsked) {
  Style style = fixedPitch();
  const struct {
    int mode;
    Lines lines;
  } rows[] = {{1, {u"one two th", u"ree four"}}, {2, {u"one two th"}}};
  for (const auto& row : rows) {
    style.paragraph.lineBreakMode = row.mode;
    EXPECT_EQ(linesOf(u"one two three four", style), row.lines) << row.mode;
  }
}

TEST(Layout, ShowsAnEllipsisForWhatALineHasNoRoomFor) {
  enum { head = 3, tail, middle };
  const struct {
    int mode;
    std::u16string text, shown;
  } rows[] = {
      {head, u"one two three four", u"\u2026hree four"},
      {tail, u"one two three four", u"one two t\u2026"},
      {middle, u"one two three four", u"one \u2026 four"},
      {head, u"ends there", u"ends there"},
      {middle, u"ends there  ", u"ends there  "},
      {head, u"one two three four  \u2028next", u"\u2026hree four"},
      {middle, u"unbreakablelongword", u"unbr\u2026gword"},
      {head, u"unbreakablelonge\u0301e\u0301", u"\u2026blelonge\u0301e\u0301"},
      {head, u"some words\tab", u"\u2026rds\tab"},
      {middle, u"ab\tcd words", u"ab\u2026d words"},
      {head, u"\u05D0\u05D1\u05D2\u05D3\u05D4 \u05D5\u05D6\u05D7\u05D8 \u05D9\u05DB",
       u"\u05D9\u05DB \u05D5\u05D6\u05D7\u05D8 \u05D3\u05D4\u2026"},
  };
  for (const auto& row : rows) {
    Style style = fixedPitch();
    style.paragraph.lineBreakMode = row.mode;
    const Laid line = laidOut(row.text, style).front();
    EXPECT_EQ(line.shown, row.shown) << row.mode;
    const bool hangs = row.shown.ends_with(u' ');
    EXPECT_TRUE(hangs || line.pieces.back().x + line.pieces.back().width <= 60.01) << row.mode;
  }
}

TEST(Layout, ShowsTheEndOfALineThatIsCutShortHoweverLongItIs) {
  for (const size_t length : {100u, 32'760u, 32'768u, 49'150u, 49'152u, 200'000u}) {
    for (const auto& [mode, shown] : {std::pair{3, u"\u2026xxxx last"}, {5, u"star\u2026 last"}}) {
      Style style = fixedPitch();
      style.paragraph.lineBreakMode = mode;
      for (const std::u16string_view behind : {u"", u"\u2028second", u"\nsecond"}) {
        const std::u16string text = u"start " + std::u16string(length, u'x') + u" last" + std::u16string(behind);
        const auto lines = laidOut(text, style);
        ASSERT_EQ(lines.size(), behind.empty() ? 1u : 2u) << length;
        EXPECT_EQ(lines[0].shown, shown) << length;
        EXPECT_TRUE(behind.empty() || lines[1].text == u"second") << length;
      }
    }
  }
}

TEST(Layout, KeepsOneLineHoweverLongTheTextIs) {
  for (const int mode : {2, 3, 4, 5}) {
    Style style = fixedPitch();
    style.paragraph.lineBreakMode = mode;
    for (const size_t length : {100u, 32'760u, 32'768u, 40'000u, 100'000u}) {
      const std::u16string filling(length, u'x');
      const struct {
        std::u16string text;
        size_t lines;
      } rows[] = {{filling, 1},
                  {filling + u"\u2028end", 2},
                  {u"first\u2028" + filling + u"\u2028" + filling + u"\nnext", 4},
                  {filling + u"\u2028\nnext", 2},
                  {filling + u"\fnext", 2}};
      for (const auto& row : rows) {
        const auto lines = laidOut(row.text, style);
        EXPECT_EQ(lines.size(), row.lines) << mode << ' ' << length;
        EXPECT_EQ(lines.front().endsPage, row.text.ends_with(u"\fnext")) << mode << ' ' << length;
        EXPECT_EQ(lines[0].text == u"first\u2028", row.lines == 4) << mode << ' ' << length;
        const std::u16string last = lines.back().text;
        EXPECT_TRUE(row.lines == 1 || last == u"end" || last == u"next") << mode << ' ' << length;
      }
    }
  }
}

TEST(Layout, AlignsLinesWithinTheirIndents) {
  const struct {
    Alignment alignment;
    bool isRightToLeft;
    double x, end;
  } rows[] = {
      {Alignment::left, false, 12, 36},      {Alignment::right, false, 24, 48},   {Alignment::center, false, 18, 42},
      {Alignment::justified, false, 12, 48}, {Alignment::natural, false, 12, 36}, {Alignment::natural, true, 24, 48},
      {Alignment::left, true, 12, 36},
  };
  for (const auto& row : rows) {
    Style style = fixedPitch();
    style.paragraph.alignment = row.alignment;
    style.paragraph.firstLineIndent = style.paragraph.headIndent = 12;
    style.paragraph.tailIndent = -12;
    if (row.isRightToLeft) style.paragraph.direction = text::WritingDirection::rightToLeft;
    const auto line = laidOut(u"ab c defghi", style).front();
    double left = 1000, right = 0;
    for (const Span& piece : line.pieces) {
      const bool isAtEdge = &piece == &line.pieces.front() || &piece == &line.pieces.back();
      if (piece.text == u" " && isAtEdge) continue;
      left = std::min(left, piece.x);
      right = std::max(right, piece.x + piece.width);
    }
    EXPECT_NEAR(left, row.x, 0.01) << static_cast<int>(row.alignment) << row.isRightToLeft;
    EXPECT_NEAR(right, row.end, 0.01) << static_cast<int>(row.alignment) << row.isRightToLeft;
  }
}

TEST(Layout, StretchesAllButTheLastLineOfAJustifiedParagraph) {
  Style style = fixedPitch();
  style.paragraph.alignment = Alignment::justified;
  const auto lines = laidOut(u"a b cd efghijk a\u2028b c", style);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_NEAR(lines[0].pieces[2].x, 6 + 6 + 12, 0.01);
  EXPECT_NEAR(lines[0].pieces[4].x + lines[0].pieces[4].width, 60, 0.01);
  EXPECT_NEAR(lines[1].pieces[2].x, 48, 0.01);
  EXPECT_NEAR(lines[2].pieces[2].x, 12, 0.01);
  // One word that fills no line cannot be stretched: it stays where its direction begins.
  const auto unstretched = laidOut(u"\u05D0\u05D1 unbreakable", style).front();
  EXPECT_NEAR(unstretched.pieces.back().x + unstretched.pieces.back().width, 60, 0.01);
}

TEST(Layout, IndentsFirstAndOtherLinesAndTheirEnds) {
  const struct {
    double first, head, tail;
    Lines lines;
    double secondX;
  } rows[] = {
      {24, 0, 0, {u"ab cd ", u"ef gh"}, 0},         {0, 30, 0, {u"ab cd ef ", u"gh"}, 30},
      {0, 0, 30, {u"ab cd ", u"ef gh"}, 0},         {0, 6, -24, {u"ab cd ", u"ef gh"}, 6},
      {0, 1000, 0, {u"ab cd ef ", u"g", u"h"}, 59}, {0, 0, 1000, {u"ab cd ef ", u"gh"}, 0},
  };
  for (const auto& row : rows) {
    Style style = fixedPitch();
    style.paragraph.firstLineIndent = row.first;
    style.paragraph.headIndent = row.head;
    style.paragraph.tailIndent = row.tail;
    const auto lines = laidOut(u"ab cd ef gh", style);
    ASSERT_EQ(linesOf(u"ab cd ef gh", style), row.lines);
    EXPECT_NEAR(lines[0].pieces[0].x, row.first, 0.01);
    EXPECT_NEAR(lines[1].pieces[0].x, row.secondX, 0.01);
  }
}

TEST(Layout, PutsTextAtTabStopsOfEachKind) {
  const struct {
    std::optional<std::vector<text::TabStop>> tabs;
    double interval;
    std::u16string text;
    std::vector<double> places;  // of the words behind the tabs
  } rows[] = {
      {std::nullopt, 0, u"a\tb\tc", {28, 56}},
      {std::nullopt, 0, u"abcdef\tb", {56}},
      {std::vector<text::TabStop>{}, 50, u"a\tb\tc", {50, 100}},
      {std::vector<text::TabStop>{{40}, {90}}, 0, u"a\tb\tc\td", {40, 90, 112}},
      {std::vector<text::TabStop>{{90}, {40}}, 0, u"a\tb", {40}},
      {std::vector<text::TabStop>{{60, TabKind::right}}, 0, u"a\tbcd", {42}},
      {std::vector<text::TabStop>{{60, TabKind::center}}, 0, u"a\tbcd", {51}},
      {std::vector<text::TabStop>{{60, TabKind::decimal}}, 0, u"a\t12.345", {48}},
      {std::vector<text::TabStop>{{60, TabKind::decimal}}, 0, u"a\t12", {48}},
      {std::vector<text::TabStop>{{60, TabKind::decimal}}, 0, u"a\t12,5", {48}},
      {std::vector<text::TabStop>{{60, TabKind::decimal}}, 0, u"a\t1,234.5", {30}},
      {std::vector<text::TabStop>{{60, TabKind::decimal}}, 0, u"a\t1.234,5", {30}},
      {std::vector<text::TabStop>{{60, TabKind::decimal}}, 0, u"a\t1,234", {30}},
      {std::vector<text::TabStop>{{80, TabKind::decimal}}, 0, u"a\t1.234.567", {26}},
      {std::vector<text::TabStop>{{20, TabKind::right}}, 0, u"ab\tcdefg", {12}},
      {std::vector<text::TabStop>{{60, TabKind::right}, {100}}, 0, u"a\tb\tc", {54, 100}},
  };
  for (const auto& row : rows) {
    Style style = fixedPitch();
    style.paragraph.tabs = row.tabs;
    style.paragraph.defaultTabInterval = row.interval;
    const auto lines = laidOut(row.text, style, 300);
    ASSERT_EQ(lines.size(), 1u);
    std::vector<double> places;
    for (size_t index = 1; index < lines[0].pieces.size(); ++index) {
      if (lines[0].pieces[index - 1].text == u"\t") places.push_back(lines[0].pieces[index].x);
    }
    ASSERT_EQ(places.size(), row.places.size());
    for (size_t index = 0; index < places.size(); ++index) EXPECT_NEAR(places[index], row.places[index], 0.01) << index;
  }
}

TEST(Layout, MeasuresLinesAndTheSpaceBetweenThem) {
  const double natural = laidOut(u"x", fixedPitch()).front().height;
  EXPECT_GE(natural, 10);
  const struct {
    const char* what;
    std::function<void(text::Paragraph&)> set;
    double height, secondTop, thirdTop;  // lines one and two are one paragraph, line three is another
  } rows[] = {
      {"plain", [](auto&) {}, natural, natural, 2 * natural},
      {"minimum", [](auto& it) { it.minimumLineHeight = 30; }, 30, 30, 60},
      {"maximum", [](auto& it) { it.maximumLineHeight = 8; }, 8, 8, 16},
      {"multiple", [](auto& it) { it.lineHeightMultiple = 2; }, 2 * natural, 2 * natural, 4 * natural},
      {"endless maximum", [](auto& it) { it.maximumLineHeight = INFINITY; }, natural, natural, 2 * natural},
      {"endless multiple", [](auto& it) { it.lineHeightMultiple = INFINITY; }, natural, natural, 2 * natural},
      {"more than a page", [](auto& it) { it.minimumLineHeight = 1000; }, 500, 500, 1000},
      {"many times", [](auto& it) { it.lineHeightMultiple = 1000; }, 500, 500, 1000},
      {"line spacing", [](auto& it) { it.lineSpacing = 5; }, natural, natural + 5, 2 * natural + 10},
      {"paragraphs", [](auto& it) { it.spacingBefore = 3, it.spacingAfter = 4; }, natural, natural + 3, 2 * natural + 10},
      {"nonsense", [](auto& it) { it.lineSpacing = -9, it.spacingAfter = NAN; }, natural, natural, 2 * natural},
  };
  for (const auto& row : rows) {
    Style style = fixedPitch();
    row.set(style.paragraph);
    const auto lines = laidOut(u"one two three\nx", style);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_NEAR(lines[0].height, row.height, 0.01) << row.what;
    EXPECT_NEAR(lines[1].top, row.secondTop, 0.01) << row.what;
    EXPECT_NEAR(lines[2].top, row.thirdTop, 0.01) << row.what;
  }
}

TEST(Layout, RaisedAndLargeTextMakesItsLineHigher) {
  const double natural = laidOut(u"x", fixedPitch()).front().height;
  const std::function<void(Style&)> changes[] = {
      [](Style& style) { style.baselineOffset = 6; }, [](Style& style) { style.baselineOffset = -6; },
      [](Style& style) { style.superscript = 3; }, [](Style& style) { style.font->size = 20; }};
  for (const auto& change : changes) {
    const Style plain = fixedPitch();
    Style changed = fixedPitch();
    change(changed);
    const StyledRuns styled{text::Text::utf16(u"ab"), {{1, &plain}, {1, &changed}}};
    Faces faces;
    Collector collector(u"ab");
    Column(styled, faces, 60, 500, nothingIsPicture).layOut(collector);
    ASSERT_EQ(collector.lines.size(), 1u);
    EXPECT_GT(collector.lines[0].height, natural + 1);
  }
}

TEST(Layout, SpacesAndStretchesCharacters) {
  const struct {
    double kern, expansion, width;
  } rows[] = {{0, 0, 24}, {2, 0, 32}, {-1, 0, 20}, {0, std::log(2.0), 48}, {2, std::log(2.0), 64}, {NAN, NAN, 24}};
  for (const auto& row : rows) {
    Style style = fixedPitch();
    style.kern = row.kern;
    style.expansion = row.expansion;
    EXPECT_NEAR(laidOut(u"abcd", style, 100).front().pieces[0].width, row.width, 0.01);
  }
}

TEST(Layout, OrdersBothDirectionsAsTheyAreRead) {
  const struct {
    std::u16string text;
    std::u16string shown;  // pieces from left to right
  } rows[] = {
      {u"one \u05D0\u05D1 \u05D2\u05D3 two", u"one \u05D2\u05D3 \u05D0\u05D1 two"},
      {u"\u05D0\u05D1 one two \u05D2", u"\u05D2 one two \u05D0\u05D1"},
      {u"\u0627 12 \u0628", u"\u0628 12 \u0627"},
  };
  for (const auto& row : rows) {
    const auto lines = laidOut(row.text, fixedPitch(), 300);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text, row.shown);
    const bool isInOrder = std::is_sorted(lines[0].pieces.begin(), lines[0].pieces.end(),
                                          [](const Span& left, const Span& right) { return left.x < right.x - 0.01; });
    EXPECT_TRUE(isInOrder);
  }
  // A paragraph that begins with a letter of the right-to-left kind ends at the right edge.
  const auto line = laidOut(u"\u05D0\u05D1", fixedPitch()).front();
  EXPECT_NEAR(line.pieces.back().x + line.pieces.back().width, 60, 0.01);
}

TEST(Layout, LosesNothingOfALongParagraphWithoutBreaks) {
  std::u16string words, letters, pairs;
  while (words.size() < 100'000) words += u"lorem ipsum-dolor ";
  letters.assign(100'000, u'x');
  while (pairs.size() < 70'001) pairs += u"\U0001D4D0";
  for (const std::u16string& whole : {words, letters, pairs}) {
    const Lines lines = linesOf(whole);
    EXPECT_EQ(std::accumulate(lines.begin(), lines.end(), std::u16string()), whole);
    // Where one stretch of text is followed by the next, lines are as full as anywhere else.
    const auto isShort = [](const std::u16string& line) { return line.size() < 6; };
    EXPECT_LE(std::count_if(lines.begin(), lines.end(), isShort), 1);
    for (const auto& line : lines) EXPECT_FALSE((line.back() & 0xFC00) == 0xD800);
  }
}

TEST(Layout, EndsPagesAtFormFeeds) {
  const auto lines = laidOut(u"one\ftwo\f\f", fixedPitch());
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_TRUE(lines[0].endsPage && lines[1].endsPage && lines[2].endsPage);
  EXPECT_FALSE(laidOut(u"one\ntwo", fixedPitch()).front().endsPage);
}

TEST(Layout, ShapesAWordThatChangesItsStyle) {
  const Style plain = fixedPitch();
  Style bold = fixedPitch();
  bold.font = text::fontNamed("Courier-Bold", 10);
  const StyledRuns styled{text::Text::utf16(u"half half-half"), {{7, &plain}, {7, &bold}}};
  Faces faces;
  Collector collector(u"half half-half");
  Column(styled, faces, 60, 500, nothingIsPicture).layOut(collector);
  ASSERT_EQ(collector.lines.size(), 2u);
  EXPECT_EQ(collector.lines[0].text, u"half half-");
  EXPECT_EQ(collector.lines[1].text, u"half");
}

// Takes the glyphs of all lines, from left to right.
class GlyphCollector : public LineTaker {
 public:
  bool take(const Line& line) override {
    for (const Piece& piece : line.pieces) {
      for (const GlyphRun& run : piece.word->runs) {
        for (const Glyph& glyph : run.glyphs) glyphs.push_back(glyph.id);
      }
    }
    return true;
  }
  std::vector<uint32_t> glyphs;
};

TEST(Layout, JoinsLettersOfAWordThatChangesItsStyle) {
  const Style plain = fixedPitch();
  Style red = fixedPitch();
  red.foreground = text::Color{text::ColorSpace::deviceRGB, {1, 0, 0}};
  const auto glyphsOf = [&](std::u16string_view word, uint32_t change, double width) {
    const auto size = static_cast<uint32_t>(word.size());
    const StyledRuns styled{text::Text::utf16(word), {{change, &plain}, {size - change, &red}}};
    Faces faces;
    GlyphCollector collector;
    Column(styled, faces, width, 500, nothingIsPicture).layOut(collector);
    return collector.glyphs;
  };
  for (const std::u16string_view word :
       {u"\u0628\u0628\u0628", u"\u0627\u0628\u062F\u0628", u"\u0628\u0651\u0628\u0650\u0628", u"abc", u"\u0628\u0640\u0628",
        u"\u0628\u200C\u0628", u"\u0646\u0635 \u062D\u0631"}) {
    const auto whole = glyphsOf(word, static_cast<uint32_t>(word.size()), 500);
    for (uint32_t change = 1; change < word.size(); ++change) {
      const bool dividesMark = word[change] == u'\u0651' || word[change] == u'\u0650';
      if (dividesMark) continue;
      EXPECT_EQ(glyphsOf(word, change, 500), whole) << testing::PrintToString(word) << change;
    }
  }
}

}  // namespace
