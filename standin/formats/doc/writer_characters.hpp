// The characters of a document in bytes.
#pragma once

#include <string>
#include <string_view>

namespace standin::formats::doc {

// Appends the text in a byte a character where Windows Latin 1 has all of them, otherwise in two; gives which.
size_t appendCharacters(std::string& out, std::u16string_view units);

}  // namespace standin::formats::doc
