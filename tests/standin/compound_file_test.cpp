// Compound files: what is written is read again, and files with tangled sectors or directories end.
#include <gtest/gtest.h>

#include "standin/formats/compound_file/reader.hpp"
#include "standin/formats/compound_file/writer.hpp"

namespace {

using standin::formats::Bytes;
using standin::formats::setNumber;
using standin::formats::compound_file::File;
using standin::formats::compound_file::Stream;

constexpr size_t sectorSize = 512, entrySize = 128;

std::optional<File> opened(const std::string& bytes) {
  return File::open({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
}

std::string contentsOf(const File& file, std::string_view name) {
  const auto contents = file.read(name);
  return contents ? std::string(contents->begin(), contents->end()) : "(none)";
}

std::string noise(size_t size) {
  std::string bytes;
  for (uint32_t state = 1; bytes.size() < size; state = state * 1664525 + 1013904223)
    bytes += static_cast<char>(state >> 24);
  return bytes;
}

std::string written(const std::vector<Stream>& streams) {
  return standin::formats::compound_file::write(streams, {}).value();
}

// Where a number of the header says that a sector is.
size_t sectorAt(const std::string& file, size_t place) {
  const Bytes bytes({reinterpret_cast<const uint8_t*>(file.data()), file.size()});
  return (bytes.read32(place) + size_t{1}) * sectorSize;
}
constexpr size_t directoryPlace = 48, tablePlace = 76;

// The last size takes a table of sectors that does not fit into the header.
TEST(CompoundFile, StreamsOfAllSizesAreReadAgain) {
  std::vector<std::string> names, contents;
  for (const unsigned size : {0u, 1u, 63u, 64u, 65u, 4095u, 4096u, 4097u, 100'000u, 8'000'000u}) {
    names.push_back("Stream of " + std::to_string(size));
    contents.push_back(noise(size));
  }
  std::vector<Stream> streams;
  for (size_t index = 0; index < names.size(); ++index) streams.push_back({names[index], contents[index]});
  const std::string bytes = written(streams);
  const auto file = opened(bytes);
  ASSERT_TRUE(file);
  for (const Stream& stream : streams) EXPECT_TRUE(contentsOf(*file, stream.name) == stream.bytes) << stream.name;
  EXPECT_EQ(contentsOf(*file, "missing"), "(none)");
}

TEST(CompoundFile, OtherBytesAreNone) {
  const std::string file = written({{"A", "a"}});
  for (const std::string& bytes : {std::string(), std::string("text"), file.substr(0, 20), "x" + file})
    EXPECT_FALSE(opened(bytes));
}

TEST(CompoundFile, CutStreamsGiveWhatThereIs) {
  const std::string contents = noise(20'000), bytes = written({{"A", contents}});
  std::string moved = bytes.substr(0, bytes.size() - 1);
  const auto file = opened(moved);
  ASSERT_TRUE(file);
  EXPECT_TRUE(contents.starts_with(contentsOf(*file, "A")));
}

TEST(CompoundFile, LoopsAmongSectorsEnd) {
  const std::string contents = noise(50'000);
  std::string bytes = written({{"A", contents}, {"Small", "small"}});
  const size_t table = sectorAt(bytes, tablePlace);
  for (uint32_t sector = 0; sector < sectorSize / 4; ++sector) setNumber(bytes, table + sector * 4, sector & ~3u);
  const auto file = opened(bytes);
  ASSERT_TRUE(file);
  EXPECT_LE(contentsOf(*file, "A").size(), contents.size());
}

TEST(CompoundFile, HugeNumbersAreHeldWithinTheFile) {
  const std::string contents = noise(10'000), whole = written({{"A", contents}, {"B", "small"}});
  for (size_t place = 24; place + 4 <= whole.size(); place += place < 520 ? 2 : 36) {
    for (const uint32_t number : {0u, 1u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
      std::string bytes = whole;
      setNumber(bytes, place, number);
      const auto file = opened(bytes);
      if (!file) continue;
      EXPECT_LE(contentsOf(*file, "A").size() + contentsOf(*file, "B").size(), 2 * bytes.size());
    }
  }
}

// A tree whose every entry has but one neighbour is as deep as it has entries.
TEST(CompoundFile, DirectoriesOnOneBranchAreReadWithoutDepth) {
  constexpr uint32_t count = 100'000, none = 0xFFFFFFFF;
  std::vector<std::string> names;
  for (uint32_t number = 0; number < count; ++number) names.push_back("N" + std::to_string(number));
  std::vector<Stream> streams;
  for (const std::string& name : names) streams.push_back({name, {}});
  streams.back().bytes = "found";
  std::string bytes = written(streams);
  const size_t directory = sectorAt(bytes, directoryPlace);
  setNumber(bytes, directory + 76, uint32_t{1});
  for (uint32_t entry = 1; entry <= count; ++entry) {
    setNumber(bytes, directory + entry * entrySize + 68, none);
    setNumber(bytes, directory + entry * entrySize + 72, entry < count ? entry + 1 : 1);
  }
  const auto file = opened(bytes);
  ASSERT_TRUE(file);
  EXPECT_EQ(contentsOf(*file, names.back()), "found");
}

}  // namespace
