// Sums over units.
#include "standin/text/text_leaf.hpp"

namespace standin::text {

TextSum& TextSum::operator+=(const TextSum& other) {
  units += other.units;
  paragraphBreaks += other.paragraphBreaks;
  attachments += other.attachments;
  return *this;
}

TextSum& TextSum::operator-=(const TextSum& other) {
  units -= other.units;
  paragraphBreaks -= other.paragraphBreaks;
  attachments -= other.attachments;
  return *this;
}

TextSum sumOfUnits(UnitSpan units) {
  TextSum sum{units.size(), 0, 0};
  units.visit([&](auto span) {
    for (const auto unit : span) {
      sum.paragraphBreaks += isParagraphBreak(unit);
      sum.attachments += unit == attachmentCharacter;
    }
  });
  return sum;
}

}  // namespace standin::text
