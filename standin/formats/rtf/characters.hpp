// Text as RTF characters: escapes, control words for breaks, Unicode with a fallback.
#pragma once

#include <cstdint>
#include <string>

#include "standin/text/text.hpp"

namespace standin::formats::rtf {

void appendCharacters(std::string& out, const text::Text& text, uint32_t from, uint32_t count);

}  // namespace standin::formats::rtf
