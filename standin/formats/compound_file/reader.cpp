// Chains of sectors are followed for no more bytes than the file has, so a loop among them ends.
#include "standin/formats/compound_file/reader.hpp"

#include <algorithm>

#include "standin/formats/compound_file/layout.hpp"
#include "standin/formats/signatures.hpp"

namespace standin::formats::compound_file {
namespace {

// Characters past ASCII, which no stream that is read here has, become question marks.
std::string nameOf(Bytes entry) {
  std::string name;
  const size_t units = std::min<size_t>(entry.read16(nameSizePlace), nameSizePlace) / 2;
  for (size_t index = 0; index + 1 < units; ++index) {
    const uint16_t unit = entry.read16(index * 2);
    name += unit < 0x80 ? static_cast<char>(unit) : '?';
  }
  return name;
}

void append(std::vector<uint8_t>& out, Bytes bytes, size_t size) {
  const auto part = bytes.part(0, size - out.size()).span();
  out.insert(out.end(), part.begin(), part.end());
}

}  // namespace

std::optional<File> File::open(std::span<const uint8_t> span) {
  const Bytes bytes(span);
  const uint16_t shift = bytes.read16(sectorShiftPlace);
  if (!looksLikeCompoundFile(bytes.characters()) || (shift != 9 && shift != 12)) return std::nullopt;
  File file(bytes, size_t{1} << shift);
  file.readChains();
  file.readDirectory();
  const auto table = file.follow(bytes.read32(smallTablePlace), bytes.size());
  for (size_t place = 0; place + 4 <= table.size(); place += 4) {
    file.smallChains_.push_back(Bytes(table).read32(place));
  }
  return file;
}

std::optional<std::vector<uint8_t>> File::read(std::string_view name) const {
  const auto entry = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& each) { return each.name == name; });
  if (entry == entries_.end()) return std::nullopt;
  const bool isSmall = entry->size < bytes_.read32(smallLimitPlace);
  return isSmall ? followSmall(entry->start, entry->size) : follow(entry->start, entry->size);
}

// The header takes the place of a sector. The last one of a file may be cut.
Bytes File::sector(uint32_t number) const { return bytes_.part((size_t{number} + 1) * sectorSize_, sectorSize_); }

void File::readChains() {
  for (size_t index = 0; index < tablesInHeader; ++index) addChains(bytes_.read32(tablesPlace + index * 4));
  const size_t numbers = sectorSize_ / 4;
  const size_t most = bytes_.size() / sectorSize_;
  uint32_t master = bytes_.read32(masterPlace);
  for (size_t count = 0; count < most && !sector(master).empty(); ++count) {
    const Bytes list = sector(master);
    for (size_t index = 0; index + 1 < numbers; ++index) addChains(list.read32(index * 4));
    master = list.read32((numbers - 1) * 4);
  }
}

// No more chains than the file has sectors.
void File::addChains(uint32_t tableSector) {
  const Bytes table = sector(tableSector);
  for (size_t place = 0; place + 4 <= table.size() && chains_.size() * sectorSize_ < bytes_.size(); place += 4) {
    chains_.push_back(table.read32(place));
  }
}

std::vector<uint8_t> File::follow(uint32_t start, size_t size) const {
  size = std::min(size, bytes_.size());
  std::vector<uint8_t> contents;
  contents.reserve(size);
  for (uint32_t number = start; contents.size() < size;) {
    const Bytes next = sector(number);
    append(contents, next, size);
    if (next.empty() || number >= chains_.size()) break;
    number = chains_[number];
  }
  return contents;
}

std::vector<uint8_t> File::followSmall(uint32_t start, size_t size) const {
  size = std::min(size, small_.size());
  std::vector<uint8_t> contents;
  for (uint32_t number = start; contents.size() < size;) {
    const Bytes next = Bytes(small_).part(number * smallSectorSize, smallSectorSize);
    append(contents, next, size);
    if (next.empty() || number >= smallChains_.size()) break;
    number = smallChains_[number];
  }
  return contents;
}

// Entries form a tree, which a damaged file may have tangled: each is looked at once.
void File::readDirectory() {
  const auto contents = follow(bytes_.read32(directoryPlace), bytes_.size());
  const auto entry = [&](size_t index) { return Bytes(contents).part(index * entrySize, entrySize); };
  small_ = follow(entry(0).read32(startPlace), entry(0).read32(sizePlace));
  std::vector<bool> seen(contents.size() / entrySize);
  std::vector<uint32_t> waiting = {entry(0).read32(childPlace)};
  while (!waiting.empty()) {
    const uint32_t index = waiting.back();
    waiting.pop_back();
    if (index >= seen.size() || seen[index]) continue;
    seen[index] = true;
    const Bytes found = entry(index);
    if (found.read8(typePlace) == streamEntry) {
      entries_.push_back({nameOf(found), found.read32(startPlace), found.read32(sizePlace)});
    }
    waiting.push_back(found.read32(leftPlace));
    waiting.push_back(found.read32(rightPlace));
  }
}

}  // namespace standin::formats::compound_file
