// The image's compact unwind tables in the form that the unwinder here knows.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace macos {

// Translates the tables of a loaded image into DWARF call frame information: a sequence that ends with a zero length, for
// __register_frame. `base` is where the image lies; `textEnd` is the end of its code. Throws ImageError for a frame that is
// not kept by the frame pointer: the compiler is told to keep it everywhere.
std::vector<uint8_t> callFrameInformation(std::span<const uint8_t> compact, const uint8_t* base, uint64_t textEnd);

}  // namespace macos
