// Copying and comparing units across the two ways of holding them.
#include "standin/text/unit_span.hpp"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace standin::text {
namespace {

// Eight units side by side.
constexpr uint32_t block = 8;
template <class Unit>
using Lanes __attribute__((vector_size(block * sizeof(Unit)))) = Unit;

template <class Unit>
Lanes<Unit> load(const void* from) {
  Lanes<Unit> lanes;
  std::memcpy(&lanes, from, sizeof lanes);
  return lanes;
}

template <class From, class To>
void convert(std::span<const From> from, To* to) {
  if constexpr (sizeof(From) == sizeof(To)) {
    std::copy_n(from.data(), from.size(), to);
  } else {
    using FromLane = std::conditional_t<sizeof(From) == 1, uint8_t, uint16_t>;
    using ToLane = std::conditional_t<sizeof(To) == 1, uint8_t, uint16_t>;
    const From* const whole = from.data() + from.size() / block * block;
    const From* next = from.data();
    for (; next != whole; next += block, to += block) {
      const auto lanes = __builtin_convertvector(load<FromLane>(next), Lanes<ToLane>);
      std::memcpy(to, &lanes, sizeof lanes);
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
  for (; from + 4 * block <= size_; from += 4 * block) {
    const char16_t* const units = wide() + from;
    const auto all = load<uint16_t>(units) | load<uint16_t>(units + block) | load<uint16_t>(units + 2 * block) |
                     load<uint16_t>(units + 3 * block);
    uint64_t halves[2];
    std::memcpy(halves, &all, sizeof halves);
    if (((halves[0] | halves[1]) & 0xFF00FF00FF00FF00) != 0) return false;
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
