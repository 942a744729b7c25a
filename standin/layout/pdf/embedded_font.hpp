// A font of the document: the glyphs that it uses of a face, and what text they stand for.
#pragma once

#include <string>

#include "standin/layout/face.hpp"
#include "standin/layout/pdf/file.hpp"

namespace standin::layout::pdf {

// Writes the font object and all that belongs to it. `number` tells subsets of one face in different files apart by name.
void writeFont(File& file, int object, const Face& face, int number);

}  // namespace standin::layout::pdf
