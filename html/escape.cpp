// Escapes text, copying what needs no escaping in long pieces.
#include "html/escape.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

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

// Eight units side by side, compared all at once.
using Eight = uint16_t __attribute__((vector_size(16)));
constexpr std::ptrdiff_t blockSize = 4 * sizeof(Eight) / sizeof(char16_t);

Eight load(const char16_t* position) {
  Eight units;
  std::memcpy(&units, position, sizeof units);
  return units;
}

auto marks(Eight units) {
  auto found = units >= static_cast<uint16_t>(firstOutsideASCII);
  for (const Escape& escape : escapes) found |= units == static_cast<uint16_t>(escape.unit);
  return found;
}

bool blockNeedsEscape(const char16_t* block) {
  const auto found = marks(load(block)) | marks(load(block + 8)) | marks(load(block + 16)) | marks(load(block + 24));
  uint64_t halves[2];
  std::memcpy(halves, &found, sizeof halves);
  return (halves[0] | halves[1]) != 0;
}

// Looks at single units first, so that a dense text does not pay for blocks.
const char16_t* nextToEscape(const char16_t* position, const char16_t* end) {
  constexpr std::ptrdiff_t near = 16;
  const char16_t* const nearEnd = position + std::min(near, end - position);
  const char16_t* const found = std::find_if(position, nearEnd, needsEscape);
  if (found != nearEnd) return found;
  position = nearEnd;
  while (end - position >= blockSize && !blockNeedsEscape(position)) position += blockSize;
  return std::find_if(position, end, needsEscape);
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
