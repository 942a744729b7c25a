// The tags of the dialect.
#pragma once

#include <string_view>

#include "html/styled_text.hpp"

namespace html {

// Does what the tag says, to the reader's state or to the text; an unknown tag does nothing. `tag` is what stands between
// the angle brackets.
void actOnTag(std::u16string_view tag, StyledText& text);

}  // namespace html
