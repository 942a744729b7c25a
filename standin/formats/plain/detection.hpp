// The encoding of plain text that neither says nor is UTF-8, from what its bytes look like.
#pragma once

#include <optional>
#include <span>

#include "standin/foundation/encodings.hpp"

namespace standin::formats::plain {

// Nothing for short texts, and where no encoding is likely.
std::optional<CFStringEncoding> likelyEncoding(std::span<const uint8_t> bytes);

}  // namespace standin::formats::plain
