// Properties of fonts.
#include <cmath>

#include "standin/formats/html/css/appliers.hpp"
#include "standin/text/font_faces.hpp"

namespace standin::formats::html::css {
namespace {

// Of the sizes that "medium" text of 12 points goes with.
constexpr Keyword<double> sizeNames[] = {{"xx-small", 9}, {"x-small", 9},  {"small", 10},    {"medium", 12},
                                         {"large", 14},   {"x-large", 18}, {"xx-large", 24}, {"xxx-large", 36}};
constexpr double relativeStep = 1.2;

constexpr Keyword<int> weightNames[] = {{"normal", 400}, {"bold", 700}};
constexpr Keyword<bool> styleNames[] = {{"normal", false}, {"italic", true}, {"oblique", true}};

constexpr Keyword<std::string_view> genericFamilies[] = {
    {"serif", "Times"},       {"sans-serif", "Helvetica"}, {"monospace", "Courier"},       {"cursive", "Times"},
    {"fantasy", "Helvetica"}, {"system-ui", "Helvetica"},  {"-apple-system", "Helvetica"}, {"ui-sans-serif", "Helvetica"},
    {"ui-serif", "Times"},    {"ui-monospace", "Courier"},
};

std::optional<double> fontSizeOf(std::string_view value, const Surroundings& surroundings) {
  if (const auto named = keywordIn(sizeNames, value)) return named;
  const double around = surroundings.parent.fontSize;
  if (equalIgnoringCase(value, "smaller")) return around / relativeStep;
  if (equalIgnoringCase(value, "larger")) return around * relativeStep;
  if (const auto percentage = percentageOf(value)) return around * *percentage;
  return lengthOf(value, {around, surroundings.rootFontSize});
}

// The first family of which there are faces; without any the first that is named, whatever machine has it.
std::string familyOf(std::string_view value) {
  constexpr size_t longestName = 255, most = 64;
  std::string first;
  std::string_view generic;
  std::vector<std::string_view> parts = partsOf(value, ',');
  parts.resize(std::min(parts.size(), most));
  for (const std::string_view part : parts) {
    const auto found = keywordIn(genericFamilies, part);
    if (generic.empty() && found) generic = *found;
    std::string name = found ? std::string() : stringOf(part);
    if (text::familyNamed(name)) return name;
    if (first.empty() && name.size() <= longestName) first = std::move(name);
  }
  return !first.empty() ? first : std::string(generic);
}

std::optional<int> weightOf(std::string_view value, const ComputedStyle& parent) {
  if (const auto named = keywordIn(weightNames, value)) return named;
  if (equalIgnoringCase(value, "bolder")) return parent.weight < 600 ? 700 : 900;
  if (equalIgnoringCase(value, "lighter")) return parent.weight >= 800 ? 700 : parent.weight >= 600 ? 400 : 100;
  const auto number = plainNumberOf(value);
  return number && *number >= 1 && *number <= 1000 ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

// "italic bold" before the size.
void applyFontWord(ComputedStyle& style, std::string_view word, const Surroundings& surroundings) {
  if (equalIgnoringCase(word, "normal")) return;
  if (equalIgnoringCase(word, "small-caps")) style.smallCaps = true;
  if (const auto italic = keywordIn(styleNames, word)) style.italic = *italic;
  if (const auto weight = weightOf(word, surroundings.parent)) style.weight = *weight;
}

}  // namespace

void applyFontSize(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  constexpr double least = 0.5, most = 10'000;
  const auto size = fontSizeOf(value, surroundings);
  if (size && *size >= 0) style.fontSize = std::clamp(std::round(*size * 1000) / 1000, least, most);
}

void applyFontFamily(ComputedStyle& style, std::string_view value, const Surroundings&) {
  if (std::string family = familyOf(value); !family.empty()) style.family = std::move(family);
}

void applyFontWeight(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  if (const auto weight = weightOf(value, surroundings.parent)) style.weight = *weight;
}

void applyFontStyle(ComputedStyle& style, std::string_view value, const Surroundings&) {
  if (const auto italic = keywordIn(styleNames, value.substr(0, value.find(' ')))) style.italic = *italic;
}

void applyFontVariant(ComputedStyle& style, std::string_view value, const Surroundings&) {
  const auto words = wordsOf(value);
  style.smallCaps = std::any_of(words.begin(), words.end(), [](auto word) { return equalIgnoringCase(word, "small-caps"); });
}

void applyLigatures(ComputedStyle& style, std::string_view value, const Surroundings&) {
  style.ligature = equalIgnoringCase(value, "none") ? std::optional(0) : std::nullopt;
}

// What comes before the size is reset when it is not said.
void applyFont(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  const auto words = wordsOf(value);
  const auto sizeIn = [](std::string_view word) { return word.substr(0, word.find('/')); };
  const auto size = std::find_if(words.begin(), words.end(),
                                 [&](std::string_view word) { return fontSizeOf(sizeIn(word), surroundings).has_value(); });
  if (size == words.end()) return;
  style.weight = 400;
  style.italic = style.smallCaps = false;
  style.lineHeight = style.lineHeightMultiple = 0;
  for (auto word = words.begin(); word != size; ++word) applyFontWord(style, *word, surroundings);
  applyFontSize(style, sizeIn(*size), surroundings);
  std::string_view rest = trimmed(value.substr(static_cast<size_t>(size->data() - value.data()) + sizeIn(*size).size()));
  if (rest.starts_with('/')) {
    rest = trimmed(rest.substr(1));
    const size_t end = findOutside(rest, " \t\n\r\f");
    applyLineHeight(style, rest.substr(0, end), surroundings);
    rest.remove_prefix(end);
  }
  applyFontFamily(style, rest, surroundings);
}

}  // namespace standin::formats::html::css
