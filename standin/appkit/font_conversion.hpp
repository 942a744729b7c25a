// Conversion of fonts to other traits.
#pragma once

#include "standin/text/style.hpp"

namespace standin::appkit {

// The face of the font's family that has the traits as well; those for unbold and unitalic take traits away. Of several
// traits each is taken on if the family has such a face.
text::Font withTraits(const text::Font& font, uint64_t traits);
// The face that has none of the traits; the font itself when there is no such face.
text::Font withoutTraits(const text::Font& font, uint64_t traits);

}  // namespace standin::appkit
