// ASCII: how much of a text is, and names and keywords whose letters are whatever the language of the document.
#pragma once

#include <algorithm>
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
  using Words = uint64_t __attribute__((vector_size(16)));
  size_t at = 0;
  for (Words words[4]; text.size() - at >= sizeof words; at += sizeof words) {
    std::memcpy(&words, text.data() + at, sizeof words);
    const Words any = words[0] | words[1] | words[2] | words[3];
    if (((any[0] | any[1]) & highBits) != 0) break;
  }
  for (uint64_t word; text.size() - at >= sizeof word; at += sizeof word) {
    std::memcpy(&word, text.data() + at, sizeof word);
    if ((word & highBits) != 0) break;
  }
  while (at < text.size() && static_cast<uint8_t>(text[at]) < 0x80) ++at;
  return at;
}

}  // namespace standin::text
