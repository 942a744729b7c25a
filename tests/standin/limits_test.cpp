// How much documents may ask for, as docs/limits.md tells: at the limit all is there, one past it the rest is left out.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <climits>
#include <functional>

#include "standin/appkit/document_text.hpp"
#include "standin/formats/doc/reader.hpp"
#include "standin/formats/file_archive/layout.hpp"
#include "standin/formats/rtf/reader.hpp"
#include "standin/formats/xml.hpp"
#include "standin/layout/faces.hpp"
#include "standin/layout/pages.hpp"
#include "tests/standin/html_support.hpp"
#include "tests/standin/odt_support.hpp"
#include "tests/standin/word_document.hpp"
#include "tests/standin/word_xml_support.hpp"

namespace {

namespace formats = standin::formats;
namespace layout = standin::layout;
using formats::Document;
using standin::text::Alignment;
using standin::text::Style;

// The piece for each number from 0, one behind the other; "#" in it is the number.
std::string repeated(const std::string& piece, size_t count) {
  const size_t place = piece.find('#');
  std::string all;
  for (size_t number = 0; number < count; ++number) {
    if (place == std::string::npos) {
      all += piece;
    } else {
      all.append(piece, 0, place).append(std::to_string(number)).append(piece, place + 1);
    }
  }
  return all;
}

std::string html(const std::string& sheet, const std::string& body = "<p class=a>x") {
  return "<style>" + sheet + "</style>" + body;
}

std::string odt(const std::string& content, const std::string& automatic) { return odt_support::flat(content, automatic); }

std::string odtPages(size_t count) {
  const std::string start = "<style:page-layout style:name=\"", end = "\"><style:page-layout-properties fo:page-width=\"";
  return odt_support::part(
      "document", "<office:automatic-styles>" + repeated(start + "p#" + end + "300pt\"/></style:page-layout>", count - 1) +
                      start + "last" + end +
                      "500pt\"/></style:page-layout></office:automatic-styles><office:master-styles><style:master-page "
                      "style:name=\"Standard\" style:page-layout-name=\"last\"/></office:master-styles>" +
                      odt_support::body("<text:p>x</text:p>"));
}

std::string odtFonts(size_t count) {
  return odt_support::part("document",
                           "<office:font-face-decls>" +
                               repeated("<style:font-face style:name=\"f#\" svg:font-family=\"Arial\"/>", count - 1) +
                               "<style:font-face style:name=\"last\" svg:font-family=\"Georgia\"/></office:font-face-decls>"
                               "<office:automatic-styles>" +
                               odt_support::textStyle("s", "style:font-name=\"last\"") + "</office:automatic-styles>" +
                               odt_support::body("<text:p><text:span text:style-name=\"s\">x</text:span></text:p>"));
}

std::string wordRun(const std::string& properties, const std::string& text) {
  return "<w:r><w:rPr>" + properties + "</w:rPr><w:t>" + text + "</w:t></w:r>";
}

std::string wordFields(size_t count) {
  const std::string begin = "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText>";
  const std::string separate = "</w:instrText></w:r><w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>";
  const std::string end = "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>";
  return tests::docxOf("<w:p>" + repeated(begin + "DATE" + separate, count - 1) + begin + "HYPERLINK \"http://a/\"" +
                       separate + wordRun("", "x") + repeated(end, count) + "</w:p>");
}

std::string wordLists(size_t count) {
  const std::string level = "<w:lvl w:ilvl=\"0\"><w:numFmt w:val=\"decimal\"/><w:lvlText w:val=\"%1.\"/></w:lvl>";
  return tests::docxOf(
      "<w:p><w:pPr><w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"" + std::to_string(count - 1) + "\"/></w:numPr></w:pPr>" +
          wordRun("", "x") + "</w:p>",
      {{"word/numbering.xml",
        tests::wordRoot("numbering", "<w:abstractNum w:abstractNumId=\"0\">" + level + "</w:abstractNum>" +
                                         repeated("<w:num w:numId=\"#\"><w:abstractNumId w:val=\"0\"/></w:num>", count))}});
}

std::string wordStyles(size_t count) {
  const std::string start = "<w:style w:type=\"character\" w:styleId=\"";
  return tests::docxOf("<w:p>" + wordRun("<w:rStyle w:val=\"last\"/>", "x") + "</w:p>",
                       {{"word/styles.xml", tests::wordRoot("styles", repeated(start + "s#\"/>", count - 1) + start +
                                                                          "last\"><w:rPr><w:b/></w:rPr></w:style>")}});
}

std::string docOf(const std::string& text) { return tests::WordDocument{.pieces = {{.bytes = text}}}.bytes(); }

// The text is in the last style. Where each descends from the one before, the first is bold, otherwise the last.
std::string docStyles(size_t count, bool descend) {
  tests::WordDocument document{.pieces = {{.bytes = "x\r"}}};
  document.paragraphs = {{2, {}, static_cast<uint16_t>(count - 1)}};
  const std::string bold = tests::list({{formats::doc::Property::bold, 1}});
  for (size_t number = 0; number < count; ++number) {
    tests::WordDocument::Style style{.kind = 1};
    if (descend && number > 0) style.parent = static_cast<uint16_t>(number - 1);
    if (number == (descend ? 0 : count - 1)) style.characters = bold;
    if (number == 0) {
      document.styles = {style};
    } else {
      document.styles.push_back(style);
    }
  }
  return document.bytes();
}

template <auto read>
std::optional<Document> readWith(const std::string& bytes) {
  return read({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
}
std::optional<Document> readHTML(const std::string& bytes) { return html_support::parsed(bytes); }
constexpr auto readODT = readWith<formats::odt::read>;
constexpr auto readDocx = readWith<formats::docx::read>;
constexpr auto readDoc = readWith<formats::doc::read>;
constexpr auto readRTF = readWith<formats::rtf::read>;

const Style& styleOfX(const Document& document) { return tests::styleAt(document, document.text.find(u'x')); }
bool isBold(const Document& document) { return styleOfX(document).font && styleOfX(document).font->bold(); }
bool isLinked(const Document& document) { return !styleOfX(document).link.empty(); }
bool isCentred(const Document& document) { return styleOfX(document).paragraph.alignment == Alignment::center; }
bool isNumbered(const Document& document) { return document.text.find(u"1.") != std::u16string::npos; }
bool isGeorgia(const Document& document) { return styleOfX(document).font->family == "Georgia"; }
bool isOfLastPage(const Document& document) { return document.page.paperWidth == 500; }

TEST(Limits, WhatIsPastThemIsLeftOut) {
  using Read = std::optional<Document> (*)(const std::string&);
  const struct {
    const char* what;
    Read read;
    size_t most, tooMany;
    std::function<std::string(size_t)> document;
    bool (*isThere)(const Document&);
  } rows[] = {
      {"html attributes", readHTML, 1000, 1001, [](size_t n) { return "<p" + repeated(" a#", n - 1) + " align=center>x"; },
       isCentred},
      {"html parts of a selector", readHTML, 48, 49,
       [](size_t n) { return html("p" + repeated(".a", n - 1) + "{font-weight:bold}"); }, isBold},
      {"html rules", readHTML, 65'536, 65'537,
       [](size_t n) { return html(repeated("z{color:red}", n - 1) + "p{font-weight:bold}"); }, isBold},
      {"html parts of selectors, by 48", readHTML, 262'144 / 48, 262'144 / 48 + 1,
       [](size_t n) { return html(repeated("z" + repeated(".a", 47) + "{color:red}", n) + "p{font-weight:bold}"); }, isBold},
      {"html blocks", readHTML, 8, 9,
       [](size_t n) { return html(repeated("@media all{", n) + "p{font-weight:bold}" + repeated("}", n)); }, isBold},
      {"html styles", readHTML, 65'500, 65'536,
       [](size_t n) { return "<p>" + repeated("<i style='letter-spacing:#px'></i>", n) + "<b>x</b>"; }, isBold},
      {"odt styles", readODT, 10'000, 10'001,
       [](size_t n) {
         return odt(
             "<text:p><text:span text:style-name=\"last\">x</text:span></text:p>",
             repeated(odt_support::textStyle("s#", ""), n - 1) + odt_support::textStyle("last", "fo:font-weight=\"bold\""));
       },
       isBold},
      {"odt fonts", readODT, 10'000, 10'001, odtFonts, isGeorgia},
      {"odt list styles", readODT, 5000, 5001,
       [](size_t n) {
         return odt("<text:list text:style-name=\"last\"><text:list-item><text:p>x</text:p></text:list-item></text:list>",
                    repeated("<text:list-style style:name=\"l#\"/>", n - 1) +
                        "<text:list-style style:name=\"last\"><text:list-level-style-number text:level=\"1\" "
                        "style:num-format=\"1\" style:num-suffix=\".\"/></text:list-style>");
       },
       isNumbered},
      {"odt pages", readODT, 1000, 1001, odtPages, isOfLastPage},
      {"docx styles", readDocx, 5000, 5001, wordStyles, isBold},
      {"docx lists", readDocx, 10'000, 10'001, wordLists, isNumbered},
      {"rtf combinations of styles", readRTF, 10'000, 60'000,
       [](size_t n) { return "{\\rtf1 " + repeated("\\li# y\\par", n) + "\\b x}"; }, isBold},
      {"docx combinations of styles", readDocx, 4000, 50'001,
       [](size_t n) {
         return tests::docxOf("<w:p>" + repeated(wordRun("<w:spacing w:val=\"#\"/>", "y"), n) + wordRun("<w:b/>", "x") +
                              "</w:p>");
       },
       isBold},
      {"docx fields", readDocx, 200, 201, wordFields, isLinked},
      {"doc fields", readDoc, 256, 257,
       [](size_t n) {
         return docOf(repeated("\x13 DATE \x14", n - 1) + "\x13 HYPERLINK \"http://a/\" \x14x" + repeated("\x15", n) + "\r");
       },
       isLinked},
      {"doc styles", readDoc, 4095, 4096, [](size_t n) { return docStyles(n, false); }, isBold},
      {"doc styles that descend from each other", readDoc, 64, 65, [](size_t n) { return docStyles(n, true); }, isBold},
  };
  for (const auto& row : rows) {
    for (const size_t count : {row.most, row.tooMany}) {
      const auto document = row.read(row.document(count));
      ASSERT_TRUE(document) << row.what;
      ASSERT_NE(document->text.find(u'x'), std::u16string::npos) << row.what;
      EXPECT_EQ(row.isThere(*document), count == row.most) << row.what << ", " << count;
    }
  }
}

TEST(Limits, WhatIsDeeperIsRefused) {
  const auto isXML = [](const std::string& text) {
    struct : formats::xml::Handler {
      void startElement(const formats::xml::Element&) override {}
      void endElement(formats::xml::NameNumber) override {}
      void characters(std::string_view) override {}
    } handler;
    return formats::xml::parse(tests::bytesOf(text), formats::xml::NameTable({}, {}), handler);
  };
  const auto elements = [](size_t count) { return repeated("<a>", count) + repeated("</a>", count); };
  const auto attributes = [](size_t count) { return "<a" + repeated(" a#=''", count) + "/>"; };
  const auto groups = [](size_t count) { return "{\\rtf1 " + repeated("{", count - 1) + "x" + repeated("}", count); };
  EXPECT_TRUE(isXML(elements(2000)));
  EXPECT_FALSE(isXML(elements(2001)));
  EXPECT_TRUE(isXML(attributes(1000)));
  EXPECT_FALSE(isXML(attributes(1001)));
  EXPECT_TRUE(readRTF(groups(4096)));
  EXPECT_FALSE(readRTF(groups(4097)));
}

// Of HTML, the elements deeper than the limit stand side by side, each with its text.
TEST(Limits, DeepElementsStandSideBySide) {
  const auto nested = [](size_t count) {
    return html_support::documentOf(repeated("<div style='margin-left:1px'>y", count) + "x");
  };
  const double deepest = styleOfX(nested(512)).paragraph.headIndent;
  EXPECT_GT(deepest, styleOfX(nested(500)).paragraph.headIndent);
  const Document deep = nested(2000);
  EXPECT_EQ(styleOfX(deep).paragraph.headIndent, deepest);
  EXPECT_EQ(std::count(deep.text.begin(), deep.text.end(), u'y'), 2000);
}

TEST(Limits, FoldersOfAnArchiveAreRefusedBeyondTheirDepth) {
  namespace archive = formats::file_archive;
  archive::ArchivedFile folder;
  for (size_t depth = 1; depth < archive::maximumDepth; ++depth) {
    archive::ArchivedFile outer;
    folder.key = "d";
    outer.children.push_back(std::move(folder));
    folder = std::move(outer);
  }
  const std::string bytes = archive::write(folder).value();
  EXPECT_TRUE(archive::read(tests::bytesOf(bytes)));
  std::string contents("\0\0\1\0\0\0\0\0\0\0\1\0\0\0\0\0\0\0d", 19);
  contents += bytes.substr(archive::headerSize);
  std::string deeper(archive::signature);
  for (int shift = 0; shift < 64; shift += 8) deeper += static_cast<char>(archive::checksum(contents) >> shift);
  EXPECT_FALSE(archive::read(tests::bytesOf(deeper + contents)));
  archive::ArchivedFile outer;
  folder.key = "d";
  outer.children.push_back(std::move(folder));
  EXPECT_FALSE(archive::write(outer));
}

TEST(Limits, WhatIsRepeatedIsCounted) {
  const auto spaces = [](int count) {
    return odt("<text:p>x<text:s text:c=\"" + std::to_string(count) + "\"/>x</text:p>", "");
  };
  const auto cells = [](int count) {
    return odt("<table:table><table:table-row><table:table-cell table:number-columns-repeated=\"" + std::to_string(count) +
                   "\"><text:p>x</text:p></table:table-cell></table:table-row></table:table>",
               "");
  };
  const auto counted = [](const std::string& bytes, char16_t unit) {
    const auto document = readODT(bytes);
    return document ? std::count(document->text.begin(), document->text.end(), unit) : -1;
  };
  EXPECT_EQ(counted(spaces(9'999), u' '), 9'999);
  EXPECT_EQ(counted(spaces(10'001), u' '), 10'000);
  EXPECT_EQ(counted(cells(999), u'x'), 999);
  EXPECT_EQ(counted(cells(1'001), u'x'), 1'000);
}

// However many styles have it, one copy of a link's address is there.
TEST(Limits, LinksAreSharedByStyles) {
  const AutoreleasePool pool;
  const std::string address = "http://e.org/";
  const std::optional<Document> documents[] = {
      readRTF("{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"" + address + "\"}{\\fldrslt y{\\b x}}}}"),
      readHTML("<a href='" + address + "'>y<b>x</b></a>"),
      readDocx(tests::docxOf("<w:p><w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText>HYPERLINK " + address +
                             "</w:instrText></w:r><w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" + wordRun("", "y") +
                             wordRun("<w:b/>", "x") + "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r></w:p>")),
  };
  for (const auto& document : documents) {
    const size_t plain = document->text.find(u'y'), bold = document->text.find(u'x');
    const Style &style = tests::styleAt(*document, plain), &other = tests::styleAt(*document, bold);
    EXPECT_NE(style, other);
    EXPECT_EQ(style.link, u"http://e.org/");
    EXPECT_EQ(&style.link.text(), &other.link.text());
    const auto styled = standin::appkit::styledTextOf(*document);
    const auto objectAt = [&](size_t place) {
      const auto run = styled.find(static_cast<uint32_t>(place));
      return standin::text::AttributeSet(run.attributes).find(NSLinkAttributeName);
    };
    EXPECT_NE(objectAt(plain), nullptr);
    EXPECT_EQ(objectAt(plain), objectAt(bold));
  }
}

TEST(Limits, ParagraphsKeepSixtyFourTabStops) {
  std::string changes;  // of the binary format: 32 stops each
  for (int first : {0, 32, 64}) {
    std::string operand("\0\x20", 2);
    for (int stop = first; stop < first + 32; ++stop) formats::append16(operand, (stop + 1) * 100);
    changes += tests::counted(formats::doc::Property::tabs, operand + std::string(32, '\0'));
  }
  tests::WordDocument doc{.pieces = {{.bytes = "x\r"}}};
  doc.paragraphs = {{2, changes}};
  const struct {
    const char* format;
    std::optional<Document> document;
  } rows[] = {
      {"rtf", readRTF("{\\rtf1" + repeated("\\tx1#", 80) + " x}")},
      {"doc", readDoc(doc.bytes())},
      {"docx", readDocx(tests::docxOf("<w:p><w:pPr><w:tabs>" + repeated("<w:tab w:val=\"left\" w:pos=\"#00\"/>", 80) +
                                      "</w:tabs></w:pPr>" + wordRun("", "x") + "</w:p>"))},
      {"odt", readODT(odt("<text:p text:style-name=\"t\">x</text:p>",
                          odt_support::paragraphStyle("t", "",
                                                      "<style:tab-stops>" +
                                                          repeated("<style:tab-stop style:position=\"1#pt\"/>", 80) +
                                                          "</style:tab-stops>")))},
  };
  for (const auto& row : rows) {
    ASSERT_TRUE(row.document) << row.format;
    const auto& tabs = styleOfX(*row.document).paragraph.tabs;
    ASSERT_TRUE(tabs) << row.format;
    EXPECT_EQ(tabs->size(), 64u) << row.format;
  }
}

TEST(Limits, LengthsWithoutSenseCountAsTheLargest) {
  const struct {
    const char* format;
    std::optional<Document> document;
    double indent;
  } rows[] = {
      {"html", readHTML("<p style='margin-left:99999999px'>x"), 10'000},
      {"rtf", readRTF("{\\rtf1\\li2000000000 x}"), 5'000'000},
      {"docx", readDocx(tests::docxOf("<w:p><w:pPr><w:ind w:left=\"2000000000\"/></w:pPr>" + wordRun("", "x") + "</w:p>")),
       100'000},
      {"odt",
       readODT(odt("<text:p text:style-name=\"l\">x</text:p>",
                   odt_support::paragraphStyle("l", "fo:margin-left=\"99999999pt\""))),
       100'000},
  };
  for (const auto& row : rows) {
    ASSERT_TRUE(row.document) << row.format;
    EXPECT_EQ(styleOfX(*row.document).paragraph.headIndent, row.indent) << row.format;
  }
}

// Nothing of them is looked at: no memory is behind most of their bytes.
TEST(Limits, DocumentsOfGigabytesAreRefused) {
  constexpr size_t size = size_t{INT_MAX} + 1;
  void* const mapped = mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(mapped, MAP_FAILED);
  const std::span<const uint8_t> bytes(static_cast<const uint8_t*>(mapped), size);
  EXPECT_FALSE(formats::html::read(bytes.first((size_t{1} << 30) + 1), {}));
  munmap(mapped, size);
}

TEST(Limits, PagesBesideEachOtherAreOneHundred) {
  EXPECT_EQ(layout::gridOf({.viewWidth = 451 * 99.5}).columns, 100);
  EXPECT_EQ(layout::gridOf({.viewWidth = 451 * 5000.0}).columns, 100);
  EXPECT_EQ(layout::gridOf({.viewWidth = 451 * 3.0}).columns, 3);
}

}  // namespace
