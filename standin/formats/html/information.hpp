// What an HTML document says of itself.
#pragma once

#include "standin/formats/document.hpp"
#include "standin/formats/html/tree.hpp"

namespace standin::formats::html {

// The title, and what "meta" elements say.
void findProperties(const Tree& tree, Properties& properties);

// The contents of "@page" rules: paper and margins.
void findPage(std::string_view declarations, PageSetup& page);

}  // namespace standin::formats::html
