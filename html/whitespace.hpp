// White space as the platform defines it, and its normalisation.
#pragma once

#include <string_view>

#include "html/text.hpp"

namespace html {

// Every stretch outside white space followed by one space, and nothing else. Works in place: the view is of the units given.
std::u16string_view normalize(Units& units);

}  // namespace html
