// Stretches of right-to-left scripts in text.
#pragma once

#include <span>

#include "standin/formats/scripts.hpp"

namespace standin::formats::doc {

// A letter after which text runs from left to right; digits, spaces and punctuation do not decide.
constexpr bool isLeftToRightLetter(char16_t unit) {
  const char16_t small = unit | 0x20;
  return (small >= u'a' && small <= u'z') || (unit >= 0xC0 && !isRightToLeft(unit) && (unit < 0x2000 || unit >= 0x2C00));
}

// Calls visit(from, end) for each stretch, from its first letter to its last.
template <class Visit>
void forEachRightToLeft(std::span<const char16_t> units, Visit&& visit) {
  for (size_t from = 0; from < units.size(); ++from) {
    if (!isRightToLeft(units[from])) continue;
    size_t end = from;
    for (size_t index = from; index < units.size() && !isLeftToRightLetter(units[index]); ++index) {
      if (isRightToLeft(units[index])) end = index + 1;
    }
    visit(from, end);
    from = end - 1;
  }
}

}  // namespace standin::formats::doc
