// What the archive's reader and writer share: signature, checksum, and the bits that say which fields a file has.
#pragma once

#include <cstring>

#include "standin/formats/file_archive/archive.hpp"

namespace standin::formats::file_archive {

inline constexpr std::string_view signature{"ZKTFILE\1", 8};
inline constexpr size_t headerSize = signature.size() + sizeof(uint64_t);

enum Field : uint8_t {
  permissionsField = 1 << 0,
  modifiedField = 1 << 1,
  createdField = 1 << 2,
  nameField = 1 << 3,
  preferredNameField = 1 << 4,
  allFields = (1 << 5) - 1,
};

// Every step can be undone, so a change of any one word always changes the sum. The length goes in first: zero bytes at the
// end count.
inline uint64_t checksum(std::string_view bytes) {
  constexpr uint64_t factor = 0x9E3779B97F4A7C15;  // odd; 2^64 divided by the golden ratio
  uint64_t sum = bytes.size() * factor;
  for (; !bytes.empty(); bytes.remove_prefix(bytes.size() < 8 ? bytes.size() : 8)) {
    uint64_t word = 0;
    std::memcpy(&word, bytes.data(), bytes.size() < 8 ? bytes.size() : 8);
    sum = (sum ^ word) * factor;
    sum ^= sum >> 29;
  }
  return sum;
}

}  // namespace standin::formats::file_archive
