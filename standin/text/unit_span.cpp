// Copying and comparing units across the two ways of holding them.
#include "standin/text/unit_span.hpp"

#include <algorithm>
#include <cstring>

namespace standin::text {

void UnitSpan::copyTo(uint8_t* bytes) const {
  visit([&](auto units) {
    std::transform(units.begin(), units.end(), bytes, [](auto unit) { return static_cast<uint8_t>(unit); });
  });
}

void UnitSpan::copyTo(char16_t* units) const {
  visit([&](auto own) { std::copy(own.begin(), own.end(), units); });
}

bool UnitSpan::isLatin1() const {
  if (!isWide_) return true;
  // In blocks without an early exit inside them, which the compiler turns into vector code.
  constexpr uint32_t block = 256;
  for (uint32_t from = 0; from < size_; from += block) {
    const std::span<const char16_t> units(wide() + from, std::min(block, size_ - from));
    char16_t all = 0;
    for (const char16_t unit : units) all = static_cast<char16_t>(all | unit);
    if (all > 0xFF) return false;
  }
  return true;
}

bool UnitSpan::operator==(const UnitSpan& other) const {
  if (size_ != other.size_) return false;
  return visit([&](auto own) {
    return other.visit([&](auto others) { return std::equal(own.begin(), own.end(), others.begin()); });
  });
}

}  // namespace standin::text
