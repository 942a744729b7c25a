// Eight UTF-16 units side by side, looked at all at once.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace html {

class UnitBlock {
 public:
  static constexpr std::size_t size = 8;

  explicit UnitBlock(const char16_t* from) { std::memcpy(&units_, from, sizeof units_); }
  void store(char16_t* to) const { std::memcpy(to, &units_, sizeof units_); }

  // The units without some of their bits.
  UnitBlock without(char16_t bits) const { return UnitBlock(units_ & static_cast<uint16_t>(~bits)); }

  // For each unit whether it holds. Answers combine with `|`.
  auto equal(char16_t unit) const { return units_ == static_cast<uint16_t>(unit); }
  auto outside(char16_t first, char16_t last) const {
    return units_ - static_cast<uint16_t>(first) > static_cast<uint16_t>(last - first);
  }
  auto atLeast(char16_t limit) const { return units_ >= static_cast<uint16_t>(limit); }

  // Such answers as a byte a unit, the first unit's lowest: all ones where it holds, else zero.
  template <class Answers>
  static uint64_t marks(Answers answers) {
    const Bytes bytes = __builtin_convertvector(answers, Bytes);
    uint64_t marks;
    std::memcpy(&marks, &bytes, sizeof marks);
    return marks;
  }
  // The first unit that is marked, where one is.
  static std::size_t first(uint64_t marks) { return static_cast<std::size_t>(std::countr_zero(marks)) / 8; }

 private:
  static_assert(std::endian::native == std::endian::little);
  using Units = uint16_t __attribute__((vector_size(16)));
  using Bytes = uint8_t __attribute__((vector_size(8)));

  explicit UnitBlock(Units units) : units_(units) {}

  Units units_;
};

// Where one of the units is first, or the size of the text.
template <class... Unit>
std::size_t findUnit(std::u16string_view text, Unit... units) {
  std::size_t at = 0;
  for (; text.size() - at >= UnitBlock::size; at += UnitBlock::size) {
    const UnitBlock block(text.data() + at);
    const uint64_t found = UnitBlock::marks((block.equal(units) | ...));
    if (found != 0) return at + UnitBlock::first(found);
  }
  while (at < text.size() && ((text[at] != units) && ...)) ++at;
  return at;
}

}  // namespace html
