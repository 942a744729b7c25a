// List styles: how the items of each level are marked, and where markers and text stand.
#pragma once

#include <array>
#include <string>

#include "standin/formats/list_markers.hpp"
#include "standin/formats/xml.hpp"

namespace standin::formats::odt {

// Points. The text starts at the left indent, the marker at the first line's indent from there.
struct LevelLayout {
  double leftIndent = 0, firstLineIndent = 0;
  double tabStop = 0;            // behind the marker, from the margin; 0: at the left indent
  bool addsToParagraph = false;  // counts from the paragraph's own indent, instead of replacing it

  bool operator==(const LevelLayout&) const = default;
};

struct ListStyle {
  std::array<ListLevel, listLevels> levels{};
  std::array<LevelLayout, listLevels> layouts{};
};

// What a list without a style has.
ListStyle plainListStyle();
// What a style has of which no level is known: numbers, and none for headings.
ListStyle numberedListStyle();
ListStyle unmarkedListStyle();

// Adds the level that the element describes, and gives its index; nothing when there is no such level.
std::optional<size_t> addLevel(ListStyle& style, const xml::Element& element);
// What the elements inside a level say of its layout.
void takeLevelProperties(LevelLayout& layout, const xml::Element& element);
void takeLabelAlignment(LevelLayout& layout, const xml::Element& element);

}  // namespace standin::formats::odt
