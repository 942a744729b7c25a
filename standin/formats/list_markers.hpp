// Markers of list items: numbers as texts, and the counters of a list's levels.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "standin/text/style.hpp"

namespace standin::formats {

enum class NumberFormat : uint8_t {
  decimal,
  decimalZero,
  lowerLetter,
  upperLetter,
  lowerRoman,
  upperRoman,
  ordinal,
  bullet,
  none
};

// "4", "04", "d", "D", "iv", "IV", "4th"; letters past 26 repeat ("aa"), Roman numbers past 3,999 and all below 1 are
// decimal. Empty for a bullet and for none.
std::u16string numberText(NumberFormat format, int number);

// A level of a list: its marker is the pattern with %1 to %9 replaced by the counters of those levels. A bullet's pattern is
// the bullet.
struct ListLevel {
  NumberFormat format = NumberFormat::decimal;
  std::u16string pattern = u"%1.";
  int start = 1;

  bool operator==(const ListLevel&) const = default;
};

inline constexpr int listLevels = 9;

class ListCounters {
 public:
  // Counts the item and gives its marker; levels below start again. Levels outside 0 to 8 are held within.
  std::u16string next(const std::array<ListLevel, listLevels>& levels, int level);
  // The next item of the level has this number.
  void restart(int level, int number);

 private:
  std::array<int, listLevels> counts_{};
  std::array<bool, listLevels> counting_{};
};

// What readers put before an item's text: a tab, the marker, a tab; empty for an empty marker.
std::u16string markerText(std::u16string_view marker);

// Lines up an item whose text begins with `markerText`: the paragraph's first line indent is the marker's place, and becomes
// the place of the first tab. Tabs that the paragraph has behind it stay.
void layOutMarker(text::Paragraph& paragraph);

// The bullet that a symbol font's private character stands for, others as they are.
std::u16string plainBullet(std::u16string_view bullet);

}  // namespace standin::formats
