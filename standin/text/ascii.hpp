// Names and keywords whose letters are ASCII, whatever the language of the document.
#pragma once

#include <algorithm>
#include <string_view>

namespace standin::text {

constexpr char asciiLowercase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

constexpr bool equalIgnoringCase(std::string_view left, std::string_view right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                   [](char a, char b) { return asciiLowercase(a) == asciiLowercase(b); });
}

}  // namespace standin::text
