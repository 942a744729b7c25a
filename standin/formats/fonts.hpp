// Fonts as documents name them.
#pragma once

#include <string>

#include "standin/text/style.hpp"

namespace standin::formats {

// The font of a run; runs without one are in the platform's default font.
const text::Font& fontOf(const text::Style& style);

// The name from which `fontMeant` finds the font again, with bold and italic kept as switches beside it: its family's, or
// its own where these do not lead to it.
std::string nameOf(const text::Font& font);

}  // namespace standin::formats
