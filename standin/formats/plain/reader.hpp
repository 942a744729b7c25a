// Reads plain text, finding its encoding.
#pragma once

#include <optional>
#include <span>

#include "standin/foundation/encodings.hpp"

namespace standin::formats::plain {

struct PlainText {
  text::Text text;  // line ends as they are in the bytes
  CFStringEncoding encoding;
};

// A byte-order mark decides the encoding, then the one that is asked for, then whether the bytes are UTF-8, then what they
// look like; what is left is Mac Roman, in which all bytes mean something. Nothing when the bytes are no text in the
// encoding that was asked for.
std::optional<PlainText> read(std::span<const uint8_t> bytes, std::optional<CFStringEncoding> asked);

}  // namespace standin::formats::plain
