// Most blocks of units hold nothing that is looked for, which arithmetic on words of four units tells.
#include "standin/formats/doc/scanning.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "standin/formats/scripts.hpp"

namespace standin::formats::doc {
namespace {

constexpr char16_t firstBeyondASCII = 0x80;

// The second half of a character belongs to whatever the first does.
bool belongsTo(Script script, char16_t unit) { return scriptOf(unit) == script || (unit & 0xFC00) == 0xDC00; }

using Word = uint64_t;
using Block = std::array<Word, 4>;
constexpr ptrdiff_t unitsInBlock = sizeof(Block) / sizeof(char16_t);

constexpr Word inEachUnit(uint16_t value) { return Word{0x0001'0001'0001'0001} * value; }

// Past the blocks for which the test answers no.
template <class Test>
const char16_t* pastBlocks(const char16_t* units, const char16_t* end, Test&& holdsSome) {
  for (; end - units >= unitsInBlock; units += unitsInBlock) {
    Block block;
    std::memcpy(&block, units, sizeof block);
    if (holdsSome(block)) break;
  }
  return units;
}

bool holdsSpecial(const Block& block) {
  // The highest bit of a unit is set by the subtraction alone when it is special, or behind one that is.
  Word found = 0;
  for (const Word word : block) found |= (word - inEachUnit(firstPrintable)) & ~word;
  return (found & inEachUnit(0x8000)) != 0;
}

bool holdsBeyondASCII(const Block& block) { return ((block[0] | block[1] | block[2] | block[3]) & inEachUnit(0xFF80)) != 0; }

}  // namespace

Script scriptOf(char16_t unit) {
  return unit < firstBeyondASCII ? Script::ascii : isAsian(unit) ? Script::eastAsian : Script::other;
}

const char16_t* findSpecial(const char16_t* units, const char16_t* end) {
  return std::find_if(pastBlocks(units, end, holdsSpecial), end, [](char16_t unit) { return unit < firstPrintable; });
}

const char16_t* findOtherScript(Script script, const char16_t* units, const char16_t* end) {
  if (script == Script::ascii) units = pastBlocks(units, end, holdsBeyondASCII);
  return std::find_if(units, end, [&](char16_t unit) { return !belongsTo(script, unit); });
}

}  // namespace standin::formats::doc
