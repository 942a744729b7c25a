// Rows for what carries over number by number, a function for what does not.
#include "standin/formats/doc/writer_formats.hpp"

#include <algorithm>
#include <map>

#include "standin/formats/colors.hpp"
#include "standin/formats/doc/modifiers.hpp"
#include "standin/formats/fonts.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::doc {
namespace {

constexpr double mostTwips = 31'680;  // 22 inches: the most that the format's programs take
constexpr uint32_t automaticColor = 0xFF000000;
constexpr int automaticColorIndex = 0;  // some programs take the colour without a number for black

long twips(double points) { return wholeParts(points, twipsPerPoint, mostTwips); }

uint32_t numberOf(const std::optional<text::Color>& color) {
  if (!color) return automaticColor;
  const auto [red, green, blue] = bytesOf(*color);
  return static_cast<uint32_t>(red | green << 8 | blue << 16);
}

uint8_t underlineKind(int style) {
  const auto found = std::find_if(std::begin(underlines), std::end(underlines),
                                  [&](const UnderlineRow& row) { return row.style == style; });
  return found != std::end(underlines) ? found->kind : 1;
}

void addFont(Modifiers& modifiers, const text::Style& style, uint16_t font, bool isRightToLeft) {
  constexpr long leastHalfPoints = 2, mostHalfPoints = 3276;
  const long size = std::clamp(wholeParts(fontOf(style).size, halfPointsPerPoint), leastHalfPoints, mostHalfPoints);
  const bool bold = fontOf(style).bold(), italic = fontOf(style).italic();
  for (const Property property : {Property::font, Property::eastAsianFont, Property::otherFont})
    modifiers.add(property, font);
  modifiers.add(Property::size, size);
  modifiers.addUnlessZero(Property::bold, bold);
  modifiers.addUnlessZero(Property::italic, italic);
  if ((fontOf(style).traits & text::smallCapsTrait) != 0) modifiers.add(Property::smallCapitals, 1);
  if (!isRightToLeft) return;
  modifiers.add(Property::isRightToLeft, 1);
  modifiers.add(Property::complexFont, font);
  modifiers.add(Property::complexSize, size);
  modifiers.addUnlessZero(Property::complexBold, bold);
  modifiers.addUnlessZero(Property::complexItalic, italic);
}

// What the style of links says is said again, in the way that the link has it.
void addColorsAndLines(Modifiers& modifiers, const text::Style& style) {
  const bool isLink = !style.link.empty();
  if (style.foreground) {
    modifiers.add(Property::color, numberOf(style.foreground));
  } else if (isLink) {
    modifiers.add(Property::colorIndex, automaticColorIndex);
  }
  if (isLink || style.underline != 0) modifiers.add(Property::underline, underlineKind(style.underline));
  if (style.underlineColor) modifiers.add(Property::underlineColor, numberOf(style.underlineColor));
  if (style.strikethrough != 0) {
    modifiers.add(style.strikethrough == 9 ? Property::doubleStrikethrough : Property::strikethrough, 1);
  }
  if (!style.background) return;
  std::string shading;
  append32(shading, automaticColor);
  append32(shading, numberOf(style.background));
  append16(shading, 0);
  modifiers.add(Property::shading, shading);
}

void addPlacesAndEffects(Modifiers& modifiers, const text::Style& style) {
  constexpr double mostScale = 600, leastScale = 1;  // per cent
  if (style.superscript != 0) modifiers.add(Property::superscript, style.superscript > 0 ? 1 : 2);
  modifiers.addUnlessZero(Property::position, wholeParts(style.baselineOffset, halfPointsPerPoint, mostTwips / 10));
  modifiers.addUnlessZero(Property::spacing, twips(style.kern));
  if (style.expansion != 0) {
    modifiers.add(Property::widthScale, wholeParts(std::clamp((1 + style.expansion) * 100, leastScale, mostScale), 1));
  }
  if (style.strokeWidth > 0) modifiers.add(Property::outline, 1);
  if (style.shadow) modifiers.add(Property::shadow, 1);
}

// A line's sides as the page has them, or as the text runs where that is from right to left.
struct SideProperties {
  Property alignment, left, right, firstLine;
};
constexpr SideProperties physicalSides{Property::physicalAlignment, Property::leftIndent97, Property::rightIndent97,
                                       Property::firstLineIndent97};
constexpr SideProperties logicalSides{Property::alignment, Property::leftIndent, Property::rightIndent,
                                      Property::firstLineIndent};

// Natural alignment is what a paragraph has of which nothing is said.
void addAlignment(Modifiers& modifiers, text::Alignment alignment, bool rightToLeft) {
  enum { leading, center, trailing, justified };
  if (alignment == text::Alignment::natural) return;
  constexpr int numbers[] = {leading, trailing, center, justified};
  constexpr int mirrored[] = {trailing, leading, center, justified};
  const auto index = static_cast<size_t>(alignment);
  if (rightToLeft) return modifiers.add(logicalSides.alignment, mirrored[index]);
  modifiers.add(physicalSides.alignment, numbers[index]);
}

void addIndents(Modifiers& modifiers, const text::Paragraph& paragraph, const SideProperties& sides, double textWidth) {
  const double right = paragraph.tailIndent > 0 ? textWidth - paragraph.tailIndent : -paragraph.tailIndent;
  modifiers.addUnlessZero(sides.left, twips(paragraph.headIndent));
  modifiers.addUnlessZero(sides.firstLine, twips(paragraph.firstLineIndent) - twips(paragraph.headIndent));
  modifiers.addUnlessZero(sides.right, twips(right));
}

// A multiple counts lines of 240; a height that may not grow is written as a negative one.
void addLineHeight(Modifiers& modifiers, const text::Paragraph& paragraph) {
  const auto add = [&](long height, int isMultiple) {
    if (height != 0) modifiers.add(Property::lineHeight, (height & 0xFFFF) | isMultiple << 16);
  };
  if (paragraph.lineHeightMultiple > 0) return add(wholeParts(paragraph.lineHeightMultiple, 240, mostTwips), 1);
  if (paragraph.maximumLineHeight > 0) return add(-twips(paragraph.maximumLineHeight), 0);
  add(twips(paragraph.minimumLineHeight), 0);
}

// Each place once, in their order.
void addTabs(Modifiers& modifiers, const std::vector<text::TabStop>& stops) {
  constexpr size_t mostTabs = 64;
  constexpr uint8_t kinds[] = {0, 2, 1, 3};  // left, right, centred, decimal
  std::map<long, uint8_t> tabs;
  for (const text::TabStop& stop : stops) {
    if (tabs.size() < mostTabs) tabs.emplace(twips(stop.position), kinds[static_cast<size_t>(stop.kind)]);
  }
  std::string operand{'\0', static_cast<char>(tabs.size())};
  for (const auto& [position, kind] : tabs) append16(operand, position);
  for (const auto& [position, kind] : tabs) operand += static_cast<char>(kind);
  modifiers.add(Property::tabsOfStyle, operand);
}

}  // namespace

