// The CSS properties that styled text can hold, and what their values do.
#pragma once

#include <string_view>

#include "standin/formats/html/css/computed_style.hpp"

namespace standin::formats::html::css {

// A row of the table of properties.
using Property = uint8_t;
inline constexpr Property unknownProperty = 0xFF;

// By a name, capitals aside.
Property propertyNamed(std::string_view name);
bool setsFontSize(Property property);

struct Surroundings {
  const ComputedStyle& parent;
  double rootFontSize;
};

// Sets what the value says; a value that makes no sense leaves the style as it is. The font's size must be settled before
// properties whose lengths count in it.
void apply(Property property, std::string_view value, ComputedStyle& style, const Surroundings& surroundings);

}  // namespace standin::formats::html::css
