// Paragraphs and attachment characters: what text counts beside its units.
#include <algorithm>

#include "standin/text/text.hpp"

namespace standin::text {
namespace {

// The position of the break number `index`, which must be among the units.
uint32_t breakIn(UnitSpan units, uint32_t index) {
  uint32_t position = 0;
  while (!isParagraphBreak(units[position]) || index-- > 0) ++position;
  return position;
}

}  // namespace

TextSum Text::sumBefore(uint32_t position) const {
  const Tree::Place place = tree_.find(position);
  TextSum sum = place.before;
  sum += sumOfUnits(place.leaf->content().slice(0, position - place.before.units));
  return sum;
}

uint32_t Text::positionOfBreak(uint32_t index) const {
  const Tree::Place place = tree_.findBy(&TextSum::paragraphBreaks, index);
  return place.before.units + breakIn(place.leaf->content(), index - place.before.paragraphBreaks);
}

// The position lies between the two units of one break.
bool Text::isBreakPair(uint32_t position) const {
  return position > 0 && position < size() && (*this)[position - 1] == u'\r' && (*this)[position] == u'\n';
}

uint32_t Text::paragraphStart(uint32_t position) const {
  if (isBreakPair(position)) --position;
  if (isFlat()) {
    const UnitSpan units = flat_.units();
    while (position > 0 && !isParagraphBreak(units[position - 1])) --position;
    return position;
  }
  const uint32_t breaks = sumBefore(position).paragraphBreaks;
  return breaks == 0 ? 0 : positionOfBreak(breaks - 1) + 1;
}

uint32_t Text::paragraphEnd(uint32_t position) const {
  if (isFlat()) {
    const UnitSpan units = flat_.units();
    while (position < units.size() && !isParagraphBreak(units[position])) ++position;
  } else {
    const uint32_t breaks = sumBefore(position).paragraphBreaks;
    position = breaks == tree_.sum().paragraphBreaks ? size() : positionOfBreak(breaks);
  }
  if (position == size()) return position;
  return isBreakPair(position + 1) ? position + 2 : position + 1;
}

UnitRange Text::paragraphs(uint32_t from, uint32_t count) const {
  if (empty()) return {0, 0};
  const uint32_t start = paragraphStart(from);
  return {start, paragraphEnd(count == 0 ? from : from + count - 1) - start};
}

uint32_t Text::attachmentCharacters(uint32_t from, uint32_t count) const {
  if (isFlat()) return sumOfUnits(flat_.units().slice(from, count)).attachments;
  return sumBefore(from + count).attachments - sumBefore(from).attachments;
}

}  // namespace standin::text
