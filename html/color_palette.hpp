// Colours as text.
#pragma once

#include <string>

#include "platform/appkit.h"

namespace html {

// A number sign and two lowercase hexadecimal digits each for red, green and blue, more for a component outside 0 to 1. A
// colour without red, green and blue reads as black. The colour is not nil.
std::string colorText(NSColor* color, double gamma = 1.0);

// Whether the text is the one that didLoad took for black.
bool isBlackText(const std::string& text);

}  // namespace html