std::string characterModifiers(const text::Style& style, uint16_t font, bool isRightToLeft) {
  Modifiers modifiers;
  if (!style.link.empty()) modifiers.add(Property::characterStyle, linkStyle);
  addFont(modifiers, style, font, isRightToLeft);
  addColorsAndLines(modifiers, style);
  addPlacesAndEffects(modifiers, style);
  return std::move(modifiers.bytes);
}

std::string paragraphProperties(const text::Paragraph& paragraph, double textWidth) {
  const bool rightToLeft = paragraph.direction == text::WritingDirection::rightToLeft;
  Modifiers modifiers;
  append16(modifiers.bytes, std::clamp<int>(paragraph.headerLevel, normalStyle, lastHeadingStyle));
  if (paragraph.direction != text::WritingDirection::natural) modifiers.add(Property::isRightToLeftParagraph, rightToLeft);
  addAlignment(modifiers, paragraph.alignment, rightToLeft);
  addIndents(modifiers, paragraph, rightToLeft ? logicalSides : physicalSides, textWidth);
  modifiers.addUnlessZero(Property::spaceBefore, std::max(0L, twips(paragraph.spacingBefore)));
  modifiers.addUnlessZero(Property::spaceAfter, std::max(0L, twips(paragraph.spacingAfter)));
  addLineHeight(modifiers, paragraph);
  if (paragraph.tabs && !paragraph.tabs->empty()) addTabs(modifiers, *paragraph.tabs);
  return std::move(modifiers.bytes);
}

}  // namespace standin::formats::doc
