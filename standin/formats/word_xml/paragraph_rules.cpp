// What each element of a w:pPr says.
#include <algorithm>
#include <array>
#include <cmath>

#include "standin/formats/units.hpp"
#include "standin/formats/word_xml/formatting.hpp"
#include "standin/formats/word_xml/values.hpp"
#include "standin/formats/word_xml/vocabulary.hpp"

namespace standin::formats::word_xml {
namespace {

constexpr double pointsOfSingleLine = 12;
constexpr double automaticSpacing = 14;  // points, what programs leave around paragraphs of web pages

std::optional<double> twips(const xml::Element& element, Name attribute) {
  return pointsOf(element, attribute, twipsPerPoint);
}

void setJustification(ParagraphProperties& paragraph, const xml::Element& element) {
  paragraph.alignment = alignmentNamed(valueOf(element));
}

void setDirection(ParagraphProperties& paragraph, const xml::Element& element) {
  paragraph.direction = isOn(element) ? text::WritingDirection::rightToLeft : text::WritingDirection::leftToRight;
}

void setIndents(ParagraphProperties& paragraph, const xml::Element& element) {
  if (const auto left = twips(element, Name::left)) paragraph.leftIndent = left;
  if (const auto start = twips(element, Name::start)) paragraph.leftIndent = start;
  if (const auto right = twips(element, Name::right)) paragraph.rightIndent = right;
  if (const auto end = twips(element, Name::end)) paragraph.rightIndent = end;
  if (const auto first = twips(element, Name::firstLine)) paragraph.firstLineIndent = first;
  if (const auto hanging = twips(element, Name::hangingIndent)) paragraph.firstLineIndent = -*hanging;
}

void setLineHeights(ParagraphProperties& paragraph, double points, std::string_view rule) {
  const bool isExact = rule == "exact", isLeast = isSameValue(rule, "atLeast");
  const double multiple = points / pointsOfSingleLine;
  paragraph.minimumLineHeight = isExact || isLeast ? points : 0;
  paragraph.maximumLineHeight = isExact ? points : 0;
  paragraph.lineHeightMultiple = isExact || isLeast || multiple == 1 ? 0 : multiple;
}

void setSpacing(ParagraphProperties& paragraph, const xml::Element& element) {
  const auto isAutomatic = [&](Name attribute) { return find(element, attribute) && isOn(element, attribute); };
  if (const auto before = twips(element, Name::before)) paragraph.spacingBefore = before;
  if (const auto after = twips(element, Name::after)) paragraph.spacingAfter = after;
  if (isAutomatic(Name::beforeAutospacing)) paragraph.spacingBefore = automaticSpacing;
  if (isAutomatic(Name::afterAutospacing)) paragraph.spacingAfter = automaticSpacing;
  if (const auto line = twips(element, Name::line)) {
    setLineHeights(paragraph, std::abs(*line), valueOf(element, Name::lineRule));
  }
}

void addTab(ParagraphProperties& paragraph, const xml::Element& element) {
  constexpr size_t mostTabs = 64;
  const auto position = twips(element, Name::tabPosition);
  const auto kind = tabNamed(valueOf(element));
  const bool clears = valueOf(element) == "clear";
  if (!position || (!kind && !clears) || paragraph.tabChanges.size() >= mostTabs) return;
  paragraph.tabChanges.push_back({{*position, kind.value_or(text::TabKind::left)}, clears});
}

// Body text has the level behind the last of a heading.
void setOutlineLevel(ParagraphProperties& paragraph, const xml::Element& element) {
  const int level = wholeNumberOf(valueOf(element)).value_or(-1);
  paragraph.headerLevel = level >= 0 && level < 9 ? level + 1 : 0;
}

void setList(ParagraphProperties& paragraph, const xml::Element& element) {
  paragraph.list = wholeNumberOf(valueOf(element));
}

void setListLevel(ParagraphProperties& paragraph, const xml::Element& element) {
  paragraph.listLevel = wholeNumberOf(valueOf(element));
}

void setPageBreak(ParagraphProperties& paragraph, const xml::Element& element) { paragraph.pageBreakBefore = isOn(element); }

using Rule = void (*)(ParagraphProperties&, const xml::Element&);
struct RuleRow {
  Name element;
  Rule rule;
};
constexpr RuleRow ruleRows[] = {
    {Name::justification, setJustification},
    {Name::bidirectional, setDirection},
    {Name::indent, setIndents},
    {Name::spacing, setSpacing},
    {Name::tab, addTab},
    {Name::outlineLevel, setOutlineLevel},
    {Name::numberingId, setList},
    {Name::levelIndex, setListLevel},
    {Name::pageBreakBefore, setPageBreak},
};

constexpr auto rulesByName = [] {
  std::array<Rule, static_cast<size_t>(Name::count)> rules{};
  for (const RuleRow& row : ruleRows) rules[static_cast<size_t>(row.element)] = row.rule;
  return rules;
}();

}  // namespace

ParagraphProperties paragraphPropertiesOf(const PropertyRecord& record) {
  ParagraphProperties paragraph;
  record.forEach([&](const xml::Element& element) {
    if (const Rule rule = rulesByName[static_cast<size_t>(element.name)]) rule(paragraph, element);
  });
  return paragraph;
}

}  // namespace standin::formats::word_xml
