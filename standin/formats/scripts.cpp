// Ranges of characters by kind of script.
#include "standin/formats/scripts.hpp"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <optional>

#include "standin/text/ascii.hpp"

namespace standin::formats {
namespace {

struct Range {
  UChar32 first, last;
  std::optional<Script> script;  // nothing: that of the text before
};
// Beyond ASCII.
constexpr Range ranges[] = {
    {0x0080, 0x00BF, std::nullopt},    {0x0590, 0x109F, Script::complex}, {0x1100, 0x11FF, Script::asian},
    {0x1200, 0x137F, Script::western}, {0x1780, 0x18AF, Script::complex}, {0x2000, 0x206F, std::nullopt},
    {0x2E80, 0xA4CF, Script::asian},   {0xA960, 0xA97F, Script::asian},   {0xAC00, 0xD7FF, Script::asian},
    {0xF900, 0xFAFF, Script::asian},   {0xFB1D, 0xFDFF, Script::complex}, {0xFE30, 0xFE4F, Script::asian},
    {0xFE70, 0xFEFE, Script::complex}, {0xFF00, 0xFFEF, Script::asian},   {0xFFFC, 0xFFFC, std::nullopt},
    {0x20000, 0x3FFFF, Script::asian},
};

// Of ASCII, by the character.
constexpr auto latinLetters = [] {
  std::array<std::optional<Script>, 0x80> scripts{};
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    for (const int variant : {0, 0x20}) scripts[static_cast<size_t>(letter + variant)] = Script::western;
  }
  return scripts;
}();

std::optional<Script> scriptOf(UChar32 character) {
  if (character < 0x80) return latinLetters[static_cast<size_t>(character)];
  const auto found = std::lower_bound(std::begin(ranges), std::end(ranges), character,
                                      [](const Range& range, UChar32 value) { return range.last < value; });
  return found != std::end(ranges) && found->first <= character ? found->script : Script::western;
}

}  // namespace

bool isAsian(char16_t unit) {
  return scriptOf(U16_IS_LEAD(unit) ? U16_GET_SUPPLEMENTARY(unit, 0xDC00) : unit) == Script::asian;
}

size_t stretchOfScript(std::string_view text, Script& script) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
  const auto length = static_cast<int32_t>(text.size());
  if (script == Script::western && standin::text::lengthOfASCII(text) == text.size()) return text.size();
  std::optional<Script> found;
  for (int32_t at = 0, start = 0; at < length; start = at) {
    UChar32 character;
    U8_NEXT_OR_FFFD(bytes, at, length, character);
    const auto own = scriptOf(character);
    if (own && found && *own != *found) return static_cast<size_t>(start);
    if (own && !found && *own != script && start > 0) return static_cast<size_t>(start);
    if (own) script = *(found = own);
  }
  return text.size();
}

}  // namespace standin::formats
