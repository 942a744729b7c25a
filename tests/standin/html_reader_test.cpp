// HTML read: what text a document shows, whatever state its tags are in; white space, lists, tables, headings.
#include "tests/standin/html_support.hpp"

namespace {

using namespace html_support;

struct TextRow {
  const char* html;
  std::string text;
};

TEST(HtmlReader, RepairsTagsAsBrowsersDo) {
  const TextRow rows[] = {
      {"plain", "plain"},
      {"", ""},
      {"<p>a<p>b</p>c", "a\nb\nc"},
      {"<div>a<div>b</div>c</div>d", "a\nb\nc\nd"},
      {"a</p>b</div>c</span>d", "abcd"},
      {"<p>a<h1>b<h2>c</p>d", "a\nb\ncd"},
      {"<b><p>a</b>b</p>c",
       "a"
       "b\nc"},
      {"<ul><li>a<li>b<ul><li>c</ul><li>d</ul>e", "\t•\ta\n\t•\tb\n\t◦\tc\n\t•\td\ne"},
      {"<dl><dt>a<dd>b<dt>c</dl>", "a\nb\nc"},
      {"<table><tr><td>a<td>b<tr><td>c</table>d", "a\nb\nc\nd"},
      {"<table><tbody><tr><td>a<table><tr><td>b</table>c<td>d</table>", "a\nb\nc\nd"},
      {"<td>a<td>b", "a\nb"},
      {"<a href=x>a<a href=y>b</a>c", "abc"},
      {"<select><option>a<option>b</select>c", "c"},
      {"<title>T</title>a<title>U</title>b", "ab"},
      {"<textarea><p>a</textarea>b", "b"},
      {"<script>if (a<b) '</p>'</script>c", "c"},
      {"<style>p > a</style>b", "b"},
      {"<script>never ended", ""},
      {"a<!-- b -- > <p> -->c<!-->d<!--->e<!--f", "acde"},
      {"<!DOCTYPE html><?pi x?><![if !x]>a<![endif]>", "a"},
      {"a < b <3 c</ d>e", "a < b <3 ce"},
      {"a <b", "a"},
      {"<p title='>'>a</p><p title=\"'>\">b", "a\nb"},
      {"<P CLASS=x>a</P ><BR/>b", "a\n\u2028b"},
      {"<body><body class=y>a</body></html>b", "ab"},
      {"<?xml version='1.0'?><html><head><title/></head><body><p/><script src='x'/>a</body>", "a"},
      {"<xmp><b>&amp;</xmp>", "<b>&amp;"},
      {"<button>a<button>b</button>c", "abc"},
      {"<ruby>a<rp>(<rt>b<rp>)</ruby>", "ab"},
      {"<noscript>a</noscript><iframe>b</iframe><noframes>c</noframes><object>d</object>", "a\nc\nd"},
      {"<svg><text>a</text></svg><video>b</video><template>c</template>d<input value=e>", "d"},
      {"<details><summary>a</summary>b</details><dialog>c</dialog><p hidden>d", "a\nb"},
      {"<custom-element>a</custom-element>b", "ab"},
  };
  for (const auto& [html, text] : rows) EXPECT_EQ(textOf(html), text) << html;
}

TEST(HtmlReader, DecodesCharacterReferences) {
  const TextRow rows[] = {
      {"&lt;&gt;&amp;&quot;&apos;", "<>&\"'"},
      {"&eacute;&Eacute;&notin;&CounterClockwiseContourIntegral;", "éÉ∉∳"},
      {"&copy 2&copy2&notit;", "© 2©2¬it;"},
      {"&#233;&#xE9;&#XE9;&#233 &#x1F600;", "ééé\u00E9 😀"},
      {"&#128;&#150;&#0;&#xD800;&#x110000;&#99999999999;", "€–\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"&;&#;&#x;&unknown;&unknown&", "&;&#;&#x;&unknown;&unknown&"},
      {"&fjlig;&NotEqualTilde;", "fj≂̸"},
      {"<title>&eacute;</title><style>&amp;</style>x", "x"},
  };
  for (const auto& [html, text] : rows) EXPECT_EQ(textOf(html), text) << html;
  EXPECT_EQ(styleOfX("<a href='?a=1&copy=2&amp;b&lt;'>x</a>").link, u"?a=1&copy=2&b<");
}

TEST(HtmlReader, CollapsesWhiteSpaceAcrossRuns) {
  const TextRow rows[] = {
      {"  a  \n\t b  ", "a b"},
      {"<b>a </b> <i> b</i>", "a b"},
      {"a<b> </b>b", "a b"},
      {"<p> a </p> <p> b </p>", "a\nb"},
      {"a <br> b", "a\u2028b"},
      {"a&nbsp; &nbsp;b&#9;c", "a\u00A0 \u00A0b c"},
      {"<p>a<br></p><p><br></p><p></p><p>b<br><br></p>c", "a\n\nb\u2028\nc"},
      {"<div>a</div><br><div>b</div>", "a\n\nb"},
      {"<pre>\na  b\n\n\tc\n</pre>d", "a  b\n\n\tc\nd"},
      {"<pre>\n\na</pre>", "\na"},
      {"<div style='white-space: pre-line'>a  b\nc</div>", "a b\nc"},
      {"<span style='white-space: pre'>a  b</span>  c", "a  b c"},
      {"<span style='white-space: nowrap'>a  b</span>", "a b"},
      {"a<span class=Apple-converted-space>&nbsp; </span>b", "a  b"},
      {"sup<wbr>er &shy;<q>quoted</q>", "sup\u200Ber \u00AD“quoted”"},
      {"a<hr>b", "a\n\nb"},
      {"<span style='text-transform: uppercase'>straße</span> <i style='text-transform:capitalize'>o'neil and son</i>",
       "STRASSE O'neil And Son"},
      {"<p style='text-transform: lowercase'>A<b>B</b>", "ab"},
  };
  for (const auto& [html, text] : rows) EXPECT_EQ(textOf(html), text) << html;
}

TEST(HtmlReader, NumbersListItems) {
  const TextRow rows[] = {
      {"<ol><li>a<li>b</ol>", "\t1.\ta\n\t2.\tb"},
      {"<ol start=9><li>a<li value=20>b<li>c</ol>", "\t9.\ta\n\t20.\tb\n\t21.\tc"},
      {"<ol reversed><li>a<li>b</ol><ol reversed start=7><li>c</ol>", "\t2.\ta\n\t1.\tb\n\t7.\tc"},
      {"<ol type=a><li>a</ol><ol type=I><li>b<li>c</ol><ol type=i start=4><li>d</ol>",
       "\ta.\ta\n\tI.\tb\n\tII.\tc\n\tiv.\td"},
      {"<ul type=square><li>a<li type=circle>b</ul>", "\t▪\ta\n\t◦\tb"},
      {"<ol><li>a<ol><li>b</ol><li>c</ol>", "\t1.\ta\n\t1.\tb\n\t2.\tc"},
      {"<ul><li><p>a</p><p>b</p></ul>", "\t•\ta\nb"},
      {"<ul><li></li><li>a</ul>", "\t•\t\n\t•\ta"},
      {"<ul style='list-style: none'><li>a</ul>", "a"},
      {"<style>ul { list-style: inside '→' }</style><ul><li>a</ul>", "\t→\ta"},
      {"<ol style='list-style-type: decimal-leading-zero'><li>a</ol>", "\t01.\ta"},
      {"<ul style='list-style-type: upper-alpha'><li style='display: inline'>a</li> <li style='display:inline'>b</ul>",
       "a b"},
      {"<li>a", "\t•\ta"},
  };
  for (const auto& [html, text] : rows) EXPECT_EQ(textOf(html), text) << html;
}

TEST(HtmlReader, StepsListsIn) {
  const Document document = documentOf("<ul><li>one<ol><li>two<p>three</ol></ul>four");
  const struct {
    std::u16string_view text;
    double first, head;
    std::vector<double> tabs;
  } rows[] = {{u"one", 0, 36, {11, 36}}, {u"two", 36, 72, {47, 72}}, {u"three", 72, 72, {}}, {u"four", 0, 0, {}}};
  for (const auto& row : rows) {
    const Paragraph paragraph = styleOf(document, row.text).paragraph;
    EXPECT_EQ(paragraph.firstLineIndent, row.first) << utf8Of(row.text);
    EXPECT_EQ(paragraph.headIndent, row.head) << utf8Of(row.text);
    std::vector<double> tabs;
    for (const auto& tab : paragraph.tabs.value_or(std::vector<standin::text::TabStop>())) tabs.push_back(tab.position);
    EXPECT_EQ(tabs, row.tabs) << utf8Of(row.text);
  }
}

TEST(HtmlReader, GivesEveryCellAParagraph) {
  EXPECT_EQ(
      textOf("<table><caption>t</caption><tr><th>a<th>b</tr><tr><td></td><td> </td></tr><tr><td>c<td><p>d<p>e</table>f"),
      "t\na\nb\n\n\nc\nd\ne\nf");
  const Document document = documentOf("<table><tr><th>head<td align=right>cell</table>");
  EXPECT_EQ(fontOf(styleOf(document, u"head")), "Times-Bold 12");
  EXPECT_EQ(styleOf(document, u"head").paragraph.alignment, standin::text::Alignment::center);
  EXPECT_EQ(styleOf(document, u"cell").paragraph.alignment, standin::text::Alignment::right);
}

// Formatting that ends elsewhere than its block does.
TEST(HtmlReader, KeepsFormattingOverBlocks) {
  const struct {
    const char* html;
    bool isBold;
  } rows[] = {
      {"<b><p>a<p>x", true},
      {"<p><b>a</p><p>x", true},
      {"<p><b>a</p><p>b</b>x", false},
      {"<b><p>a</b>x", false},
      {"<b>a<i>b</b>x</i>", false},
      {"<b><div><i>a</b>x", false},
      {"<b>a<table><tr><td>x</table>", true},
      {"<table><tr><td><b>a<td>x</table>", false},
      {"<b><b><b><b>a</b></b></b></b>x", false},
      {"<b><p>a</p></b><p>x", false},
      {"<font face=Arial><p><b>a</font>x", true},
  };
  for (const auto& [html, isBold] : rows) EXPECT_EQ(styleOfX(html).font->bold(), isBold) << html;
  const Style across = styleOfX("<p><a href=y><i><u>a</p><div>x");
  EXPECT_EQ(across.link, u"y");
  EXPECT_TRUE(across.font->italic());
  EXPECT_EQ(across.underline, 1);
}

TEST(HtmlReader, ShowsElementsAsBrowsersDo) {
  const struct {
    const char* html;
    const char* font;
    const char* color;
    int underline, strikethrough, superscript, headerLevel;
  } rows[] = {
      {"<p>x", "Times-Roman 12", "none", 0, 0, 0, 0},
      {"<h1>x", "Times-Bold 24", "none", 0, 0, 0, 1},
      {"<h3><i>x</i>", "Times-BoldItalic 14.04", "none", 0, 0, 0, 3},
      {"<h6>x", "Times-Bold 8.04", "none", 0, 0, 0, 6},
      {"<strong><em>x", "Times-BoldItalic 12", "none", 0, 0, 0, 0},
      {"<ins>x", "Times-Roman 12", "none", 1, 0, 0, 0},
      {"<u><s>x", "Times-Roman 12", "none", 1, 1, 0, 0},
      {"<code>x", "Courier 10", "none", 0, 0, 0, 0},
      {"<pre><code>x", "Courier 10", "none", 0, 0, 0, 0},
      {"<sup>x", "Times-Roman 10", "none", 0, 0, 1, 0},
      {"<sub>x", "Times-Roman 10", "none", 0, 0, -1, 0},
      {"<big>x", "Times-Roman 14.4", "none", 0, 0, 0, 0},
      {"<a href=y>x", "Times-Roman 12", "0000ee", 1, 0, 0, 0},
      {"<a name=y>x", "Times-Roman 12", "none", 0, 0, 0, 0},
      {"<font face='Arial' size=5 color=00ff00>x", "ArialMT 18", "00ff00", 0, 0, 0, 0},
      {"<font size=-1>x", "Times-Roman 10", "none", 0, 0, 0, 0},
      {"<body text=#112233><address>x", "Times-Italic 12", "112233", 0, 0, 0, 0},
  };
  for (const auto& row : rows) {
    const Style style = styleOfX(row.html);
    EXPECT_EQ(fontOf(style), row.font) << row.html;
    EXPECT_EQ(colorText(style.foreground), row.color) << row.html;
    EXPECT_EQ(style.underline, row.underline) << row.html;
    EXPECT_EQ(style.strikethrough, row.strikethrough) << row.html;
    EXPECT_EQ(style.superscript, row.superscript) << row.html;
    EXPECT_EQ(style.paragraph.headerLevel, row.headerLevel) << row.html;
  }
}

// Pages as word processors and mail programs write them.
TEST(HtmlReader, ReadsWhatProgramsWrite) {
  const Document word = documentOf(
      "<html xmlns:o=\"urn:o\"><head><style>\n<!--\n /* Definitions */\n @font-face {font-family:Calibri;}\n"
      " p.MsoNormal, li.MsoNormal {mso-style-parent:\"\"; margin:0cm; margin-bottom:.0001pt; font-size:11.0pt; "
      "font-family:\"Calibri\",sans-serif;}\n @page WordSection1 {size:595.3pt 841.9pt; margin:70.85pt;}\n-->\n</style>"
      "<!--[if gte mso 9]><xml><o:p>hidden</o:p></xml><![endif]--></head><body lang=DE>\n<p "
      "class=MsoNormal>One<o:p></o:p></p>"
      "\n\n<p class=MsoNormal style='text-indent:-18.0pt;margin-left:36pt'><![if !supportLists]><span "
      "style='mso-list:Ignore'>1."
      "<span style='font:7.0pt \"Times New Roman\"'>&nbsp; </span></span><![endif]>Item<o:p></o:p></p></body></html>");
  EXPECT_EQ(word.text, u"One\n1.\u00A0 Item");
  EXPECT_EQ(fontOf(styleOf(word, u"Item")), "Calibri 11");
  EXPECT_EQ(styleOf(word, u"Item").paragraph.firstLineIndent, 18);
  EXPECT_EQ(word.page.topMargin, 70.85);
  const Document mail = documentOf(
      "<div dir=3D\"ltr\">Hi<div><br></div><div>there</div><blockquote style='margin:0 0 0 .8ex;border-left:1px solid'>"
      "quoted</blockquote></div>");
  EXPECT_EQ(mail.text, u"Hi\n\nthere\nquoted");
  const Document old =
      documentOf("<HTML><BODY><FONT FACE=\"Arial\" SIZE=2><P>a</FONT><B><P>b</P></B><CENTER>c</CENTER>d<DL><DD>e</DL>");
  EXPECT_EQ(old.text, u"a\nb\nc\nd\ne");
  EXPECT_EQ(fontOf(styleOf(old, u"a")), "ArialMT 10");
  EXPECT_EQ(fontOf(styleOf(old, u"b")), "Times-Bold 12");
}

// Every run's length counts, and neighbours differ.
TEST(HtmlReader, JoinsRunsOfOneStyle) {
  const Document document = documentOf("<p>a<span>b</span> c</p><p><span>d</span><b>e</b><b>f</b></p>");
  ASSERT_EQ(document.runs.size(), 2u);
  EXPECT_EQ(document.runs[0].length, 6u);
  EXPECT_EQ(document.runs[1].length, 2u);
}

}  // namespace
