// PDF pages as another program reads them: text, places, colours, links, pictures, and how the view is cut into pages.
#include <gtest/gtest.h>
#include <poppler-document.h>
#include <poppler-font.h>
#include <poppler-global.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>
#include <poppler-toc.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>

#include "standin/formats/pictures/picture.hpp"
#include "standin/layout/pdf.hpp"
#include "standin/text/font_faces.hpp"

namespace {

using namespace standin::layout;
namespace text = standin::text;
using standin::formats::DocumentInformation;
using standin::formats::StyledRuns;
using standin::text::Style;

std::string fileName() {
  return std::filesystem::temp_directory_path() / ("pdf_pages_test." + std::to_string(getpid()) + ".pdf");
}

// A document of runs, written and read again.
class Printed {
 public:
  explicit Printed(const std::vector<std::pair<std::u16string, Style>>& runs, const PageGeometry& geometry = {},
                   const DocumentInformation& information = {}) {
    std::u16string whole;
    StyledRuns styled;
    for (const auto& [characters, style] : runs) {
      whole += characters;
      styled.runs.push_back({static_cast<uint32_t>(characters.size()), &style});
    }
    styled.text = text::Text::utf16(whole);
    isWritten = writePDF(styled, information, geometry, fileName(), [&](int page) { pages.push_back(page); });
    std::ifstream file(fileName(), std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    std::filesystem::remove(fileName());
    document.reset(poppler::document::load_from_raw_data(bytes.data(), static_cast<int>(bytes.size())));
  }
  explicit Printed(const std::u16string& characters, const PageGeometry& geometry = {})
      : Printed({{characters, Style()}}, geometry) {}

  std::unique_ptr<poppler::page> page(int number) const {
    return std::unique_ptr<poppler::page>(document->create_page(number - 1));
  }
  // The words of a page, each with a space behind it.
  std::string words(int number) const {
    std::string found;
    for (const auto& box : page(number)->text_list()) {
      const auto utf8 = box.text().to_utf8();
      found.append(utf8.begin(), utf8.end());
      found += ' ';
    }
    return found;
  }
  // The place of the page's first word, in points from the left upper corner.
  poppler::rectf firstPlace(int number = 1) const { return page(number)->text_list().front().bbox(); }

  // At one pixel a point: how many pixels of the first page are of this colour, give or take some.
  int pixelsOf(int red, int green, int blue) const {
    poppler::page_renderer renderer;
    renderer.set_image_format(poppler::image::format_argb32);
    const poppler::image image = renderer.render_page(page(1).get());
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      const auto* row = reinterpret_cast<const uint8_t*>(image.const_data()) + y * image.bytes_per_row();
      for (int x = 0; x < image.width(); ++x) {
        const uint8_t* pixel = row + 4 * x;
        count += std::abs(pixel[0] - blue) + std::abs(pixel[1] - green) + std::abs(pixel[2] - red) < 60 ? 1 : 0;
      }
    }
    return count;
  }

