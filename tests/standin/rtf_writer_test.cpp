// The RTF that the writer makes: escapes, Unicode, what changes from run to run, links, tables.
#include <gtest/gtest.h>

#include <string>

#include "standin/formats/rtf/writer.hpp"

namespace {

using standin::formats::StyledRuns;
using standin::text::Style;
using standin::text::Text;

std::string written(const std::vector<std::pair<std::u16string, Style>>& pieces) {
  StyledRuns styled;
  for (const auto& [units, style] : pieces) {
    styled.text.append(Text::utf16(units));
    styled.runs.push_back({static_cast<uint32_t>(units.size()), &style});
  }
  return standin::formats::rtf::write(styled);
}

// What stands between the paragraph's start and the document's end.
std::string body(const std::vector<std::pair<std::u16string, Style>>& pieces) {
  const std::string all = written(pieces);
  const size_t start = all.find("\\pard\\fs24 ") + 11;
  return all.substr(start, all.size() - start - 1);
}

Style font(const char* family, double size, uint64_t traits = 0) {
  Style style;
  style.font = standin::text::Font{family, family, traits, 5, size};
  return style;
}

TEST(RtfWriter, EscapesTextAndWritesUnicodeWithAFallback) {
  const struct {
    std::u16string text;
    std::string expected;
  } rows[] = {
      {u"plain", "plain"},
      {u"a\\b{c}", "a\\\\b\\{c\\}"},
      {u"one\ntwo", "one\\par\ntwo"},
      {u"tab\there", "tab\\tab here"},
      {u"\u00E9", "\\u233?"},
      {u"\u00A0\u00AD", "\\~\\-"},
      {u"\u6F22", "\\u28450?"},
      {u"\u9999", "\\u-26215?"},
      {u"\U0001F600", "\\u-10179?\\u-8704?"},
      {std::u16string(1, u'\x01'), "\\'01"},
      {u"line\u2028break", "line\\line break"},
      {u"mixed\u00FC and \u4E2D.", "mixed\\u252? and \\u20013?."},
  };
  for (const auto& row : rows) EXPECT_EQ(body({{row.text, {}}}), "\\f0 " + row.expected);
}

TEST(RtfWriter, WritesOnlyWhatChangesFromRunToRun) {
  const Style plain = font("Helvetica", 12), bold = font("Helvetica", 12, standin::text::boldTrait);
  Style underlined = font("Times", 18.5, standin::text::boldTrait | standin::text::italicTrait);
  underlined.underline = 1;
  EXPECT_EQ(body({{u"a", plain}, {u"b", bold}, {u"c", underlined}, {u"d", plain}, {u"e", plain}}),
            "\\f0 a\\b b\\f1\\fs37\\i\\ul c\\f0\\fs24\\b0\\i0\\ulnone de");
}

TEST(RtfWriter, CollectsFontsAndColoursOnce) {
  Style red = font("Times", 12), green = font("Courier", 12);
  red.foreground = standin::text::Color{standin::text::ColorSpace::calibratedRGB, {1, 0, 0, 0}, 1};
  green.foreground = standin::text::Color{standin::text::ColorSpace::deviceCMYK, {1, 0, 1, 0}, 0.5};
  green.background = red.foreground;
  const std::string all = written({{u"x", red}, {u"y", green}, {u"z", red}});
  EXPECT_NE(all.find("{\\fonttbl{\\f0\\fnil\\fcharset0 Times;}{\\f1\\fnil\\fcharset0 Courier;}}"), std::string::npos) << all;
  EXPECT_NE(all.find("{\\colortbl;\\red255\\green0\\blue0;\\red0\\green255\\blue0;}"), std::string::npos) << all;
  EXPECT_NE(all.find("\\cf2\\cb1"), std::string::npos) << all;
}

TEST(RtfWriter, ALinkIsAFieldInEachParagraphWithItsTargetQuoted) {
  Style link;
  link.link = u"http://example.org/?a=\"b\"";
  const std::string target = "{\\field{\\*\\fldinst{HYPERLINK \"http://example.org/?a=%22b%22\"}}{\\fldrslt ";
  EXPECT_EQ(body({{u"one\n\ntwo", link}, {u"end", {}}}),
            "\\f0 " + target + "one\\par\n}}" + target + "\\par\n}}" + target + "two}}end");
  // The field's own end takes back what its runs said.
  Style underlined = link;
  underlined.underline = 1;
  EXPECT_EQ(body({{u"a", link}, {u"b", underlined}, {u"c", {}}}), "\\f0 " + target + "a\\ul b}}c");
}

TEST(RtfWriter, SizesAreHalfPointsWithinWhatReadersTake) {
  EXPECT_EQ(body({{u"a", font("Helvetica", 10.3)}}), "\\f0\\fs21 a");
  EXPECT_EQ(body({{u"a", font("Helvetica", -4)}}), "\\f0\\fs1 a");
  EXPECT_EQ(body({{u"a", font("Helvetica", 1e30)}}), "\\f0\\fs3276 a");
  EXPECT_EQ(written({}).substr(0, 6), "{\\rtf1");
}

}  // namespace
