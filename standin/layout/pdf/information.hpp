// What a PDF file says of itself.
#pragma once

#include "standin/formats/document.hpp"
#include "standin/layout/pdf/file.hpp"

namespace standin::layout::pdf {

// Writes the object and answers its number.
int writeInformation(File& file, const formats::Properties& properties);

}  // namespace standin::layout::pdf
