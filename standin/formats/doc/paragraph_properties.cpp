// What each modifier does, in points.
#include "standin/formats/doc/paragraph_properties.hpp"

#include <algorithm>
#include <cmath>

#include "standin/formats/units.hpp"

namespace standin::formats::doc {
namespace {

double points(int twips) { return twips / twipsPerPoint; }

text::Alignment alignmentNumbered(uint8_t number) {
  constexpr text::Alignment alignments[] = {text::Alignment::left, text::Alignment::center, text::Alignment::right};
  return number < std::size(alignments) ? alignments[number] : text::Alignment::justified;
}

// The first number counts lines of 240 when the second says so; otherwise it is the least height, or negative the height.
void setLineHeight(ParagraphFormatting& formatting, Bytes operand) {
  constexpr double singleLine = 240;
  const int height = operand.number<int16_t>(0);
  const bool isMultiple = operand.read16(2) != 0;
  formatting.lineHeightMultiple = isMultiple && height > 0 && height != singleLine ? height / singleLine : 0;
  formatting.minimumLineHeight = isMultiple ? 0 : points(std::abs(height));
  formatting.maximumLineHeight = isMultiple || height > 0 ? 0 : points(-height);
}

// Tabs closer than this to a place that is cleared are cleared, unless the list says how far.
constexpr double sameTab = 0.05;

void removeTab(std::vector<text::TabStop>& tabs, double position, double distance) {
  std::erase_if(tabs, [&](const text::TabStop& tab) { return std::abs(tab.position - position) <= distance; });
}

void addTab(std::vector<text::TabStop>& tabs, double position, uint8_t description) {
  constexpr size_t mostTabs = 64;
  constexpr text::TabKind kinds[] = {text::TabKind::left, text::TabKind::center, text::TabKind::right,
                                     text::TabKind::decimal};
  const size_t kind = description & 7;
  removeTab(tabs, position, sameTab);
  if (kind >= std::size(kinds) || tabs.size() >= mostTabs) return;
  const text::TabStop tab{position, kinds[kind]};
  tabs.insert(std::upper_bound(tabs.begin(), tabs.end(), tab), tab);
}

// How many places are cleared, these, with the distance of each where there is one; how many are set, these, what they are.
void changeTabs(ParagraphFormatting& formatting, Bytes operand, bool hasDistances) {
  std::vector<text::TabStop>& tabs = formatting.tabs ? *formatting.tabs : formatting.tabs.emplace();
  const size_t removed = operand.read8(0);
  for (size_t index = 0; index < removed; ++index) {
    const double distance = hasDistances ? points(operand.number<int16_t>(1 + (removed + index) * 2)) : 0;
    removeTab(tabs, points(operand.number<int16_t>(1 + index * 2)), std::max(distance, sameTab));
  }
  const Bytes set = operand.part(1 + removed * (hasDistances ? 4 : 2));
  const size_t count = set.read8(0);
  for (size_t index = 0; index < count && 1 + count * 2 + index < set.size(); ++index) {
    addTab(tabs, points(set.number<int16_t>(1 + index * 2)), set.read8(1 + count * 2 + index));
  }
  if (tabs.empty()) formatting.tabs.reset();
}

void setSpacing(std::optional<double>& spacing, const Modifier& modifier) {
  constexpr double automatic = 14;  // points
  if (modifier.isOn()) spacing = automatic;
}

int headerLevelOf(uint8_t outlineLevel) { return outlineLevel < 9 ? outlineLevel + 1 : 0; }

bool applyIndentOrSpacing(ParagraphFormatting& formatting, const Modifier& modifier) {
  const int twips = modifier.operand.number<int16_t>(0);
  switch (modifier.property) {
    case Property::rightIndent:
    case Property::rightIndent97:
      formatting.rightIndent = points(twips);
      return true;
    case Property::leftIndent:
    case Property::leftIndent97:
      formatting.leftIndent = points(twips);
      return true;
    case Property::nestedIndent:
    case Property::nestedIndent97:
      formatting.leftIndent = std::max(0.0, formatting.leftIndent.value_or(0) + points(twips));
      return true;
    case Property::firstLineIndent:
    case Property::firstLineIndent97:
      formatting.firstLineIndent = points(twips);
      return true;
    case Property::lineHeight:
      setLineHeight(formatting, modifier.operand);
      return true;
    case Property::spaceBefore:
      formatting.spacingBefore = points(modifier.operand.read16(0));
      return true;
    case Property::spaceAfter:
      formatting.spacingAfter = points(modifier.operand.read16(0));
      return true;
    case Property::automaticSpaceBefore:
      setSpacing(formatting.spacingBefore, modifier);
      return true;
    case Property::automaticSpaceAfter:
      setSpacing(formatting.spacingAfter, modifier);
      return true;
    default:
      return false;
  }
}

void setAlignment(ParagraphProperties& properties, const Modifier& modifier) {
  properties.formatting.alignment = alignmentNumbered(modifier.operand.read8(0));
  properties.leadingAlignment = modifier.property == Property::alignment;
}

}  // namespace

void apply(ParagraphProperties& properties, const Modifier& modifier) {
  ParagraphFormatting& formatting = properties.formatting;
  if (applyIndentOrSpacing(formatting, modifier)) return;
  switch (modifier.property) {
    case Property::alignment:
    case Property::physicalAlignment:
      return setAlignment(properties, modifier);
    case Property::isRightToLeftParagraph:
      formatting.direction = modifier.isOn() ? text::WritingDirection::rightToLeft : text::WritingDirection::leftToRight;
      break;
    case Property::tabsOfStyle:
      return changeTabs(formatting, modifier.operand, false);
    case Property::tabs:
      return changeTabs(formatting, modifier.operand, true);
    case Property::outlineLevel:
      formatting.headerLevel = headerLevelOf(modifier.operand.read8(0));
      break;
    case Property::list:
      formatting.list = modifier.operand.read16(0);
      break;
    case Property::listLevel:
      formatting.listLevel = modifier.operand.read8(0);
      break;
    case Property::isRowEnd:
    case Property::isInnerRowEnd:
      properties.isRowEnd = modifier.isOn();
      break;
    case Property::numbering95:
      properties.oldNumbering = modifier.operand;
      break;
    case Property::numberingLevel95:
      properties.oldNumberingLevel = modifier.operand.read8(0);
      break;
    default:
      break;
  }
}

text::Paragraph paragraphOf(const ParagraphProperties& properties) {
  text::Paragraph paragraph = formats::paragraphOf(properties.formatting);
  const bool isMirrored =
      properties.leadingAlignment && properties.formatting.direction == text::WritingDirection::rightToLeft;
  if (isMirrored && paragraph.alignment == text::Alignment::left) {
    paragraph.alignment = text::Alignment::right;
  } else if (isMirrored && paragraph.alignment == text::Alignment::right) {
    paragraph.alignment = text::Alignment::left;
  }
  return paragraph;
}

}  // namespace standin::formats::doc
