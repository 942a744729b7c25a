// Decoding in place.
#include "standin/formats/html/character_references.hpp"

#include <unicode/utf8.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <optional>

#include "standin/formats/html/ascii.hpp"

namespace standin::formats::html {
namespace {

struct NamedCharacter {
  std::string_view codes;
  bool countsBare;
};

// Names are found by halving the text of the table, each time at the next entry's start.
std::optional<NamedCharacter> characterNamed(std::string_view name) {
  size_t low = 0, high = characterNames.size();
  while (low < high) {
    size_t start = low + (high - low) / 2;
    while (start > low && characterNames[start - 1] != ';') --start;
    const size_t nameEnd = characterNames.find_first_of("=~", start);
    const size_t end = characterNames.find(';', nameEnd);
    const int order = name.compare(characterNames.substr(start, nameEnd - start));
    if (order == 0) {
      return NamedCharacter{characterNames.substr(nameEnd + 1, end - nameEnd - 1), characterNames[nameEnd] == '~'};
    }
    if (order < 0) {
      high = start;
    } else {
      low = end + 1;
    }
  }
  return std::nullopt;
}

// Windows characters in the place of C1 controls, as pages have them.
uint32_t meantBy(uint32_t code) {
  constexpr uint16_t windows[32] = {0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021, 0x2C6,  0x2030, 0x160,
                                    0x2039, 0x152,  0x8D,   0x17D,  0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                    0x2013, 0x2014, 0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};
  if (code >= 0x80 && code < 0xA0) return windows[code - 0x80];
  const bool isCharacter = code != 0 && code <= 0x10FFFF && !(code >= 0xD800 && code < 0xE000);
  return isCharacter ? code : 0xFFFD;
}

char* append(char* out, uint32_t code) {
  int32_t length = 0;
  U8_APPEND_UNSAFE(reinterpret_cast<uint8_t*>(out), length, code);
  return out + length;
}

struct Decoded {
  char* out;
  const char* rest;
};

// From behind "&#".
std::optional<Decoded> decodeNumber(char* out, const char* at, const char* end) {
  const bool isHexadecimal = at < end && (*at | 0x20) == 'x';
  if (isHexadecimal) ++at;
  uint32_t code = 0;
  const auto [rest, error] = std::from_chars(at, end, code, isHexadecimal ? 16 : 10);
  if (rest == at) return std::nullopt;
  if (error != std::errc()) code = 0;
  return Decoded{append(out, meantBy(code)), rest < end && *rest == ';' ? rest + 1 : rest};
}

char* appendCodes(char* out, std::string_view codes) {
  const char* at = codes.data();
  const char* const end = at + codes.size();
  while (at < end) {
    uint32_t code = 0;
    at = std::from_chars(at, end, code, 16).ptr + 1;
    out = append(out, code);
  }
  return out;
}

// From behind "&".
std::optional<Decoded> decodeName(char* out, const char* at, const char* end, ReferencePlace place) {
  constexpr size_t longestName = 31, longestBareName = 6, shortestName = 2;
  const char* last = at;
  while (last < end && last - at < static_cast<ptrdiff_t>(longestName) && isASCIIAlphanumeric(*last)) ++last;
  const std::string_view name(at, static_cast<size_t>(last - at));
  if (last < end && *last == ';') {
    if (const auto found = characterNamed(name)) return Decoded{appendCodes(out, found->codes), last + 1};
  }
  for (size_t length = std::min(name.size(), longestBareName); length >= shortestName; --length) {
    const auto found = characterNamed(name.substr(0, length));
    if (!found || !found->countsBare) continue;
    const char* rest = at + length;
    if (place == ReferencePlace::attribute && rest < end && (*rest == '=' || isASCIIAlphanumeric(*rest))) break;
    return Decoded{appendCodes(out, found->codes), rest};
  }
  return std::nullopt;
}

}  // namespace

char* decodeReferences(char* begin, char* end, ReferencePlace place) {
  char* out = begin;
  const char* at = begin;
  while (at < end) {
    const void* found = std::memchr(at, '&', static_cast<size_t>(end - at));
    const char* ampersand = found != nullptr ? static_cast<const char*>(found) : end;
    std::memmove(out, at, static_cast<size_t>(ampersand - at));
    out += ampersand - at;
    if (ampersand == end) break;
    const char* name = ampersand + 1;
    const auto decoded = name < end && *name == '#' ? decodeNumber(out, name + 1, end) : decodeName(out, name, end, place);
    if (!decoded) *out++ = '&';
    if (decoded) out = decoded->out;
    at = decoded ? decoded->rest : name;
  }
  return out;
}

}  // namespace standin::formats::html
