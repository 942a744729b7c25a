// Properties of blocks: shorthands of the space around and in them, markers of list items.
#include "standin/formats/html/css/appliers.hpp"
#include "standin/formats/utf8.hpp"

namespace standin::formats::html::css {
namespace {

struct Marker {
  NumberFormat format;
  std::u16string_view bullet;
};
constexpr Keyword<Marker> markers[] = {
    {"disc", {NumberFormat::bullet, u"\u2022"}},
    {"circle", {NumberFormat::bullet, u"\u25E6"}},
    {"square", {NumberFormat::bullet, u"\u25AA"}},
    {"decimal", {NumberFormat::decimal, {}}},
    {"decimal-leading-zero", {NumberFormat::decimalZero, {}}},
    {"lower-alpha", {NumberFormat::lowerLetter, {}}},
    {"lower-latin", {NumberFormat::lowerLetter, {}}},
    {"upper-alpha", {NumberFormat::upperLetter, {}}},
    {"upper-latin", {NumberFormat::upperLetter, {}}},
    {"lower-roman", {NumberFormat::lowerRoman, {}}},
    {"upper-roman", {NumberFormat::upperRoman, {}}},
    {"none", {NumberFormat::none, {}}},
};

// Of no more characters than a name has.
std::optional<Marker> quotedMarker(std::string_view word, std::u16string& storage) {
  constexpr size_t longest = 255;
  if (!word.starts_with('"') && !word.starts_with('\'')) return std::nullopt;
  storage = unitsOf(trimmed(stringOf(word))).substr(0, longest);
  return Marker{NumberFormat::bullet, storage};
}

// One to four values go around from the top.
void applySides(std::array<double, 4>& sides, std::string_view value, const ComputedStyle& style,
                const Surroundings& surroundings) {
  const auto words = wordsOf(value);
  if (words.empty() || words.size() > 4) return;
  const auto word = [&](size_t wanted, size_t otherwise) { return words[wanted < words.size() ? wanted : otherwise]; };
  const size_t across = words.size() > 1 ? 1 : 0;
  const std::string_view values[] = {words[0], word(1, 0), word(2, 0), word(3, across)};
  for (size_t side = 0; side < sides.size(); ++side) sides[side] = lengthOrZero(values[side], style, surroundings);
}

}  // namespace

void applyMargin(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  applySides(style.margins, value, style, surroundings);
}

void applyPadding(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  applySides(style.paddings, value, style, surroundings);
}

void applyListStyle(ComputedStyle& style, std::string_view value, const Surroundings&) {
  std::u16string storage;
  for (const std::string_view word : wordsOf(value)) {
    auto marker = keywordIn(markers, word);
    if (!marker) marker = quotedMarker(word, storage);
    if (!marker) continue;
    style.markerFormat = marker->format;
    style.bullet = marker->bullet;
    return;
  }
}

}  // namespace standin::formats::html::css
