// Blocks of units are looked over in a way that compilers make vector instructions of.
#include "standin/formats/doc/scanning.hpp"

#include <algorithm>

#include "standin/formats/scripts.hpp"

namespace standin::formats::doc {
namespace {

constexpr char16_t firstBeyondASCII = 0x80;

// The second half of a character belongs to whatever the first does.
bool belongsTo(Script script, char16_t unit) { return scriptOf(unit) == script || (unit & 0xFC00) == 0xDC00; }

// Units that are looked over at once: in most blocks there is nothing to find.
constexpr ptrdiff_t block = 16;

}  // namespace

Script scriptOf(char16_t unit) {
  return unit < firstBeyondASCII ? Script::ascii : isAsian(unit) ? Script::eastAsian : Script::other;
}

const char16_t* findSpecial(const char16_t* units, const char16_t* end) {
  constexpr char16_t bitsOfPrintable = 0xFFE0;
  for (; end - units >= block; units += block) {
    uint16_t found = 0;
    for (ptrdiff_t index = 0; index < block; ++index) found |= (units[index] & bitsOfPrintable) == 0;
    if (found != 0) break;
  }
  return std::find_if(units, end, [](char16_t unit) { return unit < firstPrintable; });
}

const char16_t* findOtherScript(Script script, const char16_t* units, const char16_t* end) {
  for (; script == Script::ascii && end - units >= block; units += block) {
    uint16_t all = 0;
    for (ptrdiff_t index = 0; index < block; ++index) all |= units[index];
    if (all >= firstBeyondASCII) break;
  }
  return std::find_if(units, end, [&](char16_t unit) { return !belongsTo(script, unit); });
}

}  // namespace standin::formats::doc
