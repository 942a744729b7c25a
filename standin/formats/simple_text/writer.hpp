// Writes the characters of styled text as documents of the old SimpleText editor.
#pragma once

#include <optional>
#include <string>

#include "standin/text/text.hpp"

namespace standin::formats::simple_text {

// Mac Roman, paragraphs and lines ended by carriage returns. Nothing when the encoding lacks a character.
std::optional<std::string> write(const text::Text& text);

}  // namespace standin::formats::simple_text
