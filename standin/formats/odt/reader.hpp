// OpenDocument text read: packages, and documents that are one XML file.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "standin/formats/document.hpp"

namespace standin::formats::odt {

// Nothing when the bytes are no text document, are damaged, or are encrypted. Pages begin with U+000C. What lies in text
// boxes is left out, unless there is no other text.
std::optional<Document> read(std::span<const uint8_t> bytes);

// Whether the document can be read with its password alone.
bool isEncrypted(std::span<const uint8_t> bytes);

}  // namespace standin::formats::odt
