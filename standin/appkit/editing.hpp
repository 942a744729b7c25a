// How the messages of mutable attributed strings change them: text storages learn of every edit.
#pragma once

#include "standin/appkit/attributed_string.hpp"
#include "standin/appkit/text_storage.hpp"

namespace standin::appkit {

// Runs change(StyledText&), which puts `inserted` units in the place of the range.
template <class Change>
void edit(NSAttributedString* self, text::UnitRange replaced, uint32_t inserted, Change&& change) {
  change(stateOf<AttributedString>(self).styled);
  noteEdit(self, replaced, inserted);
}

// Runs change(StyledText&), which leaves the characters as they are, and attributes outside the range.
template <class Change>
void restyle(NSAttributedString* self, text::UnitRange range, Change&& change) {
  edit(self, range, range.length, change);
}

}  // namespace standin::appkit
