// Scripts of characters, as far as the fonts of office documents depend on them.
#pragma once

#include <cstdint>
#include <string_view>

namespace standin::formats {

// The kinds of script that a style can give fonts of their own.
enum class Script : uint8_t { western, asian, complex };

// How many bytes of the UTF-8 text, at least one character, are of one script, which `script` becomes. Characters of no
// script of their own, such as spaces and digits, go with those before them.
size_t stretchOfScript(std::string_view text, Script& script);

}  // namespace standin::formats
