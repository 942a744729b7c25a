// Scripts of characters, as far as the fonts of office documents depend on them.
#pragma once

#include <cstdint>
#include <string_view>

namespace standin::formats {

// The kinds of script that a style can give fonts of their own.
enum class Script : uint8_t { western, asian, complex };

// Of the character that the unit is or, being the first of a pair, begins.
bool isAsian(char16_t unit);

// Hebrew, Arabic, Syriac, Thaana and their neighbours, and the forms of their letters.
constexpr bool isRightToLeft(char16_t unit) {
  return unit >= 0x590 && (unit < 0x900 || (unit >= 0xFB1D && unit < 0xFE00) || (unit >= 0xFE70 && unit < 0xFEFF));
}

// How many bytes of the UTF-8 text, at least one character, are of one script, which `script` becomes. Characters of no
// script of their own, such as spaces and digits, go with those before them.
size_t stretchOfScript(std::string_view text, Script& script);

}  // namespace standin::formats
