// The letters and spaces of HTML and CSS, which are ASCII whatever the language of the document.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "standin/text/ascii.hpp"

namespace standin::formats::html {

constexpr bool isASCIISpace(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r' || c == '\f'; }
constexpr bool isASCIILetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool isASCIIDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isASCIIAlphanumeric(char c) { return isASCIILetter(c) || isASCIIDigit(c); }
using text::asciiLowercase;
using text::equalIgnoringCase;

inline std::string asciiLowercase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) { return asciiLowercase(c); });
  return result;
}

constexpr std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isASCIISpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isASCIISpace(text.back())) text.remove_suffix(1);
  return text;
}

// Calls `use` with each of the words between spaces.
template <class Use>
void forEachWord(std::string_view text, Use use) {
  for (size_t at = 0; at < text.size();) {
    while (at < text.size() && isASCIISpace(text[at])) ++at;
    const size_t start = at;
    while (at < text.size() && !isASCIISpace(text[at])) ++at;
    if (at > start) use(text.substr(start, at - start));
  }
}

}  // namespace standin::formats::html
