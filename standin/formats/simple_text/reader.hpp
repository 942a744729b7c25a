// Reads documents of the old SimpleText editor: Mac Roman text whose lines end with carriage returns. Fonts and styles stood
// in a resource beside the bytes, which files elsewhere do not have.
#pragma once

#include <cstdint>
#include <span>

#include "standin/formats/document.hpp"

namespace standin::formats::simple_text {

// Any bytes are such a document. All of the text is in the default font.
Document read(std::span<const uint8_t> bytes);

}  // namespace standin::formats::simple_text
