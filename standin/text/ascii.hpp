// ASCII: how much of a text is, and names and keywords whose letters are whatever the language of the document.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace standin::text {

constexpr char asciiLowercase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

constexpr bool equalIgnoringCase(std::string_view left, std::string_view right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                   [](char a, char b) { return asciiLowercase(a) == asciiLowercase(b); });
}

// How many bytes at the start are below 0x80.
inline size_t lengthOfASCII(std::string_view text) {
  constexpr uint64_t highBits = 0x8080808080808080;
  using Block = std::array<uint64_t, 8>;
  size_t at = 0;
  for (Block block; text.size() - at >= sizeof block; at += sizeof block) {
    std::memcpy(&block, text.data() + at, sizeof block);
    uint64_t any = 0;
    for (const uint64_t word : block) any |= word;
    if ((any & highBits) != 0) break;
  }
  for (uint64_t word; text.size() - at >= sizeof word; at += sizeof word) {
    std::memcpy(&word, text.data() + at, sizeof word);
    if ((word & highBits) != 0) break;
  }
  while (at < text.size() && static_cast<uint8_t>(text[at]) < 0x80) ++at;
  return at;
}

}  // namespace standin::text
