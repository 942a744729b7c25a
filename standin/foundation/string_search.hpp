// Finding and comparing text as the platform does: composed and decomposed forms of a character are the same.
#pragma once

#include <compare>
#include <string_view>

#include "platform/foundation.h"

namespace standin::foundation {

enum SearchOption : NSUInteger {
  caseInsensitiveSearch = 1,
  literalSearch = 2,  // unit by unit, forms of a character differ
  backwardsSearch = 4,
  anchoredSearch = 8,  // at the start, or at the end when backwards
};
inline constexpr NSUInteger knownSearchOptions = 15;

// The first match (the last when backwards), as a range in `text`; {NSNotFound, 0} without one. An empty pattern is
// never found. A match covers whole characters: it does not end before a combining mark.
NSRange findText(std::u16string_view text, std::u16string_view pattern, NSUInteger options);

std::strong_ordering compareText(std::u16string_view left, std::u16string_view right, NSUInteger options);

}  // namespace standin::foundation
