// Office Open XML read: text, styles, lists, links, pictures, properties, other containers, damage.
#include <gtest/gtest.h>

#include "tests/standin/word_xml_support.hpp"

namespace {

using standin::text::Alignment;
using standin::text::Color;
using standin::text::WritingDirection;
using tests::Document;
using tests::docxOf;
using tests::Parts;
using tests::readDocx;
using tests::Style;
using tests::styleAt;
using tests::wordRoot;

std::string text(const std::string& content) { return "<w:r><w:t>" + content + "</w:t></w:r>"; }
std::string field(const char* type) { return std::string("<w:r><w:fldChar w:fldCharType=\"") + type + "\"/></w:r>"; }
std::string instruction(const char* content) {
  return std::string("<w:r><w:instrText xml:space=\"preserve\">") + content + "</w:instrText></w:r>";
}
std::string paragraph(const std::string& content, const std::string& properties = {}) {
  return "<w:p><w:pPr>" + properties + "</w:pPr>" + content + "</w:p>";
}
// The piece for each number from 0, one behind the other; "#" in it is the number.
std::string repeated(const std::string& piece, size_t count) {
  const size_t place = std::min(piece.find('#'), piece.size());
  std::string all;
  for (size_t number = 0; number < count; ++number) {
    all.append(piece, 0, place);
    if (place < piece.size()) all.append(std::to_string(number)).append(piece, place + 1);
  }
  return all;
}
std::string cell(const std::string& content) { return "<w:tc>" + paragraph(text(content)) + "</w:tc>"; }
Color rgb(double red, double green, double blue) {
  return {standin::text::ColorSpace::calibratedRGB, {red, green, blue, 0}, 1};
}

TEST(DocxReader, ReadsWhatBelongsToTheText) {
  const struct {
    std::string paragraph;
    std::u16string text;
  } rows[] = {
      {"<w:r><w:t>a</w:t><w:tab/><w:t>b</w:t><w:br/><w:t>c</w:t><w:br w:type=\"page\"/><w:cr/><w:t>d</w:t></w:r>",
       u"a\tb\u2028c\f\u2028d"},
      {"<w:r><w:noBreakHyphen/><w:softHyphen/><w:sym w:font=\"Symbol\" w:char=\"F061\"/></w:r>", u"\u2011\u00AD\uF061"},
      {text(" trimmed ") + "<w:r><w:t xml:space=\"preserve\"> kept </w:t></w:r>" + text("two\nlines"),
       u"trimmed kept two lines"},
      {text("&lt;&#x1F600;&gt;"), u"<\U0001F600>"},
      {"<w:ins>" + text("in") + "</w:ins><w:del><w:r><w:delText>out</w:delText></w:r></w:del><w:moveFrom>" + text("from") +
           "</w:moveFrom><w:moveTo>" + text("to") + "</w:moveTo>",
       u"into"},
      {"<w:sdt><w:sdtPr><w:rPr><w:vanish/></w:rPr></w:sdtPr><w:sdtContent>" + text("a") +
           "</w:sdtContent></w:sdt><w:smartTag><w:customXml>" + text("b") + "</w:customXml></w:smartTag>",
       u"ab"},
      {"<w:r><w:rPr><w:vanish/></w:rPr><w:t>hidden</w:t></w:r><w:r><w:rPr><w:webHidden/></w:rPr><w:t>shown</w:t></w:r>",
       u"shown"},
      {"<w:r><w:ruby><w:rt>" + text("above") + "</w:rt><w:rubyBase>" + text("base") + "</w:rubyBase></w:ruby></w:r>",
       u"base"},
      {text("x") + "<m:oMath><m:r><w:t>formula</w:t></m:r></m:oMath>", u"x"},
      {"<w:r><mc:AlternateContent><mc:Choice><w:t>new</w:t></mc:Choice><mc:Fallback><w:t>old</w:t></mc:Fallback>"
       "</mc:AlternateContent></w:r>",
       u"new"},
      {"<w:r><mc:AlternateContent><mc:Choice><w:txbxContent><w:p>" + text("box") +
           "</w:p></w:txbxContent></mc:Choice><mc:Fallback><w:t>old</w:t></mc:Fallback></mc:AlternateContent></w:r>",
       u"old"},
      {field("begin") + instruction(" IF ") + field("begin") + instruction("PAGE") + field("separate") + text("7") +
           field("end") + instruction(" = 7 ") + field("separate") + text("yes") + field("end") + text("!"),
       u"yes!"},
      {"<w:fldSimple w:instr=\"TITLE\">" + text("T") + "</w:fldSimple>" + field("end") + text("a"), u"Ta"},
      {field("begin") + "<w:r><w:fldChar w:fldCharType=\"x\"><w:ffData><w:name w:val=\"f\"/></w:ffData></w:fldChar></w:r>" +
           instruction("FORMTEXT") + field("separate") + text("typed") + field("end"),
       u"typed"},
  };
  for (const auto& row : rows) EXPECT_EQ(readDocx(paragraph(row.paragraph)).text, row.text) << row.paragraph;
}

TEST(DocxReader, ReadsParagraphsAndTables) {
  const std::string deleted = "<w:rPr><w:del/></w:rPr>", hidden = "<w:rPr><w:vanish/></w:rPr>";
  const struct {
    std::string body;
    std::u16string text;
  } rows[] = {
      {"", u""},
      {paragraph(""), u""},
      {paragraph(text("a")) + paragraph("") + paragraph(text("b")), u"a\n\nb"},
      {"<w:tbl><w:tr>" + cell("1") + "<w:tc>" + paragraph("") + "</w:tc></w:tr><w:tr>" + cell("3") + cell("4") +
           "</w:tr></w:tbl>" + paragraph(text("after")),
       u"1\n\n3\n4\nafter"},
      {"<w:tbl><w:tr><w:tc><w:tbl><w:tr>" + cell("in") + "</w:tr></w:tbl>" + paragraph("") + "</w:tc></w:tr></w:tbl>",
       u"in\n"},
      {paragraph(text("joins"), deleted) + paragraph(text("next")), u"joinsnext"},
      {paragraph("", hidden) + paragraph(text("a"), hidden) + paragraph(text("b")), u"a\nb"},
      {paragraph(text("a"), "<w:pageBreakBefore/>") + paragraph(text("b"), "<w:pageBreakBefore/>"), u"a\n\fb"},
      {paragraph(field("begin") + instruction("TOC") + field("separate") + text("one")) +
           paragraph(text("two") + field("end")),
       u"one\ntwo"},
  };
  for (const auto& row : rows) EXPECT_EQ(readDocx(row.body).text, row.text) << row.body;
}

// A run of one character with these properties, in a document with these styles.
Style runStyle(const std::string& properties, const std::string& paragraphProperties = {}, const Parts& parts = {}) {
  return styleAt(readDocx(paragraph("<w:r><w:rPr>" + properties + "</w:rPr><w:t>x</w:t></w:r>", paragraphProperties), parts),
                 0);
}

TEST(DocxReader, ReadsCharacterFormatting) {
  const struct {
    const char* properties;
    bool (*holds)(const Style&);
  } rows[] = {
      {"", [](const Style& s) { return s.font->family == "Times New Roman" && s.font->size == 10 && s.underline == 0; }},
      {"<w:rFonts w:ascii=\"Georgia\" w:hAnsi=\"Arial\"/>", [](const Style& s) { return s.font->family == "Georgia"; }},
      {"<w:rFonts w:hAnsi=\"Verdana;Arial\"/>", [](const Style& s) { return s.font->family == "Verdana"; }},
      {"<w:b/><w:i w:val=\"on\"/><w:sz w:val=\"23\"/>",
       [](const Style& s) { return s.font->bold() && s.font->italic() && s.font->size == 11.5; }},
      {"<w:b w:val=\"0\"/><w:i w:val=\"false\"/>", [](const Style& s) { return !s.font->bold() && !s.font->italic(); }},
      {"<w:sz w:val=\"9pt\"/>", [](const Style& s) { return s.font->size == 9; }},
      {"<w:u w:val=\"dashDotHeavy\" w:color=\"FF0000\"/>",
       [](const Style& s) { return s.underline == 0x302 && s.underlineColor == rgb(1, 0, 0); }},
      {"<w:u w:val=\"none\"/>", [](const Style& s) { return s.underline == 0; }},
      {"<w:strike/><w:dstrike w:val=\"0\"/>", [](const Style& s) { return s.strikethrough == 1; }},
      {"<w:strike w:val=\"0\"/><w:dstrike/>", [](const Style& s) { return s.strikethrough == 9; }},
      {"<w:color w:val=\"0000ff\"/><w:shd w:val=\"clear\" w:fill=\"00FF00\"/>",
       [](const Style& s) { return s.foreground == rgb(0, 0, 1) && s.background == rgb(0, 1, 0); }},
      {"<w:color w:val=\"auto\"/><w:shd w:val=\"solid\" w:color=\"FF0000\" w:fill=\"auto\"/>",
       [](const Style& s) { return !s.foreground && s.background == rgb(1, 0, 0); }},
      {"<w:highlight w:val=\"yellow\"/><w:shd w:fill=\"0000FF\"/>",
       [](const Style& s) { return s.background == rgb(1, 1, 0); }},
      {"<w:highlight w:val=\"none\"/><w:shd w:fill=\"0000FF\"/>",
       [](const Style& s) { return s.background == rgb(0, 0, 1); }},
      {"<w:vertAlign w:val=\"subscript\"/><w:position w:val=\"-7\"/>",
       [](const Style& s) { return s.superscript == -1 && s.baselineOffset == -3.5; }},
      {"<w:spacing w:val=\"30\"/><w:w w:val=\"150\"/>", [](const Style& s) { return s.kern == 1.5 && s.expansion == 0.5; }},
      {"<w:outline/><w:shadow/>", [](const Style& s) { return s.strokeWidth > 0 && s.shadow.has_value(); }},
      {"<w:rPrChange><w:rPr><w:b/></w:rPr></w:rPrChange>", [](const Style& s) { return !s.font->bold(); }},
      {"<w:sz w:val=\"1e99\"/><w:w w:val=\"nan\"/><w:spacing w:val=\"x\"/>",
       [](const Style& s) { return s.font->size > 0 && s.expansion == 0 && s.kern == 0; }},
  };
  for (const auto& row : rows) EXPECT_TRUE(row.holds(runStyle(row.properties))) << row.properties;
}

TEST(DocxReader, ReadsParagraphFormatting) {
  using standin::text::Paragraph;
  const struct {
    const char* properties;
    bool (*holds)(const Paragraph&);
  } rows[] = {
      {"<w:jc w:val=\"both\"/>", [](const Paragraph& p) { return p.alignment == Alignment::justified; }},
      {"<w:jc w:val=\"end\"/>", [](const Paragraph& p) { return p.alignment == Alignment::right; }},
      {"<w:bidi/><w:jc w:val=\"left\"/>",
       [](const Paragraph& p) { return p.alignment == Alignment::right && p.direction == WritingDirection::rightToLeft; }},
      {"<w:ind w:left=\"720\" w:right=\"200\" w:hanging=\"360\" w:firstLine=\"100\"/>",
       [](const Paragraph& p) { return p.headIndent == 36 && p.firstLineIndent == 18 && p.tailIndent == -10; }},
      {"<w:ind w:start=\"1in\" w:firstLine=\"12pt\"/>",
       [](const Paragraph& p) { return p.headIndent == 72 && p.firstLineIndent == 84; }},
      {"<w:spacing w:before=\"120\" w:after=\"60\" w:line=\"360\"/>",
       [](const Paragraph& p) { return p.spacingBefore == 6 && p.spacingAfter == 3 && p.lineHeightMultiple == 1.5; }},
      {"<w:spacing w:line=\"240\" w:lineRule=\"auto\" w:beforeAutospacing=\"1\" w:before=\"5\"/>",
       [](const Paragraph& p) { return p.lineHeightMultiple == 0 && p.spacingBefore == 14; }},
      {"<w:spacing w:line=\"300\" w:lineRule=\"exact\"/>",
       [](const Paragraph& p) { return p.minimumLineHeight == 15 && p.maximumLineHeight == 15; }},
      {"<w:spacing w:line=\"300\" w:lineRule=\"atLeast\"/>",
       [](const Paragraph& p) { return p.minimumLineHeight == 15 && p.maximumLineHeight == 0; }},
      {"<w:outlineLvl w:val=\"1\"/>", [](const Paragraph& p) { return p.headerLevel == 2; }},
      {"<w:outlineLvl w:val=\"9\"/>", [](const Paragraph& p) { return p.headerLevel == 0; }},
      {"<w:tabs><w:tab w:val=\"right\" w:pos=\"2000\"/><w:tab w:val=\"bar\" w:pos=\"1\"/><w:tab w:val=\"left\" "
       "w:pos=\"400\"/></w:tabs>",
       [](const Paragraph& p) {
         return p.tabs->size() == 2 && p.tabs->front().position == 20 && p.tabs->back().position == 100;
       }},
      {"<w:pBdr><w:left w:val=\"single\"/></w:pBdr><w:pPrChange><w:pPr><w:jc w:val=\"both\"/></w:pPr></w:pPrChange>",
       [](const Paragraph& p) { return p == Paragraph(); }},
  };
  for (const auto& row : rows) {
    EXPECT_TRUE(row.holds(styleAt(readDocx(paragraph(text("x"), row.properties)), 0).paragraph)) << row.properties;
  }
}

const Parts styleParts = {
    {"word/styles.xml",
     wordRoot("styles",
              "<w:docDefaults><w:rPrDefault><w:rPr><w:rFonts w:asciiTheme=\"minorHAnsi\"/><w:sz "
              "w:val=\"22\"/></w:rPr></w:rPrDefault>"
              "<w:pPrDefault><w:pPr><w:spacing w:after=\"200\"/></w:pPr></w:pPrDefault></w:docDefaults>"
              "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"><w:name w:val=\"Normal\"/></w:style>"
              "<w:style w:type=\"paragraph\" w:styleId=\"T\"><w:name w:val=\"Heading 2\"/><w:basedOn w:val=\"Normal\"/>"
              "<w:pPr><w:tabs><w:tab w:val=\"left\" w:pos=\"400\"/><w:tab w:val=\"left\" w:pos=\"800\"/></w:tabs></w:pPr>"
              "<w:rPr><w:b/><w:color w:themeColor=\"accent1\"/></w:rPr></w:style>"
              "<w:style w:type=\"paragraph\" w:styleId=\"T2\"><w:basedOn w:val=\"T\"/><w:pPr><w:tabs>"
              "<w:tab w:val=\"clear\" w:pos=\"400\"/><w:tab w:val=\"left\" w:pos=\"600\"/></w:tabs></w:pPr>"
              "<w:rPr><w:i/></w:rPr></w:style>"
              "<w:style w:type=\"character\" w:styleId=\"Strong\"><w:rPr><w:b/><w:u w:val=\"single\"/></w:rPr></w:style>"
              "<w:style w:type=\"paragraph\" w:styleId=\"A\"><w:basedOn w:val=\"B\"/><w:rPr><w:i/></w:rPr></w:style>"
              "<w:style w:type=\"paragraph\" w:styleId=\"B\"><w:basedOn w:val=\"A\"/><w:rPr><w:b/></w:rPr></w:style>"
              "<w:style w:type=\"table\" w:styleId=\"Grid\"><w:rPr><w:color w:val=\"FF0000\"/></w:rPr>"
              "<w:tblStylePr w:type=\"firstRow\"><w:rPr><w:b/></w:rPr></w:tblStylePr></w:style>")},
    {"word/theme.xml",
     "<a:theme xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\"><a:clrScheme><a:dk1><a:sysClr "
     "val=\"windowText\" "
     "lastClr=\"000000\"/></a:dk1><a:accent1><a:srgbClr "
     "val=\"0000FF\"/></a:accent1></a:clrScheme><a:fontScheme><a:majorFont>"
     "<a:latin typeface=\"Georgia\"/></a:majorFont><a:minorFont><a:latin "
     "typeface=\"Verdana\"/></a:minorFont></a:fontScheme></a:theme>"}};

TEST(DocxReader, StylesInheritFromDefaultsParentsAndTheme) {
  const auto styled = [](const char* paragraphStyle, const char* run = "") {
    return runStyle(run, std::string("<w:pStyle w:val=\"") + paragraphStyle + "\"/>", styleParts);
  };
  const Style plain = styled("unknown"), heading = styled("T"), second = styled("T2");
  EXPECT_EQ(plain.font->family, "Verdana");
  EXPECT_EQ(plain.font->size, 11);
  EXPECT_EQ(plain.paragraph.spacingAfter, 10);
  EXPECT_TRUE(heading.font->bold());
  EXPECT_EQ(heading.foreground, rgb(0, 0, 1));
  EXPECT_EQ(heading.paragraph.headerLevel, 2);
  EXPECT_TRUE(second.font->bold() && second.font->italic());
  ASSERT_EQ(second.paragraph.tabs->size(), 2u);
  EXPECT_EQ(second.paragraph.tabs->front().position, 30);
  EXPECT_EQ(second.paragraph.tabs->back().position, 40);
  const Style strong = styled("Normal", "<w:rStyle w:val=\"Strong\"/>"), both = styled("T", "<w:rStyle w:val=\"Strong\"/>");
  EXPECT_TRUE(strong.font->bold());
  EXPECT_FALSE(both.font->bold()) << "bold in bold stands out by being plain";
  EXPECT_EQ(both.underline, 1);
  EXPECT_TRUE(styled("T", "<w:rStyle w:val=\"Strong\"/><w:b/>").font->bold());
  const Style circular = styled("A");
  EXPECT_TRUE(circular.font->bold() && circular.font->italic());
  EXPECT_EQ(styled("T", "<w:rFonts w:asciiTheme=\"majorAscii\"/>").font->family, "Georgia");
  const Style tinted = styled("T", "<w:color w:val=\"auto\" w:themeColor=\"text1\" w:themeTint=\"80\"/>");
  EXPECT_NEAR(tinted.foreground->components[0], 0.498, 0.001);
  const Document table = readDocx(
      "<w:tbl><w:tblPr><w:tblStyle w:val=\"Grid\"/></w:tblPr><w:tr>" + cell("x") + "</w:tr></w:tbl>" + paragraph(text("y")),
      styleParts);
  EXPECT_EQ(styleAt(table, 0).foreground, rgb(1, 0, 0));
  EXPECT_FALSE(styleAt(table, 2).foreground);
}

TEST(DocxReader, FontsFollowTheScriptOfTheCharacters) {
  const Document document = readDocx(paragraph(
      "<w:r><w:rPr><w:rFonts w:ascii=\"Georgia\" w:eastAsia=\"SimSun\" w:cs=\"David\"/><w:b/><w:sz w:val=\"20\"/><w:szCs "
      "w:val=\"40\"/></w:rPr><w:t>ab \u4E2D\u6587, c \u05D0\u05D1</w:t></w:r>"
      "<w:r><w:rPr><w:rFonts w:ascii=\"Georgia\" w:cs=\"David\"/><w:rtl/></w:rPr><w:t>x</w:t></w:r>"));
  ASSERT_EQ(document.text, u"ab \u4E2D\u6587, c \u05D0\u05D1x");
  EXPECT_EQ(styleAt(document, 0).font->family, "Georgia");
  EXPECT_EQ(styleAt(document, 3).font->family, "SimSun");
  EXPECT_EQ(styleAt(document, 7).font->family, "Georgia");
  EXPECT_EQ(styleAt(document, 9).font->family, "David");
  EXPECT_EQ(styleAt(document, 9).font->size, 20);
  EXPECT_FALSE(styleAt(document, 9).font->bold());
  EXPECT_EQ(styleAt(document, 11).font->family, "David");
}

TEST(DocxReader, TheMarkOfAParagraphLooksLikeItsTextUnlessItSaysOtherwise) {
  const Document document =
      readDocx(paragraph("<w:r><w:rPr><w:b/></w:rPr><w:t>a</w:t></w:r>") + paragraph(text("b"), "<w:rPr><w:i/></w:rPr>") +
               paragraph("", "<w:rPr><w:b/></w:rPr>") + paragraph(""));
  ASSERT_EQ(document.text, u"a\nb\n\n");
  EXPECT_TRUE(styleAt(document, 1).font->bold());
  EXPECT_FALSE(styleAt(document, 2).font->italic());
  EXPECT_TRUE(styleAt(document, 3).font->italic());
  EXPECT_TRUE(styleAt(document, 4).font->bold());
}

std::string level(int index, const char* format, const char* pattern, const char* more = "") {
  return "<w:lvl w:ilvl=\"" + std::to_string(index) + "\"><w:start w:val=\"1\"/><w:numFmt w:val=\"" + format + "\"/>" +
         more + "<w:lvlText w:val=\"" + pattern + "\"/><w:pPr><w:ind w:left=\"" + std::to_string(720 * (index + 1)) +
         "\" w:hanging=\"360\"/></w:pPr></w:lvl>";
}
std::string list(int id, int abstract, const char* more = "") {
  return "<w:num w:numId=\"" + std::to_string(id) + "\"><w:abstractNumId w:val=\"" + std::to_string(abstract) + "\"/>" +
         more + "</w:num>";
}

const Parts listParts = {
    {"word/numbering.xml",
     wordRoot("numbering",
              "<w:abstractNum w:abstractNumId=\"0\">" + level(0, "decimal", "%1.") + level(1, "lowerLetter", "%2)") +
                  level(2, "upperRoman", "%1-%3") + "</w:abstractNum><w:abstractNum w:abstractNumId=\"1\">" +
                  level(0, "bullet", "\uF0B7") + "</w:abstractNum><w:abstractNum w:abstractNumId=\"2\">" +
                  level(0, "upperRoman", "%1", "<w:pStyle w:val=\"H1\"/>") +
                  level(1, "decimal", "%1.%2", "<w:pStyle w:val=\"H2\"/><w:isLgl/>") +
                  "</w:abstractNum><w:abstractNum w:abstractNumId=\"3\"><w:styleLink w:val=\"L\"/>" +
                  level(0, "decimalZero", "(%1)") +
                  "</w:abstractNum><w:abstractNum w:abstractNumId=\"4\"><w:numStyleLink w:val=\"L\"/></w:abstractNum>" +
                  list(1, 0) + list(2, 0, "<w:lvlOverride w:ilvl=\"0\"><w:startOverride w:val=\"5\"/></w:lvlOverride>") +
                  list(3, 1) + list(4, 2) + list(5, 4) +
                  list(6, 0, ("<w:lvlOverride w:ilvl=\"0\">" + level(0, "ordinal", "%1") + "</w:lvlOverride>").c_str()))},
    {"word/styles.xml",
     wordRoot(
         "styles",
         "<w:style w:type=\"paragraph\" w:styleId=\"H1\"><w:pPr><w:numPr><w:numId w:val=\"4\"/></w:numPr></w:pPr></w:style>"
         "<w:style w:type=\"paragraph\" w:styleId=\"H2\"><w:pPr><w:numPr><w:ilvl w:val=\"1\"/><w:numId "
         "w:val=\"4\"/></w:numPr>"
         "<w:ind w:left=\"100\"/></w:pPr></w:style>")}};

std::string item(int listNumber, int index, const std::string& content = "x", const std::string& more = {}) {
  return paragraph(text(content), "<w:numPr><w:ilvl w:val=\"" + std::to_string(index) + "\"/><w:numId w:val=\"" +
                                      std::to_string(listNumber) + "\"/></w:numPr>" + more);
}

TEST(DocxReader, ItemsHaveTheMarkersOfTheirLists) {
  const std::string heading = "<w:pStyle w:val=\"H1\"/>", below = "<w:pStyle w:val=\"H2\"/>";
  const struct {
    std::string body;
    std::u16string text;
  } rows[] = {
      {item(1, 0) + item(1, 1) + item(1, 1) + item(1, 0) + item(1, 1) + item(1, 2),
       u"\t1.\tx\n\ta)\tx\n\tb)\tx\n\t2.\tx\n\ta)\tx\n\t2-I\tx"},
      {item(1, 0) + item(2, 0) + item(2, 0) + item(1, 0), u"\t1.\tx\n\t5.\tx\n\t6.\tx\n\t7.\tx"},
      {item(3, 0) + item(5, 0) + item(6, 0), u"\t\u2022\tx\n\t(01)\tx\n\t1st\tx"},
      {paragraph(text("a"), heading) + paragraph(text("b"), below) + paragraph(text("c"), heading) +
           paragraph(text("d"), below),
       u"\tI\ta\n\t1.1\tb\n\tII\tc\n\t2.1\td"},
      {item(0, 0) + item(99, 0) + paragraph(text("x"), heading + "<w:numPr><w:numId w:val=\"0\"/></w:numPr>"), u"x\nx\nx"},
      {item(1, 0, "", "<w:rPr><w:del/></w:rPr>") + item(1, 0, ""), u"\t1.\t"},
      {item(1, 77) + item(1, -3), u"x\n\t1.\tx"},
  };
  for (const auto& row : rows) EXPECT_EQ(readDocx(row.body, listParts).text, row.text) << row.body;
}

TEST(DocxReader, ItemsAreIndentedAsTheirLevelSaysAndLineUp) {
  const Document document =
      readDocx(item(1, 1) + item(1, 0, "x", "<w:ind w:left=\"2000\"/>") + paragraph(text("x"), "<w:pStyle w:val=\"H2\"/>"),
               listParts);
  const auto first = styleAt(document, 0).paragraph;
  EXPECT_EQ(first.headIndent, 72);
  ASSERT_EQ(first.tabs->size(), 2u);
  EXPECT_EQ(first.tabs->front().position, 54);
  EXPECT_EQ(first.tabs->back().position, 72);
  EXPECT_EQ(first.firstLineIndent, 0) << "the tab before the marker leads to its place";
  EXPECT_EQ(styleAt(document, 6).paragraph.headIndent, 100);
  EXPECT_EQ(styleAt(document, 12).paragraph.headIndent, 5) << "the style's own indents come after its list's";
}

TEST(DocxReader, LinksComeFromRelationshipsPlacesAndFields) {
  const struct {
    std::string content;
    std::u16string link;
  } rows[] = {
      {"<w:hyperlink r:id=\"link\">" + text("x") + "</w:hyperlink>", u"http://a.org/?x=1&y"},
      {"<w:hyperlink r:id=\"link\" w:anchor=\"p\">" + text("x") + "</w:hyperlink>", u"http://a.org/?x=1&y#p"},
      {"<w:hyperlink w:anchor=\"place\">" + text("x") + "</w:hyperlink>", u"#place"},
      {field("begin") + instruction("HYPERLINK \"http://b.org/") + instruction("c\" ") + field("separate") + text("x") +
           field("end"),
       u"http://b.org/c"},
      {"<w:fldSimple w:instr=\"HYPERLINK &quot;m&quot;\">" + text("x") + "</w:fldSimple>", u"m"},
      {field("begin") + instruction("PAGE") + field("separate") + text("x") + field("end"), u""},
  };
  for (const auto& row : rows) {
    const Document document = readDocx(paragraph(row.content + text("y")));
    EXPECT_EQ(document.text, u"xy");
    EXPECT_EQ(styleAt(document, 0).link, row.link) << row.content;
    EXPECT_EQ(styleAt(document, 1).link, u"") << row.content;
  }
}

TEST(DocxReader, PicturesAreAttachmentsOfTheirSizeInTheText) {
  const std::string drawing =
      "<w:r><w:drawing><wp:inline><wp:extent cx=\"254000\" cy=\"127000\"/><a:graphic><a:blip "
      "r:embed=\"picture\"/></a:graphic>"
      "</wp:inline></w:drawing></w:r>";
  const std::string shape =
      "<w:r><w:pict><v:shape style=\"position:absolute;width:30pt; height:1in\"><v:imagedata "
      "r:id=\"picture\"/></v:shape></w:pict></w:r>";
  const std::string metafile =
      "<w:r><w:pict><v:imagedata r:id=\"metafile\"/></w:pict><w:drawing><a:blip r:embed=\"none\"/></w:drawing></w:r>";
  const Document document = readDocx(paragraph(text("a") + drawing + shape + metafile + text("b")),
                                     {{"word/media/p.png", tests::pixel}, {"word/media/p.wmf", "metafile"}});
  ASSERT_EQ(document.text, u"a\uFFFC\uFFFCb");
  const auto &first = styleAt(document, 1).attachment, &second = styleAt(document, 2).attachment;
  EXPECT_EQ(std::string(first->contents.begin(), first->contents.end()), tests::pixel);
  EXPECT_EQ(first->width, 20);
  EXPECT_EQ(first->height, 10);
  EXPECT_EQ(second->width, 30);
  EXPECT_EQ(second->height, 72);
  EXPECT_EQ(first->contents.data(), second->contents.data()) << "a picture shown often has its bytes once";
  EXPECT_EQ(styleAt(document, 3).attachment, nullptr);
}

// Otherwise each of thousands of bullets would be compared with all before it.
TEST(DocxReader, APictureShownOftenInOneSizeIsOneAttachment) {
  const auto drawing = [](int width) {
    return "<w:r><w:drawing><wp:extent cx=\"" + std::to_string(width) +
           "\" cy=\"127000\"/><a:blip r:embed=\"picture\"/>"
           "</w:drawing></w:r>";
  };
  std::string paragraphs;
  for (int count = 0; count < 50; ++count) paragraphs += paragraph(drawing(254000) + text("a"));
  const Document document = readDocx(paragraphs + paragraph(drawing(127000)), {{"word/media/p.png", tests::pixel}});
  ASSERT_EQ(document.text.size(), 50 * 3 + 1u);
  const auto& first = styleAt(document, 0).attachment;
  ASSERT_NE(first, nullptr);
  for (size_t at = 3; at < 150; at += 3) EXPECT_EQ(styleAt(document, at).attachment, first) << at;
  EXPECT_EQ(styleAt(document, 150).attachment->width, 10);
}

TEST(DocxReader, ReadsPropertiesSettingsAndThePage) {
  const std::string core =
      "<cp:coreProperties xmlns:cp=\"http://schemas.openxmlformats.org/package/2006/metadata/core-properties\" "
      "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" "
      "xmlns:dcterms=\"http://purl.org/dc/terms/\"><dc:title>T\u00E9</dc:title>"
      "<dc:creator>A</dc:creator><cp:lastModifiedBy>E</cp:lastModifiedBy><dcterms:created>2014-03-05T06:07:08Z</"
      "dcterms:created>"
      "</cp:coreProperties>";
  const std::string office =
      "<Properties "
      "xmlns=\"http://schemas.openxmlformats.org/officeDocument/2006/extended-properties\"><Company>C</Company></"
      "Properties>";
  const std::string settings =
      wordRoot("settings",
               "<w:view w:val=\"print\"/><w:zoom w:percent=\"150\"/><w:displayBackgroundShape/><w:documentProtection "
               "w:edit=\"readOnly\" w:enforcement=\"1\"/><w:defaultTabStop w:val=\"500\"/>");
  const std::string section =
      "<w:sectPr><w:pgSz w:w=\"11906\" w:h=\"16838\"/><w:pgMar w:left=\"1440\" w:top=\"-720\"/></w:sectPr>";
  const Document document =
      readDocx({}, {{"_rels/.rels", tests::relationships({{"1", "officeDocument", "/word/document.xml"},
                                                          {"2", "core-properties", "docProps/core.xml"},
                                                          {"3", "extendedProperties", "docProps/app.xml"}})},
                    {"docProps/core.xml", core},
                    {"docProps/app.xml", office},
                    {"word/settings.xml", settings},
                    {"word/document.xml",
                     wordRoot("document", "<w:background w:color=\"FF0000\"/><w:body>" + paragraph(text("x"), section) +
                                              "<w:sectPr><w:pgSz w:w=\"1\" w:h=\"1\"/></w:sectPr></w:body>")}});
  EXPECT_EQ(document.properties.title, u"T\u00E9");
  EXPECT_EQ(document.properties.author, u"A");
  EXPECT_EQ(document.properties.editor, u"E");
  EXPECT_EQ(document.properties.company, u"C");
  EXPECT_EQ(document.properties.created->second, 8);
  EXPECT_NEAR(*document.page.paperWidth, 595.3, 1e-9);
  EXPECT_EQ(document.page.leftMargin, 72);
  EXPECT_EQ(document.page.topMargin, 36);
  EXPECT_FALSE(document.page.rightMargin);
  EXPECT_EQ(document.defaultTabInterval, 25);
  EXPECT_EQ(document.viewMode, 1);
  EXPECT_EQ(document.viewZoom, 150);
  EXPECT_EQ(document.readOnly, 1);
  EXPECT_EQ(document.background, rgb(1, 0, 0));
}

// Every name of the package and every namespace may be another.
TEST(DocxReader, FindsThePartsOfOtherPrograms) {
  const std::string strict =
      "<d:document xmlns:d=\"http://purl.oclc.org/ooxml/wordprocessingml/main\"><d:body><d:p><d:r><d:rPr><d:sz "
      "d:val=\"20pt\"/></d:rPr>"
      "<d:t>strict</d:t></d:r></d:p></d:body></d:document>";
  const Document moved =
      readDocx({}, {{"_rels/.rels", tests::relationships({{"9", "officeDocument", "other/./x/../main.xml"}})},
                    {"other/main.xml", strict},
                    {"word/document.xml", "unused"}});
  EXPECT_EQ(moved.text, u"strict");
  EXPECT_EQ(styleAt(moved, 0).font->size, 20);
  EXPECT_EQ(readDocx({}, {{"_rels\\.rels", tests::relationships({{"1", "officeDocument", "word/Document.xml"}})},
                          {"_rels/.rels", ""},
                          {"word/document.xml", ""},
                          {"WORD\\document.XML", strict}})
                .text,
            u"strict");
  const std::string flat =
      "<pkg:package xmlns:pkg=\"http://schemas.microsoft.com/office/2006/xmlPackage\"><pkg:part "
      "pkg:name=\"/word/main.xml\"><pkg:xmlData>" +
      wordRoot("document", "<w:body>" + paragraph("<w:r><w:t>flat</w:t><w:pict><v:imagedata r:id=\"p\"/></w:pict></w:r>") +
                               "</w:body>") +
      "</pkg:xmlData></pkg:part><pkg:part pkg:name=\"/_rels/.rels\"><pkg:xmlData>" +
      tests::relationships({{"1", "officeDocument", "word/main.xml"}}) +
      "</pkg:xmlData></pkg:part><pkg:part pkg:name=\"/word/_rels/main.xml.rels\"><pkg:xmlData>" +
      tests::relationships({{"p", "image", "p.png"}}) +
      "</pkg:xmlData></pkg:part><pkg:part "
      "pkg:name=\"/word/p.png\"><pkg:binaryData>iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAA\n"
      "DElEQVQI12P4z8AAAAMBAQAY3Y2wAAAAAElFTkSuQmCC</pkg:binaryData></pkg:part></pkg:package>";
  EXPECT_EQ(standin::formats::docx::read(tests::bytesOf(flat))->text, u"flat\uFFFC");
  EXPECT_EQ(standin::formats::wordml::read(tests::bytesOf(flat))->text, u"flat\uFFFC");
}

TEST(DocxReader, RefusesWhatIsNoDocumentAndBoundsWhatIsHostile) {
  using standin::formats::docx::read;
  const std::string good = docxOf(paragraph(text("x")));
  EXPECT_FALSE(read({}));
  EXPECT_FALSE(read(tests::bytesOf("PK\3\4 and no more")));
  EXPECT_FALSE(read(tests::bytesOf("<a/>")));
  EXPECT_FALSE(read(tests::bytesOf(docxOf("", {{"word/document.xml", "<w:document>"}}))));
  EXPECT_FALSE(read(tests::bytesOf(docxOf(paragraph("&entity;")))));
  std::string deep;
  for (int depth = 0; depth < 100'000; ++depth) deep += "<w:tbl>";
  EXPECT_FALSE(read(tests::bytesOf(docxOf(deep))));
  std::string fields;
  for (int count = 0; count < 100'000; ++count) fields += field("begin");
  EXPECT_TRUE(read(tests::bytesOf(docxOf(paragraph(fields)))));
  const std::string plain = text("a");
  const struct {
    const char* what;
    std::string document;
    bool isRead;
  } rows[] = {
      {"text that comes to more than the memory it may take", docxOf(paragraph(text(std::string(12 << 20, 'a')))), false},
      {"links without number", docxOf(repeated("<w:hyperlink w:anchor=\"x#\">" + plain + "</w:hyperlink>", 300'000)), true},
      {"nested links of 1 MB",
       docxOf(repeated("<w:hyperlink r:id=\"link\">", 1'900) + plain + repeated("</w:hyperlink>", 1'900),
              {{"word/_rels/document.xml.rels", tests::relationships({{"link", "hyperlink", std::string(1 << 20, 'a')}})}}),
       true},
      {"an instruction of 1 MB in each of 200 fields",
       docxOf(repeated(field("begin") + instruction(std::string(200'000, 'a').c_str()), 200) + repeated(field("end"), 200) +
              plain),
       true},
      {"fonts without number, with long names",
       docxOf(
           repeated("<w:r><w:rPr><w:rFonts w:ascii=\"#" + std::string(900, 'F') + "\"/></w:rPr><w:t>a</w:t></w:r>", 20'000)),
       true},
      {"lists without number",
       docxOf(paragraph(plain),
              {{"word/numbering.xml", wordRoot("numbering", repeated("<w:abstractNum w:abstractNumId=\"#\"><w:lvl "
                                                                     "w:ilvl=\"1\"/><w:lvl w:ilvl=\"2\"/></w:abstractNum>",
                                                                     200'000))}}),
       true},
      {"names without number", docxOf(repeated("<w:a#/>", 500'000)), false},
      {"a tag of 4 MB", docxOf("<w:p w:x=\"" + std::string(4 << 20, 'x') + "\"/>" + paragraph(plain)), false},
      {"a comment of 4 MB", docxOf("<!--" + std::string(4 << 20, 'x') + "-->" + paragraph(plain)), false},
  };
  for (const auto& row : rows) {
    const auto document = read(tests::bytesOf(row.document));
    EXPECT_EQ(document.has_value(), row.isRead) << row.what;
    EXPECT_TRUE(!document || document->text.ends_with(u'a')) << row.what;
  }
  for (size_t length = 0; length < good.size(); length += 7) read(tests::bytesOf(good.substr(0, length)));
  for (size_t at = 0; at < good.size(); at += 3) {
    std::string altered = good;
    altered[at] = static_cast<char>(altered[at] ^ 0x55);
    read(tests::bytesOf(altered));
  }
}

// Many looks, much text and many pictures beside each other: each has its share.
TEST(DocxReader, WhatIsTooMuchIsPlainAndHiddenTextStaysHidden) {
  const auto run = [](const std::string& properties, const std::string& content) {
    return "<w:r><w:rPr>" + properties + "</w:rPr><w:t>" + content + "</w:t></w:r>";
  };
  const std::string hidden = "<w:vanish/>", look = "<w:b/><w:spacing w:val=\"#\"/>";
  const std::string styles = wordRoot("styles",
                                      "<w:style w:type=\"character\" w:styleId=\"H\"><w:rPr><w:vanish/></w:rPr></w:style>"
                                      "<w:style w:type=\"paragraph\" w:styleId=\"P\"><w:rPr><w:vanish/></w:rPr></w:style>");
  const std::string looks = repeated(paragraph(run("<w:spacing w:val=\"#\"/>", "v")), 20'000);
  const std::string inStyle = "<w:pStyle w:val=\"P\"/>";
  const std::string others =
      repeated(paragraph(run(hidden + look, "h")), 300) +
      repeated(paragraph(run("<w:rStyle w:val=\"H\"/>" + look, "h")), 300) +
      repeated(paragraph(run(look, "h") + run("<w:vanish w:val=\"0\"/>" + look, "V"), inStyle), 300) +
      repeated(paragraph(run(look, "h") + run("<w:vanish w:val=\"0\"/>" + look, "V"), inStyle + "<w:ind w:left=\"#\"/>"),
               9'000);
  for (const int before : {0, 1}) {
    const std::string document = paragraph(run(hidden, "h")) + (before > 0 ? others : "") + looks + others;
    const Document read = readDocx(document, {{"word/styles.xml", styles}});
    EXPECT_EQ(std::count(read.text.begin(), read.text.end(), u'h'), 0);
    EXPECT_EQ(std::count(read.text.begin(), read.text.end(), u'v'), 20'000);
    EXPECT_EQ(std::count(read.text.begin(), read.text.end(), u'V'), 9'300 * (1 + before));
  }
}

TEST(DocxReader, LongTextCostsNoLooks) {
  const std::string seven(7 << 20, 'a');
  const std::string last = "<w:r><w:rPr><w:i/><w:color w:val=\"FF0000\"/></w:rPr><w:t>last</w:t></w:r>";
  for (const std::string& text : {paragraph(text(seven)), repeated(paragraph(text(std::string(7 << 10, 'a'))), 1 << 10)}) {
    const Document read = readDocx(text + paragraph(last));
    ASSERT_TRUE(read.text.ends_with(u"last"));
    EXPECT_TRUE(styleAt(read, read.text.size() - 1).font->italic());
    EXPECT_EQ(styleAt(read, read.text.size() - 1).foreground, rgb(1, 0, 0));
  }
  std::string spaced(200'000, ' ');  // longer than what is kept of a run
  spaced[100'000] = spaced[150'000] = 'x';
  const Document read = readDocx(paragraph(text(spaced)));
  EXPECT_EQ(read.text.size(), 50'001u);
  EXPECT_TRUE(read.text.starts_with(u'x') && read.text.ends_with(u'x'));
}

TEST(DocxReader, PicturesLeaveTheTextItsShare) {
  constexpr int count = 300;
  const std::string picture = tests::pixel + std::string(300'000, '\0');
  Parts parts;
  std::string document;
  std::vector<std::array<std::string, 3>> rows;
  for (int number = 0; number < count; ++number) {
    const std::string name = "p" + std::to_string(number);
    parts["word/media/" + name] = picture;
    document +=
        paragraph(text(std::string(2'000, 'a')) + "<w:r><w:drawing><a:blip r:embed=\"" + name + "\"/></w:drawing></w:r>");
    rows.push_back({name, "image", "media/" + name});
  }
  parts["word/_rels/document.xml.rels"] = tests::relationships(rows);
  const Document read = readDocx(document, parts);
  EXPECT_EQ(std::count(read.text.begin(), read.text.end(), u'a'), count * 2'000);
  const auto shown = std::count(read.text.begin(), read.text.end(), u'\uFFFC');
  EXPECT_TRUE(shown > 50 && shown < count) << shown;
}

}  // namespace
