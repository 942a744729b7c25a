// What every fuzzer is made of: one function that takes bytes, and the way to say that a property does not hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// Each fuzzer defines the first; those of formats that random bytes seldom get into define the second as well, which changes
// `size` bytes in place, into at most `room`, and answers how many they are then.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size);
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t room, unsigned seed);
// Given to mutators: a small change of any kind.
extern "C" size_t LLVMFuzzerMutate(uint8_t* bytes, size_t size, size_t room);

namespace fuzz {

using Bytes = std::span<const uint8_t>;

inline std::string_view textOf(Bytes bytes) { return {reinterpret_cast<const char*>(bytes.data()), bytes.size()}; }
inline Bytes bytesOf(std::string_view text) { return {reinterpret_cast<const uint8_t*>(text.data()), text.size()}; }

// Ends the process, saying what does not hold.
[[noreturn]] void fail(std::string_view what);
inline void require(bool holds, std::string_view what) {
  if (!holds) fail(what);
}

}  // namespace fuzz
