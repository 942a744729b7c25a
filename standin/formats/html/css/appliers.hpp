// One function a property, or a family of properties that differ by a member: sets what a value says.
#pragma once

#include <algorithm>
#include <iterator>

#include "standin/formats/html/ascii.hpp"
#include "standin/formats/html/css/properties.hpp"
#include "standin/formats/html/css/values.hpp"

namespace standin::formats::html::css {

using Applier = void(ComputedStyle& style, std::string_view value, const Surroundings& surroundings);

Applier applyFont, applyFontSize, applyFontFamily, applyFontWeight, applyFontStyle, applyFontVariant, applyLigatures;
Applier applyColor, applyBackground, applyDecoration, applyDecorationLine, applyDecorationStyle, applyDecorationColor;
Applier applyTextShadow, applyLetterSpacing, applyVerticalAlign;
Applier applyTextIndent, applyLineHeight, applyTabSize, applyTabStops, applyListStyle;
Applier applyMargin, applyPadding, applyTextAlign;

inline FontSizes fontSizes(const ComputedStyle& style, const Surroundings& surroundings) {
  return {style.fontSize, surroundings.rootFontSize};
}

template <class Value>
struct Keyword {
  std::string_view name;
  Value value;
};

template <class Table>
auto keywordIn(const Table& table, std::string_view name) {
  const auto found = std::find_if(std::begin(table), std::end(table),
                                  [&](const auto& keyword) { return equalIgnoringCase(keyword.name, name); });
  return found != std::end(table) ? std::optional(found->value) : std::nullopt;
}

// Of properties whose values are a set of keywords.
template <auto member, const auto& table>
void applyKeyword(ComputedStyle& style, std::string_view value, const Surroundings&) {
  if (const auto found = keywordIn(table, value)) style.*member = *found;
}

// A length, or "auto" and percentages of what is not known, which are 0.
inline double lengthOrZero(std::string_view value, const ComputedStyle& style, const Surroundings& surroundings) {
  constexpr double most = 10'000;
  return std::clamp(lengthOf(value, fontSizes(style, surroundings)).value_or(0), -most, most);
}

}  // namespace standin::formats::html::css
