// Attributes of HTML that say what CSS also can.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "standin/formats/html/tree.hpp"

namespace standin::formats::html {

// Calls `use` with the property and the value for each such attribute of the element.
void forEachHint(const Tree& tree, NodeIndex element,
                 const std::function<void(std::string_view property, std::string value)>& use);

}  // namespace standin::formats::html
