// Text storages: attributed strings that put their attributes in order after every edit, or once after several.
#pragma once

#include "standin/appkit/attributed_string.hpp"

namespace standin::appkit {

struct TextStorage : AttributedString {
  uint32_t openEdits = 0;                 // messages beginEditing without their endEditing
  std::optional<text::UnitRange> edited;  // what was edited since the last fixing, in the text as it is now
};

// To be called after an edit of any attributed string that put `inserted` units in the place of the range.
void noteEdit(NSAttributedString* string, text::UnitRange replaced, uint32_t inserted);

}  // namespace standin::appkit
