// Ranges of characters by kind of script.
#include "standin/formats/scripts.hpp"

#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace standin::formats {
namespace {

struct Range {
  UChar32 first, last;
  std::optional<Script> script;  // nothing: that of the text before
};
constexpr Range ranges[] = {
    {0x0000, 0x0040, std::nullopt},    {0x005B, 0x0060, std::nullopt},  {0x007B, 0x00BF, std::nullopt},
    {0x0590, 0x109F, Script::complex}, {0x1100, 0x11FF, Script::asian}, {0x1200, 0x137F, Script::western},
    {0x1780, 0x18AF, Script::complex}, {0x2000, 0x206F, std::nullopt},  {0x2E80, 0xA4CF, Script::asian},
    {0xA960, 0xA97F, Script::asian},   {0xAC00, 0xD7FF, Script::asian}, {0xF900, 0xFAFF, Script::asian},
    {0xFB1D, 0xFDFF, Script::complex}, {0xFE30, 0xFE4F, Script::asian}, {0xFE70, 0xFEFE, Script::complex},
    {0xFF00, 0xFFEF, Script::asian},   {0xFFFC, 0xFFFC, std::nullopt},  {0x20000, 0x3FFFF, Script::asian},
};

std::optional<Script> scriptOf(UChar32 character) {
  const auto found = std::lower_bound(std::begin(ranges), std::end(ranges), character,
                                      [](const Range& range, UChar32 value) { return range.last < value; });
  return found != std::end(ranges) && found->first <= character ? found->script : Script::western;
}

// Eight bytes at a time.
bool isASCII(std::string_view text) {
  constexpr uint64_t highBits = 0x8080808080808080;
  uint64_t bits = 0, word = 0;
  for (; text.size() >= sizeof word; text.remove_prefix(sizeof word)) {
    std::memcpy(&word, text.data(), sizeof word);
    bits |= word;
  }
  for (const char byte : text) bits |= static_cast<uint8_t>(byte);
  return (bits & highBits) == 0;
}

}  // namespace

size_t stretchOfScript(std::string_view text, Script& script) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
  const auto length = static_cast<int32_t>(text.size());
  if (script == Script::western && isASCII(text)) return text.size();
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
