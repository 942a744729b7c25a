// CSS in HTML documents: values, shorthands, selectors, what wins, what is inherited, what becomes of boxes.
#include "tests/standin/html_support.hpp"

namespace {

using namespace html_support;
using standin::text::Alignment;
using standin::text::TabKind;
using standin::text::WritingDirection;

std::string styled(const std::string& declarations) { return "<p style=\"" + declarations + "\">x"; }

TEST(HtmlStyle, ReadsFonts) {
  const struct {
    const char* declarations;
    const char* font;
  } rows[] = {
      {"font-family: Georgia", "Georgia 12"},
      {"font-family: 'No Such', 'Courier New', serif", "CourierNewPSMT 12"},
      {"font-family: 'No Such', serif", "NoSuch 12"},
      {"font-family: sans-serif", "Helvetica 12"},
      {"font-family: \\48 elvetica", "Helvetica 12"},
      {"font-family: HelveticaNeue-Light", "HelveticaNeue-Light 12"},
      {"font-size: 20px", "Times-Roman 20"},
      {"font-size: 9pt", "Times-Roman 9"},
      {"font-size: 2em", "Times-Roman 24"},
      {"font-size: 150%", "Times-Roman 18"},
      {"font-size: 0.5in", "Times-Roman 36"},
      {"font-size: x-large", "Times-Roman 18"},
      {"font-size: SMALLER", "Times-Roman 10"},
      {"font-size: 20", "Times-Roman 12"},
      {"font-size: -5px", "Times-Roman 12"},
      {"font-size: nonsense", "Times-Roman 12"},
      {"font-weight: 700", "Times-Bold 12"},
      {"font-weight: 500", "Times-Roman 12"},
      {"font-family: Helvetica; font-weight: 300", "Helvetica-Light 12"},
      {"font-weight: bold; font-weight: normal", "Times-Roman 12"},
      {"font-style: oblique 10deg", "Times-Italic 12"},
      {"font: 14px Arial", "ArialMT 14"},
      {"font: italic small-caps bold condensed 18pt/1.5 'Times New Roman', serif", "TimesNewRomanPS-BoldItalicMT 18"},
      {"font: 10px / 2 Menlo", "Menlo-Regular 10"},
      {"font-weight: bold; font: 14px Arial", "ArialMT 14"},
      {"font: Arial", "Times-Roman 12"},
  };
  for (const auto& [declarations, font] : rows) EXPECT_EQ(fontOf(styleOfX(styled(declarations))), font) << declarations;
  EXPECT_EQ(fontOf(styleOfX("<b style='font-size: 20px'><i style='font-size: 50%'><u style='font-size: 2rem'>x")),
            "Times-BoldItalic 24");
  EXPECT_EQ(fontOf(styleOfX("<b><i style='font-weight: lighter'>x")), "Times-Italic 12");
  EXPECT_NE(styleOfX(styled("font-variant: small-caps")).font->traits & standin::text::smallCapsTrait, 0u);
}

TEST(HtmlStyle, ReadsColors) {
  const struct {
    const char* value;
    const char* color;
  } rows[] = {
      {"red", "ff0000"},
      {"RebeccaPurple", "663399"},
      {"#abc", "aabbcc"},
      {"#AABBCC", "aabbcc"},
      {"#11223380", "112233/50"},
      {"#1238", "112233/53"},
      {"rgb(255, 0, 128)", "ff0080"},
      {"rgb(100% 50% 0%)", "ff8000"},
      {"rgba(1,2,3,.5)", "010203/50"},
      {"rgb(1 2 3 / 25%)", "010203/25"},
      {"hsl(120, 100%, 25%)", "008000"},
      {"hsla(-120deg 100% 50% / 1)", "0000ff"},
      {"transparent", "none"},
      {"rgb(1,2)", "none"},
      {"#12", "none"},
      {"12", "none"},
      {"nosuch", "none"},
  };
  for (const auto& [value, color] : rows) {
    EXPECT_EQ(colorText(styleOfX(styled("color: " + std::string(value))).foreground), color) << value;
    EXPECT_EQ(colorText(styleOfX(styled("background: url(a;b.png) " + std::string(value))).background), color) << value;
  }
}

TEST(HtmlStyle, ReadsCharacters) {
  const Style style =
      styleOfX(styled("text-decoration: underline line-through double #ff0000; letter-spacing: 0.5em; vertical-align: 3px; "
                      "text-shadow: 1px 2px 3px rgba(0,0,0,.5), 9px 9px red; font-variant-ligatures: none; direction: rtl"));
  EXPECT_EQ(style.underline, 9);
  EXPECT_EQ(style.strikethrough, 9);
  EXPECT_EQ(colorText(style.underlineColor), "ff0000");
  EXPECT_EQ(style.kern, 6);
  EXPECT_EQ(style.baselineOffset, 3);
  ASSERT_TRUE(style.shadow);
  EXPECT_EQ(style.shadow->offsetX, 1);
  EXPECT_EQ(style.shadow->offsetY, -2);
  EXPECT_EQ(style.shadow->blurRadius, 3);
  EXPECT_EQ(colorText(style.shadow->color), "000000/50");
  EXPECT_EQ(style.ligature, 0);
  EXPECT_EQ(style.paragraph.direction, WritingDirection::rightToLeft);
  const struct {
    const char* value;
    int underline;
  } lines[] = {
      {"underline", 1}, {"underline dotted", 0x101}, {"dashed underline", 0x201}, {"underline 3px", 2}, {"none", 0}};
  for (const auto& [value, underline] : lines) {
    EXPECT_EQ(styleOfX(styled("text-decoration:" + std::string(value))).underline, underline) << value;
  }
  EXPECT_EQ(styleOfX("<sup>a<sup>x").superscript, 2);
}

// A line goes through all of an element, whatever elements in it say.
TEST(HtmlStyle, DrawsLinesThroughContent) {
  EXPECT_EQ(styleOfX("<u>a<span style='text-decoration: none'>x").underline, 1);
  EXPECT_EQ(styleOfX("<a href=y style='text-decoration: none'>x").underline, 0);
  const Style both = styleOfX("<u style='text-decoration-color: red'><s style='text-decoration-style: double'>x");
  EXPECT_EQ(both.underline, 1);
  EXPECT_EQ(colorText(both.underlineColor), "ff0000");
  EXPECT_EQ(both.strikethrough, 9);
  EXPECT_EQ(colorText(both.strikethroughColor), "none");
}

TEST(HtmlStyle, PlacesParagraphs) {
  const Paragraph paragraph = paragraphOfX(
      styled("text-align: justify; margin: 5px 10px 15px 20px; padding-left: 1in; text-indent: -8px; line-height: 20px; "
             "tab-size: 28px; hyphens: auto; tab-stops: left 36pt right 1in decimal 100px"));
  EXPECT_EQ(paragraph.alignment, Alignment::justified);
  EXPECT_EQ(paragraph.headIndent, 92);
  EXPECT_EQ(paragraph.firstLineIndent, 84);
  EXPECT_EQ(paragraph.tailIndent, -10);
  EXPECT_EQ(paragraph.spacingBefore, 5);
  EXPECT_EQ(paragraph.spacingAfter, 15);
  EXPECT_EQ(paragraph.minimumLineHeight, 20);
  EXPECT_EQ(paragraph.maximumLineHeight, 20);
  EXPECT_EQ(paragraph.defaultTabInterval, 28);
  EXPECT_EQ(paragraph.hyphenationFactor, 1);
  ASSERT_TRUE(paragraph.tabs && paragraph.tabs->size() == 3);
  EXPECT_EQ((*paragraph.tabs)[1], (standin::text::TabStop{72, TabKind::right}));
  EXPECT_EQ(paragraphOfX(styled("line-height: 1.5")).lineHeightMultiple, 1.5);
  EXPECT_EQ(paragraphOfX(styled("line-height: 120%")).lineHeightMultiple, 1.2);
  EXPECT_EQ(paragraphOfX("<div align=center><p>x").alignment, Alignment::center);
  EXPECT_EQ(paragraphOfX("<table align=center><tr><td>x").alignment, Alignment::natural);
  EXPECT_EQ(paragraphOfX("<p dir=rtl style='text-align: end'>x").alignment, Alignment::left);
  EXPECT_EQ(paragraphOfX("<blockquote><blockquote>x").headIndent, 80);
  EXPECT_EQ(paragraphOfX("<dd style='margin-left: -100px'>x").headIndent, 0);
}

TEST(HtmlStyle, CollapsesMargins) {
  const struct {
    const char* html;
    std::vector<std::pair<double, double>> spacing;  // before and after, a paragraph each
  } rows[] = {
      {"<p>a<p>b", {{0, 12}, {0, 12}}},
      {"<p style='margin: 3px 0'>a<p>b", {{3, 3}, {9, 12}}},
      {"<div style='margin: 20px 0'><p>a</div>b", {{20, 20}, {0, 0}}},
      {"a<div><div style='margin-top: 7px'>b</div></div>", {{0, 0}, {7, 0}}},
      {"<h2>a</h2><p>b", {{0, 14.94}, {0, 12}}},
      {"<pre>a\nb\nc</pre>d", {{0, 0}, {0, 0}, {0, 10}, {0, 0}}},
      {"<ul><li>a<li>b</ul>c", {{0, 0}, {0, 12}, {0, 0}}},
      {"<p style='padding: 4px 0; margin: 0'>a<p style='margin:0'>b", {{4, 4}, {0, 0}}},
  };
  for (const auto& [html, spacing] : rows) {
    const Document document = documentOf(html);
    size_t position = 0;
    for (const auto& [before, after] : spacing) {
      const Paragraph paragraph = styleAt(document, position).paragraph;
      EXPECT_EQ(paragraph.spacingBefore, before) << html << " at " << position;
      EXPECT_EQ(paragraph.spacingAfter, after) << html << " at " << position;
      position = document.text.find(u'\n', position) + 1;
    }
  }
}

TEST(HtmlStyle, MatchesSelectors) {
  const std::string body =
      "<div id=main class='c1 c2' lang=en-US data-k='one two'><p class=first>a</p><p id=me class='Big x-y'>x</p>"
      "<ul><li>b</li></ul><p>c</p></div>";
  const struct {
    const char* selector;
    bool matches;
  } rows[] = {
      {"p", true},
      {"P", true},
      {"*", true},
      {"div p", true},
      {"div > p", true},
      {"body > p", false},
      {"body p", true},
      {"div div p", false},
      {".Big", true},
      {".big", false},
      {"p.Big.x-y", true},
      {"#me", true},
      {"div#main.c2 > #me", true},
      {"#main#me", false},
      {".first + p", true},
      {".first ~ .x-y", true},
      {"ul + #me", false},
      {"[class]#me", true},
      {"[data-k~=two] p", true},
      {"[data-k~='one two'] p", false},
      {"[lang|=en] > p", true},
      {"[data-k^=one] p", true},
      {"[data-k$=\"two\"] p", true},
      {"[data-k*='e t'] p", true},
      {"[data-k='one two' i] p", true},
      {"p:nth-child(2)", true},
      {"p:nth-child(2n + 1)", false},
      {"p:nth-child(even)", true},
      {"p:nth-child(2 of .x)", false},
      {"p:nth-of-type(2)", true},
      {"p:nth-last-child(3)", true},
      {"p:nth-last-child(-n+2)", false},
      {"p:first-child", false},
      {"p:not(.first)", true},
      {"p:not(.first, #me)", false},
      {":root p", true},
      {"p:hover", false},
      {"p::first-line", false},
      {"p:unknown", false},
      {"h1, #me", true},
      {"h1 #me, .nothing", false},
      {"\\70", true},
      {"p >", false},
      {"div>p", true},
      {"> p", false},
      {".first ~ ul ~ p", false},
      {".first + p + ul li", false},
      {"div .first ~ p", true},
      {"div > .first + #me", true},
      {"#main p ~ p", true},
      {"div:not(.c1) p", false},
      {"[id].c2 > p", true},
      {".nothing p, body div:first-child > p", true},
      {"p:nth-last-of-type(2)", true},
      {"p:only-child", false},
      {"html > p", false},
  };
  for (const auto& [selector, matches] : rows) {
    const std::string html = "<style>" + std::string(selector) + " { color: red }</style>" + body;
    EXPECT_EQ(styleOfX(html).foreground.has_value(), matches) << selector;
  }
}

// Hostile sheets are obeyed all the same: the look of the last "x", far behind what would take a slow reader beyond its
// bounds.
TEST(HtmlStyle, ObeysHostileSheets) {
  const auto repeated = [](const std::string& text, int count) {
    std::string all;
    for (int number = 0; number < count; ++number) all += text;
    return all;
  };
  const auto numbered = [](const std::string& before, const std::string& behind, int count) {
    std::string all;
    for (int number = 0; number < count; ++number) all += before + std::to_string(number) + behind;
    return all;
  };
  const std::string paragraphs = repeated("<p>y</p>", 20'000), deep = repeated("<div>", 400);
  const std::string classRules = numbered(".c", "{color:red}", 2'000), manyClasses = numbered("c", " ", 50'000);
  const struct {
    const char* what;
    std::string rules, body;
  } rows[] = {
      {"class lists", classRules + ".z{color:blue}",
       repeated("<p class='" + numbered("c", " ", 2'000) + "'>y</p>", 50) + "<p class='" + manyClasses + " z'>x"},
      {"copies of long class lists", classRules + "p.z{color:blue}",
       "<b class='" + manyClasses + "'>" + repeated("<p>y", 5'000) + "</b><p class=z>x"},
      {"universal rules", repeated("*{color:red}", 20'000) + "*{color:blue}", paragraphs + "<p>x"},
      {"rules with ancestors", numbered(".a .b .c", " p{color:red}", 2'000) + ".a p{color:blue}",
       paragraphs + "<div class=a><p>x"},
      {"siblings", ".f ~ p{color:blue} .n ~ p{color:red} " + repeated("p ~ ", 20) + "p.n{color:red}",
       "<p class=f>y</p>" + paragraphs + "<p>x"},
      {"neighbours", repeated("p + ", 20) + "p{color:blue}", paragraphs + "<p>x"},
      {"places", "p:nth-child(20001){color:blue} p:nth-last-of-type(n+2){color:red}", paragraphs + "<p>x"},
      {"deep ancestors", ".n " + repeated("div ", 20) + "p{color:red} " + repeated("div ", 22) + "p{color:blue}",
       deep + paragraphs + "<p>x"},
      {"deep children", ":root > body > " + repeated("div > ", 20) + "p{color:red} div > p{color:blue}",
       deep + paragraphs + "<p>x"},
      {"blocks", repeated("@media screen{p{color:red}}", 10'000) + "p{color:blue}", paragraphs + "<p>x"},
      {"attributes", numbered("[a", "]{color:red}", 10'000) + "[b]{color:blue}", repeated("<p a1>y</p>", 5'000) + "<p b>x"},
      {"values of attributes", "[title*='" + repeated("a", 50'000) + "b']{color:red} p{color:blue}",
       "<b title='" + repeated("a", 100'000) + "'>" + repeated("<p>y", 500) + "</b><p>x"},
      {"copies of many attributes", "p{color:blue}",
       "<b " + numbered("a", " ", 999) + ">" + repeated("<p>y", 20'000) + "</b><p>x"},
      {"names", numbered("n", "{color:red}", 20'000) + "m{color:blue}", numbered("<n", ">y</n>", 2'000) + "<m>x"},
      {"long families", "body{font-family:" + repeated("a", 50'000) + "} p{color:blue}",
       numbered("<p style='margin-left:", "px'>y", 5'000) + "<p>x"},
      {"tab stops", "body{tab-stops:" + numbered(" ", "pt", 20'000) + "} p{color:blue}",
       numbered("<p style='margin-left:", "px'>y", 5'000) + "<p>x"},
  };
  for (const auto& [what, rules, body] : rows) {
    const Document document = documentOf("<style>" + rules + "</style>" + body);
    const Style style = styleAt(document, document.text.rfind(u'x'));
    EXPECT_EQ(colorText(style.foreground), "0000ff") << what;
    EXPECT_LE(style.paragraph.tabs.value_or(std::vector<standin::text::TabStop>()).size(), 64U) << what;
  }
}

// What is left out once a document asks for more than its size allows is the document's, never the reader's own.
TEST(HtmlStyle, KeepsBlocksApartWhenTheSheetIsTooMuch) {
  std::string html = "<style>*{", expected;
  for (int number = 0; number < 50'000; ++number) html += "color:red;";
  html += "}</style>";
  for (int number = 0; number < 2'000; ++number) {
    html += "<p style='margin-left:" + std::to_string(number) + "px'>a</p>";
    expected += expected.empty() ? "a" : "\na";
  }
  const Document document = documentOf(html);
  EXPECT_EQ(utf8Of(document.text), expected);
  EXPECT_EQ(styleAt(document, 20).paragraph.headIndent, 10);
  EXPECT_EQ(styleAt(document, document.text.size() - 1).paragraph.headIndent, 0);
}

TEST(HtmlStyle, DecidesBetweenRules) {
  const struct {
    const char* sheet;
    const char* element;
    const char* color;
  } rows[] = {
      {"p {color: red} p {color: blue}", "<p>x", "0000ff"},
      {".a {color: red} p {color: blue}", "<p class=a>x", "ff0000"},
      {"#i {color: red} p.a.b.c {color: blue}", "<p id=i class='a b c'>x", "ff0000"},
      {"p {color: red}", "<p style='color: blue'>x", "0000ff"},
      {"p {color: red !important}", "<p style='color: blue'>x", "ff0000"},
      {"p {color: red !IMPORTANT}", "<p style='color: blue ! important'>x", "0000ff"},
      {"font {color: red}", "<font color=blue>x", "ff0000"},
      {"p {color: red}", "<p><b style='color: inherit'>x", "ff0000"},
      {"p {color: red}", "<p><b style='color: initial'>x", "none"},
      {"a:link {color: unset}", "<p style='color: lime'><a href=y>x", "00ff00"},
      {"p {color: red; color: nonsense}", "<p>x", "ff0000"},
      {"/* p { */ p {/**/color: red} }", "<p>x", "ff0000"},
      {"<!-- p {color: red} -->", "<p>x", "ff0000"},
      {"@charset 'x'; @media print {p {color: blue}} @media screen, print {p {color: red}}", "<p>x", "ff0000"},
      {"@media (max-width: 1px) {p {color: blue}} @font-face {color: blue}", "<p>x", "none"},
      {"p {color: red", "<p>x", "ff0000"},
      {"p {font-family: 'open;\n color: red}", "<p>x", "none"},
      {"q {font-family: 'open;\n color: blue} p {color: red}", "<p>x", "ff0000"},
      {"p {background: url('}'); color: red}", "<p>x", "ff0000"},
      {"p[title='}'] {color: red} q {}", "<p title='}'>x", "ff0000"},
      {"p {;;color:red;;}", "<p>x", "ff0000"},
      {"p { color: red } p:nonsense, p { color: blue }", "<p>x", "0000ff"},
  };
  for (const auto& [sheet, element, color] : rows) {
    EXPECT_EQ(colorText(styleOfX("<style>" + std::string(sheet) + "</style>" + element).foreground), color) << sheet;
  }
  EXPECT_EQ(colorText(styleOfX("<style media=print>p{color:red}</style><p>x").foreground), "none");
  EXPECT_EQ(colorText(styleOfX("<p>x<style>p{color:red}</style>").foreground), "ff0000");
}

TEST(HtmlStyle, LeavesOutWhatIsNotShown) {
  EXPECT_EQ(textOf("a<span style='display: none'>b<b style='display: block'>c</b></span>d"), "ad");
  EXPECT_EQ(textOf("a<span style='visibility: hidden'>b<b style='visibility: visible'>c</b></span>d"), "acd");
  EXPECT_EQ(textOf("<style>.h {display: none}</style><p class=h>a<p>b"), "b");
  EXPECT_EQ(textOf("<span style='display: block'>a</span>b"), "a\nb");
  EXPECT_EQ(textOf("<div style='display: inline'>a</div><div style='display: inline-block'>b</div>"), "ab");
  EXPECT_EQ(textOf("<div style='display: flex'><span>a</span><span>b</span></div>"), "a\nb");
  EXPECT_EQ(textOf("a<p style='page-break-before: always'>b<p style='break-after: page'>c<p>d"), "a\n\fb\nc\n\fd");
}

// The page's background is the document's; that of other elements is behind their text.
TEST(HtmlStyle, PutsBackgroundsWhereTheyShow) {
  const Document document = documentOf("<body bgcolor=ffffee>plain<div style='background: #ddd'>x<b>bold</b></div>");
  EXPECT_EQ(colorText(document.background), "ffffee");
  EXPECT_EQ(colorText(styleOf(document, u"plain").background), "none");
  EXPECT_EQ(colorText(styleOf(document, u"bold").background), "dddddd");
  EXPECT_EQ(colorText(styleOfX("<mark>a<b style='background: transparent'>x").background), "ffff00");
}

// Attributes of HTML that sheets overrule and that overrule what elements look like by themselves.
TEST(HtmlStyle, ObeysPresentationalAttributes) {
  EXPECT_EQ(paragraphOfX("<p align=right>x").alignment, Alignment::right);
  EXPECT_EQ(paragraphOfX("<center>x").alignment, Alignment::center);
  EXPECT_EQ(paragraphOfX("<style>p {text-align: left}</style><p align=right>x").alignment, Alignment::left);
  EXPECT_EQ(paragraphOfX("<h1 align=LEFT>x").alignment, Alignment::left);
  EXPECT_EQ(paragraphOfX("<div dir=rtl><p>x").direction, WritingDirection::rightToLeft);
  EXPECT_EQ(paragraphOfX("<p dir=auto>x").direction, WritingDirection::natural);
  EXPECT_EQ(colorText(styleOfX("<table><tr bgcolor=#eeeeee><td>x").background), "eeeeee");
  for (const char* table : {"<table><tr><td>a<tr><td>x", "<table><td>a<tr><td>x", "<table><tbody><td>a<tr><td>x"}) {
    EXPECT_EQ(
        colorText(
            styleOfX(std::string("<style>table>tbody>tr:nth-child(2)>td{color:#abcdef} table>tr{color:red}</style>") + table)
                .foreground),
        "abcdef")
        << table;
  }
  EXPECT_EQ(colorText(styleOfX("<font color=' 00FF00 '>x").foreground), "00ff00");
  const struct {
    const char* size;
    const char* font;
  } rows[] = {{"1", "Times-Roman 9"},   {"3", "Times-Roman 12"}, {"7", "Times-Roman 36"},  {"99", "Times-Roman 36"},
              {"+1", "Times-Roman 14"}, {"-2", "Times-Roman 9"}, {"big", "Times-Roman 12"}};
  for (const auto& [size, font] : rows) {
    EXPECT_EQ(fontOf(styleOfX("<font size='" + std::string(size) + "'>x")), font) << size;
  }
}

TEST(HtmlStyle, InheritsWhatCSSInherits) {
  const Style style = styleOfX(
      "<div style='color: red; font: italic 20px Georgia; letter-spacing: 2px; text-align: right; line-height: 2; margin: "
      "9px; "
      "text-indent: 5px; text-shadow: 1px 1px red; white-space: pre'><div style='margin-left: 3px'><span>x");
  EXPECT_EQ(fontOf(style), "Georgia-Italic 20");
  EXPECT_EQ(colorText(style.foreground), "ff0000");
  EXPECT_EQ(style.kern, 2);
  EXPECT_TRUE(style.shadow);
  EXPECT_EQ(style.paragraph.alignment, Alignment::right);
  EXPECT_EQ(style.paragraph.lineHeightMultiple, 2);
  EXPECT_EQ(style.paragraph.headIndent, 12);  // of both boxes
  EXPECT_EQ(style.paragraph.firstLineIndent, 17);
  EXPECT_EQ(style.paragraph.tailIndent, -9);
  const Style outside = styleOfX("<div style='color: red; margin: 9px; text-align: right'>a</div>x");
  EXPECT_EQ(colorText(outside.foreground), "none");
  EXPECT_EQ(outside.paragraph.alignment, Alignment::natural);
  EXPECT_EQ(outside.paragraph.headIndent, 0);
}

// Margins of one to four values, sides by their own and by logical names.
TEST(HtmlStyle, ReadsSides) {
  const struct {
    const char* declarations;
    double before, right, after, left;
  } rows[] = {
      {"margin: 1px", 1, 1, 1, 1},
      {"margin: 1px 2px", 1, 2, 1, 2},
      {"margin: 1px 2px 3px", 1, 2, 3, 2},
      {"margin: 1px 2px 3px 4px", 1, 2, 3, 4},
      {"margin: 0 auto", 0, 0, 0, 0},
      {"margin: 5px; margin-top: 1em; margin-left: 1pc", 12, 5, 5, 12},
      {"margin-left: 7px; margin: 5px", 5, 5, 5, 5},
      {"margin: 0; padding: 1px 2px 3px 4px", 1, 2, 3, 4},
      {"margin-block-start: 1px; margin-block-end: 2px; margin-inline-start: 3px; padding-inline-end: 4px", 1, 4, 2, 3},
      {"margin: 10% 1cm 0.2in 10mm", 0, 28.346, 14.4, 28.346},
  };
  for (const auto& row : rows) {
    const Paragraph paragraph = paragraphOfX(styled(row.declarations));
    EXPECT_DOUBLE_EQ(paragraph.spacingBefore, row.before) << row.declarations;
    EXPECT_DOUBLE_EQ(-paragraph.tailIndent, row.right) << row.declarations;
    EXPECT_DOUBLE_EQ(paragraph.spacingAfter, row.after) << row.declarations;
    EXPECT_DOUBLE_EQ(paragraph.headIndent, row.left) << row.declarations;
  }
}

}  // namespace
