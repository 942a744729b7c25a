// UTF-32 to UTF-16, for hosts that cannot build UTF-32 themselves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace bridge {

// Appends the units of a code point: none for a lone surrogate, the replacement character above U+10FFFF.
inline char16_t* appendUTF16(char16_t* end, uint32_t codePoint) {
  constexpr uint32_t supplementary = 0x10000;
  if (codePoint >= 0xD800 && codePoint <= 0xDFFF) return end;
  if (codePoint > 0x10FFFF) codePoint = 0xFFFD;
  if (codePoint < supplementary) {
    *end++ = static_cast<char16_t>(codePoint);
    return end;
  }
  *end++ = static_cast<char16_t>(0xD800 + ((codePoint - supplementary) >> 10));
  *end++ = static_cast<char16_t>(0xDC00 | ((codePoint - supplementary) & 0x3FF));
  return end;
}

// Hands the UTF-16 of `size` bytes of UTF-32 in the machine's byte order to the body, with the number of units and a zero
// unit after them. Bytes of an incomplete unit are ignored. Short input takes no memory from the heap; the empty value of
// the body's result when there is none to be had.
template <class Body>
auto withUTF16(const void* bytes, std::size_t size, Body body) {
  constexpr std::size_t shortSize = 800;
  constexpr std::size_t shortUnits = 2 * (shortSize / 4) + 1;
  const std::size_t count = size / 4;
  char16_t fixed[shortUnits] = {};
  std::unique_ptr<char16_t, decltype(&std::free)> heap(nullptr, &std::free);
  char16_t* units = fixed;
  if (size >= shortSize) {
    heap.reset(static_cast<char16_t*>(std::calloc(2 * count + 1, sizeof(char16_t))));
    units = heap.get();
    if (units == nullptr) return decltype(body(units, count))();
  }
  char16_t* end = units;
  for (std::size_t index = 0; index < count; ++index) {
    uint32_t codePoint;
    std::memcpy(&codePoint, static_cast<const char*>(bytes) + 4 * index, sizeof codePoint);
    end = appendUTF16(end, codePoint);
  }
  return body(units, static_cast<std::size_t>(end - units));
}

}  // namespace bridge
