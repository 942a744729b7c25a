// Escapes text, copying what needs no escaping in long pieces.
#include "html/escape.hpp"

#include <array>
#include <cstdint>
#include <tuple>

#include "html/unit_block.hpp"

namespace html {

namespace {

constexpr char16_t firstOutsideASCII = 0x80;

constexpr std::size_t longestEscape = 8;  // "&#65535;"

struct Escape {
  char16_t unit;
  std::u16string_view output;
};
constexpr Escape escapes[] = {
    {u'\n', u"<br/>"}, {u'"', u"&quot;"}, {u'&', u"&amp;"}, {u'<', u"&lt;"}, {u'>', u"&gt;"},
};

// What stands for each ASCII character; empty for one that stands for itself.
constexpr auto outputs = [] {
  std::array<std::u16string_view, firstOutsideASCII> table{};
  for (const Escape& escape : escapes) table[escape.unit] = escape.output;
  return table;
}();

bool needsEscape(char16_t unit) { return unit >= firstOutsideASCII || !outputs[unit].empty(); }

// The same units as the table's, fewer to look for: without the bit in which two differ they are one.
struct EscapedUnits {
  char16_t unit, differingBit;
};
constexpr std::array<EscapedUnits, 3> escapedUnits = {{{u'\n', 0}, {u'"', u'"' ^ u'&'}, {u'<', u'<' ^ u'>'}}};
static_assert([] {
  for (char16_t unit = 0; unit < firstOutsideASCII; ++unit) {
    bool isFound = false;
    for (const EscapedUnits& some : escapedUnits) isFound |= (unit & ~some.differingBit) == (some.unit & ~some.differingBit);
    if (isFound == outputs[unit].empty()) return false;
  }
  return true;
}());

auto unitsToEscape(const char16_t* position) {
  const UnitBlock block(position);
  const auto isOneOf = [&](const EscapedUnits& some) {
    return block.without(some.differingBit).equal(static_cast<char16_t>(some.unit & ~some.differingBit));
  };
  return std::apply([&](const auto&... some) { return (block.atLeast(firstOutsideASCII) | ... | isOneOf(some)); },
                    escapedUnits);
}

bool isPlain(const char16_t* position) {
  return UnitBlock::marks(unitsToEscape(position) | unitsToEscape(position + UnitBlock::size) |
                          unitsToEscape(position + 2 * UnitBlock::size) | unitsToEscape(position + 3 * UnitBlock::size)) ==
         0;
}

// Looks at a single block first, so that a dense text does not pay for several.
const char16_t* nextToEscape(const char16_t* position, const char16_t* end) {
  constexpr std::ptrdiff_t size = UnitBlock::size;
  for (bool isFirst = true; end - position >= size; isFirst = false) {
    while (!isFirst && end - position >= 4 * size && isPlain(position)) position += 4 * size;
    if (end - position < size) break;
    if (const uint64_t found = UnitBlock::marks(unitsToEscape(position))) return position + UnitBlock::first(found);
    position += size;
  }
  while (position != end && !needsEscape(*position)) ++position;
  return position;
}

void appendReference(unsigned unit, std::u16string& output) {
  char16_t reference[longestEscape];
  char16_t* const end = reference + longestEscape;
  char16_t* first = end;
  *--first = u';';
  for (; unit != 0; unit /= 10) *--first = static_cast<char16_t>(u'0' + unit % 10);
  *--first = u'#';
  *--first = u'&';
  output.append(first, static_cast<std::size_t>(end - first));
}

void appendEscape(char16_t unit, std::u16string& output) {
  if (unit >= firstOutsideASCII) return appendReference(unit, output);
  output.append(outputs[unit]);
}

}  // namespace

bool isEscaped(std::u16string_view text) {
  const char16_t* const end = text.data() + text.size();
  return nextToEscape(text.data(), end) == end;
}

void appendEscaped(std::u16string_view text, std::u16string& output) {
  const char16_t* position = text.data();
  const char16_t* const end = position + text.size();
  while (true) {
    const char16_t* const special = nextToEscape(position, end);
    output.append(position, static_cast<std::size_t>(special - position));
    if (special == end) return;
    appendEscape(*special, output);
    position = special + 1;
  }
}

}  // namespace html
