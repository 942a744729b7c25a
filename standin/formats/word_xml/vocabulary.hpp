// Closed sets of values, for readers and writers alike.
#pragma once

#include <optional>
#include <string_view>

#include "standin/formats/list_markers.hpp"
#include "standin/text/style.hpp"

namespace standin::formats::word_xml {

// The platform's stroke width, in per cent of the font's size, that stands for outlined characters.
inline constexpr double outlineWidth = 3;

// The platform's line style; a single line for a name that is not known.
int underlineNamed(std::string_view name);
// Empty for none; the plain line of the same pattern or a single one for styles that the formats lack.
std::string_view underlineName(int style);

// Nothing for "none" and unknown names.
std::optional<text::Color> highlightOf(std::string_view name);

// What "left" and "right" mean where text runs from left to right; natural for unknown names.
text::Alignment alignmentNamed(std::string_view name);
// Empty for natural alignment.
std::string_view alignmentName(text::Alignment alignment);

struct TabName {
  std::string_view name;
  text::TabKind kind;
};
// Nothing for bars and for what is not known.
std::optional<text::TabKind> tabNamed(std::string_view name);
std::string_view tabName(text::TabKind kind);

// By name, and by the number of the edition of 2003; decimal for what is not known.
NumberFormat numberFormatNamed(std::string_view name);
NumberFormat numberFormatCoded(int code);

}  // namespace standin::formats::word_xml
