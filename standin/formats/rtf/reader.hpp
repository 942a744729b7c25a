// Reads RTF as real programs write it: code pages, Unicode, fonts, colours, paragraph formatting, links, tables as
// paragraphs, document properties. What it does not know it skips.
#pragma once

#include <optional>
#include <span>

#include "standin/formats/document.hpp"

namespace standin::formats::rtf {

// Groups nested deeper than this are refused.
inline constexpr size_t maximumDepth = 4096;

// The document, or nothing when the bytes do not begin an RTF document or nest too deep. A document that ends early keeps
// what was read. Time and memory grow with the number of bytes.
std::optional<Document> read(std::span<const uint8_t> bytes);

}  // namespace standin::formats::rtf
