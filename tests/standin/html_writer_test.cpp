// The HTML that the writer makes: characters and spaces, classes of looks, links and pictures, excluded elements, encodings.
#include <gtest/gtest.h>

#include <string>

#include "standin/formats/html/writer.hpp"
#include "standin/text/font_faces.hpp"

namespace {

using standin::formats::DocumentInformation;
using standin::formats::StyledRuns;
using standin::text::Style;
using standin::text::Text;
using namespace std::string_literals;
using Pieces = std::vector<std::pair<std::u16string, Style>>;

std::optional<std::string> document(const Pieces& pieces, const DocumentInformation& information = {}) {
  StyledRuns styled;
  for (const auto& [units, style] : pieces) {
    styled.text.append(Text::utf16(units));
    styled.runs.push_back({static_cast<uint32_t>(units.size()), &style});
  }
  return standin::formats::html::write(styled, information);
}

std::string between(const std::string& text, const std::string& start, const std::string& end) {
  const size_t from = text.find(start) + start.size(), to = text.find(end, from);
  return to != text.npos ? text.substr(from, to - from) : "(nothing between " + start + " and " + end + ")\n" + text;
}
std::string body(const Pieces& pieces) { return between(*document(pieces), "<body>\n", "\n</body>"); }
std::string sheet(const Pieces& pieces, const DocumentInformation& information = {}) {
  return between(*document(pieces, information), "<style type=\"text/css\">\n", "</style>");
}

Style font(const char* family, double size, uint64_t traits = 0) {
  Style style;
  style.font = standin::text::fontMeant(family, traits, size);
  return style;
}
standin::text::Color color(double red, double green, double blue, double alpha = 1) {
  return {standin::text::ColorSpace::calibratedRGB, {red, green, blue, 0}, alpha};
}
Style with(auto&& change) {
  Style style = font("Helvetica", 12);
  change(style);
  return style;
}

TEST(HtmlWriter, KeepsEveryCharacterAndEverySpace) {
  const std::string kept = "<span class=\"tab-span\">";
  const struct {
    std::u16string text;
    std::string paragraphs;
  } rows[] = {
      {u"plain words", "plain words"},
      {u"a<b> & \"c\"", "a&lt;b&gt; &amp; \"c\""},
      {u"long enough to be looked at in blocks & in units", "long enough to be looked at in blocks &amp; in units"},
      {u"two  spaces inside a text of many more words  ",
       "two" + kept + "  </span>spaces inside a text of many more words" + kept + "  </span>"},
      {u" x", kept + " </span>x"},
      {u"x ", "x" + kept + " </span>"},
      {u"a\tb", "a" + kept + "\t</span>b"},
      {u"a \u2028b", "a" + kept + " </span><br>b"},
      {u"a\u2028", "a<br><br>"},
      {u"\u00A0\u00E9\u6F22\U0001F600", "&#160;é漢😀"},
      {u"\xD800x", "\uFFFDx"},
      {u"page\fbreak\x01", "page" + kept + "&#12;</span>break&#1;"},
      {u"", ""},
      {u"one\ntwo", "one</p>\n<p class=\"p1\">two"},
      {u"one\r\n\rtwo\u2029", "one</p>\n<p class=\"p1\"><br></p>\n<p class=\"p1\">two</p>\n<p class=\"p1\"><br>"},
  };
  for (const auto& row : rows) {
    const std::string expected = row.text.empty() ? "" : "<p class=\"p1\">" + row.paragraphs + "</p>";
    EXPECT_EQ(between(*document({{row.text, {}}}), "<body>\n", "</body>"), expected.empty() ? "" : expected + "\n");
  }
}

TEST(HtmlWriter, ASpaceBetweenWordsOfTwoRunsIsASpace) {
  const Style plain = font("Helvetica", 12), bold = font("Helvetica", 12, standin::text::boldTrait);
  EXPECT_EQ(body({{u"one ", plain}, {u"two", bold}, {u" three", plain}}), "<p class=\"p1\">one <b>two</b> three</p>");
  EXPECT_EQ(body({{u"one ", plain}, {u" two", bold}}),
            "<p class=\"p1\">one<span class=\"tab-span\"> </span><b><span class=\"tab-span\"> </span>two</b></p>");
}

TEST(HtmlWriter, RunsSayWhereTheyDifferFromTheirParagraph) {
  const Style plain = font("Helvetica", 12);
  const struct {
    Style style;
    std::string run, rules;
  } rows[] = {
      {plain, "x", ""},
      {font("Helvetica", 12, standin::text::boldTrait | standin::text::italicTrait), "<b><i>x</i></b>", ""},
      {font("Times New Roman", 10.5), "", "font: 10.5pt 'Times New Roman'"},
      {font("Odd\"'</style>\u00E9", 9), "", "font: 9pt 'Odd\\22 \\27 \\3C \\2F style\\3E \\E9 '"},
      {with([](Style& style) {
         style.font = {"Helvetica Neue", "HelveticaNeue-Light", 0, 3, 12};
       }),
       "", "font: 300 12pt HelveticaNeue-Light, 'Helvetica Neue'"},
      {with([](Style& style) { style.foreground = color(1, 0.5, 0); }), "", "color: #ff8000"},
      {with([](Style& style) { style.background = color(0, 0, 1, 0.25); }), "", "background-color: rgba(0, 0, 255, 0.25)"},
      {with([](Style& style) { style.underline = 9, style.underlineColor = color(1, 0, 0); }), "",
       "text-decoration: underline double #ff0000"},
      {with([](Style& style) { style.underline = style.strikethrough = 1; }), "", "text-decoration: underline line-through"},
      {with([](Style& style) { style.underline = 0x101, style.strikethrough = 1; }),
       "<span class=\"s1\"><span class=\"s2\">x</span></span>",
       ".s1 {text-decoration: underline dotted}\n.s2 {text-decoration: line-through}\n"},
      {with([](Style& style) { style.superscript = 1; }), "<sup><span class=\"s1\">x</span></sup>",
       ".s1 {font: 12pt Helvetica}\n"},
      {with([](Style& style) { style.superscript = -2; }), "<sub><sub><span class=\"s1\">x</span></sub></sub>",
       ".s1 {font: 12pt Helvetica}\n"},
      {with([](Style& style) { style.kern = -0.5, style.baselineOffset = 3; }), "",
       "letter-spacing: -0.5pt; vertical-align: 3pt"},
      {with([](Style& style) {
         style.shadow = {2, -3, 4, color(0, 0, 0)};
       }),
       "", "text-shadow: 2pt 3pt 4pt #000000"},
  };
  for (const auto& row : rows) {
    const Pieces pieces = {{u"the most of it", plain}, {u"x", row.style}};
    const std::string run = !row.run.empty() ? row.run : "<span class=\"s1\">x</span>";
    const std::string rules = row.rules.empty() || row.rules.ends_with('\n') ? row.rules : ".s1 {" + row.rules + "}\n";
    EXPECT_EQ(body(pieces), "<p class=\"p1\">the most of it" + run + "</p>");
    EXPECT_EQ(sheet(pieces), "p.p1 {margin: 0pt 0pt 0pt 0pt; font: 12pt Helvetica}\n" + rules);
  }
}

TEST(HtmlWriter, ParagraphsOfOneLookAreOneClassInTheFontOfMostOfThem) {
  Style first = font("Times", 14), other = font("Helvetica", 10), heading = font("Times", 20);
  first.paragraph = {.alignment = standin::text::Alignment::justified,
                     .firstLineIndent = 5,
                     .headIndent = 20,
                     .tailIndent = -7,
                     .spacingBefore = 6,
                     .spacingAfter = 12.5,
                     .minimumLineHeight = 18,
                     .maximumLineHeight = 18,
                     .defaultTabInterval = 36};
  heading.paragraph.headerLevel = 2;
  heading.paragraph.direction = standin::text::WritingDirection::rightToLeft;
  const Pieces pieces = {{u"a", first},     {u"bcd", other}, {u"ef\n", first}, {u"xyz\n", first},
                         {u"H\n", heading}, {u"ab", first},  {u"cd", other},   {u"ef", other}};
  EXPECT_EQ(body(pieces),
            "<p class=\"p1\"><span class=\"s1\">a</span>bcd<span class=\"s1\">ef</span></p>\n<p class=\"p2\">xyz</p>\n"
            "<h2 class=\"p3\" dir=\"rtl\">H</h2>\n<p class=\"p1\"><span class=\"s1\">ab</span>cdef</p>");
  // The upper margin overlaps with the lower one before it.
  const std::string rule = "pt 7pt 12.5pt 20pt; text-indent: -15pt; text-align: justify; font: ";
  EXPECT_EQ(sheet(pieces), "p.p1 {margin: 6" + rule + "10pt Helvetica; line-height: 18pt; tab-size: 36pt}\n" +
                               ".s1 {font: 14pt Times}\np.p2 {margin: 18.5" + rule +
                               "14pt Times; line-height: 18pt; tab-size: 36pt}\n"
                               "h2.p3 {margin: 0pt 0pt 0pt 0pt; font: 20pt Times}\n");
}

TEST(HtmlWriter, RunsWithOneTargetAreOneLinkInEachParagraph) {
  const Style plain = font("Helvetica", 12);
  Style link = plain, bold = font("Helvetica", 12, standin::text::boldTrait), other = plain;
  link.link = bold.link = u"http://example.org/?a=\"1\"&b=é";
  other.link = u"#top";
  const std::string open = "<a href=\"http://example.org/?a=&quot;1&quot;&amp;b=é\">";
  EXPECT_EQ(body({{u"see ", plain}, {u"on", link}, {u"e\ntwo", bold}, {u"up", other}}),
            "<p class=\"p1\">see " + open + "on<b>e</b></a></p>\n<p class=\"p1\">" + open +
                "<b>two</b></a><a href=\"#top\">up</a></p>");
}

TEST(HtmlWriter, PicturesStandInTheDocumentInTheirSizes) {
  const std::string png = "\x89PNG\r\n\x1A\nrest";
  const auto attachment = [&](double width, double height, const std::string& contents) {
    Style style = font("Helvetica", 12);
    style.attachment = std::make_shared<standin::text::Attachment>(standin::text::Attachment{
        .contents = {reinterpret_cast<const uint8_t*>(contents.data()), contents.size()}, .width = width, .height = height});
    return style;
  };
  const std::string source = "<img src=\"data:image/png;base64,iVBORw0KGgpyZXN0\"", unknown = "unknown";
  const std::u16string unit(1, u'\xFFFC');
  EXPECT_EQ(body({{u"a" + unit + u"b", attachment(40, 30, png)}}),
            "<p class=\"p1\">a" + source + " style=\"width: 40pt; height: 30pt\" alt=\"\">b</p>");
  EXPECT_EQ(
      body({{unit + unit, attachment(10.5, 30, png)}, {unit, attachment(0, 0, png)}, {unit, attachment(5, 5, unknown)}}),
      "<p class=\"p1\">" + source + " style=\"width: 10.5pt; height: 30pt\" alt=\"\">" + source +
          " style=\"width: 10.5pt; height: 30pt\" alt=\"\">" + source + " alt=\"\"></p>");
}

TEST(HtmlWriter, WhatTheDocumentSaysOfItselfIsInItsHead) {
  DocumentInformation information;
  information.properties.title = u"T < \"U\"";
  information.properties.author = u"A & B";
  information.properties.keywords = u"one, two";
  information.properties.created = {2004, 5, 6, 7, 8, 9};
  information.background = color(1, 1, 0);
  information.page.paperWidth = 595;
  information.page.paperHeight = 842;
  information.page.leftMargin = 72;
  information.prefixSpaces = 2;
  EXPECT_EQ(
      *document({{u"x", {}}}, information),
      "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\" \"http://www.w3.org/TR/html4/strict.dtd\">\n<html>\n  <head>\n"
      "    <meta http-equiv=\"Content-Type\" content=\"text/html; charset=UTF-8\">\n"
      "    <title>T &lt; &quot;U&quot;</title>\n"
      "    <meta name=\"author\" content=\"A &amp; B\">\n    <meta name=\"keywords\" content=\"one, two\">\n"
      "    <meta name=\"created\" content=\"2004-05-06T07:08:09\">\n    <style type=\"text/css\">\n"
      "      @page {size: 595pt 842pt; margin-left: 72pt}\n      body {background-color: #ffff00}\n"
      "      p.p1 {margin: 0pt 0pt 0pt 0pt; font: 12pt Helvetica}\n    </style>\n  </head>\n  <body>\n"
      "    <p class=\"p1\">x</p>\n  </body>\n</html>\n");
}

TEST(HtmlWriter, ExcludedElementsAreDoneWithout) {
  Style style = font("Times", 10, standin::text::boldTrait);
  style.underline = 1;
  style.superscript = 1;
  const std::string paragraph = "margin: 0pt 0pt 0pt 0pt; font: 12pt Helvetica";
  const struct {
    std::vector<std::string> excluded;
    std::string start, paragraph;
  } rows[] = {
      {{"xml", "font", "u", "applet", "basefont", "center", "dir", "isindex", "menu", "s", "strike", "Style"},
       "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\"",
       "<p style=\"" + paragraph + "\">longer<br>" +
           "<sup><span style=\"text-decoration: underline; font: 10pt Times\"><b>x</b></span></sup></p>"},
      {{"XML"},
       "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\"",
       "<p class=\"p1\">longer<br><u><sup><span class=\"s1\"><b>x</b></span></sup></u></p>"},
      {{"doctype"},
       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<html xmlns=\"http://www.w3.org/1999/xhtml\">\n",
       "<p class=\"p1\">longer<br /><u><sup><span class=\"s1\"><b>x</b></span></sup></u></p>"},
      {{"xml", "doctype", "html", "head", "body"},
       "<p style",
       "<p style=\"" + paragraph + "\">longer<br><u><sup><span style=\"font: 10pt Times\"><b>x</b></span></sup></u></p>"},
      {{"xml", "u", "span", "sup", "b"}, "<!DOCTYPE", "<p class=\"p1\">longer<br><font class=\"s1\">x</font></p>"},
      {{"xml", "p", "span", "font", "sup", "b", "br"}, "<!DOCTYPE", "<div class=\"p1\">longer <u>x</u></div>"},
      {{"xml", "p", "div", "span", "font", "head"}, "<!DOCTYPE", "longer<br><u><sup><b>x</b></sup></u><br>"},
  };
  for (const auto& row : rows) {
    DocumentInformation information;
    information.excludedElements = row.excluded;
    const std::string written = *document({{u"longer\u2028", font("Helvetica", 12)}, {u"x", style}}, information);
    EXPECT_TRUE(written.starts_with(row.start)) << written;
    EXPECT_NE(written.find(row.paragraph + "\n"), written.npos) << row.paragraph << "\nis not in\n" << written;
  }
}

TEST(HtmlWriter, TheEncodingIsTheOneNamedWithReferencesForWhatItLacks) {
  const struct {
    const char *name, *charset;
    std::string content;
  } rows[] = {
      {"", "UTF-8", "Grüß 漢"},
      {"latin1", "ISO-8859-1", "Gr\xFC\xDF &#28450;"},
      {"macintosh", "macintosh", "Gr\x9F\xA7 &#28450;"},
      {"us-ascii", "US-ASCII", "Gr&#252;&#223; &#28450;"},
      {"shift_jis", "Shift_JIS", "Gr&#252;&#223; \x8A\xBF"},
  };
  for (const auto& row : rows) {
    DocumentInformation information;
    information.textEncodingName = row.name;
    const std::string written = *document({{u"Grüß 漢", {}}}, information);
    EXPECT_NE(written.find("charset="s + row.charset + "\""), written.npos) << row.name;
    EXPECT_NE(written.find(">" + row.content + "</p>"), written.npos) << row.name;
  }
  DocumentInformation information;
  information.textEncodingName = "no such encoding";
  EXPECT_FALSE(document({{u"x", {}}}, information));
}

}  // namespace
