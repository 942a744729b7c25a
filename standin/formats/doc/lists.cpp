// The lists come first, the levels of them all behind; overrides likewise, with what each changes behind.
#include "standin/formats/doc/lists.hpp"

#include <algorithm>

namespace standin::formats::doc {
namespace {

constexpr size_t listSize = 28, levelSize = 28, overrideSize = 16;

NumberFormat formatNumbered(uint8_t number) {
  constexpr NumberFormat formats[] = {NumberFormat::decimal,     NumberFormat::upperRoman,  NumberFormat::lowerRoman,
                                      NumberFormat::upperLetter, NumberFormat::lowerLetter, NumberFormat::ordinal};
  constexpr uint8_t decimalZero = 22, bullet = 23, none = 255;
  if (number < std::size(formats)) return formats[number];
  return number == decimalZero ? NumberFormat::decimalZero
         : number == bullet    ? NumberFormat::bullet
         : number == none      ? NumberFormat::none
                               : NumberFormat::decimal;
}

// Characters below nine stand for the numbers of levels.
std::u16string patternOf(Bytes text, NumberFormat format) {
  constexpr size_t mostUnits = 64;
  std::u16string pattern;
  for (size_t place = 0; place + 2 <= text.size() && pattern.size() < mostUnits; place += 2) {
    const char16_t unit = text.read16(place);
    if (unit < listLevels)
      pattern += {u'%', static_cast<char16_t>(u'1' + unit)};
    else if (unit >= u' ')
      pattern += unit;
  }
  return format == NumberFormat::bullet ? plainBullet(pattern) : pattern;
}

size_t held(int level) { return static_cast<size_t>(std::clamp(level, 0, listLevels - 1)); }

}  // namespace

Lists::Lists(const Source& source) {
  readLists(source);
  counters_.resize(levels_.size());
  readOverrides(source.part(Part::listOverrides));
}

void Lists::readLists(const Source& source) {
  const Bytes part = source.part(Part::lists);
  Bytes rest = source.behind(Part::lists);
  const size_t count = std::min<size_t>(part.read16(0), part.size() / listSize);
  for (size_t index = 0; index < count; ++index) {
    const Bytes list = part.part(2 + index * listSize, listSize);
    constexpr size_t flagsPlace = 26;
    const bool isSimple = (list.read8(flagsPlace) & 1) != 0;
    Levels& levels = levels_.emplace_back();
    for (size_t level = 0; level < (isSimple ? 1 : listLevels) && !rest.empty(); ++level) readLevel(levels, level, rest);
    indices_.emplace(list.read32(0), index);
  }
}

// The fixed part, the lists of modifiers of the paragraph and of the number, and the text around the number.
void Lists::readLevel(Levels& levels, size_t level, Bytes& rest) {
  constexpr size_t formatPlace = 4, charactersSizePlace = 24, paragraphSizePlace = 25;
  const size_t paragraphSize = rest.read8(paragraphSizePlace), charactersSize = rest.read8(charactersSizePlace);
  const Bytes text = rest.part(levelSize + paragraphSize + charactersSize);
  const size_t textSize = size_t{text.read16(0)} * 2;
  ListLevel& marking = levels.markings[level];
  marking.format = formatNumbered(rest.read8(formatPlace));
  marking.start = rest.number<int32_t>(0);
  marking.pattern = patternOf(text.part(2, textSize), marking.format);
  levels.modifiers[level] = rest.part(levelSize, paragraphSize);
  rest = text.part(2 + textSize);
}

void Lists::readOverrides(Bytes part) {
  constexpr size_t countPlace = 12;
  const size_t count = std::min<size_t>(part.read32(0), part.size() / overrideSize);
  Bytes rest = part.part(4 + count * overrideSize);
  for (size_t index = 0; index < count; ++index) {
    const Bytes override = part.part(4 + index * overrideSize, overrideSize);
    const auto found = indices_.find(override.read32(0));
    const size_t list = found != indices_.end() ? found->second : SIZE_MAX;
    overrides_.push_back({.list = list, .levels = list});
    rest = readOverriddenLevels(overrides_.back(), override.read8(countPlace), rest.part(4));
  }
}

// Those of the list at first.
Lists::Levels& Lists::ownLevels(Override& override) {
  if (override.levels == override.list) {
    override.levels = levels_.size();
    levels_.push_back(override.list < counters_.size() ? Levels(levels_[override.list]) : Levels());
  }
  return levels_[override.levels];
}

Bytes Lists::readOverriddenLevels(Override& override, size_t count, Bytes rest) {
  constexpr size_t headerSize = 8;
  for (size_t index = 0; index < count && !rest.empty(); ++index) {
    const int32_t start = rest.number<int32_t>(0);
    const uint32_t flags = rest.read32(4);
    const size_t level = std::min<size_t>(flags & 0xF, listLevels - 1);
    const bool startsAgain = (flags & 0x10) != 0, hasFormat = (flags & 0x20) != 0;
    rest = rest.part(headerSize);
    if (hasFormat) {
      Levels& changed = ownLevels(override);
      readLevel(changed, level, rest);
      if (startsAgain) override.starts[level] = changed.markings[level].start;
    } else if (startsAgain) {
      override.starts[level] = start;
    }
  }
  return rest;
}

const Lists::Override* Lists::find(int list) const {
  const auto index = static_cast<size_t>(list) - 1;
  return list > 0 && index < overrides_.size() && overrides_[index].list < counters_.size() ? &overrides_[index] : nullptr;
}

Bytes Lists::modifiersOf(int list, int level) const {
  const Override* override = find(list);
  return override != nullptr ? levels_[override->levels].modifiers[held(level)] : Bytes();
}

std::u16string Lists::nextMarker(int list, int level) {
  const Override* found = find(list);
  if (found == nullptr) return {};
  auto& start = overrides_[static_cast<size_t>(list) - 1].starts[held(level)];
  ListCounters& counters = counters_[found->list];
  if (start) counters.restart(level, *start);
  start.reset();
  return counters.next(levels_[found->levels].markings, level);
}

}  // namespace standin::formats::doc
