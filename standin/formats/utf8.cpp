// ASCII, which most text of documents is, goes over in one step.
#include "standin/formats/utf8.hpp"

#include <unicode/unistr.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>

#include "standin/text/ascii.hpp"

namespace standin::formats {

void appendUnits(std::u16string& units, std::string_view utf8) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(utf8.data());
  const auto length = static_cast<int32_t>(utf8.size());
  for (int32_t at = 0; at < length;) {
    const size_t count = text::lengthOfASCII(utf8.substr(static_cast<size_t>(at)));
    const size_t before = units.size();
    units.resize(before + count);
    std::copy_n(bytes + at, count, units.begin() + static_cast<ptrdiff_t>(before));
    at += static_cast<int32_t>(count);
    if (at == length) return;
    UChar32 character;
    U8_NEXT_OR_FFFD(bytes, at, length, character);
    if (U_IS_SUPPLEMENTARY(character)) units += U16_LEAD(character);
    units += static_cast<char16_t>(U_IS_SUPPLEMENTARY(character) ? U16_TRAIL(character) : character);
  }
}

std::u16string unitsOf(std::string_view utf8) {
  std::u16string units;
  appendUnits(units, utf8);
  return units;
}

std::string utf8Of(std::u16string_view units) {
  std::string utf8;
  icu::UnicodeString(false, units.data(), static_cast<int32_t>(units.size())).toUTF8String(utf8);
  return utf8;
}

}  // namespace standin::formats
