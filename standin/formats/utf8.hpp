// Between the bytes of documents and UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace standin::formats {

// Bytes that are not UTF-8 become U+FFFD.
void appendUnits(std::u16string& units, std::string_view utf8);
std::u16string unitsOf(std::string_view utf8);
std::string utf8Of(std::u16string_view units);

}  // namespace standin::formats
