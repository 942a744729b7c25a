// Between the bytes of documents and UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace standin::formats {

// How many bytes at the start of the text are ASCII.
size_t lengthOfASCII(std::string_view text);

// Bytes that are not UTF-8 become U+FFFD.
void appendUnits(std::u16string& units, std::string_view utf8);
std::u16string unitsOf(std::string_view utf8);
std::string utf8Of(std::u16string_view units);

}  // namespace standin::formats
