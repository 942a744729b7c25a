// A document that uses everything, written and read again in every format that keeps style: what comes back is the same, but
// for what the format is known to lose. And what is left of each when it is cut off or changed in any place.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>
#include <set>

#include "standin/appkit/document_attributes.hpp"
#include "standin/appkit/document_formats.hpp"
#include "standin/appkit/document_text.hpp"
#include "standin/formats/colors.hpp"
#include "standin/formats/document_builder.hpp"
#include "standin/formats/pictures/embedded.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/string.hpp"
#include "standin/text/font_faces.hpp"

namespace standin {
namespace {

using formats::Document;
using text::Style;

constexpr char16_t picture[] = {text::attachmentCharacter, 0};

std::string pngBytes() {
  std::vector<uint8_t> pixels(8 * 6 * 4);
  for (size_t index = 0; index < pixels.size(); ++index) pixels[index] = static_cast<uint8_t>(index * 5 % 251);
  return *formats::pictures::encode(pixels, {8, 6});
}

Style fontStyle(const char* name, uint64_t traits, double size) {
  Style style;
  style.font = text::fontMeant(name, traits, size);
  return style;
}

// Paragraph by paragraph, so that paragraph styles hold for whole paragraphs.
Document everything() {
  formats::DocumentBuilder builder;
  const Style plain = fontStyle("Times", 0, 12);
  const auto add = [&](std::u16string_view text, const Style& style) { builder.append(text, builder.intern(style)); };
  const auto with = [&](auto change) {
    Style style = plain;
    change(style);
    return style;
  };
  Style heading = fontStyle("Helvetica", text::boldTrait, 24);
  heading.paragraph.headerLevel = 1;
  heading.paragraph.alignment = text::Alignment::center;
  heading.paragraph.spacingAfter = 9;
  add(u"A heading\n", heading);
  add(u"plain, ", plain);
  add(u"bold, ", fontStyle("Times", text::boldTrait, 12));
  add(u"italic, ", fontStyle("Times", text::italicTrait, 12));
  add(u"both, ", fontStyle("Times", text::boldTrait | text::italicTrait, 12));
  add(u"courier, ", fontStyle("Courier", 0, 10));
  add(u"underlined, ", with([](Style& style) { style.underline = 1; }));
  add(u"struck, ", with([](Style& style) { style.strikethrough = 1; }));
  add(u"red, ", with([](Style& style) { style.foreground = formats::colorNamed("#c03020"); }));
  add(u"marked, ", with([](Style& style) { style.background = formats::colorNamed("#ffee88"); }));
  add(u"up", with([](Style& style) { style.superscript = 1; }));
  add(u"down", with([](Style& style) { style.superscript = -1; }));
  add(u" and a ", plain);
  add(u"link & more", with([](Style& style) { style.link = u"https://example.org/a?b=c&d=%20e"; }));
  add(u" with Grüße, 山田, \U0001F600, \"quotes\" <tags> and  two spaces,\ttab.\n", plain);
  add(u"Indented and justified.\n", with([](Style& style) {
        style.paragraph.alignment = text::Alignment::justified;
        style.paragraph.headIndent = 36;
        style.paragraph.firstLineIndent = 54;
        style.paragraph.tailIndent = -18;
        style.paragraph.spacingBefore = 6;
      }));
  add(u"left\tright\n", with([](Style& style) {
        style.paragraph.alignment = text::Alignment::right;
        style.paragraph.tabs = {{{100, text::TabKind::left}, {200, text::TabKind::right}, {300, text::TabKind::decimal}}};
      }));
  add(u"line\u2028break\n", with([](Style& style) { style.paragraph.lineHeightMultiple = 1.5; }));
  add(u"spaced\n", with([](Style& style) { style.kern = 2; }));
  add(u"tall\n", with([](Style& style) { style.paragraph.minimumLineHeight = style.paragraph.maximumLineHeight = 30; }));
  add(u"שלום\n", with([](Style& style) { style.paragraph.direction = text::WritingDirection::rightToLeft; }));
  add(u"\n", plain);
  add(u"A picture: ", plain);
  Style pictured = plain;
  pictured.attachment = formats::pictures::newAttachment(pngBytes(), "dots.png", 48, 36);
  add(picture, pictured);
  add(u" and the end.", plain);
  builder.document.properties.title = u"Title & <more>";
  builder.document.properties.author = u"Zoë";
  builder.document.properties.keywords = u"one, two";
  builder.document.page = {500, 700, 40, 50, 60, 70};
  return builder.document;
}

std::string number(double value) { return std::to_string(std::lround(value * 10)); }
std::string colorText(const std::optional<text::Color>& color) { return color ? formats::hexOf(*color) : "none"; }

// The features of a style, as texts that are equal when they mean the same.
std::map<std::string, std::string> featuresOf(const Style& style) {
  const text::Paragraph& paragraph = style.paragraph;
  std::string tabs;
  for (const text::TabStop& tab : paragraph.tabs.value_or(std::vector<text::TabStop>())) {
    tabs += number(tab.position) + "/" + std::to_string(static_cast<int>(tab.kind)) + " ";
  }
  const bool isLink = !style.link.empty();
  return {
      {"font", style.font ? style.font->family : ""},
      {"size", style.font ? number(style.font->size) : ""},
      {"bold", style.font && style.font->bold() ? "yes" : "no"},
      {"italic", style.font && style.font->italic() ? "yes" : "no"},
      // Formats give links a look of their own.
      {"underline", isLink ? "" : std::to_string(style.underline)},
      {"color", isLink || colorText(style.foreground) == "000000" ? "none" : colorText(style.foreground)},
      {"strike", std::to_string(style.strikethrough)},
      {"background", colorText(style.background)},
      {"script", std::to_string(style.superscript)},
      {"kern", number(style.kern)},
      {"link", std::string(style.link.text().begin(), style.link.text().end())},
      {"alignment", std::to_string(static_cast<int>(paragraph.alignment) % 4)},
      {"direction", paragraph.direction == text::WritingDirection::rightToLeft ? "rtl" : ""},
      {"indents",
       number(paragraph.firstLineIndent) + " " + number(paragraph.headIndent) + " " + number(paragraph.tailIndent)},
      {"spacing", number(paragraph.spacingBefore) + " " + number(paragraph.spacingAfter)},
      {"line height", number(paragraph.lineHeightMultiple) + " " + number(paragraph.minimumLineHeight) + " " +
                          number(paragraph.maximumLineHeight)},
      {"tabs", tabs},
      {"heading", std::to_string(paragraph.headerLevel)},
      {"picture", style.attachment == nullptr ? ""
                                              : number(style.attachment->width) + " " + number(style.attachment->height) +
                                                    " " + std::to_string(style.attachment->contents.size())},
  };
}

std::vector<const Style*> stylesByUnit(const Document& document) {
  std::vector<const Style*> styles;
  for (const formats::DocumentRun& run : document.runs) styles.insert(styles.end(), run.length, &document.styles[run.style]);
  return styles;
}

std::string utf8(const std::u16string& text) {
  return foundation::utf8Of(foundation::newString(std::u16string_view(text)).autorelease());
}

Owned<NSDictionary> ofType(NSString* type) { return foundation::newDictionary({{NSDocumentTypeDocumentAttribute, type}}); }

std::string written(const Document& document, NSString* type) {
  const AutoreleasePool pool;
  NSDictionary* attributes = appkit::documentAttributesOf(document, type);
  const text::StyledText styled = appkit::styledTextOf(document);
  appkit::ExportedRuns runs(styled, {0, styled.length()});
  NSError* error = nullptr;
  const Owned<NSData> data = appkit::newDocumentData(runs, attributes, &error);
  if (!data) return "";
  const auto bytes = foundation::bytesOf(data.get());
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Of the type, or of the one that is found.
std::optional<Document> read(const std::string& bytes, NSString* type) {
  const AutoreleasePool pool;
  const Owned<NSDictionary> options = type != nullptr ? ofType(type) : nullptr;
  NSError* error = nullptr;
  auto found = appkit::readDocument(
      {.bytes = {reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()}, .options = options}, &error);
  if (!found) return std::nullopt;
  return std::move(found->document);
}

struct Format {
  NSString* const* type;
  std::set<std::string> lost;  // features that do not come back for every unit
};
const Format formatTable[] = {
    {&NSRTFTextDocumentType, {}},          {&NSHTMLTextDocumentType, {"tabs"}},    {&NSWebArchiveTextDocumentType, {"tabs"}},
    {&NSDocFormatTextDocumentType, {}},    {&NSOfficeOpenXMLTextDocumentType, {}}, {&NSWordMLTextDocumentType, {}},
    {&NSOpenDocumentTextDocumentType, {}},
};

TEST(DocumentRoundTrip, KeepsEverything) {
  const AutoreleasePool pool;
  const Document original = everything();
  const auto before = stylesByUnit(original);
  for (const Format& format : formatTable) {
    SCOPED_TRACE(foundation::utf8Of(*format.type));
    const auto again = read(written(original, *format.type), nullptr);
    ASSERT_TRUE(again);
    ASSERT_EQ(utf8(again->text), utf8(original.text));
    const auto after = stylesByUnit(*again);
    std::map<std::string, std::string> lost;
    for (size_t unit = 0; unit < before.size(); ++unit) {
      const auto wanted = featuresOf(*before[unit]), got = featuresOf(*after[unit]);
      for (const auto& [feature, value] : wanted) {
        if (got.at(feature) != value) {
          lost.try_emplace(feature,
                           "'" + utf8(original.text.substr(unit, 8)) + "': " + value + " became " + got.at(feature));
        }
      }
    }
    for (const auto& [feature, example] : lost) EXPECT_TRUE(format.lost.contains(feature)) << feature << " at " << example;
    for (const std::string& feature : format.lost) EXPECT_TRUE(lost.contains(feature)) << feature << " is kept";
    EXPECT_EQ(utf8(again->properties.title), "Title & <more>");
    EXPECT_EQ(utf8(again->properties.author), "Zoë");
    EXPECT_EQ(utf8(again->properties.keywords), "one, two");
  }
}

TEST(DocumentRoundTrip, KeepsShortTexts) {
  const AutoreleasePool pool;
  for (const std::u16string_view text : {u"", u"x", u"\n", u"x\n", u"\n\n", u"a\n\u000Cb", u" lead and trail "}) {
    formats::DocumentBuilder builder;
    builder.append(text, builder.intern(fontStyle("Times", 0, 12)));
    for (const Format& format : formatTable) {
      const auto again = read(written(builder.document, *format.type), nullptr);
      ASSERT_TRUE(again) << foundation::utf8Of(*format.type);
      EXPECT_EQ(utf8(again->text), utf8(std::u16string(text))) << foundation::utf8Of(*format.type);
    }
  }
}

void expectConsistent(const Document& document) {
  size_t length = 0;
  for (const formats::DocumentRun& run : document.runs) {
    length += run.length;
    ASSERT_LT(run.style, document.styles.size());
  }
  ASSERT_EQ(length, document.text.size());
}

TEST(DocumentRoundTrip, DamagedDocumentsAreReadOrRefused) {
  const AutoreleasePool pool;
  std::minstd_rand random(7);
  for (const Format& format : formatTable) {
    SCOPED_TRACE(foundation::utf8Of(*format.type));
    const std::string whole = written(everything(), *format.type);
    for (int cut = 0; cut < 60; ++cut) {
      const auto document = read(whole.substr(0, whole.size() * static_cast<size_t>(cut) / 60), *format.type);
      if (document) expectConsistent(*document);
    }
    for (int change = 0; change < 150; ++change) {
      std::string changed = whole;
      for (int count = 0; count < 4; ++count) changed[random() % changed.size()] = static_cast<char>(random());
      const auto document = read(changed, *format.type);
      if (document) expectConsistent(*document);
    }
  }
}

}  // namespace
}  // namespace standin
