// Text search over the decomposed, and if asked case-folded, characters of both sides.
#include "standin/foundation/string_search.hpp"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <string>
#include <vector>

#include "standin/foundation/transcoding.hpp"

namespace standin::foundation {
namespace {

// Text in comparable form: unit i comes from the character that begins at starts[i]; starts has one more element, the
// length of the original. A unit that begins no character has the start of the one it belongs to.
struct Comparable {
  std::u16string units;
  std::vector<size_t> starts;
};

const icu::Normalizer2& decomposition() {
  UErrorCode status = U_ZERO_ERROR;
  return *icu::Normalizer2::getNFDInstance(status);
}

size_t unitsAt(std::u16string_view text, size_t at) {
  return isHighSurrogate(text[at]) && at + 1 < text.size() && isLowSurrogate(text[at + 1]) ? 2 : 1;
}

char32_t pointAt(std::u16string_view text, size_t at) {
  return unitsAt(text, at) == 2 ? joinSurrogates(text[at], text[at + 1]) : text[at];
}

// A character with the combining marks that follow it.
size_t characterEnd(std::u16string_view text, size_t at) {
  for (at += unitsAt(text, at); at < text.size(); at += unitsAt(text, at)) {
    if (decomposition().hasBoundaryBefore(static_cast<UChar32>(pointAt(text, at)))) break;
  }
  return at;
}

Comparable literally(std::u16string_view text) {
  Comparable result{std::u16string(text), std::vector<size_t>(text.size() + 1)};
  for (size_t at = 0; at <= text.size(); ++at) result.starts[at] = at;
  return result;
}

Comparable comparable(std::u16string_view text, NSUInteger options) {
  if ((options & literalSearch) != 0 && (options & caseInsensitiveSearch) == 0) return literally(text);
  Comparable result;
  for (size_t at = 0; at < text.size();) {
    const size_t end = (options & literalSearch) != 0 ? at + unitsAt(text, at) : characterEnd(text, at);
    icu::UnicodeString character(false, text.data() + at, static_cast<int32_t>(end - at));
    if ((options & caseInsensitiveSearch) != 0) character.foldCase();
    if ((options & literalSearch) == 0) {
      UErrorCode status = U_ZERO_ERROR;
      character = decomposition().normalize(character, status);
    }
    result.units.append(character.getBuffer(), static_cast<size_t>(character.length()));
    result.starts.resize(result.units.size(), at);
    at = end;
  }
  result.starts.push_back(text.size());
  return result;
}

// Below U+0300 there are no combining marks, so that forms of a character cannot meet.
bool isSimple(std::u16string_view text) {
  return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x300; });
}

bool beginsCharacter(const Comparable& text, size_t at) { return at == 0 || text.starts[at] != text.starts[at - 1]; }

NSRange search(const Comparable& text, std::u16string_view pattern, NSUInteger options) {
  const bool backwards = (options & backwardsSearch) != 0, anchored = (options & anchoredSearch) != 0;
  const std::u16string_view units = text.units;
  if (pattern.size() > units.size()) return {NSNotFound, 0};
  const size_t anchor = backwards ? units.size() - pattern.size() : 0;
  size_t at = anchored ? (units.substr(anchor).starts_with(pattern) ? anchor : units.npos)
                       : (backwards ? units.rfind(pattern) : units.find(pattern));
  while (at != units.npos) {
    if (beginsCharacter(text, at) && beginsCharacter(text, at + pattern.size())) {
      const size_t start = text.starts[at];
      return {start, text.starts[at + pattern.size()] - start};
    }
    if (anchored || (backwards && at == 0)) break;
    at = backwards ? units.rfind(pattern, at - 1) : units.find(pattern, at + 1);
  }
  return {NSNotFound, 0};
}

// Literal search needs no map of characters.
NSRange searchUnits(std::u16string_view text, std::u16string_view pattern, NSUInteger options) {
  if ((options & anchoredSearch) != 0) {
    const bool found = (options & backwardsSearch) != 0 ? text.ends_with(pattern) : text.starts_with(pattern);
    if (!found) return {NSNotFound, 0};
    return {(options & backwardsSearch) != 0 ? text.size() - pattern.size() : 0, pattern.size()};
  }
  const size_t at = (options & backwardsSearch) != 0 ? text.rfind(pattern) : text.find(pattern);
  if (at == text.npos) return {NSNotFound, 0};
  return {at, pattern.size()};
}

}  // namespace

NSRange findText(std::u16string_view text, std::u16string_view pattern, NSUInteger options) {
  if (pattern.empty()) return {NSNotFound, 0};
  const bool unitsDecide = (options & literalSearch) != 0 || (isSimple(text) && isSimple(pattern));
  if (unitsDecide && (options & caseInsensitiveSearch) == 0) return searchUnits(text, pattern, options);
  return search(comparable(text, options), comparable(pattern, options).units, options);
}

std::strong_ordering compareText(std::u16string_view left, std::u16string_view right, NSUInteger options) {
  const bool unitsDecide = (options & literalSearch) != 0 || (isSimple(left) && isSimple(right));
  if (unitsDecide && (options & caseInsensitiveSearch) == 0) return left.compare(right) <=> 0;
  return comparable(left, options).units.compare(comparable(right, options).units) <=> 0;
}

}  // namespace standin::foundation
