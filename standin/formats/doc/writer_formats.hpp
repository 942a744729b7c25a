// The properties of characters and paragraphs, as modifiers.
#pragma once

#include <cstdint>
#include <string>

#include "standin/text/style.hpp"

namespace standin::formats::doc {

// Everything that differs from a style without properties; font and size always. Text of links is in the style of links,
// and that of right-to-left scripts takes its font from properties of its own.
std::string characterModifiers(const text::Style& style, uint16_t font, bool isRightToLeft = false);

// The number of the paragraph's style, and the modifiers. `textWidth` in points is what a line has between the margins.
std::string paragraphProperties(const text::Paragraph& paragraph, double textWidth);

// The style of links, beyond those that every document has.
inline constexpr uint16_t linkStyle = 15;

}  // namespace standin::formats::doc
