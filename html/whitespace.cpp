// Asks the platform once for its white space and keeps the answer as one byte a unit.
#include "html/whitespace.hpp"

#include <algorithm>
#include <array>

namespace html {

namespace {

using WhitespaceTable = std::array<bool, 0x10000>;

WhitespaceTable platformWhitespace() {
  WhitespaceTable members{};
  NSCharacterSet* set = NSCharacterSet::whitespaceAndNewlineCharacterSet(classOf<NSCharacterSet>());
  for (std::size_t unit = 0; unit < members.size(); ++unit) {
    members[unit] = NSCharacterSet::characterIsMember(set, static_cast<unichar>(unit)) != NO;
  }
  return members;
}

const WhitespaceTable& whitespace() {
  static const WhitespaceTable members = platformWhitespace();
  return members;
}

}  // namespace

std::u16string_view normalize(Units& units) {
  const WhitespaceTable& members = whitespace();
  const auto isSpace = [&](char16_t unit) { return members[unit]; };
  char16_t* const first = units.data();
  const char16_t* const end = first + units.view().size();
  char16_t* out = first;
  for (const char16_t* word = std::find_if_not(static_cast<const char16_t*>(first), end, isSpace); word != end;) {
    const char16_t* const wordEnd = std::find_if(word, end, isSpace);
    out = std::copy(word, wordEnd, out);
    word = std::find_if_not(wordEnd, end, isSpace);
    *out++ = u' ';
  }
  return {first, static_cast<std::size_t>(out - first)};
}

}  // namespace html
