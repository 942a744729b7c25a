// Reads web archives: the page as what its media type says, with the files that the archive holds beside it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "standin/formats/html/reader.hpp"

namespace standin::formats::webarchive {

// The address, the encoding and the files of the options are the archive's. Pages that are plain text are in the options'
// default style, or else Helvetica of 12 points; one that is a picture is an attachment; pages in frames are left out.
// Nothing when the bytes are no archive that can be read in bounded time and memory, or the page is nothing that can be
// shown.
std::optional<Document> read(std::span<const uint8_t> bytes, html::ReadOptions options = {});

}  // namespace standin::formats::webarchive
