// Office Open XML text documents read.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "standin/formats/document.hpp"

namespace standin::formats::docx {

// In a zip container or in one XML file. Nothing when the bytes are neither, or their main part is missing or damaged.
std::optional<Document> read(std::span<const uint8_t> bytes);

}  // namespace standin::formats::docx
