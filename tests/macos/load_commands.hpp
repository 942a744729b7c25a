// The numbers of the Mach-O format that the loader and the checks know.
#pragma once

#include <cstdint>

namespace macos {

inline constexpr uint32_t imageMagic = 0xFEEDFACF;
inline constexpr uint32_t cpuX86_64 = 0x01000007;
inline constexpr uint32_t dynamicLibrary = 6;

// Flags of the header.
inline constexpr uint32_t undefinedNone = 0x1;
inline constexpr uint32_t twoLevelNames = 0x80;

// Load commands. The high bit says that a loader must know the command.
inline constexpr uint32_t symbolTable = 0x2;
inline constexpr uint32_t dynamicSymbolTable = 0xB;
inline constexpr uint32_t loadLibrary = 0xC;
inline constexpr uint32_t libraryName = 0xD;
inline constexpr uint32_t segment64 = 0x19;
inline constexpr uint32_t uniqueIdentifier = 0x1B;
inline constexpr uint32_t minimumMacOS = 0x24;
inline constexpr uint32_t functionStarts = 0x26;
inline constexpr uint32_t dataInCode = 0x29;
inline constexpr uint32_t fixups = 0x80000022;

// Types of sections.
inline constexpr uint32_t initializerPointers = 0x9;
inline constexpr uint32_t firstThreadLocal = 0x11;
inline constexpr uint32_t lastThreadLocal = 0x15;

}  // namespace macos
