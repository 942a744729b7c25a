// Web archives: pages by media type, pictures from the files beside them, what is written read again, hostile property
// lists.
#include <gtest/gtest.h>

#include <string>

#include "standin/formats/webarchive/archive.hpp"
#include "standin/formats/webarchive/property_list_bounds.hpp"
#include "standin/formats/webarchive/reader.hpp"
#include "standin/formats/webarchive/writer.hpp"
#include "standin/text/font_faces.hpp"
#include "standin/text/text.hpp"

namespace {

using namespace standin::formats;
using namespace std::string_literals;
using standin::text::Style;

const std::string picture =
    "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x08\2\0\0\0\x90wS\xDE\0\0\0\fIDATx\x9C"
    "c\xF8\xCF\xC0\0\0\3\1\1\0\x18\xDD\x8D\xB0\0\0\0\0IEND\xAE"
    "B`\x82"s;

std::span<const uint8_t> bytesOf(const std::string& bytes) {
  return {reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()};
}

std::optional<Document> readPage(webarchive::Resource page, std::vector<webarchive::Resource> files = {}) {
  const auto bytes = webarchive::serialize({std::move(page), std::move(files)});
  return webarchive::read(bytesOf(*bytes));
}

TEST(WebArchive, APageIsReadAsWhatItsMediaTypeSays) {
  const struct {
    webarchive::Resource page;
    std::u16string text;
  } rows[] = {
      {{"http://a/b", "text/html", "UTF-8", "<p>Gr\xC3\xBC\xC3\x9F</p>"}, u"Grüß"},
      {{"http://a/b", "text/html", "ISO-8859-1", "<p>Gr\xFC\xDF</p>"}, u"Grüß"},
      {{"http://a/b", "text/html", "no such encoding", "<p>x"}, u"x"},
      {{"http://a/b", "", "", "<p>x"}, u"x"},
      {{"http://a/b.rtf", "text/rtf", "", "{\\rtf1 rich}"}, u"rich"},
      {{"http://a/b.txt", "text/plain", "windows-1251", "<p>\xE0"}, u"<p>а"},
      {{"http://a/b.txt", "text/plain", "", "plain\n"}, u"plain\n"},
      {{"http://a/b.md", "text/x-markdown", "UTF-8", "<html><body><pre># a &lt; b</pre></body></html>"}, u"# a < b"},
      {{"http://a/b.png", "image/png", "", picture}, u"\uFFFC"},
  };
  for (const auto& row : rows) {
    const auto document = readPage(row.page);
    ASSERT_TRUE(document) << row.page.contents;
    EXPECT_EQ(document->text, row.text) << row.page.contents;
  }
  EXPECT_FALSE(readPage({"http://a/b.png", "image/png", "", "no picture"}));
}

TEST(WebArchive, PicturesAndSheetsComeFromTheArchive) {
  const auto document = readPage(
      {"http://a/dir/page.html", "text/html", "UTF-8",
       "<link rel=stylesheet href='../look.css'><p>x<img src='p.png' width=7 height=5>"},
      {{"http://a/look.css", "text/css", "", "p { text-align: right }"}, {"http://a/dir/p.png", "image/png", "", picture}});
  ASSERT_TRUE(document);
  EXPECT_EQ(document->text, u"x\uFFFC");
  const Style& style = document->styles[document->runs.back().style];
  EXPECT_EQ(style.paragraph.alignment, standin::text::Alignment::right);
  ASSERT_NE(style.attachment, nullptr);
  EXPECT_EQ(std::string(style.attachment->contents.begin(), style.attachment->contents.end()), picture);
  EXPECT_EQ(style.attachment->width, 7);
}

TEST(WebArchive, WhatAPageTakesFromItsFilesIsBounded) {
  std::string page = "<p>";
  for (int count = 0; count < 200; ++count) page += "<img src='p.png?" + std::to_string(count % 2) + "'>";
  std::string large = picture;
  large.resize(1 << 20);
  const auto document = readPage({"http://a/", "text/html", "", page}, {{"http://a/p.png?0", "image/png", "", large},
                                                                        {"http://a/p.png?1", "image/png", "", large}});
  ASSERT_TRUE(document);
  uint64_t held = 0;
  for (const Style& style : document->styles) held += style.attachment ? style.attachment->contents.size() : 0;
  EXPECT_LE(held, uint64_t{66} << 20);
}

TEST(WebArchive, WhatIsWrittenIsReadAgainWithEachPictureStoredOnce) {
  Style plain, pictured;
  plain.font = pictured.font = standin::text::fontMeant("Times", standin::text::boldTrait, 14);
  pictured.attachment = std::make_shared<standin::text::Attachment>(
      standin::text::Attachment{.contents = bytesOf(picture), .width = 20, .height = 10});
  StyledRuns styled{standin::text::Text::utf16(u"Zür\uFFFCich\uFFFC"),
                    {{3, &plain}, {1, &pictured}, {3, &plain}, {1, &pictured}}};
  DocumentInformation information;
  information.properties.title = u"Städte";
  information.textEncodingName = "macintosh";
  const auto bytes = webarchive::write(styled, information);
  ASSERT_TRUE(bytes);
  const auto archive = webarchive::parse(bytesOf(*bytes));
  ASSERT_TRUE(archive);
  EXPECT_EQ(archive->page.encodingName, "macintosh");
  ASSERT_EQ(archive->files.size(), 1U);
  EXPECT_EQ(archive->files[0].mimeType, "image/png");
  const auto again = webarchive::read(bytesOf(*bytes));
  ASSERT_TRUE(again);
  EXPECT_EQ(again->text, u"Zür\uFFFCich\uFFFC");
  EXPECT_EQ(again->properties.title, u"Städte");
  const Style& style = again->styles[again->runs[1].style];
  EXPECT_EQ(style.font, plain.font);
  ASSERT_NE(style.attachment, nullptr);
  EXPECT_EQ(style.attachment->width, 20);
  information.textEncodingName = "no such encoding";
  EXPECT_FALSE(webarchive::write(styled, information));
}

TEST(WebArchive, XmlPropertyListsAreReadToo) {
  const auto document = webarchive::read(bytesOf(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist SYSTEM \"a.dtd\">\n"
      "<plist version=\"1.0\"><dict><key>WebMainResource</key><dict><key>WebResourceData</key><data>PHA+aGk8L3A+</data>"
      "<key>WebResourceMIMEType</key><string>text/html</string></dict></dict></plist>"));
  ASSERT_TRUE(document);
  EXPECT_EQ(document->text, u"hi");
}

// A binary list of objects, each its bytes; references and offsets are two bytes, the first object is the root.
std::string binaryList(const std::vector<std::string>& objects) {
  const auto number = [](size_t value, int size) {
    std::string bytes;
    while (size-- > 0) bytes += static_cast<char>(value >> (8 * size) & 255);
    return bytes;
  };
  std::string bytes = "bplist00", offsets;
  for (const std::string& object : objects) {
    offsets += number(bytes.size(), 2);
    bytes += object;
  }
  const size_t table = bytes.size();
  return bytes + offsets + "\0\0\0\0\0\0\2\2"s + number(objects.size(), 8) + number(0, 8) + number(table, 8);
}
std::string reference(size_t index) { return {static_cast<char>(index >> 8), static_cast<char>(index & 255)}; }

std::string nested(size_t depth) {
  std::vector<std::string> objects;
  for (size_t index = 1; index < depth; ++index) objects.push_back("\xA1" + reference(index));
  objects.push_back("\xA0");
  return binaryList(objects);
}

// Each array refers to the next one twice.
std::string doubling(size_t levels) {
  std::vector<std::string> objects;
  for (size_t index = 1; index < levels; ++index) objects.push_back("\xA2" + reference(index) + reference(index));
  objects.push_back("\x51x");
  return binaryList(objects);
}

TEST(WebArchive, PropertyListsThatGrowOrNestWithoutBoundAreRefused) {
  const auto repeated = [](const std::string& piece, size_t count) {
    std::string text;
    while (count-- > 0) text += piece;
    return text;
  };
  const struct {
    std::string bytes;
    bool isBounded;
  } rows[] = {
      {nested(200), true},
      {nested(300), false},
      {doubling(10), true},
      {doubling(60), false},
      {binaryList({"\xA1" + reference(1), "\xA1" + reference(0)}), false},
      {binaryList({"\xA1" + reference(7)}), false},
      {binaryList({"\x4F\x12\x7F\xFF\xFF\xFF"}), false},
      {binaryList({"\xAF\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}), false},
      {"bplist00", false},
      {"bplist01" + nested(2).substr(8), false},
      {"<plist>" + repeated("<array>", 200) + repeated("</array>", 200) + "</plist>", true},
      {"<plist>" + repeated("<array>", 100000), false},
      {"<plist>" + repeated("<array><!--</array>-->", 1000), false},
      {"<plist>" + repeated("<array><a b='</array>'/>", 1000), false},
      {"<plist>" + repeated("<array></dict>", 1000), false},
  };
  for (size_t index = 0; index < std::size(rows); ++index)
    EXPECT_EQ(webarchive::isBoundedPropertyList(bytesOf(rows[index].bytes)), rows[index].isBounded) << index;
}

TEST(WebArchive, DamagedArchivesAreRefusedOrReadInPart) {
  const std::string bytes =
      *webarchive::serialize({{"http://a/", "text/html", "UTF-8", "<p>x"}, {{"http://a/p", "image/png", "", picture}}});
  for (size_t length = 0; length < bytes.size(); ++length) webarchive::read(bytesOf(bytes.substr(0, length)));
  for (size_t at = 0; at < bytes.size(); ++at) {
    for (const char damage : {'\0', '\x7F', '\xFF'}) {
      std::string damaged = bytes;
      damaged[at] = damage;
      webarchive::read(bytesOf(damaged));
    }
  }
  // A media type with a NUL inside.
  std::string damaged = bytes;
  damaged[bytes.find("text/html") + 4] = '\0';
  EXPECT_TRUE(webarchive::parse(bytesOf(damaged)));
  EXPECT_FALSE(webarchive::read(bytesOf("")));
  EXPECT_FALSE(webarchive::read(bytesOf("<plist><dict><key>WebMainResource</key><string/></dict></plist>")));
}

}  // namespace
