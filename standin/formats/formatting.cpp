// Formatting that is only partly said, made whole.
#include "standin/formats/formatting.hpp"

#include <algorithm>

#include "standin/text/font_faces.hpp"

namespace standin::formats {
namespace {

constexpr double mostPoints = 100'000;  // of a length; what is beyond is nonsense

double length(const std::optional<double>& points) { return std::clamp(points.value_or(0), -mostPoints, mostPoints); }
double positive(const std::optional<double>& points) { return std::max(0.0, length(points)); }

// One point to the right and below, a third of black.
text::Shadow defaultShadow() { return {1, -1, 0, text::Color{text::ColorSpace::deviceRGB, {}, 1.0 / 3}}; }

}  // namespace

text::Style styleOf(const CharacterFormatting& formatting) {
  text::Style style;
  const uint64_t traits = (formatting.bold.value_or(false) ? uint64_t{text::boldTrait} : 0) |
                          (formatting.italic.value_or(false) ? uint64_t{text::italicTrait} : 0);
  const double size = std::clamp(formatting.size.value_or(12), 0.5, 10'000.0);
  style.font = text::fontMeant(formatting.font.value_or("Times New Roman"), traits, size);
  style.foreground = formatting.foreground.value_or(std::nullopt);
  style.background = formatting.background.value_or(std::nullopt);
  style.underlineColor = formatting.underlineColor.value_or(std::nullopt);
  style.underline = formatting.underline.value_or(0);
  style.strikethrough = formatting.strikethrough.value_or(0);
  style.superscript = formatting.superscript.value_or(0);
  style.baselineOffset = length(formatting.baselineOffset);
  style.kern = length(formatting.kern);
  style.expansion = length(formatting.expansion);
  style.strokeWidth = length(formatting.strokeWidth);
  if (formatting.shadow.value_or(false)) style.shadow = defaultShadow();
  return style;
}

text::Paragraph paragraphOf(const ParagraphFormatting& formatting) {
  text::Paragraph paragraph;
  paragraph.alignment = formatting.alignment.value_or(text::Alignment::natural);
  paragraph.direction = formatting.direction.value_or(text::WritingDirection::natural);
  paragraph.headIndent = positive(formatting.leftIndent);
  paragraph.firstLineIndent = std::max(0.0, length(formatting.leftIndent) + length(formatting.firstLineIndent));
  paragraph.tailIndent = -positive(formatting.rightIndent);
  paragraph.spacingBefore = positive(formatting.spacingBefore);
  paragraph.spacingAfter = positive(formatting.spacingAfter);
  paragraph.lineSpacing = positive(formatting.lineSpacing);
  paragraph.minimumLineHeight = positive(formatting.minimumLineHeight);
  paragraph.maximumLineHeight = positive(formatting.maximumLineHeight);
  paragraph.lineHeightMultiple = positive(formatting.lineHeightMultiple);
  paragraph.defaultTabInterval = positive(formatting.defaultTabInterval);
  paragraph.headerLevel = std::clamp(formatting.headerLevel.value_or(0), 0, 6);
  paragraph.tabs = formatting.tabs;
  return paragraph;
}

}  // namespace standin::formats
