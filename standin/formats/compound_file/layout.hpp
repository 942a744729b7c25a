// The layout of compound files: places in the header and in the entries of the directory, of which each is a stream.
#pragma once

#include <cstddef>
#include <cstdint>

namespace standin::formats::compound_file {

// In the header. What follows in it are the numbers of the first sectors of the table that chains sectors together.
inline constexpr size_t sectorShiftPlace = 30, directoryPlace = 48, smallLimitPlace = 56, smallTablePlace = 60,
                        masterPlace = 68, tablesPlace = 76, tablesInHeader = 109;
// Streams below the limit are kept in smaller sectors, which are themselves a stream.
inline constexpr size_t smallSectorSize = 64;

// In an entry of the directory.
inline constexpr size_t entrySize = 128, nameSizePlace = 64, typePlace = 66, colorPlace = 67, leftPlace = 68,
                        rightPlace = 72, childPlace = 76, classPlace = 80, startPlace = 116, sizePlace = 120;
enum EntryType : uint8_t { streamEntry = 2, rootEntry = 5 };

}  // namespace standin::formats::compound_file
