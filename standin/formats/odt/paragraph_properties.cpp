// Attributes of paragraphs, as rows.
#include <algorithm>

#include "standin/formats/odt/names.hpp"
#include "standin/formats/odt/properties.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::odt {
namespace {

struct LengthRow {
  name::Number attribute;
  std::optional<double> ParagraphFormatting::*member;
};
// The shorthand comes first, because what is said of a side holds against it.
constexpr LengthRow lengthRows[] = {{name::margin, &ParagraphFormatting::leftIndent},
                                    {name::margin, &ParagraphFormatting::rightIndent},
                                    {name::margin, &ParagraphFormatting::spacingBefore},
                                    {name::margin, &ParagraphFormatting::spacingAfter},
                                    {name::marginLeft, &ParagraphFormatting::leftIndent},
                                    {name::marginRight, &ParagraphFormatting::rightIndent},
                                    {name::marginTop, &ParagraphFormatting::spacingBefore},
                                    {name::marginBottom, &ParagraphFormatting::spacingAfter},
                                    {name::textIndent, &ParagraphFormatting::firstLineIndent},
                                    {name::tabDistance, &ParagraphFormatting::defaultTabInterval}};

struct AlignmentRow {
  std::string_view value;
  text::Alignment alignment;
  bool byDirection;
};
constexpr AlignmentRow alignmentRows[] = {
    {"left", text::Alignment::left, false},     {"right", text::Alignment::right, false},
    {"center", text::Alignment::center, false}, {"justify", text::Alignment::justified, false},
    {"start", text::Alignment::left, true},     {"end", text::Alignment::right, true}};

void takeAlignment(ParagraphProperties& properties, std::string_view value) {
  for (const AlignmentRow& row : alignmentRows) {
    if (row.value != value) continue;
    properties.paragraph.alignment = row.alignment;
    properties.alignsByDirection = row.byDirection;
  }
}

text::WritingDirection directionOf(std::string_view mode) {
  if (mode == "lr-tb" || mode == "lr") return text::WritingDirection::leftToRight;
  if (mode == "rl-tb" || mode == "rl") return text::WritingDirection::rightToLeft;
  return text::WritingDirection::natural;
}

// One attribute for what all of them say: those that are not there take back what the style beneath says.
void takeLineHeight(ParagraphFormatting& paragraph, const xml::Element& element) {
  const auto height = element.find(name::lineHeight), least = element.find(name::lineHeightAtLeast),
             between = element.find(name::lineSpacing);
  if (!height && !least && !between) return;
  std::string_view rest;
  const auto number = numberOf(height.value_or(std::string_view()), &rest);
  const bool isShare = number && rest == "%" && *number != 100;
  const double fixed = pointsOf(height.value_or(std::string_view())).value_or(0);
  paragraph.lineHeightMultiple = isShare ? *number / 100 : 0;
  paragraph.minimumLineHeight = least ? pointsOf(*least).value_or(0) : fixed;
  paragraph.maximumLineHeight = fixed;
  paragraph.lineSpacing = between ? pointsOf(*between).value_or(0) : 0;
}

// In the order of the kinds.
constexpr std::pair<std::string_view, text::TabKind> tabKinds[] = {{"left", text::TabKind::left},
                                                                   {"right", text::TabKind::right},
                                                                   {"center", text::TabKind::center},
                                                                   {"char", text::TabKind::decimal}};

}  // namespace

void overlay(StyleProperties& under, const StyleProperties& over) {
  overlay(under.text, over.text);
  formats::overlay(under.paragraph.paragraph, over.paragraph.paragraph);
  formats::overlay(under.paragraph, over.paragraph);
  if (over.listStyle) under.listStyle = over.listStyle;
  under.masterPage = over.masterPage;
}

void takeParagraphProperties(ParagraphProperties& properties, const xml::Element& element) {
  for (const LengthRow& row : lengthRows) {
    const auto value = element.find(row.attribute);
    if (const auto length = pointsOf(value.value_or(std::string_view()))) properties.paragraph.*row.member = *length;
  }
  takeLineHeight(properties.paragraph, element);
  takeAlignment(properties, element.value(name::textAlign));
  if (const auto mode = element.find(name::writingMode)) properties.paragraph.direction = directionOf(*mode);
  if (const auto value = element.find(name::breakBefore)) properties.breaksBefore = *value == "page";
  if (const auto value = element.find(name::breakAfter)) properties.breaksAfter = *value == "page";
}

void takeTabStop(ParagraphProperties& properties, const xml::Element& element) {
  constexpr size_t mostTabs = 64;
  const auto position = pointsOf(element.value(name::position));
  auto& tabs = properties.paragraph.tabs;
  if (!tabs) tabs.emplace();
  if (!position || tabs->size() >= mostTabs) return;
  text::TabStop tab{*position};
  for (const auto& [type, kind] : tabKinds) {
    if (element.value(name::type) == type) tab.kind = kind;
  }
  tabs->push_back(tab);
}

std::string_view alignmentName(text::Alignment alignment) {
  for (const AlignmentRow& row : alignmentRows) {
    if (row.alignment == alignment) return row.value;
  }
  return {};
}

std::string_view tabKindName(text::TabKind kind) { return tabKinds[static_cast<size_t>(kind)].first; }

text::Paragraph paragraphOf(const ParagraphProperties& properties, bool tabsFollowIndent) {
  text::Paragraph paragraph = formats::paragraphOf(properties.paragraph);
  const bool isMirrored = paragraph.direction == text::WritingDirection::rightToLeft;
  const bool isRight = paragraph.alignment == text::Alignment::right;
  if (isMirrored && isRight && properties.alignsByDirection.value_or(false)) paragraph.alignment = text::Alignment::natural;
  for (size_t index = 0; tabsFollowIndent && paragraph.tabs && index < paragraph.tabs->size(); ++index) {
    (*paragraph.tabs)[index].position += paragraph.headIndent;
  }
  return paragraph;
}

}  // namespace standin::formats::odt
