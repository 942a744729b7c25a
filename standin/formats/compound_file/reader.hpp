// Reads compound files: the container of named streams that Office's binary formats are kept in. Own code because the
// library for it recurses over the directory, which 100,000 entries on one branch overflow, and prints what it meets to
// standard error.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "standin/formats/little_endian.hpp"

namespace standin::formats::compound_file {

class File {
 public:
  // Nothing when the bytes are no compound file. They must outlive the file.
  static std::optional<File> open(std::span<const uint8_t> bytes);

  // The contents of a stream of the root, as far as its sectors can be followed; no longer than the file. Nothing when
  // there is no such stream.
  std::optional<std::vector<uint8_t>> read(std::string_view name) const;

 private:
  struct Entry {
    std::string name;
    uint32_t start;
    size_t size;
  };
  // What follows each sector in its chain.
  using Chains = std::vector<uint32_t>;

  File(Bytes bytes, size_t sectorSize) : bytes_(bytes), sectorSize_(sectorSize) {}

  Bytes sector(uint32_t number) const;
  void readChains();
  void addChains(uint32_t tableSector);
  std::vector<uint8_t> follow(uint32_t start, size_t size) const;
  std::vector<uint8_t> followSmall(uint32_t start, size_t size) const;
  void readDirectory();

  Bytes bytes_;
  size_t sectorSize_;
  Chains chains_, smallChains_;
  std::vector<uint8_t> small_;  // the stream whose sectors the small streams are in
  std::vector<Entry> entries_;  // the streams of the root
};

}  // namespace standin::formats::compound_file
