// HTML documents as files: encodings, addresses, pictures, style sheets beside them, properties, the platform's options,
// hostile bytes.
#include <chrono>

#include "standin/formats/base64.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/foundation/number.hpp"
#include "tests/standin/file_wrapper_support.hpp"
#include "tests/standin/html_support.hpp"

namespace {

using namespace std::string_literals;
using html_support::documentOf;
using html_support::parsed;
using html_support::ReadOptions;
using html_support::styleOf;
using html_support::styleOfX;

std::string textOf(std::string_view html, const ReadOptions& options = {}) { return html_support::textOf(html, options); }

std::string wide(std::u16string_view text, bool isBigEndian) {
  std::string bytes;
  for (const char16_t unit : text) {
    const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
    bytes += isBigEndian ? high : low;
    bytes += isBigEndian ? low : high;
  }
  return bytes;
}

TEST(HtmlDocument, FindsTheEncoding) {
  // Long enough that its letters tell the language.
  std::string hebrew;
  for (int count = 0; count < 20; ++count)
    hebrew += "<p>\xF9\xEC\xE5\xED \xF2\xE5\xEC\xED \xE6\xE4 \xE4\xE5\xE0 \xEE\xE9\xE3\xF2 \xE7\xF9\xE5\xE1";
  const struct {
    std::string bytes, asked, text, encoding;
  } rows[] = {
      {"\xC3\xA9", "", "é", "UTF-8"},
      {"caf\xE9 \x80", "windows-1252", "café €", "windows-1252"},
      {"\xEF\xBB\xBF\xC3\xA9", "windows-1252", "é", "UTF-8"},
      {"\xFF\xFE" + wide(u"<p>é", false), "", "é", "UTF-16LE"},
      {"\xFE\xFF" + wide(u"<p>é", true), "", "é", "UTF-16BE"},
      {wide(u"<p>é", false), "", "é", "UTF-16LE"},
      {wide(u"<p>é", true), "", "é", "UTF-16BE"},
      {"<meta charset=iso-8859-1>\x93\xE9", "", "“é", "windows-1252"},
      {"<meta charset=utf-16>\xC3\xA9", "", "é", "UTF-8"},
      {"<meta http-equiv=Content-Type content=\"text/html; charset = 'koi8-r'\">\xC1", "", "а", "koi8-r"},
      {"<?xml version='1.0' encoding='shift_jis'?>\x93\xFA", "", "日", "windows-31j"},
      {"<!-- <p charset=koi8-r> --><meta charset=nosuch><p>\xC3\xA9", "", "é", "UTF-8"},
      {"<meta charset=koi8-r>\xC3\xA9", "UTF-8", "é", "UTF-8"},
      {"<meta charset=utf-8>a\xFFz", "", "a\uFFFDz", "UTF-8"},
      {"a\0b\r\nc<pre>d\re"s, "", "ab c\nd\ne", "UTF-8"},
      {"cut \xC3", "", "cut \uFFFD", "UTF-8"},
  };
  for (const auto& row : rows) {
    const auto document = parsed(row.bytes, {.encodingName = row.asked});
    ASSERT_TRUE(document) << row.bytes;
    EXPECT_EQ(html_support::utf8Of(document->text), row.text) << row.bytes;
    EXPECT_EQ(document->textEncodingName, row.encoding) << row.bytes;
  }
  EXPECT_FALSE(parsed("a", {.encodingName = "no such encoding"}));
  EXPECT_EQ(textOf(hebrew).substr(0, 8), "שלום");
}

TEST(HtmlDocument, ResolvesLinks) {
  const struct {
    const char *head, *reference;
    std::u16string link;
  } rows[] = {
      {"", "c.html#d", u"http://h/a/c.html#d"},
      {"", " /c?d=1 ", u"http://h/c?d=1"},
      {"", "//other/c", u"http://other/c"},
      {"", "../../c", u"http://h/c"},
      {"", "#f", u"http://h/a/b.html#f"},
      {"", "mailto:a@b", u"mailto:a@b"},
      {"", "", u""},
      {"<base href='/base/'>", "c", u"http://h/base/c"},
      {"<base href='https://x/y/z'><base href=ignored>", "c", u"https://x/y/c"},
  };
  const std::string tooLong = "<base href='http://x/" + std::string(2048, 'y') + "/'>";
  EXPECT_EQ(styleOfX(tooLong + "<a href=c>x", {.baseURL = "http://h/a/b.html"}).link, u"http://h/a/c");
  for (const auto& row : rows) {
    const std::string html = std::string(row.head) + "<a href='" + row.reference + "'>x</a>";
    EXPECT_EQ(styleOfX(html, {.baseURL = "http://h/a/b.html"}).link, row.link) << html;
  }
  EXPECT_EQ(styleOfX("<a href='c.html'>x").link, u"c.html");
  const auto document = documentOf("<p><a href=l>link</a></p>after");
  EXPECT_EQ(html_support::styleAt(document, 3).link, u"l");
  EXPECT_EQ(html_support::styleAt(document, 4).link, u"");  // the paragraph's end
}

// Thousands of addresses, each of a short one and a long base, are not all made.
TEST(HtmlDocument, ResolvesLinksAsFarAsTheyAreInStepWithTheDocument) {
  const std::string base = "http://x/" + std::string(2000, 'y') + "/";
  std::string html = "<base href='" + base + "'>";
  for (int link = 0; link < 2000; ++link) html += "<a href=" + std::to_string(link) + ">x</a>";
  const auto document = documentOf(html);
  EXPECT_EQ(html_support::utf8Of(html_support::styleAt(document, 0).link), base + "0");
  EXPECT_EQ(html_support::utf8Of(html_support::styleAt(document, 400).link), base + "400");
  EXPECT_EQ(html_support::styleAt(document, 1999).link, u"1999");
}

class HtmlPictures : public testing::Test {
 protected:
  static std::string png(int width, int height) {
    const std::vector<uint8_t> pixels(static_cast<size_t>(width * height) * 4, 99);
    return standin::formats::pictures::encode(pixels, {width, height}).value_or("");
  }
  static std::string dataURL(const std::string& bytes) {
    return "data:image/png;base64," +
           standin::formats::base64Of({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
  }
  static std::string contentsOf(const standin::text::Style& style) {
    if (style.attachment == nullptr) return "none";
    return {style.attachment->contents.begin(), style.attachment->contents.end()};
  }
};

TEST_F(HtmlPictures, ComeFromDataFilesAndArchives) {
  const file_wrapper_support::TemporaryFolder folder, outside;
  const std::string small = png(2, 3), large = png(9, 8), kept = png(4, 4);
  folder.file("a b.png", large);
  folder.file("text.png", "no picture");
  folder.file("below/b.png", small);
  std::filesystem::create_symlink(outside.file("o.png", large), folder / "link.png");
  const ReadOptions options{.baseURL = "file://" + (folder / "page.html"),
                            .folder = folder.path(),
                            .resource = [&](std::string_view url) -> std::optional<std::string> {
                              return url == "http://h/k.png" ? std::optional(kept) : std::nullopt;
                            }};
  const struct {
    std::string source, contents;
  } rows[] = {
      {dataURL(small), small},
      {"a%20b.png", large},
      {"file://" + (folder / "a%20b.png"), large},
      {"http://h/k.png", kept},
      {"http://h/x.png", ""},
      {"nosuch.png", ""},
      {"text.png", ""},
      {"/dev/zero", ""},
      {"file://elsewhere/a.png", ""},
      {"below/b.png", small},
      {"below/../../" + std::filesystem::path(folder.path()).filename().string() + "/a%20b.png", large},
      {"file://" + (outside / "o.png"), ""},
      {"link.png", ""},
      {"data:image/png;base64,", ""},
      {"data:nothing", ""},
  };
  for (const auto& [source, contents] : rows) {
    const auto document = documentOf("a<img src='" + source + "' alt=words>b", options);
    EXPECT_EQ(document.text, contents.empty() ? u"ab" : u"a\uFFFCb") << source;
    if (contents.empty()) continue;
    EXPECT_EQ(contentsOf(styleOf(document, u"\uFFFC")), contents) << source;
  }
  EXPECT_EQ(textOf("<img src='a%20b.png'>x", {.baseURL = options.baseURL}), "x");  // in no folder
}

TEST_F(HtmlPictures, HaveTheSizeThatIsSaid) {
  const std::string url = dataURL(png(2, 3));
  const struct {
    std::string attributes;
    double width, height;
  } rows[] = {{"", 0, 0}, {"width=20 height=30px", 20, 30}, {"width=5 style='width: 1in'", 72, 0}, {"width=50%", 0, 0}};
  for (const auto& row : rows) {
    const auto style = styleOf(documentOf("<img " + row.attributes + " src='" + url + "'>"), u"\uFFFC");
    ASSERT_NE(style.attachment, nullptr);
    EXPECT_EQ(style.attachment->width, row.width) << row.attributes;
    EXPECT_EQ(style.attachment->height, row.height) << row.attributes;
  }
  const auto twice = documentOf("<img src='" + url + "'><img src='" + url + "'>");
  EXPECT_EQ(twice.text, u"\uFFFC\uFFFC");
  EXPECT_EQ(html_support::styleAt(twice, 0).attachment->owner, html_support::styleAt(twice, 1).attachment->owner);
}

TEST_F(HtmlPictures, AndStyleSheetsStandBesideTheDocument) {
  const file_wrapper_support::TemporaryFolder folder;
  folder.file("a.css", "@import 'b.css'; @import url(a.css); p { color: red }");
  folder.file("b.css", "p { color: blue; font-size: 20px }");
  folder.file("print.css", "p { color: lime }");
  const ReadOptions options{.baseURL = "file://" + (folder / "page.html"), .folder = folder.path()};
  const auto style = styleOfX(
      "<link rel=stylesheet href=a.css><link rel=stylesheet media=print href=print.css>"
      "<link rel='alternate stylesheet' href=print.css><p>x",
      options);
  EXPECT_EQ(html_support::colorText(style.foreground), "ff0000");
  EXPECT_EQ(html_support::fontOf(style), "Times-Roman 20");
}

TEST(HtmlDocument, SaysWhatItIs) {
  const auto document = documentOf(
      "<title> A &amp;\n B </title><meta name=AUTHOR content=Me><meta name=dc.creator content=You>"
      "<meta name=description content='About it'><meta name=subject content=S><meta name=keywords content='a, b'>"
      "<meta name=company content=C><meta name=created content='2004-05-06T07:08:09'><meta name=generator content=G>"
      "<style>@page { size: 210mm 297mm; margin: 1in 2in; margin-left: 30pt }</style><svg><title>no</title></svg>");
  const auto& properties = document.properties;
  EXPECT_EQ(properties.title, u"A & B");
  EXPECT_EQ(properties.author, u"Me");
  EXPECT_EQ(properties.comment, u"About it");
  EXPECT_EQ(properties.subject, u"S");
  EXPECT_EQ(properties.keywords, u"a, b");
  EXPECT_EQ(properties.company, u"C");
  ASSERT_TRUE(properties.created);
  EXPECT_EQ(properties.created->minute, 8);
  EXPECT_NEAR(document.page.paperWidth.value_or(0), 595.276, 0.01);
  EXPECT_NEAR(document.page.paperHeight.value_or(0), 841.89, 0.01);
  EXPECT_EQ(document.page.topMargin, 72);
  EXPECT_EQ(document.page.rightMargin, 144);
  EXPECT_EQ(document.page.bottomMargin, 72);
  EXPECT_EQ(document.page.leftMargin, 30);
  const auto landscape = documentOf("<style>@page { size: a4 landscape }</style>");
  EXPECT_EQ(landscape.page.paperWidth, 842);
  EXPECT_EQ(landscape.page.topMargin, std::nullopt);
}

class HtmlOptions : public testing::Test {
 protected:
  // The string that the data and the options make, and its attributes at a character.
  static NSAttributedString* made(const std::string& html,
                                  std::initializer_list<std::pair<NSObject*, NSObject*>> options = {}) {
    using namespace file_wrapper_support;
    Owned<NSMutableDictionary> all = newMutableDictionary(newDictionary(options).autorelease());
    set(all, NSDocumentTypeDocumentOption, NSHTMLTextDocumentType);
    NSError* error = nullptr;
    return adopt(send<NSAttributedString*>(
                     alloc<NSAttributedString>(), "initWithData:options:documentAttributes:error:", bytes(html),
                     static_cast<NSDictionary*>(all.get()), static_cast<NSDictionary**>(nullptr), &error))
        .autorelease();
  }
  static NSObject* attribute(NSAttributedString* string, NSString* name) {
    return file_wrapper_support::find(NSAttributedString::attributesAtIndex(string, 0, nullptr), name);
  }
  static double fontSize(NSAttributedString* string) {
    return NSFont::pointSize(static_cast<NSFont*>(attribute(string, NSFontAttributeName)));
  }

  AutoreleasePool pool_;
};

TEST_F(HtmlOptions, AreObeyed) {
  using namespace file_wrapper_support;
  NSObject* utf8Number = newNumber(4).autorelease();
  EXPECT_EQ(utf8(NSAttributedString::string(
                made("<meta charset=koi8-r>\xC3\xA9", {{NSCharacterEncodingDocumentOption, utf8Number}}))),
            "é");
  EXPECT_EQ(utf8(NSAttributedString::string(made("\xC1", {{NSTextEncodingNameDocumentOption, ns("koi8-r")}}))), "а");
  EXPECT_EQ(fontSize(made("<b>x", {{NSTextSizeMultiplierDocumentOption, newNumber(1.5).autorelease()}})), 18);
  NSURL* base = NSURL::URLWithString(classOf<NSURL>(), ns("http://h/a/"));
  EXPECT_EQ(describe(attribute(made("<a href=b>x", {{NSBaseURLDocumentOption, base}}), NSLinkAttributeName)),
            "http://h/a/b");
  NSObject* font = NSFont::fontWithName(classOf<NSFont>(), ns("Georgia"), 20);
  NSDictionary* defaults = newDictionary({{NSFontAttributeName, font}}).autorelease();
  EXPECT_EQ(fontSize(made("x", {{NSDefaultAttributesDocumentOption, defaults}})), 20);
  EXPECT_EQ(fontSize(made("<p style='font-size: 9px'>x", {{NSDefaultAttributesDocumentOption, defaults}})), 9);
}

TEST_F(HtmlOptions, ComeWithTheMessages) {
  using namespace file_wrapper_support;
  NSDictionary* attributes = nullptr;
  NSURL* base = NSURL::URLWithString(classOf<NSURL>(), ns("http://h/a/"));
  const Owned<NSAttributedString> string = adopt(NSAttributedString::initWithHTMLBase(
      alloc<NSAttributedString>(), bytes("<title>T</title><a href=b>x"), base, &attributes));
  EXPECT_EQ(describe(attribute(string, NSLinkAttributeName)), "http://h/a/b");
  EXPECT_EQ(utf8(find(attributes, NSTitleDocumentAttribute)), "T");
  EXPECT_EQ(utf8(find(attributes, NSDocumentTypeDocumentAttribute)), "NSHTML");
}

// Bytes that try what is dear: depth, copies of formatting, rules times elements, styles, unclosed everything.
TEST(HtmlDocument, BoundsHostileBytes) {
  const auto repeated = [](std::string_view part, int count) {
    std::string text;
    for (int index = 0; index < count; ++index) text += part;
    return text;
  };
  std::string rules, styles;
  for (int index = 0; index < 3000; ++index) {
    rules += "z" + std::to_string(index) + " b c{color:red}";
    styles += "<b style='font-size:" + std::to_string(index) + "px'>s";
  }
  const std::string rows[] = {
      repeated("<div>", 20'000) + "x",
      repeated("<b><i><u><s><a href=y>", 4'000) + repeated("<p>x", 4'000),
      repeated("<b><p>", 5'000) + repeated("</b>", 5'000) + "x",
      repeated("<ul><li>", 5'000) + "x",
      repeated("<table><tr><td>", 5'000) + "x",
      "<style>" + rules + "</style>" + repeated("<c>", 3'000) + "x",
      styles + "x",
      "<style>" + repeated("a,", 50'000) + "p{color:red}</style><p>x",
      "<style>" + repeated("@media all{", 20'000) + "</style>x",
      "<style>p{color:" + repeated("(", 50'000) + "</style>x",
      "x" + repeated("&", 50'000) + repeated("<", 50'000) + repeated("<!--", 20'000),
      "<p " + repeated("a=", 50'000) + ">x",
      "<p style='" + repeated("font:1px a;", 10'000) + "'>x",
      "<style>b b b b b b b b b b b b i{color:red}</style>" + repeated("<b>", 500) + repeated("<i>x</i>", 500),
  };
  for (const std::string& html : rows) {
    const auto start = std::chrono::steady_clock::now();
    const auto document = documentOf(html);
    EXPECT_NE(document.text.find(u'x'), std::u16string::npos) << html.substr(0, 40);
    EXPECT_LT(document.runs.size() + document.styles.size(), html.size()) << html.substr(0, 40);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)) << html.substr(0, 40);
  }
}

// Wherever a document is cut off, what came before is read.
TEST(HtmlDocument, ReadsWhatIsCutOff) {
  const std::string whole =
      "<!DOCTYPE html><html><head><meta charset=utf-8><title>t\xC3\xA9</title><style>p > b:nth-child(2n+1)::x, .c "
      "{ font: 1em/2 'a\\41 '; color: rgb(1,2,3) !important }</style></head><body><!-- c --><p class=\"c\" style='x:y'>"
      "a &eacute;&#xE9; <b>b<table><tr><td><i>c</b>d</table><ul><li>e<pre>\n f</pre><a href=\"data:,\">g<img "
      "src=\"data:;base64,QQ==\">";
  for (size_t length = 0; length <= whole.size(); ++length) {
    const auto document = parsed(whole.substr(0, length));
    ASSERT_TRUE(document) << length;
    size_t units = 0;
    for (const auto& run : document->runs) units += run.length;
    EXPECT_EQ(units, document->text.size()) << length;
  }
}

}  // namespace
