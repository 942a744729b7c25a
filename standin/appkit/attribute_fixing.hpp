// Putting attributes in order: fonts that have the characters' glyphs, one style a paragraph, attachments on their
// characters alone. Ranges must lie inside the text.
#pragma once

#include "standin/text/styled_text.hpp"

namespace standin::appkit {

// Characters that their font lacks get one that has them, in the same size; those that no font has keep theirs.
void fixFonts(text::StyledText& styled, text::UnitRange range);
// Every paragraph that the range touches gets the style of its first character, or none if that has none.
void fixParagraphStyles(text::StyledText& styled, text::UnitRange range);
// Takes attachments from all characters but those that stand for one, and deletes characters that stand for one that is not
// there: the text may end up shorter.
void fixAttachments(text::StyledText& styled, text::UnitRange range);

// All of these.
void fixAttributes(text::StyledText& styled, text::UnitRange range);

}  // namespace standin::appkit
