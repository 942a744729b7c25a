// Formatting put over other formatting, and made into styles.
#include "standin/formats/word_xml/formatting.hpp"

#include <algorithm>
#include <cmath>

namespace standin::formats::word_xml {
namespace {

constexpr size_t mostTabChanges = 64;

void applyTab(std::vector<text::TabStop>& tabs, const TabChange& change) {
  constexpr double sameTab = 0.5;  // points
  std::erase_if(tabs, [&](const text::TabStop& tab) { return std::abs(tab.position - change.stop.position) < sameTab; });
  if (!change.clears) tabs.insert(std::upper_bound(tabs.begin(), tabs.end(), change.stop), change.stop);
}

text::Alignment mirrored(text::Alignment alignment) {
  if (alignment == text::Alignment::left) return text::Alignment::right;
  return alignment == text::Alignment::right ? text::Alignment::left : alignment;
}

// Off where both are on.
void toggle(std::optional<bool>& under, const std::optional<bool>& over) {
  if (over) under = *over != under.value_or(false);
}

}  // namespace

void overlay(ParagraphProperties& under, const ParagraphProperties& over) {
  formats::overlay<ParagraphFormatting>(under, over);
  if (over.pageBreakBefore) under.pageBreakBefore = over.pageBreakBefore;
  const size_t room = mostTabChanges - std::min(mostTabChanges, under.tabChanges.size());
  under.tabChanges.insert(under.tabChanges.end(), over.tabChanges.begin(),
                          over.tabChanges.begin() + static_cast<ptrdiff_t>(std::min(room, over.tabChanges.size())));
}

void overlayCharacterStyle(RunFormatting& under, const RunFormatting& over) {
  std::optional<bool> bold = under.bold, italic = under.italic;
  formats::overlay(under, over);
  toggle(bold, over.bold);
  toggle(italic, over.italic);
  under.bold = bold;
  under.italic = italic;
}

std::string valueIn(const PropertyRecord& record, Name name) {
  std::string value;
  record.forEach([&](const xml::Element& element) {
    if (nameOf(element) == name) value = valueOf(element);
  });
  return value;
}

text::Style styleOf(const RunFormatting& formatting, Script script) {
  CharacterFormatting characters = formatting;
  if (script == Script::asian && formatting.eastAsianFont) characters.font = formatting.eastAsianFont;
  if (script == Script::complex) {
    if (formatting.complexFont) characters.font = formatting.complexFont;
    if (formatting.complexSize) characters.size = formatting.complexSize;
    characters.bold = formatting.complexBold;
    characters.italic = formatting.complexItalic;
  }
  if (formatting.highlight && *formatting.highlight) characters.background = formatting.highlight;
  text::Style style = formats::styleOf(characters);
  style.ligature = formatting.ligature;
  return style;
}

// Left and right are the beginning and the end of lines.
text::Paragraph paragraphOf(const ParagraphProperties& properties) {
  text::Paragraph paragraph = formats::paragraphOf(properties);
  if (paragraph.direction == text::WritingDirection::rightToLeft) paragraph.alignment = mirrored(paragraph.alignment);
  for (const TabChange& change : properties.tabChanges) {
    if (!paragraph.tabs) paragraph.tabs.emplace();
    applyTab(*paragraph.tabs, change);
  }
  if (paragraph.tabs && paragraph.tabs->empty()) paragraph.tabs.reset();
  return paragraph;
}

}  // namespace standin::formats::word_xml
