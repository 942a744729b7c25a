// Writes plain text.
#pragma once

#include <optional>
#include <string>

#include "standin/foundation/encodings.hpp"

namespace standin::formats::plain {

// The characters in the encoding, UTF-16 and UTF-32 with a byte-order mark. Nothing when the encoding lacks one of them.
std::optional<std::string> write(const text::Text& text, CFStringEncoding encoding);

}  // namespace standin::formats::plain
