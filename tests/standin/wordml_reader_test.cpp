// Word XML of 2003 read: what it calls otherwise, formatting, properties, damage.
#include <gtest/gtest.h>

#include "tests/standin/word_xml_support.hpp"

namespace {

using standin::text::Alignment;
using tests::Document;
using tests::Style;
using tests::styleAt;
using tests::wordMLOf;

Document readWordML(const std::string& body, const std::string& before = {}) {
  return standin::formats::wordml::read(tests::bytesOf(wordMLOf(body, before))).value();
}

TEST(WordMLReader, ReadsWhatThisEditionCallsOtherwise) {
  const struct {
    const char* body;
    std::u16string text;
  } rows[] = {
      {"<w:p><w:r><w:t> a </w:t><w:br w:type=\"text-wrapping\"/><w:t>b</w:t></w:r></w:p>", u" a \u2028b"},
      {"<w:p><aml:annotation w:type=\"Word.Insertion\"><aml:content><w:r><w:t>in</w:t></w:r></aml:content></aml:annotation>"
       "<aml:annotation "
       "w:type=\"Word.Deletion\"><aml:content><w:r><w:delText>out</w:delText></w:r></aml:content></aml:annotation>"
       "<w:r><aml:annotation w:type=\"Word.Comment\"><aml:content><w:p><w:r><w:t>note</w:t></w:r></w:p></aml:content>"
       "</aml:annotation></w:r></w:p>",
       u"in"},
      {"<w:p><w:r><w:t>a</w:t><w:footnote><w:p><w:r><w:t>note</w:t></w:r></w:p></w:footnote></w:r></w:p>", u"a"},
      {"<w:p><w:pPr><w:sectPr><w:hdr><w:p><w:r><w:t>header</w:t></w:r></w:p></w:hdr></w:sectPr></w:pPr><w:r><w:t>a</w:t></"
       "w:r></w:p>"
       "<w:sectPr><w:ftr><w:p><w:r><w:t>footer</w:t></w:r></w:p></w:ftr></w:sectPr>",
       u"a"},
      {"<w:p><w:pPr><w:listPr><w:ilvl w:val=\"0\"/><w:ilfo w:val=\"1\"/></w:listPr></w:pPr><w:r><w:t>a</w:t></w:r></w:p>",
       u"\tiii.\ta"},
  };
  const std::string lists =
      "<w:lists><w:listDef w:listDefId=\"0\"><w:lvl w:ilvl=\"0\"><w:start w:val=\"3\"/><w:nfc w:val=\"2\"/><w:lvlText "
      "w:val=\"%1.\"/>"
      "</w:lvl></w:listDef><w:list w:ilfo=\"1\"><w:ilst w:val=\"0\"/></w:list></w:lists>";
  for (const auto& row : rows) EXPECT_EQ(readWordML(row.body, lists).text, row.text) << row.body;
}

TEST(WordMLReader, ReadsFormattingLinksPicturesAndProperties) {
  const std::string before =
      "<o:DocumentProperties><o:Title>T</o:Title><o:LastAuthor>E</o:LastAuthor><o:LastSaved>2017-10-26T09:10:00Z</"
      "o:LastSaved>"
      "</o:DocumentProperties><w:fonts><w:defaultFonts w:ascii=\"Verdana\" w:h-ansi=\"Verdana\" "
      "w:fareast=\"SimSun\"/></w:fonts><w:styles>"
      "<w:style w:type=\"paragraph\" w:default=\"on\" w:styleId=\"N\"><w:rPr><w:sz "
      "w:val=\"24\"/></w:rPr></w:style></w:styles>"
      "<w:docPr><w:defaultTabStop w:val=\"400\"/></w:docPr>";
  const std::string picture =
      "<w:r><w:pict><w:binData "
      "w:name=\"wordml://1.png\">iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAADElEQVQI12P4z8AAAAMBAQAY3Y2w"
      "AAAAAElFTkSuQmCC</w:binData><v:shape style=\"width:30pt;height:20pt\"><v:imagedata "
      "src=\"wordml://1.png\"/></v:shape></w:pict></w:r>";
  const Document document = readWordML(
      "<w:p><w:pPr><w:jc w:val=\"both\"/><w:spacing w:line=\"300\" w:line-rule=\"at-least\"/><w:ind "
      "w:first-line=\"200\"/></w:pPr>"
      "<w:r><w:rPr><w:b w:val=\"on\"/><w:u w:val=\"dash-dot-heavy\"/><w:highlight "
      "w:val=\"dark-blue\"/></w:rPr><w:t>a</w:t></w:r>"
      "<w:r><w:t>\u4E2D</w:t></w:r><w:hlink w:dest=\"http://a.org/\" w:bookmark=\"p\"><w:r><w:t>l</w:t></w:r></w:hlink>" +
          picture + "</w:p>",
      before);
  ASSERT_EQ(document.text, u"a\u4E2Dl\uFFFC");
  const Style& first = styleAt(document, 0);
  EXPECT_EQ(first.font->name, "Verdana-Bold");
  EXPECT_EQ(first.font->size, 12);
  EXPECT_EQ(first.underline, 0x302);
  EXPECT_NEAR(first.background->components[2], 0.5, 0.01);
  EXPECT_EQ(first.paragraph.alignment, Alignment::justified);
  EXPECT_EQ(first.paragraph.minimumLineHeight, 15);
  EXPECT_EQ(first.paragraph.firstLineIndent, 10);
  EXPECT_EQ(styleAt(document, 1).font->family, "SimSun");
  EXPECT_EQ(styleAt(document, 2).link, u"http://a.org/#p");
  EXPECT_EQ(styleAt(document, 3).attachment->width, 30);
  EXPECT_EQ(document.properties.title, u"T");
  EXPECT_EQ(document.properties.editor, u"E");
  EXPECT_EQ(document.properties.modified->minute, 10);
  EXPECT_EQ(document.defaultTabInterval, 20);
}

// Every cut of a document, and every byte of it altered, must end in a document or a refusal.
TEST(WordMLReader, SurvivesEveryCutAndEveryAlteredByte) {
  const std::string sample = wordMLOf(
      "<w:tbl><w:tr><w:tc><w:p><w:pPr><w:listPr><w:ilvl w:val=\"0\"/><w:ilfo w:val=\"1\"/></w:listPr><w:tabs><w:tab "
      "w:val=\"left\" "
      "w:pos=\"9\"/></w:tabs></w:pPr><w:r><w:fldChar w:fldCharType=\"begin\"/><w:instrText>HYPERLINK "
      "\"a\"</w:instrText><w:fldChar "
      "w:fldCharType=\"separate\"/><w:sym w:font=\"S\" w:char=\"F0B7\"/></w:r><w:r><w:pict><w:binData "
      "w:name=\"1\">iVBORw0KGgo=</w:binData>"
      "<v:shape style=\"width:1pt\"><v:imagedata src=\"1\"/></v:shape></w:pict></w:r></w:p></w:tc></w:tr></w:tbl>",
      "<w:lists><w:listDef w:listDefId=\"0\"><w:lvl w:ilvl=\"0\"><w:nfc w:val=\"0\"/><w:lvlText "
      "w:val=\"%1\"/></w:lvl></w:listDef>"
      "<w:list w:ilfo=\"1\"><w:ilst w:val=\"0\"/></w:list></w:lists>");
  ASSERT_TRUE(standin::formats::wordml::read(tests::bytesOf(sample)));
  for (size_t length = 0; length < sample.size(); ++length) {
    EXPECT_FALSE(standin::formats::wordml::read(tests::bytesOf(sample.substr(0, length))));
    std::string altered = sample;
    altered[length] = static_cast<char>(altered[length] ^ 1);
    const auto document = standin::formats::wordml::read(tests::bytesOf(altered));
    size_t total = 0;
    if (document) {
      for (const auto& run : document->runs) total += run.length;
    }
    EXPECT_EQ(total, document ? document->text.size() : 0);
  }
}

}  // namespace
