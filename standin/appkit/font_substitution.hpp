// Which characters a font has no glyphs for, and which font has them, as the fonts of this system say.
#pragma once

#include <string>
#include <vector>

#include "standin/text/text.hpp"

namespace standin::appkit {

// Text that a family has no glyphs for, and the family that has them.
struct Substitution {
  text::UnitRange range;
  std::string family;
};

// What the family lacks in the range, in order; without what no font has. Marks and invisible characters stay with
// the characters before them, as spaces do that the family lacks.
std::vector<Substitution> substitutions(const text::Text& text, text::UnitRange range, const std::string& family);

}  // namespace standin::appkit
