// Word XML documents of the edition of 2003 read.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "standin/formats/document.hpp"

namespace standin::formats::wordml {

// Also the later edition in one XML file, which has the same marks. Nothing when the bytes are neither, or are damaged.
std::optional<Document> read(std::span<const uint8_t> bytes);

}  // namespace standin::formats::wordml
