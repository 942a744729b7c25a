// Copying and comparing units across the two ways of holding them.
#include "standin/text/unit_span.hpp"

#include <algorithm>
#include <cstring>

namespace standin::text {
namespace {

// A count that is known when compiling lets the compiler work on many units at once.
constexpr uint32_t block = 16;

template <class From, class To>
void convert(std::span<const From> from, To* to) {
  if constexpr (sizeof(From) == sizeof(To)) {
    std::copy_n(from.data(), from.size(), to);
  } else {
    const From* const whole = from.data() + from.size() / block * block;
    const From* next = from.data();
    for (; next != whole; next += block, to += block) {
      for (uint32_t index = 0; index < block; ++index) to[index] = static_cast<To>(next[index]);
    }
    for (; next != from.data() + from.size(); ++next) *to++ = static_cast<To>(*next);
  }
}

}  // namespace

void UnitSpan::copyTo(uint8_t* bytes) const {
  visit([&](auto units) { convert(units, bytes); });
}

void UnitSpan::copyTo(char16_t* units) const {
  visit([&](auto own) { convert(own, units); });
}

bool UnitSpan::isLatin1() const {
  if (!isWide_) return true;
  uint32_t from = 0;
  for (; from + block <= size_; from += block) {
    char16_t all = 0;
    for (uint32_t index = 0; index < block; ++index) all = static_cast<char16_t>(all | wide()[from + index]);
    if (all > 0xFF) return false;
  }
  return std::all_of(wide() + from, wide() + size_, [](char16_t unit) { return unit <= 0xFF; });
}

bool UnitSpan::operator==(const UnitSpan& other) const {
  if (size_ != other.size_) return false;
  return visit([&](auto own) {
    return other.visit([&](auto others) { return std::equal(own.data(), own.data() + own.size(), others.data()); });
  });
}

}  // namespace standin::text
