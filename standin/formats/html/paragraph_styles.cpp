// The styles of the text model that runs and paragraphs have.
#include <algorithm>
#include <cmath>

#include "standin/formats/html/paragraph_builder.hpp"
#include "standin/text/font_faces.hpp"

namespace standin::formats::html {
namespace {

// From a marker to the text of its item; the marker itself stands a little inside.
constexpr double markerIndent = 36, markerInset = 11;
constexpr double mostIndent = 10'000;

// CSS's weights are hundreds, the platform's the numbers 0 to 15 with 5 for regular.
int platformWeight(int weight) {
  constexpr int weights[] = {2, 2, 3, 3, 5, 6, 8, 9, 10, 11};
  return weights[std::clamp(weight / 100, 0, 9)];
}

text::Font fontOf(const css::ComputedStyle& style, double sizeFactor) {
  constexpr int regular = 400, semibold = 600;
  const double size = style.fontSize * sizeFactor;
  const uint64_t traits =
      (style.weight >= semibold ? uint64_t{text::boldTrait} : 0) | (style.italic ? uint64_t{text::italicTrait} : 0);
  text::Font font = text::fontMeant(style.family, traits, size);
  if (style.weight < semibold && style.weight != regular) {
    if (auto face = text::fontInFamily(font.family, traits, platformWeight(style.weight), size)) font = *std::move(face);
  }
  if (style.smallCaps) font.traits |= text::smallCapsTrait;
  return font;
}

text::Style characterStyleOf(const css::ComputedStyle& style, double sizeFactor) {
  text::Style result;
  result.font = fontOf(style, sizeFactor);
  result.foreground = style.color;
  if (!style.isPage) result.background = style.background;
  result.underline = style.underline.style;
  result.underlineColor = style.underline.color;
  result.strikethrough = style.strikethrough.style;
  result.strikethroughColor = style.strikethrough.color;
  result.superscript = style.superscript;
  result.baselineOffset = style.baselineOffset;
  result.kern = style.letterSpacing;
  result.ligature = style.ligature;
  result.shadow = style.shadow;
  return result;
}

}  // namespace

size_t ParagraphBuilder::RunHash::operator()(const Run& run) const {
  uint64_t hash = run.length;
  for (const uint32_t part : {run.style, run.link, run.picture}) {
    hash = (hash + part) * 0x9E3779B97F4A7C15u;
    hash ^= hash >> 29;
  }
  return static_cast<size_t>(hash);
}

const text::Style& ParagraphBuilder::characterStyle(ElementStyles::Index style) {
  const auto known = characterStyles_.find(style);
  if (known != characterStyles_.end()) return known->second;
  return characterStyles_.emplace(style, characterStyleOf(styles_[style], sizeFactor_)).first->second;
}

uint32_t ParagraphBuilder::styleFor(Run run, uint32_t paragraph) {
  run.length = paragraph;
  const auto [entry, isNew] = styleNumbers_.try_emplace(run, 0);
  if (!isNew) return entry->second;
  text::Style style = characterStyle(run.style);
  style.paragraph = paragraphs_[paragraph];
  if (run.link > 0) style.link = links_[run.link - 1];
  if (run.picture > 0) style.attachment = pictures_[run.picture - 1];
  return entry->second = builder_.intern(style);
}

uint32_t ParagraphBuilder::paragraphFor(const Layout& layout) {
  const auto [entry, isNew] = paragraphNumbers_.try_emplace(layout, static_cast<uint32_t>(paragraphs_.size()));
  if (isNew) paragraphs_.push_back(makeParagraph(layout));
  return entry->second;
}

text::Paragraph ParagraphBuilder::makeParagraph(const Layout& layout) const {
  const css::ComputedStyle& style = styles_[layout.box.style];
  const auto indent = [](double points) { return std::clamp(points, 0.0, mostIndent); };
  text::Paragraph paragraph;
  paragraph.alignment = style.alignment;
  paragraph.direction = style.direction;
  paragraph.headIndent = indent(layout.box.left);
  paragraph.firstLineIndent = indent(layout.box.left + style.textIndent);
  paragraph.tailIndent = -indent(layout.box.right);
  paragraph.spacingBefore = layout.before;
  paragraph.spacingAfter = layout.after;
  paragraph.minimumLineHeight = paragraph.maximumLineHeight = style.lineHeight;
  paragraph.lineHeightMultiple = style.lineHeightMultiple;
  paragraph.defaultTabInterval = style.tabInterval;
  paragraph.hyphenationFactor = style.hyphenates ? 1 : 0;
  paragraph.headerLevel = layout.box.headerLevel;
  paragraph.tabs = style.tabs;
  if (layout.hasMarker) {
    paragraph.headIndent = std::max(paragraph.headIndent, markerIndent);
    paragraph.firstLineIndent = paragraph.headIndent - markerIndent;
    paragraph.tabs = {{paragraph.firstLineIndent + markerInset}, {paragraph.headIndent}};
  }
  return paragraph;
}

}  // namespace standin::formats::html
