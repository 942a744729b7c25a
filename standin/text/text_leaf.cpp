// Sums over units.
#include "standin/text/text_leaf.hpp"

#include <type_traits>

namespace standin::text {

namespace {

// Adds what the units count for. `Count` is as wide as a unit, so that the compiler can work on many units at once.
template <class Count, class Unit>
void add(TextSum& sum, const Unit* units, uint32_t size) {
  Count breaks = 0, attachments = 0;
  for (uint32_t index = 0; index < size; ++index) {
    breaks = static_cast<Count>(breaks + isParagraphBreak(units[index]));
    attachments = static_cast<Count>(attachments + (units[index] == attachmentCharacter));
  }
  sum.paragraphBreaks += breaks;
  sum.attachments += attachments;
}

}  // namespace

TextSum sumOfUnits(UnitSpan units) {
  TextSum sum{units.size(), 0, 0};
  units.visit([&](auto span) {
    using Count = std::conditional_t<sizeof(span[0]) == 1, uint8_t, uint16_t>;
    constexpr uint32_t block = 64;  // a count of the same width holds what so many units add
    uint32_t from = 0;
    for (; from + block <= span.size(); from += block) add<Count>(sum, span.data() + from, block);
    add<Count>(sum, span.data() + from, static_cast<uint32_t>(span.size()) - from);
  });
  return sum;
}

}  // namespace standin::text
