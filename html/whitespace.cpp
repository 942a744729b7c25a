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

// Copies eight units that stay as they are: no white space but spaces that follow other units, one at a time.
bool copyBlock(const char16_t* from, char16_t* to, bool& afterSpace) {
  const UnitBlock block(from);
  if (UnitBlock::marks(block.outside(u' ', u'~')) != 0) return false;
  const uint64_t spaces = UnitBlock::marks(block.equal(u' '));
  const uint64_t afterSpaces = spaces << 8 | (afterSpace ? 0xFFU : 0U);
  if ((spaces & afterSpaces) != 0) return false;
  block.store(to);
  afterSpace = spaces >> 56 != 0;
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
    const std::size_t step = std::min(UnitBlock::size, static_cast<std::size_t>(end - in));
    if (step == UnitBlock::size && copyBlock(in, out, afterSpace)) {
      in += step;
      out += step;
      continue;
    }
    for (const char16_t* const stop = in + step; in != stop; ++in) {
      const bool isSpace = members[*in];
      if (!isSpace || !afterSpace) *out++ = isSpace ? u' ' : *in;
      afterSpace = isSpace;
    }
  }
  if (!afterSpace) *out++ = u' ';
  return {first, static_cast<std::size_t>(out - first)};
}

}  // namespace html
