// Pictures as images of the document.
#pragma once

#include <cstdint>
#include <span>

#include "standin/layout/pdf/file.hpp"

namespace standin::layout::pdf {

// Writes the picture and answers its object; 0 when it cannot be decoded.
int writeImage(File& file, std::span<const uint8_t> picture);

}  // namespace standin::layout::pdf
