// Character references of HTML: "&eacute;", "&#233;", "&#xE9;".
#pragma once

#include <string_view>

namespace standin::formats::html {

enum class ReferencePlace { text, attribute };

// Puts the characters in the place of their references and gives the new end. The bytes are UTF-8; no reference is shorter
// than its characters. In attributes a name without its semicolon that more letters or "=" follow stays as it is: it is part
// of a URL.
char* decodeReferences(char* begin, char* end, ReferencePlace place);

// "name=code points in hexadecimal;" for all names, sorted by bytes; "~" instead of "=" where the name also counts without
// its semicolon. Names whose characters would be longer than the reference are left out.
extern const std::string_view characterNames;

}  // namespace standin::formats::html
