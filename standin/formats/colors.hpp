// Colours as document formats name them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "standin/text/style.hpp"

namespace standin::formats {

// "#rgb", "#rrggbb", "rrggbb" or one of CSS's names, capitals aside. Nothing for "auto", "transparent" and others.
std::optional<text::Color> colorNamed(std::string_view name);

// Bytes of red, green and blue.
text::Color colorOf(uint8_t red, uint8_t green, uint8_t blue);

// Red, green and blue of the nearest colour of bytes; opacity is left out.
using ColorBytes = std::array<uint8_t, 3>;
ColorBytes bytesOf(const text::Color& color);

// "rrggbb" of the colour's nearest red, green and blue; opacity is left out.
std::string hexOf(const text::Color& color);

// Office's sixteen highlight colours: "yellow", "darkBlue"; the index is the one that the binary format counts from 1.
// Nothing for "none" and 0.
std::optional<text::Color> highlightNamed(std::string_view name);
std::optional<text::Color> highlightNumbered(int number);

}  // namespace standin::formats
