// Reads the library's HTML dialect: bold, italic, underline, links, absolute font sizes, breaks and entities.
#pragma once

#include <string_view>

#include "html/styled_text.hpp"

namespace html {

// The styled text of a source. Raises the platform's range exception for a link tag whose quote is not closed. Leaves the
// reader's state as the source's end finds it.
Owned<NSMutableAttributedString> read(NSString* source);

}  // namespace html
