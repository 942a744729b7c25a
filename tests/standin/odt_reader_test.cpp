// OpenDocument text read: characters and structure, lists, styles laid over one another, packages, hostile bytes.
#include "standin/formats/base64.hpp"
#include "standin/formats/signatures.hpp"
#include "tests/standin/odt_support.hpp"

namespace {

using namespace odt_support;
using standin::text::Alignment;
using standin::text::TabKind;
using standin::text::WritingDirection;

std::string p(const std::string& content) { return "<text:p>" + content + "</text:p>"; }

TEST(OdtReader, ReadsTextAndLeavesOutWhatIsNone) {
  const struct {
    const char* body;
    const char* text;
  } rows[] = {
      {"<text:p>one</text:p><text:p/><text:h>two</text:h>", "one\n\ntwo"},
      {"<text:p>  a\n\t b <text:span> c</text:span> d </text:p>", "a b c d "},
      {"<text:p>a<text:s/> b<text:s text:c=\"3\"/>c<text:tab/> d<text:line-break/> e</text:p>", "a  b   c\t d\u2028 e"},
      {"<text:p>\u00A0a\u00ADb\u2011\u200B\U0001F600&amp;&lt;</text:p>", "\u00A0a\u00ADb\u2011\u200B\U0001F600&<"},
      {"<text:p>x<text:note text:note-class=\"footnote\"><text:note-citation>7</text:note-citation><text:note-body>"
       "<text:p>foot</text:p></text:note-body></text:note>y</text:p>",
       "x7y"},
      {"<text:p>x<office:annotation><dc:creator>me</dc:creator><text:p>no</text:p></office:annotation>y</text:p>", "xy"},
      {"<text:tracked-changes><text:changed-region><text:deletion><text:p>gone</text:p></text:deletion>"
       "</text:changed-region></text:tracked-changes><text:p>a<text:change-start/>new<text:change-end/><text:change/>b</"
       "text:p>",
       "anewb"},
      {"<text:p>r<text:ruby><text:ruby-base>base</text:ruby-base><text:ruby-text>over</text:ruby-text></text:ruby></text:p>",
       "rbase"},
      {"<text:p><text:page-number>7</text:page-number><text:date>May</text:date><text:unheard-of>kept</text:unheard-of>"
       "<text:variable-set text:display=\"none\">no</text:variable-set><text:script>no</text:script></text:p>",
       "7Maykept"},
      {"<text:p>a<draw:frame><draw:text-box><text:p>box</text:p></draw:text-box></draw:frame>b<draw:rect><text:p>shape"
       "</text:p></draw:rect><draw:frame><svg:title>title</svg:title></draw:frame></text:p>",
       "ab"},
      {"<text:section><text:p>in</text:p></text:section><text:illustration-index><text:illustration-index-source>"
       "<text:index-title-template>no</text:index-title-template></text:illustration-index-source><text:index-body>"
       "<text:p>index</text:p></text:index-body></text:illustration-index>",
       "in\nindex"},
      {"<table:table><table:table-row><table:table-cell><text:p>a</text:p><text:p>b</text:p></table:table-cell>"
       "<table:covered-table-cell><text:p>no</text:p></table:covered-table-cell><table:table-cell/></table:table-row>"
       "<table:table-row><table:table-cell table:number-columns-repeated=\"3\"><text:p>c</text:p></table:table-cell>"
       "</table:table-row></table:table><text:p>d</text:p>",
       "a\nb\n\nc\nc\nc\nd"},
      // The end of the last paragraph is no text, but that of the one before it is.
      {"<text:p>a</text:p><text:p/>", "a\n"},
      // Text that stands in boxes alone is the document's.
      {"<text:p><draw:frame><draw:text-box><text:p>only</text:p></draw:text-box></draw:frame></text:p>", "only\n"},
  };
  for (const auto& row : rows) EXPECT_EQ(shown(parsed(flat(row.body))), row.text) << row.body;
}

TEST(OdtReader, BreaksPagesWhereStylesSay) {
  const std::string styles =
      paragraphStyle("B", "fo:break-before=\"page\"") + paragraphStyle("A", "fo:break-after=\"page\"") +
      paragraphStyle("M", "", "", " style:master-page-name=\"Other\"") + paragraphStyle("C", "fo:break-before=\"column\"");
  const auto document =
      parsed(flat("<text:p text:style-name=\"M\">1</text:p><text:p text:style-name=\"B\">2</text:p>"
                  "<text:p text:style-name=\"A\">3</text:p><text:p text:style-name=\"M\">4</text:p>"
                  "<text:p text:style-name=\"C\">5</text:p>",
                  styles));
  EXPECT_EQ(shown(document), "1\n<page>2\n3<page>\n<page>4\n5");
}

const char* const listStyles =
    "<text:list-style style:name=\"N\">"
    "<text:list-level-style-number text:level=\"1\" style:num-prefix=\"(\" style:num-format=\"1\" style:num-suffix=\".\"/>"
    "<text:list-level-style-number text:level=\"2\" style:num-format=\"a\" style:num-suffix=\")\" "
    "text:display-levels=\"2\"/>"
    "<text:list-level-style-bullet text:level=\"3\" text:bullet-char=\"\uF0A7\"/>"
    "<text:list-level-style-number text:level=\"4\" style:num-format=\"i\" text:start-value=\"5\" "
    "text:display-levels=\"4\"/>"
    "<text:list-level-style-number text:level=\"5\" style:num-format=\"\"/></text:list-style>"
    "<text:list-style style:name=\"M\"><text:list-level-style-number text:level=\"1\" style:num-format=\"A\" "
    "loext:num-list-format=\"[%1%]\"/></text:list-style>"
    "<text:list-style style:name=\"Z\"><text:list-level-style-number text:level=\"1\" style:num-format=\"01, 02, ...\" "
    "style:num-suffix=\"-\"/><text:list-level-style-number text:level=\"2\" style:num-format=\"\" style:num-suffix=\"x\" "
    "text:display-levels=\"2\"/></text:list-style>"
    "<text:outline-style><text:outline-level-style text:level=\"1\" style:num-format=\"I\"/>"
    "<text:outline-level-style text:level=\"2\" style:num-format=\"1\" text:display-levels=\"2\"/></text:outline-style>"
    "<style:style style:name=\"InN\" style:family=\"paragraph\" style:list-style-name=\"N\"/>";

std::string list(const std::string& attributes, const std::string& items) {
  return "<text:list " + attributes + ">" + items + "</text:list>";
}
std::string item(const std::string& content, const std::string& attributes = {}) {
  return "<text:list-item " + attributes + ">" + content + "</text:list-item>";
}

TEST(OdtReader, MarksTheItemsOfLists) {
  const std::string n = "text:style-name=\"N\"", m = "text:style-name=\"M\"";
  const std::string continued = " text:continue-numbering=\"true\"";
  const struct {
    std::string body;
    const char* text;  // tabs as |
  } rows[] = {
      {list(n, "<text:list-header>" + p("head") + "</text:list-header>" + item(p("one") + p("more")) + item(p("two"))),
       "head\n|(1.|one\nmore\n|(2.|two"},
      {list(n, item(p("a") +
                    list("", item(p("b")) +
                                 item(p("c") + list("", item(p("d") + list("", item(p("e") + list("", item(p("f"))))))))))),
       "|(1.|a\n|1.a)|b\n|1.b)|c\n|\u25AA|d\n|1.b.v|e\nf"},
      {list(n, item(p("a") + list("", item(p("b"))) + p("c") + list("", item(p("d")))) + item(list("", item(p("e"))))),
       "|(1.|a\n|1.a)|b\nc\n|1.a)|d\n|1.a)|e"},
      {list(n, item(p("a"), "text:start-value=\"7\"") + item("") + item(p("b"))), "|(7.|a\n|(8.|b"},
      {list(n, item(p("a"))) + list(n, item(p("b"))), "|(1.|a\n|(1.|b"},
      {list(n, item(p("a"))) + p("x") + list(n + continued, item(p("b"))), "|(1.|a\nx\n|(2.|b"},
      {list(n, item(p("a"))) + list(m, item(p("b"))) + list(n + continued, item(p("c"))), "|(1.|a\n|[A]|b\n|(1.|c"},
      {list(n + " xml:id=\"x\"", item(p("a"))) + list(m, item(p("b"))) + list(n + " text:continue-list=\"x\"", item(p("c"))),
       "|(1.|a\n|[A]|b\n|(2.|c"},
      {list(n, item(p("a") + list("", item(p("b"))))) + list(n + continued, item(list("", item(p("c"))))),
       "|(1.|a\n|1.a)|b\n|1.b)|c"},
      {list("", item(p("a"))), "|\u2022|a"},
      {list("text:style-name=\"Z\"", item(p("a") + list("", item(p("b") + list("", item(p("c"))))))), "|01-|a\n|x|b\n|1.|c"},
      {list("", item("<text:p text:style-name=\"InN\">a</text:p>")) + "<text:p text:style-name=\"InN\">b</text:p>",
       "|(1.|a\nb"},
      {"<text:numbered-paragraph text:list-id=\"q\" text:style-name=\"M\">" + p("a") +
           "</text:numbered-paragraph><text:numbered-paragraph text:list-id=\"q\" text:style-name=\"M\">" + p("b") +
           "</text:numbered-paragraph>",
       "|[A]|a\n|[B]|b"},
      {"<text:h text:outline-level=\"1\">a</text:h><text:h text:outline-level=\"2\">b</text:h>"
       "<text:h text:outline-level=\"1\" text:is-list-header=\"true\">c</text:h><text:h text:outline-level=\"3\">d</text:h>"
       "<text:h text:outline-level=\"1\" text:restart-numbering=\"true\" text:start-value=\"9\">e</text:h>",
       "|I|a\n|I.1|b\nc\nd\n|IX|e"},
      {list(n, item("<text:h text:outline-level=\"1\">a</text:h>")), "|(1.|a"},
      {list(n, item(p("a") + "<table:table><table:table-row><table:table-cell>" + p("cell") + list(m, item(p("b"))) +
                    "</table:table-cell></table:table-row></table:table>") +
                   item(p("c"))),
       "|(1.|a\ncell\n|[A]|b\n|(2.|c"},
  };
  for (const auto& row : rows) {
    std::string text = shown(parsed(flat(row.body, {}, listStyles)));
    std::replace(text.begin(), text.end(), '\t', '|');
    EXPECT_EQ(text, row.text) << row.body;
  }
}

TEST(OdtReader, IndentsItemsAsTheirListSays) {
  const std::string old = "<style:list-level-properties text:space-before=\"10pt\" text:min-label-width=\"20pt\"/>";
  const std::string aligned =
      "<style:list-level-properties><style:list-level-label-alignment fo:margin-left=\"36pt\" fo:text-indent=\"-18pt\"/>"
      "</style:list-level-properties>";
  const auto listStyle = [](const std::string& name, const std::string& properties) {
    return "<text:list-style style:name=\"" + name +
           "\"><text:list-level-style-bullet text:level=\"1\" text:bullet-char=\"-\">" + properties +
           "</text:list-level-style-bullet></text:list-style>";
  };
  const std::string styles =
      listStyle("Old", old) + listStyle("Aligned", aligned) + paragraphStyle("Near", "fo:margin-left=\"5pt\"");
  const auto indents = [&](const std::string& listName, const std::string& style) {
    const auto document = parsed(flat(list("text:style-name=\"" + listName + "\"",
                                           item("<text:p text:style-name=\"" + style + "\">a</text:p>" + p("more"))),
                                      styles));
    const auto &first = styleOf(*document, u"a").paragraph, &second = styleOf(*document, u"more").paragraph;
    std::string text = std::to_string(static_cast<int>(first.headIndent)) + "|";
    for (const auto& tab : first.tabs.value()) text += std::to_string(static_cast<int>(tab.position)) + " ";
    EXPECT_EQ(first.firstLineIndent, 0);
    EXPECT_EQ(second.firstLineIndent, second.headIndent);
    EXPECT_FALSE(second.tabs);
    return text;
  };
  EXPECT_EQ(indents("Old", ""), "30|10 30 ");
  EXPECT_EQ(indents("Old", "Near"), "35|15 35 ");  // the older kind of indent adds to the paragraph's
  EXPECT_EQ(indents("Aligned", ""), "36|18 36 ");
  EXPECT_EQ(indents("Aligned", "Near"), "5|5 ");  // the paragraph's own holds
}

TEST(OdtReader, LaysStylesOverOneAnother) {
  const std::string common =
      "<style:default-style style:family=\"paragraph\"><style:paragraph-properties style:tab-stop-distance=\"30pt\"/>"
      "<style:text-properties fo:font-size=\"10pt\" style:font-name=\"Declared\"/></style:default-style>"
      "<style:style style:name=\"Standard\" style:family=\"paragraph\"><style:paragraph-properties "
      "fo:margin-top=\"4pt\"/></style:style>"
      "<style:style style:name=\"Big\" style:family=\"paragraph\" style:parent-style-name=\"Standard\">"
      "<style:text-properties fo:font-size=\"200%\" fo:font-weight=\"bold\"/></style:style>"
      "<style:style style:name=\"P1\" style:family=\"paragraph\"><style:text-properties fo:color=\"#00ff00\"/></style:style>"
      "<style:style style:name=\"Loop\" style:family=\"paragraph\" style:parent-style-name=\"Pool\"><style:text-properties "
      "fo:font-style=\"italic\"/></style:style>"
      "<style:style style:name=\"Pool\" style:family=\"paragraph\" style:parent-style-name=\"Loop\"/>" +
      textStyle("Strong", "fo:font-weight=\"bold\"");
  const std::string automatic =
      "<style:style style:name=\"P1\" style:family=\"paragraph\" style:parent-style-name=\"Big\"><style:text-properties "
      "fo:color=\"#ff0000\"/></style:style>" +
      textStyle("T1", "fo:font-size=\"50%\" fo:font-weight=\"normal\"") +
      textStyle("T2", "fo:font-style=\"italic\" style:font-size-rel=\"-4pt\"", " style:parent-style-name=\"Strong\"");
  const std::string text =
      "<text:p text:style-name=\"P1\">big<text:span text:style-name=\"T1\">half<text:span text:style-name=\"T2\">both"
      "</text:span></text:span></text:p><text:p>standard</text:p><text:p text:style-name=\"Unknown\">unknown</text:p>"
      "<text:p text:style-name=\"Loop\">loop</text:p>";
  const auto document = parsed(part(
      "document",
      "<office:font-face-decls><style:font-face style:name=\"Declared\" svg:font-family=\"'Georgia', serif\"/>"
      "</office:font-face-decls><office:styles>" +
          common + "</office:styles><office:automatic-styles>" + automatic + "</office:automatic-styles>" + body(text)));
  ASSERT_TRUE(document);
  const Style &big = styleOf(*document, u"big"), &half = styleOf(*document, u"half"), &both = styleOf(*document, u"both");
  EXPECT_EQ(big.font->name, "Georgia-Bold");
  EXPECT_EQ(big.font->size, 20);
  EXPECT_EQ(big.foreground->components[0], 1);
  EXPECT_EQ(big.paragraph.spacingBefore, 4);
  EXPECT_EQ(half.font->name, "Georgia");
  EXPECT_EQ(half.font->size, 10);
  EXPECT_EQ(both.font->name, "Georgia-BoldItalic");
  EXPECT_EQ(both.font->size, 6);
  for (const char16_t* plain : {u"standard", u"unknown"}) {
    EXPECT_EQ(styleOf(*document, plain).paragraph.spacingBefore, 4);
    EXPECT_FALSE(styleOf(*document, plain).foreground);
  }
  EXPECT_TRUE(styleOf(*document, u"loop").font->italic());
  EXPECT_EQ(document->defaultTabInterval, 30);
}

TEST(OdtReader, ReadsPropertiesOfText) {
  const struct {
    const char* attributes;
    double (*value)(const Style&);
    double expected;
  } rows[] = {
      {"fo:font-weight=\"600\"", [](const Style& s) { return s.font->bold() ? 1.0 : 0; }, 1},
      {"fo:font-style=\"oblique\"", [](const Style& s) { return s.font->italic() ? 1.0 : 0; }, 1},
      {"fo:font-size=\"0.5in\"", [](const Style& s) { return s.font->size; }, 36},
      {"fo:color=\"#0000ff\"", [](const Style& s) { return s.foreground->components[2]; }, 1},
      {"fo:color=\"#0000ff\" style:use-window-font-color=\"true\"", [](const Style& s) { return s.foreground ? 1.0 : 0; },
       0},
      {"fo:background-color=\"transparent\"", [](const Style& s) { return s.background ? 1.0 : 0; }, 0},
      {"style:text-underline-style=\"solid\"", [](const Style& s) { return double(s.underline); }, 1},
      {"style:text-underline-style=\"solid\" style:text-underline-width=\"bold\"",
       [](const Style& s) { return double(s.underline); }, 2},
      {"style:text-underline-style=\"dash\" style:text-underline-type=\"double\" "
       "style:text-underline-mode=\"skip-white-space\"",
       [](const Style& s) { return double(s.underline); }, 0x8209},
      {"style:text-underline-style=\"none\" style:text-underline-type=\"single\"",
       [](const Style& s) { return double(s.underline); }, 0},
      {"style:text-underline=\"double\"", [](const Style& s) { return double(s.underline); }, 9},
      {"style:text-underline-style=\"wave\" style:text-underline-color=\"#ff0000\"",
       [](const Style& s) { return s.underline + s.underlineColor->components[0]; }, 2},
      {"style:text-line-through-style=\"solid\" style:text-line-through-type=\"double\"",
       [](const Style& s) { return double(s.strikethrough); }, 9},
      {"style:text-crossing-out=\"single-line\"", [](const Style& s) { return double(s.strikethrough); }, 1},
      {"style:text-position=\"super 58%\"", [](const Style& s) { return double(s.superscript); }, 1},
      {"style:text-position=\"-33% 58%\"", [](const Style& s) { return double(s.superscript); }, -1},
      {"style:text-position=\"66% 58%\"", [](const Style& s) { return double(s.superscript); }, 2},
      {"style:text-position=\"-25% 100%\"", [](const Style& s) { return s.baselineOffset; }, -3},
      {"style:text-position=\"0% 100%\"", [](const Style& s) { return s.superscript + s.baselineOffset; }, 0},
      {"fo:letter-spacing=\"-1pt\"", [](const Style& s) { return s.kern; }, -1},
      {"fo:letter-spacing=\"normal\"", [](const Style& s) { return s.kern; }, 0},
      {"style:text-scale=\"150%\"", [](const Style& s) { return s.expansion; }, 0.5},
      {"style:text-outline=\"true\"", [](const Style& s) { return s.strokeWidth; }, 3},
      {"fo:text-shadow=\"#ff0000 2pt 3pt 4pt\"",
       [](const Style& s) {
         return s.shadow->offsetX * 100 + s.shadow->offsetY * 10 + s.shadow->blurRadius + s.shadow->color->components[0];
       },
       175},
      {"fo:text-shadow=\"none\"", [](const Style& s) { return s.shadow ? 1.0 : 0; }, 0},
  };
  for (const auto& row : rows) {
    const auto document =
        parsed(flat("<text:p><text:span text:style-name=\"T\">x</text:span></text:p>", textStyle("T", row.attributes)));
    ASSERT_TRUE(document);
    EXPECT_EQ(row.value(styleAt(*document, 0)), row.expected) << row.attributes;
  }
}

TEST(OdtReader, ReadsPropertiesOfParagraphs) {
  const struct {
    const char* attributes;
    double (*value)(const standin::text::Paragraph&);
    double expected;
  } rows[] = {
      {"fo:text-align=\"start\"", [](const auto& q) { return double(q.alignment); }, double(Alignment::left)},
      {"fo:text-align=\"end\"", [](const auto& q) { return double(q.alignment); }, double(Alignment::right)},
      {"fo:text-align=\"justify\"", [](const auto& q) { return double(q.alignment); }, double(Alignment::justified)},
      {"fo:text-align=\"end\" style:writing-mode=\"rl-tb\"", [](const auto& q) { return double(q.alignment); },
       double(Alignment::natural)},
      {"style:writing-mode=\"rl-tb\"", [](const auto& q) { return double(q.direction); },
       double(WritingDirection::rightToLeft)},
      {"fo:margin=\"10pt\" fo:margin-left=\"30pt\" fo:text-indent=\"-20pt\"",
       [](const auto& q) { return q.headIndent * 1000 + q.firstLineIndent * 10 + q.spacingAfter - q.tailIndent; }, 30120},
      {"fo:line-height=\"150%\"", [](const auto& q) { return q.lineHeightMultiple; }, 1.5},
      {"fo:line-height=\"100%\"", [](const auto& q) { return q.lineHeightMultiple + q.maximumLineHeight; }, 0},
      {"fo:line-height=\"20pt\"", [](const auto& q) { return q.minimumLineHeight + q.maximumLineHeight; }, 40},
      {"style:line-height-at-least=\"18pt\"", [](const auto& q) { return q.minimumLineHeight - q.maximumLineHeight; }, 18},
      {"style:line-spacing=\"3pt\"", [](const auto& q) { return q.lineSpacing; }, 3},
      {"style:tab-stop-distance=\"40pt\"", [](const auto& q) { return q.defaultTabInterval; }, 40},
  };
  for (const auto& row : rows) {
    const auto document = parsed(flat("<text:p text:style-name=\"P\">x</text:p>", paragraphStyle("P", row.attributes)));
    ASSERT_TRUE(document);
    EXPECT_EQ(row.value(styleAt(*document, 0).paragraph), row.expected) << row.attributes;
  }
  const auto heading = parsed(flat("<text:h text:outline-level=\"9\">x</text:h>"));
  EXPECT_EQ(styleAt(*heading, 0).paragraph.headerLevel, 6);
}

TEST(OdtReader, CountsTabStopsFromTheIndentUnlessToldOtherwise) {
  const std::string stops =
      "<style:tab-stops><style:tab-stop style:position=\"20pt\" style:type=\"right\"/><style:tab-stop "
      "style:position=\"60pt\" "
      "style:type=\"char\" style:char=\",\"/></style:tab-stops>";
  const std::string content =
      part("document-content", "<office:automatic-styles>" + paragraphStyle("P", "fo:margin-left=\"36pt\"", stops) +
                                   "</office:automatic-styles>" + body("<text:p text:style-name=\"P\">x</text:p>"));
  const auto setting = [](const std::string& value) {
    return part("document-settings", "<office:settings><config:config-item config:name=\"TabsRelativeToIndent\">" + value +
                                         "</config:config-item></office:settings>");
  };
  for (const auto& [settings, first] :
       {std::pair(setting("false"), 20.0), std::pair(setting("true"), 56.0), std::pair(std::string(), 56.0)}) {
    const auto document = parsed(package({{"content.xml", content}, {"settings.xml", settings}}));
    ASSERT_TRUE(document);
    const auto tabs = styleAt(*document, 0).paragraph.tabs.value();
    EXPECT_EQ(tabs[0].position, first);
    EXPECT_EQ(tabs[0].kind, TabKind::right);
    EXPECT_EQ(tabs[1].kind, TabKind::decimal);
  }
}

TEST(OdtReader, TakesFontsByScript) {
  const auto document = parsed(
      flat("<text:p text:style-name=\"P\">Latin \u6f22\u5b57 12 \u05d0\u05d1 end</text:p>",
           "<style:style style:name=\"P\" style:family=\"paragraph\"><style:text-properties fo:font-family=\"Georgia\" "
           "style:font-family-asian=\"Osaka\" style:font-size-asian=\"9pt\" style:font-family-complex=\"Arial\" "
           "style:font-weight-complex=\"bold\"/></style:style>"));
  ASSERT_TRUE(document);
  EXPECT_EQ(styleOf(*document, u"Latin").font->family, "Georgia");
  EXPECT_EQ(styleOf(*document, u"\u6f22").font->family, "Osaka");
  EXPECT_EQ(styleOf(*document, u"12").font->size, 9);  // digits go with what is before them
  EXPECT_EQ(styleOf(*document, u"\u05d0").font->name, "Arial-BoldMT");
  EXPECT_EQ(styleOf(*document, u"end").font->family, "Georgia");
}

TEST(OdtReader, ReadsThePartsOfPackages) {
  const std::string styles = part(
      "document-styles",
      "<office:styles>" + textStyle("Anchor", "style:text-position=\"super 58%\"") +
          "<text:notes-configuration text:note-class=\"footnote\" text:citation-body-style-name=\"Anchor\"/></office:styles>"
          "<office:automatic-styles>" +
          textStyle("T", "fo:font-weight=\"bold\"") +
          "<style:page-layout style:name=\"L\"><style:page-layout-properties fo:page-width=\"500pt\" "
          "fo:page-height=\"700pt\" "
          "fo:margin=\"50pt\" fo:margin-left=\"60pt\" fo:background-color=\"#ff0000\"/></style:page-layout>"
          "</office:automatic-styles><office:master-styles><style:master-page style:name=\"Standard\" "
          "style:page-layout-name=\"L\"><style:header><text:p>header</text:p></style:header></style:master-page>"
          "</office:master-styles>");
  const std::string meta =
      part("document-meta",
           "<office:meta><dc:title>A &amp; B</dc:title><dc:creator>Second</dc:creator><meta:initial-creator>First"
           "</meta:initial-creator><meta:keyword>one</meta:keyword><meta:keyword>two</meta:keyword><dc:description>why"
           "</dc:description><meta:creation-date>2004-05-06T07:08:09.5</meta:creation-date><meta:user-defined "
           "meta:name=\"company\">Works</meta:user-defined></office:meta>");
  const std::string content = part(
      "document-content",
      body("<text:p><text:span text:style-name=\"T\">plain</text:span> <text:a "
           "xlink:href=\"http://e.org/?a&amp;b\">li<text:span>nk"
           "</text:span></text:a><text:note "
           "text:note-class=\"footnote\"><text:note-citation>9</text:note-citation></text:note>"
           "<draw:frame svg:width=\"1in\" svg:height=\"0.5in\"><draw:image xlink:href=\"./Pictures/none.svg\"/><draw:image "
           "xlink:href=\"Pictures/p.png\"/><draw:image xlink:href=\"Pictures/p.png\"/></draw:frame><draw:frame><draw:image "
           "xlink:href=\"http://e.org/x.png\"/></draw:frame></text:p>"));
  const auto document =
      parsed(package({{"content.xml", content}, {"styles.xml", styles}, {"meta.xml", meta}, {"Pictures/p.png", pixel}}));
  ASSERT_TRUE(document);
  ASSERT_EQ(shown(document), "plain link9\uFFFC");
  EXPECT_FALSE(styleOf(*document, u"plain").font->bold());  // automatic styles of the other part are not the text's
  EXPECT_EQ(styleOf(*document, u"nk").link, u"http://e.org/?a&b");
  EXPECT_EQ(styleOf(*document, u"9").superscript, 1);
  const auto attachment = styleOf(*document, u"\uFFFC").attachment;
  EXPECT_EQ(std::string(attachment->contents.begin(), attachment->contents.end()), pixel);
  EXPECT_EQ(attachment->width, 72);
  EXPECT_EQ(attachment->height, 36);
  EXPECT_EQ(document->page.paperWidth, 500);
  EXPECT_EQ(document->page.leftMargin, 60);
  EXPECT_EQ(document->page.topMargin, 50);
  EXPECT_EQ(document->background->components[0], 1);
  const auto& properties = document->properties;
  EXPECT_EQ(properties.title, u"A & B");
  EXPECT_EQ(properties.author, u"First");
  EXPECT_EQ(properties.editor, u"Second");
  EXPECT_EQ(properties.keywords, u"one, two");
  EXPECT_EQ(properties.comment, u"why");
  EXPECT_EQ(properties.company, u"Works");
  EXPECT_EQ(properties.created->second, 9);
}

TEST(OdtReader, ReadsPicturesInsideOneFile) {
  const std::string data = standin::formats::base64Of({reinterpret_cast<const uint8_t*>(pixel.data()), pixel.size()});
  const auto document = parsed(flat("<text:p>a<draw:frame><draw:image><office:binary-data>" + data.substr(0, 20) + "\n " +
                                    data.substr(20) + "</office:binary-data></draw:image></draw:frame></text:p>"));
  ASSERT_EQ(shown(document), "a\uFFFC");
  EXPECT_EQ(styleAt(*document, 1).attachment->contents.size(), pixel.size());
}

TEST(OdtReader, ReadsTheNamesBeforeTheStandard) {
  std::string old =
      "<office:document-content xmlns:office=\"http://openoffice.org/2000/office\" "
      "xmlns:style=\"http://openoffice.org/2000/style\" "
      "xmlns:text=\"http://openoffice.org/2000/text\" "
      "xmlns:fo=\"http://www.w3.org/1999/XSL/Format\"><office:automatic-styles>"
      "<style:style style:name=\"P\" style:family=\"paragraph\"><style:properties fo:font-weight=\"bold\" "
      "fo:margin-left=\"0.5inch\">"
      "</style:properties></style:style></office:automatic-styles><office:body><text:p "
      "text:style-name=\"P\">a<text:tab-stop/>b"
      "<text:footnote><text:footnote-citation>1</text:footnote-citation><text:footnote-body><text:p>no</text:p>"
      "</text:footnote-body></text:footnote></text:p><text:unordered-list><text:list-item><text:p>c</text:p></"
      "text:list-item>"
      "</text:unordered-list></office:body></office:document-content>";
  const auto document = parsed(package({{"content.xml", old}}));
  ASSERT_EQ(shown(document), "a\tb1\n\t\u2022\tc");
  EXPECT_TRUE(styleAt(*document, 0).font->bold());
  EXPECT_EQ(styleAt(*document, 0).paragraph.headIndent, 36);
}

TEST(OdtReader, IsFoundByContent) {
  using standin::formats::looksLikeOpenDocument;
  using standin::formats::zip::Entry;
  const auto zipped = [](std::vector<Entry> entries) { return standin::formats::zip::write(entries).value(); };
  EXPECT_TRUE(looksLikeOpenDocument(package({{"content.xml", "x"}})));
  EXPECT_TRUE(looksLikeOpenDocument(zipped({{"mimetype", "application/vnd.sun.xml.writer", false}})));
  EXPECT_TRUE(looksLikeOpenDocument(zipped({{"content.xml", "x"}, {"META-INF/manifest.xml", "x"}})));
  EXPECT_TRUE(looksLikeOpenDocument("<?xml version=\"1.0\"?>\n" + flat("")));
  EXPECT_FALSE(looksLikeOpenDocument(zipped({{"mimetype", "application/vnd.oasis.opendocument.spreadsheet", false}})));
  EXPECT_FALSE(looksLikeOpenDocument(zipped({{"word/document.xml", "x"}})));
}

TEST(OdtReader, RefusesWhatIsNoTextDocument) {
  const std::string good = part("document-content", body(p("x")));
  const struct {
    const char* what;
    std::string bytes;
  } rows[] = {
      {"nothing", ""},
      {"other bytes", "hello"},
      {"other XML", "<html><body/></html>"},
      {"a spreadsheet", part("document", "<office:body><office:spreadsheet/></office:body>")},
      {"a package without content", package({{"meta.xml", part("document-meta", "")}})},
      {"content that breaks off", package({{"content.xml", good.substr(0, good.size() - 20)}})},
      {"an encrypted package",
       package({{"content.xml", good}, {"META-INF/manifest.xml", "<manifest:encryption-data manifest:checksum=\"\"/>"}})},
      {"nesting without end", flat([] {
         std::string deep;
         for (int depth = 0; depth < 100'000; ++depth) deep += "<text:section>";
         return deep;
       }())},
      {"entities of its own", "<!DOCTYPE x [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>" + flat(p("&a;"))},
  };
  for (const auto& row : rows) EXPECT_FALSE(parsed(row.bytes)) << row.what;
  const std::string whole = package({{"content.xml", good}});
  ASSERT_TRUE(parsed(whole));
  for (size_t length = 0; length < whole.size(); length += 7) parsed(std::string_view(whole).substr(0, length));
}

TEST(OdtReader, BoundsWhatFewBytesAskFor) {
  std::string cell = p("x");
  for (int depth = 0; depth < 20; ++depth) {
    cell = "<table:table><table:table-row><table:table-cell table:number-columns-repeated=\"99999999\">" + cell +
           "</table:table-cell></table:table-row></table:table>";
  }
  std::string spaces = "<text:p>";
  for (int count = 0; count < 1'000; ++count) spaces += "<text:s text:c=\"999999999\"/>";
  for (const std::string& hostile : {cell, spaces + "</text:p>"}) {
    const auto document = parsed(flat(hostile));
    ASSERT_TRUE(document);
    EXPECT_LT(document->text.size(), 1'100'000u);
  }
  const auto content = [](const std::string& text) {
    return package({{"content.xml", part("document-content", body(text))}});
  };
  EXPECT_FALSE(parsed(content(p(std::string(12 << 20, 'a')))));
  Parts pictures;
  std::string frames;
  for (int number = 0; number < 100; ++number) {
    pictures.push_back({"p" + std::to_string(number), pixel + std::string(1 << 20, '\0')});
    frames += "<draw:frame><draw:image xlink:href=\"p" + std::to_string(number) + "\"/></draw:frame>";
  }
  const std::string pages(3 << 20, 'a');
  pictures.push_back({"content.xml", part("document-content", body(p(frames + pages + "end")))});
  const auto document = parsed(package(pictures));  // pictures that would take too much are left out, the text is not
  ASSERT_TRUE(document);
  EXPECT_TRUE(document->text.ends_with(u"end"));
  EXPECT_LT(document->styles.size(), 60u);
  EXPECT_GT(document->text.size(), pages.size());
}

}  // namespace
