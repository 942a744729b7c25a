// Numbers as letters, Roman and ordinal; patterns filled in.
#include "standin/formats/list_markers.hpp"

#include <algorithm>

namespace standin::formats {
namespace {

std::u16string decimal(int number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

std::u16string letters(int number, char16_t first) {
  constexpr int mostRepetitions = 100;
  if (number < 1) return decimal(number);
  return std::u16string(static_cast<size_t>(std::min((number - 1) / 26 + 1, mostRepetitions)),
                        static_cast<char16_t>(first + (number - 1) % 26));
}

std::u16string roman(int number, bool upper) {
  struct Digit {
    int value;
    std::u16string_view lower, upper;
  };
  constexpr Digit digits[] = {{1000, u"m", u"M"}, {900, u"cm", u"CM"}, {500, u"d", u"D"}, {400, u"cd", u"CD"},
                              {100, u"c", u"C"},  {90, u"xc", u"XC"},  {50, u"l", u"L"},  {40, u"xl", u"XL"},
                              {10, u"x", u"X"},   {9, u"ix", u"IX"},   {5, u"v", u"V"},   {4, u"iv", u"IV"},
                              {1, u"i", u"I"}};
  if (number < 1 || number > 3999) return decimal(number);
  std::u16string text;
  for (const Digit& digit : digits) {
    for (; number >= digit.value; number -= digit.value) text += upper ? digit.upper : digit.lower;
  }
  return text;
}

std::u16string ordinal(int number) {
  const int tens = number / 10 % 10, ones = number % 10;
  const bool teen = tens == 1;
  return decimal(number) + (teen || ones > 3 || ones < 1 ? u"th" : ones == 1 ? u"st" : ones == 2 ? u"nd" : u"rd");
}

constexpr size_t longestMarker = 255;  // and pattern, in units; what is beyond is cut off

int held(int level) { return std::clamp(level, 0, listLevels - 1); }

}  // namespace

std::u16string numberText(NumberFormat format, int number) {
  switch (format) {
    case NumberFormat::decimal:
      return decimal(number);
    case NumberFormat::decimalZero:
      return (number >= 0 && number < 10 ? u"0" : u"") + decimal(number);
    case NumberFormat::lowerLetter:
      return letters(number, u'a');
    case NumberFormat::upperLetter:
      return letters(number, u'A');
    case NumberFormat::lowerRoman:
      return roman(number, false);
    case NumberFormat::upperRoman:
      return roman(number, true);
    case NumberFormat::ordinal:
      return ordinal(number);
    case NumberFormat::bullet:
    case NumberFormat::none:
      return {};
  }
  return {};
}

std::u16string ListCounters::next(const std::array<ListLevel, listLevels>& levels, int level) {
  const auto at = static_cast<size_t>(held(level));
  for (size_t above = 0; above < at; ++above) {
    if (!counting_[above]) counts_[above] = levels[above].start;
    counting_[above] = true;
  }
  constexpr int greatest = 1'000'000'000;
  if (!counting_[at]) {
    counts_[at] = levels[at].start;
  } else if (counts_[at] < greatest) {
    ++counts_[at];
  }
  counting_[at] = true;
  for (size_t below = at + 1; below < counting_.size(); ++below) counting_[below] = false;
  const std::u16string_view pattern = std::u16string_view(levels[at].pattern).substr(0, longestMarker);
  if (levels[at].format == NumberFormat::bullet) return std::u16string(pattern);
  std::u16string marker;
  for (size_t index = 0; index < pattern.size(); ++index) {
    const bool isPlace =
        pattern[index] == u'%' && index + 1 < pattern.size() && pattern[index + 1] >= u'1' && pattern[index + 1] <= u'9';
    if (!isPlace) {
      marker += pattern[index];
      continue;
    }
    const auto place = static_cast<size_t>(pattern[++index] - u'1');
    if (place <= at) marker += numberText(levels[place].format, counts_[place]);
  }
  if (marker.size() > longestMarker) marker.resize(longestMarker);
  return marker;
}

void ListCounters::restart(int level, int number) {
  const auto at = static_cast<size_t>(held(level));
  counts_[at] = std::clamp(number, -1'000'000, 1'000'000'000) - 1;
  counting_[at] = true;
}

std::u16string markerText(std::u16string_view marker) {
  if (marker.empty()) return {};
  return u"\t" + std::u16string(marker) + u"\t";
}

// The tab in front of the marker goes to the first stop that lies behind the place where the line starts, the one behind it
// to a stop of the paragraph's own or to where its other lines start.
void layOutMarker(text::Paragraph& paragraph) {
  constexpr double leastPlace = 1;
  const double place = std::max(paragraph.firstLineIndent, leastPlace);
  std::vector<text::TabStop> stops = {{place, text::TabKind::left}};
  for (const text::TabStop& own : paragraph.tabs.value_or(std::vector<text::TabStop>())) {
    if (own.position > place) stops.push_back(own);
  }
  const auto isHead = [&](const text::TabStop& stop) { return stop.position == paragraph.headIndent; };
  if (paragraph.headIndent > place && std::none_of(stops.begin(), stops.end(), isHead)) {
    stops.push_back({paragraph.headIndent, text::TabKind::left});
  }
  std::sort(stops.begin(), stops.end());
  paragraph.tabs = std::move(stops);
  paragraph.firstLineIndent = 0;
}

std::u16string plainBullet(std::u16string_view bullet) {
  struct Symbol {
    char16_t code, character;
  };
  // Of the fonts Symbol and Wingdings, as list templates use them.
  constexpr Symbol symbols[] = {{0xF0B7, 0x2022}, {0xF0A7, 0x25AA}, {0xF0A8, 0x25AB}, {0xF0D8, 0x27A2}, {0xF0FC, 0x2713},
                                {0xF076, 0x2756}, {0xF071, 0x2751}, {0xF06E, 0x25A0}, {0xF06F, 0x25A1}, {0xF0E0, 0x2192},
                                {0xF0D2, 0x27A2}, {0xF02D, 0x2013}, {0xF0FE, 0x2612}, {0xF0A0, 0x25CF}, {0xF06C, 0x25CF}};
  std::u16string plain;
  for (const char16_t unit : bullet) {
    const auto found =
        std::find_if(std::begin(symbols), std::end(symbols), [&](const Symbol& row) { return row.code == unit; });
    const bool isPrivate = unit >= 0xE000 && unit <= 0xF8FF;
    plain += found != std::end(symbols) ? found->character : isPrivate ? u'•' : unit;
  }
  return plain;
}

}  // namespace standin::formats
