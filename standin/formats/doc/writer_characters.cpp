// The bytes that the format has for characters outside Latin 1, and the choice between one byte and two.
#include "standin/formats/doc/writer_characters.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "standin/formats/little_endian.hpp"

namespace standin::formats::doc {
namespace {

// What the bytes from 0x80 to 0x9F stand for. Those that Windows Latin 1 got later are 0 here: readers differ about them.
constexpr char16_t upperCharacters[] = {
    0, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0, 0, 0,
    0, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0, 0, 0x0178};

// 0 when there is no byte for the unit.
char byteOf(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit < 0x100)) return static_cast<char>(unit);
  const auto* found = std::find(std::begin(upperCharacters), std::end(upperCharacters), unit);
  return found != std::end(upperCharacters) ? static_cast<char>(0x80 + (found - upperCharacters)) : '\0';
}

void appendWide(std::string& out, std::u16string_view units) {
  if constexpr (std::endian::native == std::endian::little) {
    out.append(reinterpret_cast<const char*>(units.data()), units.size() * sizeof(char16_t));
  } else {
    for (const char16_t unit : units) append16(out, unit);
  }
}

}  // namespace

size_t appendCharacters(std::string& out, std::u16string_view units) {
  const size_t start = out.size();
  out.reserve(start + units.size() * 2 + units.size() / 4);
  for (const char16_t unit : units) {
    const char byte = byteOf(unit);
    if (byte == '\0') {
      out.resize(start);
      appendWide(out, units);
      return 2;
    }
    out += byte;
  }
  return 1;
}

}  // namespace standin::formats::doc
