// What the messages of attributed strings refuse, and how platform ranges become those of styled text.
#pragma once

#include "standin/appkit/attributed_string.hpp"
#include "standin/foundation/checks.hpp"

namespace standin::appkit {

using foundation::requireArgument;

// NSRangeException unless the range lies inside the string.
text::UnitRange rangeIn(NSAttributedString* self, const char* selector, NSRange range);
// NSRangeException unless there is a character at the index.
uint32_t indexIn(NSAttributedString* self, const char* selector, NSUInteger index);

}  // namespace standin::appkit
