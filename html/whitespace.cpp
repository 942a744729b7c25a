// Asks the platform once for its white space and keeps the answer as one byte a unit.
#include "html/whitespace.hpp"

#include <algorithm>
#include <array>

#include "html/unit_block.hpp"

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

constexpr std::size_t stepSize = 2 * UnitBlock::size;

// Copies a step of units that stay as they are: no white space but spaces that follow other units, one at a time. The unit
// before the source can be read; the target is not ahead of the source.
bool copyStep(const char16_t* from, char16_t* to, bool afterSpace) {
  if (afterSpace && *from == u' ') return false;
  const UnitBlock first(from), second(from + UnitBlock::size);
  const UnitBlock beforeFirst(from - 1), beforeSecond(from + UnitBlock::size - 1);
  const auto others = first.outside(u' ', u'~') | second.outside(u' ', u'~');
  const auto doubled = (first.equal(u' ') & beforeFirst.equal(u' ')) | (second.equal(u' ') & beforeSecond.equal(u' '));
  if (UnitBlock::marks(others | doubled) != 0) return false;
  first.store(to);
  second.store(to + UnitBlock::size);
  return true;
}

}  // namespace

std::u16string_view normalize(Units& units) {
  const WhitespaceTable& members = whitespace();
  char16_t* const first = units.data();
  const char16_t* const end = first + units.view().size();
  char16_t* out = first;
  bool afterSpace = true;
  for (const char16_t* in = first; in != end;) {
    if (in != first && static_cast<std::size_t>(end - in) >= stepSize && copyStep(in, out, afterSpace)) {
      in += stepSize;
      out += stepSize;
      afterSpace = in[-1] == u' ';
      continue;
    }
    for (const char16_t* const stop = in + std::min(UnitBlock::size, static_cast<std::size_t>(end - in)); in != stop; ++in) {
      const bool isSpace = members[*in];
      if (!isSpace || !afterSpace) *out++ = isSpace ? u' ' : *in;
      afterSpace = isSpace;
    }
  }
  if (!afterSpace) *out++ = u' ';
  return {first, static_cast<std::size_t>(out - first)};
}

}  // namespace html
