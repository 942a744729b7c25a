// The levels of list styles, from the elements that describe them.
#include "standin/formats/odt/list_styles.hpp"

#include <algorithm>

#include "standin/formats/odt/names.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/utf8.hpp"

namespace standin::formats::odt {
namespace {

constexpr double mostPoints = 10'000;  // what is beyond is nonsense

double lengthOf(const xml::Element& element, name::Number attribute) {
  return std::clamp(pointsOf(element.value(attribute)).value_or(0), -mostPoints, mostPoints);
}

int wholeOf(std::string_view value, int missing) {
  constexpr double most = 1e9;
  return static_cast<int>(std::clamp(numberOf(value).value_or(missing), -most, most));
}

// Some programs write the first few numbers of the row.
NumberFormat formatOf(std::string_view value) {
  constexpr std::pair<std::string_view, NumberFormat> formats[] = {
      {"1", NumberFormat::decimal},      {"a", NumberFormat::lowerLetter}, {"A", NumberFormat::upperLetter},
      {"i", NumberFormat::lowerRoman},   {"I", NumberFormat::upperRoman},  {"", NumberFormat::none},
      {"01", NumberFormat::decimalZero}, {"1st", NumberFormat::ordinal}};
  const std::string_view first = value.substr(0, value.find(','));
  const auto found =
      std::find_if(std::begin(formats), std::end(formats), [&](const auto& row) { return row.first == first; });
  return found != std::end(formats) ? found->second : NumberFormat::decimal;
}

bool isNumber(const ListLevel& level) { return level.format != NumberFormat::bullet && level.format != NumberFormat::none; }

std::u16string placeOf(size_t index) { return {u'%', static_cast<char16_t>(u'1' + index)}; }

// "%1%.%2%)" with the places of levels as patterns have them.
std::u16string convertedPattern(std::u16string_view pattern) {
  std::u16string converted;
  for (size_t at = 0; at < pattern.size(); ++at) {
    const bool isPlace = pattern[at] == u'%' && at + 2 < pattern.size() && pattern[at + 1] >= u'1' &&
                         pattern[at + 1] <= u'9' && pattern[at + 2] == u'%';
    converted += pattern[at];
    if (!isPlace) continue;
    converted += pattern[at + 1];
    at += 2;
  }
  return converted;
}

// The numbers of the levels that are shown, with points between.
std::u16string numbersShown(const ListStyle& style, size_t index, int shown) {
  std::u16string numbers;
  const size_t first = index + 1 - static_cast<size_t>(std::clamp(shown, 1, static_cast<int>(index) + 1));
  for (size_t level = first; level <= index; ++level) {
    if (!isNumber(style.levels[level])) continue;
    if (!numbers.empty()) numbers += u'.';
    numbers += placeOf(level);
  }
  return numbers;
}

bool isBlank(std::u16string_view text) { return text.find_first_not_of(u" \t") == text.npos; }

std::u16string patternOf(const ListStyle& style, size_t index, const xml::Element& element) {
  if (!isNumber(style.levels[index])) {
    return unitsOf(element.value(name::numberPrefix)) + unitsOf(element.value(name::numberSuffix));
  }
  if (const auto given = element.find(name::numberPattern)) return convertedPattern(unitsOf(*given));
  return unitsOf(element.value(name::numberPrefix)) +
         numbersShown(style, index, wholeOf(element.value(name::displayLevels), 1)) +
         unitsOf(element.value(name::numberSuffix));
}

}  // namespace

ListStyle plainListStyle() {
  ListStyle style;
  style.levels.fill({NumberFormat::bullet, u"•", 1});
  for (size_t index = 0; index < style.layouts.size(); ++index) {
    style.layouts[index] = {static_cast<double>(index + 2) * 18, -18, 0, false};
  }
  return style;
}

ListStyle numberedListStyle() {
  ListStyle style;
  for (size_t index = 0; index < style.levels.size(); ++index) style.levels[index].pattern = placeOf(index) + u".";
  return style;
}

ListStyle unmarkedListStyle() {
  ListStyle style;
  style.levels.fill({NumberFormat::none, {}, 1});
  return style;
}

std::optional<size_t> addLevel(ListStyle& style, const xml::Element& element) {
  const int number = wholeOf(element.value(name::level), 0);
  if (number < 1 || number > listLevels) return std::nullopt;
  const auto index = static_cast<size_t>(number - 1);
  ListLevel& level = style.levels[index];
  level.start = wholeOf(element.value(name::startValue), 1);
  if (element.name == name::numberLevel || element.name == name::outlineLevel) {
    level.format = formatOf(element.value(name::numberFormat));
    level.pattern = patternOf(style, index, element);
    if (isBlank(level.pattern)) level.pattern.clear();
  } else {
    const std::u16string bullet = plainBullet(unitsOf(element.value(name::bulletCharacter)));
    level.format = NumberFormat::bullet;
    level.pattern = isBlank(bullet) ? u"•" : bullet;
  }
  style.layouts[index] = {};
  return index;
}

void takeLevelProperties(LevelLayout& layout, const xml::Element& element) {
  layout.leftIndent = lengthOf(element, name::spaceBefore) + lengthOf(element, name::labelWidth);
  layout.firstLineIndent = -lengthOf(element, name::labelWidth);
  layout.addsToParagraph = true;
}

void takeLabelAlignment(LevelLayout& layout, const xml::Element& element) {
  layout = {lengthOf(element, name::marginLeft), lengthOf(element, name::textIndent), lengthOf(element, name::labelTab),
            false};
}

}  // namespace standin::formats::odt
