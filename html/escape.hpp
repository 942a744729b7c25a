// Plain text as HTML: markup characters as entities, line feeds as breaks, everything outside ASCII as decimal references.
#pragma once

#include <string>
#include <string_view>

namespace html {

// Whether escaping leaves the text as it is.
bool isEscaped(std::u16string_view text);

// Works on UTF-16 units: a surrogate pair becomes two references.
void appendEscaped(std::u16string_view text, std::u16string& output);

}  // namespace html
