// The values of CSS properties: their parts, lengths, colours, strings.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standin/text/style.hpp"

namespace standin::formats::html::css {

// What the units of a length are counted in, in points. A pixel is a point.
struct FontSizes {
  double own, root;
};

// Absolute units are points' worth on paper; "em", "ex", "ch" and "rem" count in the font's size. A zero needs no unit.
// Nothing for what is no length, and for those relative to a window.
std::optional<double> lengthOf(std::string_view text, const FontSizes& sizes);
// "150%" is 1.5.
std::optional<double> percentageOf(std::string_view text);
// A number and nothing behind it.
std::optional<double> plainNumberOf(std::string_view text);

// Names, "#rgb", "#rrggbbaa", "rgb()", "rgba()", "hsl()" and "hsla()". Nothing for "transparent" and what is no colour.
std::optional<text::Color> colorOf(std::string_view text);

// The parts between the separators that stand in no parentheses, brackets, braces or quotes; trimmed.
std::vector<std::string_view> partsOf(std::string_view text, char separator);
// The same between spaces; empty ones left out.
std::vector<std::string_view> wordsOf(std::string_view text);
// The position of the first of the characters, outside of those too; the size when there is none.
size_t findOutside(std::string_view text, std::string_view wanted, size_t from = 0);

// Without its quotes, its escapes decoded.
std::string stringOf(std::string_view text);

}  // namespace standin::formats::html::css
