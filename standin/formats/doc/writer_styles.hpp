// The style sheet of a document that is written.
#pragma once

#include <string>

#include "standin/formats/doc/writer_fonts.hpp"
#include "standin/text/style.hpp"

namespace standin::formats::doc {

// Normal in this font, headings, which differ from it in their level alone, the default style of characters, and that of
// links.
std::string styleSheet(const text::Font& normal, FontTable& fonts);

}  // namespace standin::formats::doc