  bool isWritten = false;
  std::vector<int> pages;
  std::string bytes;
  std::unique_ptr<poppler::document> document;
};

text::Color rgb(double red, double green, double blue) { return {text::ColorSpace::deviceRGB, {red, green, blue}}; }

template <class Change>
Style changed(Change&& change) {
  Style style;
  change(style);
  return style;
}

std::u16string lines(int count) {
  std::u16string made;
  for (int line = 1; line <= count; ++line) made += u"line\n";
  return made;
}

TEST(PdfPages, GiveTheirTextBack) {
  // However the glyphs are joined, put above each other or lacking.
  const std::pair<std::u16string, std::string> rows[] = {
      {u"plain words (and) \\marks", "plain words (and) \\marks "},
      {u"office waffle AVATAR", "office waffle AVATAR "},
      {u"caf\u00E9 \u20AC42 \u201Cquoted\u201D", "caf\u00E9 \u20AC42 \u201Cquoted\u201D "},
      {u"\u65E5\u672C\u8A9E", "\u65E5\u672C\u8A9E "},
      {u"\u0395\u03BB\u03BB\u03B7\u03BD\u03B9\u03BA\u03AC", "\u0395\u03BB\u03BB\u03B7\u03BD\u03B9\u03BA\u03AC "},
      {u"\u0939\u093F\u0928\u094D\u0926\u0940", "\u0939\u093F\u0928\u094D\u0926\u0940 "},
      {u"\U0001F600 \U0001F1E9\U0001F1EA", "\U0001F600 \U0001F1E9\U0001F1EA "},
      {u"\u05E9\u05DC\u05D5\u05DD", "\u05DD\u05D5\u05DC\u05E9 "},  // boxes are read from left to right
  };
  for (const auto& [characters, words] : rows) EXPECT_EQ(Printed(characters).words(1), words);
}

TEST(PdfPages, EmbedSubsetsOfFonts) {
  const Printed printed(u"some words");
  int count = 0;
  for (const std::unique_ptr<poppler::font_iterator> fonts(printed.document->create_font_iterator()); fonts->has_next();) {
    for (const poppler::font_info& font : fonts->next()) {
      ++count;
      EXPECT_TRUE(font.is_embedded() && font.is_subset()) << font.name();
    }
  }
  EXPECT_EQ(count, 1);
  EXPECT_LT(printed.bytes.size(), 12'000u);
}

TEST(PdfPages, StandWhereTheMarginsPutThem) {
  for (const double margin : {72.0, 30.0, 100.5}) {
    PageGeometry geometry;
    geometry.leftMargin = geometry.topMargin = margin;
    const poppler::rectf place = Printed(u"Hx", geometry).firstPlace();
    EXPECT_NEAR(place.left(), margin + 5, 0.1);
    EXPECT_NEAR(place.top(), margin, 1.5);
  }
}

TEST(PdfPages, PutEmojiAmongTheWords) {
  const auto words = Printed(u"one \U0001F600 two\nthree \U0001F44D\U0001F3FD four").page(1)->text_list();
  std::string order;
  for (const auto& word : words) {
    const auto utf8 = word.text().to_utf8();
    order.append(utf8.begin(), utf8.end());
    order += ' ';
    EXPECT_NEAR(word.bbox().height(), 13, 4);
  }
  EXPECT_EQ(order, "one \U0001F600 two three \U0001F44D\U0001F3FD four ");
}

TEST(PdfPages, ShowTextThatItsParagraphPushesAway) {
  const std::function<void(text::Paragraph&)> changes[] = {
      [](auto& it) { it.spacingBefore = 800; }, [](auto& it) { it.minimumLineHeight = 1000; },
      [](auto& it) { it.lineHeightMultiple = 1000; }, [](auto& it) { it.spacingAfter = it.lineSpacing = 5000; },
      [](auto& it) { it.firstLineIndent = it.headIndent = 1000; }};
  for (const auto& change : changes) {
    const Style style = changed([&](Style& it) { change(it.paragraph); });
    const Printed printed({{u"I\nx", style}});
    std::string words;
    for (int page = 1; page <= printed.document->pages(); ++page) {
      for (const auto& box : printed.page(page)->text_list()) {
        words += box.text().to_latin1();
        EXPECT_TRUE(box.bbox().right() < 595 && box.bbox().bottom() < 842) << &change - changes;
      }
    }
    EXPECT_EQ(words, "Ix") << &change - changes;
  }
}

TEST(PdfPages, AreCutBetweenLines) {
  // 14 points a line make 49 lines of a page of 698 points.
  const Printed printed(lines(120));
  EXPECT_EQ(printed.pages, (std::vector{1, 2, 3}));
  EXPECT_EQ(printed.document->pages(), 3);
  for (const auto& [page, count] : {std::pair{1, 49}, {2, 49}, {3, 22}}) {
    const auto boxes = printed.page(page)->text_list();
    EXPECT_EQ(std::ssize(boxes), count);
    EXPECT_NEAR(boxes.front().bbox().top(), 72, 1.5);
    EXPECT_LT(boxes.back().bbox().bottom(), 842 - 72 + 1);
  }
}

TEST(PdfPages, OfNoTextOrOnePageBreak) {
  EXPECT_EQ(Printed(u"").document->pages(), 1);
  const Printed printed(u"one\ftwo\f\ffour");
  ASSERT_EQ(printed.document->pages(), 4);
  EXPECT_EQ(printed.words(2), "two ");
  EXPECT_EQ(printed.words(3), "");
  EXPECT_EQ(printed.words(4), "four ");
}

TEST(PdfPages, ShowAWideViewByItsPagination) {
  PageGeometry geometry;
  geometry.viewWidth = 902;
  const std::u16string line = u"begin " + std::u16string(110, u'n') + u" end";
  const struct {
    Pagination pagination;
    int pages;
    double height;  // of the first word
  } rows[] = {{Pagination::automatic, 2, 12}, {Pagination::fit, 1, 6}, {Pagination::clip, 1, 12}};
  for (const auto& row : rows) {
    geometry.horizontal = row.pagination;
    const Printed printed(line, geometry);
    EXPECT_EQ(printed.document->pages(), row.pages);
    EXPECT_NEAR(printed.firstPlace().height(), row.height, 1);
  }
  geometry.horizontal = Pagination::automatic;
  EXPECT_TRUE(Printed(line, geometry).words(2).ends_with("end "));
}

TEST(PdfPages, ShowALongViewByItsPagination) {
  const struct {
    Pagination pagination;
    int pages;
    bool showsEnd;
  } rows[] = {{Pagination::automatic, 3, false}, {Pagination::fit, 1, true}, {Pagination::clip, 1, false}};
  for (const auto& row : rows) {
    PageGeometry geometry;
    geometry.vertical = row.pagination;
    const Printed printed(lines(120) + u"end", geometry);
    EXPECT_EQ(printed.document->pages(), row.pages);
    EXPECT_EQ(printed.words(1).ends_with("end "), row.showsEnd);
  }
}

TEST(PdfPages, AreScaledCenteredTurnedAndChosen) {
  PageGeometry geometry;
  geometry.scale = 0.5;
  EXPECT_NEAR(Printed(u"Hx", geometry).firstPlace().left(), 72 + 2.5, 0.1);
  geometry.centersHorizontally = geometry.centersVertically = true;
  EXPECT_NEAR(Printed(u"Hx", geometry).firstPlace().left(), 72 + 225.5 / 2 + 2.5, 0.1);
  EXPECT_NEAR(Printed(u"Hx", geometry).firstPlace().top(), 842.0 / 2 - 3.5, 1.5);
  geometry = {842, 595};
  EXPECT_EQ(Printed(u"x", geometry).page(1)->page_rect().width(), 842);
  geometry = {};
  geometry.firstPage = geometry.lastPage = 2;
  const Printed second(u"one\ftwo\fthree", geometry);
  EXPECT_EQ(second.pages, std::vector{2});
  EXPECT_EQ(second.words(1), "two ");
}

TEST(PdfPages, HaveLinksHeadingsAndInformation) {
  DocumentInformation information;
  information.properties.title = u"Title \u00E9";
  information.properties.author = u"Author";
  information.properties.keywords = u"one, two";
  information.properties.created = {2004, 5, 6, 7, 8, 9};
  information.properties.modified = {12'345, 5, 6, 7, 8, -9};  // which cannot be written
  const Printed printed({{u"Chapter\n", changed([](Style& style) { style.paragraph.headerLevel = 1; })},
                         {u"Section\n", changed([](Style& style) { style.paragraph.headerLevel = 2; })},
                         {u"a link", changed([](Style& style) { style.link = u"http://example.org/(a) \u00E9"; })},
                         {u" and\f", Style()},
                         {u"Next", changed([](Style& style) { style.paragraph.headerLevel = 1; })}},
                        {}, information);
  EXPECT_NE(printed.bytes.find("/URI(http://example.org/\\(a\\)%20%C3%A9)"), std::string::npos);
  EXPECT_EQ(printed.document->get_title(), poppler::ustring::from_utf8("Title \u00E9"));
  EXPECT_NE(printed.bytes.find("/CreationDate(D:20040506070809)"), std::string::npos);
  EXPECT_EQ(printed.bytes.find("/ModDate"), std::string::npos);
  EXPECT_EQ(printed.document->get_author().to_latin1(), "Author");
  EXPECT_EQ(printed.document->get_keywords().to_latin1(), "one, two");
  const std::unique_ptr<poppler::toc> contents(printed.document->create_toc());
  ASSERT_NE(contents, nullptr);
  const auto chapters = contents->root()->children();
  ASSERT_EQ(chapters.size(), 2u);
  EXPECT_EQ(chapters[1]->title().to_latin1(), "Next");
  ASSERT_EQ(chapters[0]->children().size(), 1u);
  EXPECT_EQ(chapters[0]->children()[0]->title().to_latin1(), "Section");
}

TEST(PdfPages, ShowColorsLinesAndShadows) {
  const auto red = rgb(1, 0, 0);
  const struct {
    const char* what;
    void (*set)(Style&, const text::Color&);
    int least, most;  // red pixels
  } rows[] = {
      {"nothing", [](Style&, const auto&) {}, 0, 0},
      {"foreground", [](Style& style, const auto& color) { style.foreground = color; }, 100, 2000},
      {"background", [](Style& style, const auto& color) { style.background = color; }, 2000, 9000},
      {"underline", [](Style& style, const auto& color) { style.underline = 1, style.underlineColor = color; }, 80, 600},
      {"thick", [](Style& style, const auto& color) { style.underline = 2, style.underlineColor = color; }, 150, 1000},
      {"strike", [](Style& style, const auto& color) { style.strikethrough = 1, style.strikethroughColor = color; }, 60,
       450},
      {"shadow",
       [](Style& style, const auto& color) {
         style.shadow = text::Shadow{0, -40, 0, color};
       },
       100, 2000},
      {"shadow of a line",
       [](Style& style, const auto& color) {
         style.foreground = style.underlineColor = rgb(1, 1, 1);
         style.underline = 2;
         style.shadow = text::Shadow{0, -40, 0, color};
       },
       1800, 4000},
      {"faint outline",
       [](Style& style, const auto& color) {
         style.foreground = color;
         style.strokeWidth = -1;
         style.strokeColor = text::Color{text::ColorSpace::deviceRGB, {0, 0, 1}, 0.1};
       },
       100, 3000},
      {"hollow", [](Style& style, const auto& color) { style.strokeWidth = 5, style.strokeColor = color; }, 100, 3000},
      {"stroked", [](Style& style, const auto& color) { style.strokeWidth = -5, style.strokeColor = color; }, 100, 3000},
  };
  for (const auto& row : rows) {
    Style style;
    style.font = text::fontNamed("Helvetica-Bold", 40);
    row.set(style, red);
    const Printed printed({{u"Words", style}});
    const int count = printed.pixelsOf(255, 0, 0);
    EXPECT_TRUE(count >= row.least && count <= row.most) << row.what << ' ' << count;
    // What is drawn twice is still one text.
    EXPECT_EQ(printed.words(1), "Words ") << row.what;
  }
}

TEST(PdfPages, DrawDashesAndLeaveSpacesOutByWord) {
  const auto redPixels = [](int underline) {
    Style style;
    style.font = text::fontNamed("Helvetica", 40);
    style.underline = underline;
    style.underlineColor = rgb(1, 0, 0);
    return Printed({{u"one one one", style}}).pixelsOf(255, 0, 0);
  };
  const int whole = redPixels(2);
  for (const int style : {0x102, 0x202, 0x302, 0x402, 0x8002}) {
    EXPECT_LT(redPixels(style), whole * 19 / 20) << style;
    EXPECT_GT(redPixels(style), whole / 10) << style;
  }
  EXPECT_GT(redPixels(9), redPixels(1));
}

text::Attachment attachment(const std::string& contents, double width = 0, double height = 0) {
  const auto owner = std::make_shared<std::string>(contents);
  return {"notes.txt", {reinterpret_cast<const uint8_t*>(owner->data()), owner->size()}, owner, width, height};
}

TEST(PdfPages, ShowPicturesNoLargerThanTheLineAndOtherFilesAsIcons) {
  std::string pixels;
  for (int pixel = 0; pixel < 40 * 20; ++pixel) pixels += "\xFF\x01\x01\xFF";
  const std::span bytes(reinterpret_cast<const uint8_t*>(pixels.data()), pixels.size());
  const std::string png = *standin::formats::pictures::encode(bytes, {40, 20});
  const struct {
    double width, height;
    int red;  // pixels
  } rows[] = {{0, 0, 800}, {80, 40, 3200}, {80, 0, 3200}, {4410, 1000, 441 * 100}, {1000, 6980, 100 * 698}};
  for (const auto& row : rows) {
    Style style;
    style.attachment = std::make_shared<text::Attachment>(attachment(png, row.width, row.height));
    EXPECT_NEAR(Printed({{u"\uFFFC", style}}).pixelsOf(255, 1, 1), row.red, row.red / 8.0 + 8) << row.width;
  }
  for (const std::string& contents : {std::string("no picture"), std::string()}) {
    Style style;
    style.attachment = std::make_shared<text::Attachment>(attachment(contents));
    const Printed printed({{u"\uFFFC after", style}});
    EXPECT_TRUE(printed.isWritten);
    EXPECT_NE(printed.words(1).find("after"), std::string::npos);
    EXPECT_NE(printed.words(1).find("notes.txt"), std::string::npos);
  }
}

TEST(PdfPages, HoldAPictureOnceInWhateverSizes) {
  const std::string pixel("\xFF\x01\x01\xFF");
  const std::string png =
      *standin::formats::pictures::encode({reinterpret_cast<const uint8_t*>(pixel.data()), pixel.size()}, {1, 1});
  Style small, large;
  small.attachment = std::make_shared<text::Attachment>(attachment(png, 8, 8));
  auto resized = *small.attachment;
  resized.width = 40;
  large.attachment = std::make_shared<text::Attachment>(resized);
  const Printed printed({{u"\uFFFC", small}, {u"\uFFFC", large}});
  EXPECT_EQ(printed.bytes.find("/ColorSpace/DeviceRGB"), printed.bytes.rfind("/ColorSpace/DeviceRGB"));
  EXPECT_NEAR(printed.pixelsOf(255, 1, 1), 8 * 8 + 40 * 8, 80);
}

TEST(PdfPages, LeavePicturesOutOfShadows) {
  Style style;
  style.font = text::fontNamed("Helvetica", 40);
  const int yellow = Printed({{u"\U0001F600", style}}).pixelsOf(255, 200, 60);
  EXPECT_GT(yellow, 20);
  style.shadow = text::Shadow{100, -100, 0, rgb(1, 0, 0)};
  EXPECT_EQ(Printed({{u"\U0001F600", style}}).pixelsOf(255, 200, 60), yellow);
}

TEST(PdfPages, ShowPicturesWithTheirLineAndIconsForBrokenOnes) {
  std::string pixels(40 * 80 * 4, '\x7F');
  const std::span bytes(reinterpret_cast<const uint8_t*>(pixels.data()), pixels.size());
  const std::string png = *standin::formats::pictures::encode(bytes, {40, 80});
  const auto wordAfter = [](const std::string& contents, double height) {
    Style style;
    style.attachment = std::make_shared<text::Attachment>(attachment(contents, 0, height));
    const auto words = Printed({{u"\uFFFCgap", style}}).page(1)->text_list();
    return words.back().bbox();
  };
  // A picture as high as the page leaves room for what hangs below the line.
  EXPECT_LE(wordAfter(png, 5000).bottom(), 842 - 72 + 1);
  // The header alone makes no picture: an icon is far smaller.
  const std::string broken = png.substr(0, 40);
  EXPECT_LT(wordAfter(broken, 5000).bottom(), 72 + 70);
}

TEST(PdfPages, HaveTheLinksOfWhatTheyShow) {
  PageGeometry geometry;
  geometry.viewWidth = 902;
  const auto linked = [](const char16_t* target) { return changed([&](Style& style) { style.link = target; }); };
  const Printed printed({{std::u16string(10, u'n') + u'\n' + std::u16string(10, u'n') + u' ', linked(u"x:near")},
                         {std::u16string(60, u'n') + u' ', Style()},
                         {std::u16string(10, u'n'), linked(u"x:far")}},
                        geometry);
  ASSERT_EQ(printed.document->pages(), 2);
  const auto count = [&](const std::string& part) {
    int found = 0;
    for (size_t at = printed.bytes.find(part); at != std::string::npos; at = printed.bytes.find(part, at + 1)) ++found;
    return found;
  };
  EXPECT_EQ(count("/Subtype/Link"), 3) << "one for each line";
  EXPECT_EQ(count("(x:near)"), 1);
  EXPECT_EQ(count("(x:far)"), 1);
}

TEST(PdfPages, SurviveNonsense) {
  Style style;
  style.font = text::fontNamed("Helvetica", 1e9);
  style.kern = style.expansion = style.obliqueness = style.baselineOffset = style.strokeWidth = NAN;
  style.paragraph.firstLineIndent = 1e9;
  style.paragraph.tailIndent = -1e9;
  style.paragraph.lineHeightMultiple = INFINITY;
  style.paragraph.tabs = std::vector<text::TabStop>{{NAN, text::TabKind::right}, {INFINITY}};
  const std::u16string surrogates{0xD800, u' ', 0xDC00, 1};
  const Printed printed({{u"a\tb" + surrogates + u" c", style}});
  EXPECT_TRUE(printed.isWritten);
  ASSERT_NE(printed.document, nullptr);
  EXPECT_GE(printed.document->pages(), 1);
}

TEST(PdfPages, FailWhereNoFileCanBe) {
  const StyledRuns empty;
  for (const char* path : {"/no/such/folder/a.pdf", "/dev/full"}) EXPECT_FALSE(writePDF(empty, {}, {}, path, {})) << path;
}

}  // namespace
