// Finds where in text something changes, several units at once.
#pragma once

#include "standin/formats/doc/character_properties.hpp"

namespace standin::formats::doc {

inline constexpr char16_t firstPrintable = u' ';

// The first unit that is not printable, or the end.
const char16_t* findSpecial(const char16_t* units, const char16_t* end);

// Never a complex one, which text is by its properties.
Script scriptOf(char16_t unit);
// Where units of another script begin.
const char16_t* findOtherScript(Script script, const char16_t* units, const char16_t* end);

}  // namespace standin::formats::doc
