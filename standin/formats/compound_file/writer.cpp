// All sizes are known before the first byte is written: every stream is one stretch of sectors, and the tables that chain
// sectors together follow from the sizes alone.
#include "standin/formats/compound_file/writer.hpp"

#include <algorithm>
#include <vector>

#include "standin/formats/compound_file/layout.hpp"
#include "standin/formats/little_endian.hpp"

namespace standin::formats::compound_file {
namespace {

constexpr size_t sectorSize = 512, smallStreamLimit = 4096;
constexpr size_t numbersInSector = sectorSize / 4;
constexpr uint64_t mostBytes = uint64_t{1} << 31;
constexpr uint32_t endOfChain = 0xFFFFFFFE, freeSector = 0xFFFFFFFF, tableSector = 0xFFFFFFFD, masterSector = 0xFFFFFFFC;
constexpr uint32_t noEntry = 0xFFFFFFFF;

constexpr size_t quotient(size_t size, size_t unit) { return (size + unit - 1) / unit; }
size_t sectorsOf(size_t size) { return quotient(size, sectorSize); }
bool isSmall(const Stream& stream) { return stream.bytes.size() < smallStreamLimit; }

// The order of the directory's search tree: shorter names first, then by letters without regard to capitals.
bool comesBefore(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return left.size() < right.size();
  const auto capital = [](char letter) { return letter >= 'a' && letter <= 'z' ? letter - 0x20 : +letter; };
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                      [&](char a, char b) { return capital(a) < capital(b); });
}

void appendChain(std::vector<uint32_t>& table, size_t count) {
  for (size_t index = 1; index < count; ++index) table.push_back(static_cast<uint32_t>(table.size() + 1));
  if (count > 0) table.push_back(endOfChain);
}

std::string numbers(std::span<const uint32_t> table, uint32_t filler) {
  std::string bytes;
  for (const uint32_t number : table) append32(bytes, number);
  while (bytes.size() % sectorSize != 0) append32(bytes, filler);
  return bytes;
}

class Writer {
 public:
  Writer(std::span<const Stream> streams, const ClassIdentifier& kind)
      : streams_(streams.begin(), streams.end()), kind_(kind) {
    std::sort(streams_.begin(), streams_.end(),
              [](const Stream& left, const Stream& right) { return comesBefore(left.name, right.name); });
  }

  std::string write() {
    out_.reserve(totalSize() + sectorSize * 16);
    out_.resize(sectorSize);
    for (const Stream& stream : streams_) starts_.push_back(isSmall(stream) ? addSmall(stream.bytes) : add(stream.bytes));
    const uint32_t smallStart = add(small_);
    const uint32_t smallTable = add(numbers(smallChains_, freeSector));
    const size_t smallTableSectors = sectorsOf(smallChains_.size() * 4);
    const uint32_t directory = add(directoryOf(smallStart));
    writeTables();
    writeHeader(directory, smallTable, smallTableSectors);
    return std::move(out_);
  }

 private:
  size_t totalSize() const {
    size_t size = 0;
    for (const Stream& stream : streams_) size += stream.bytes.size() + sectorSize;
    return size + size / numbersInSector;
  }

  // The bytes in sectors of their own; gives the first one's number.
  uint32_t add(std::string_view bytes) {
    if (bytes.empty()) return endOfChain;
    const auto start = static_cast<uint32_t>(chains_.size());
    out_ += bytes;
    pad(out_, sectorSize);
    appendChain(chains_, sectorsOf(bytes.size()));
    return start;
  }

  uint32_t addSmall(std::string_view bytes) {
    if (bytes.empty()) return endOfChain;
    const auto start = static_cast<uint32_t>(smallChains_.size());
    small_ += bytes;
    pad(small_, smallSectorSize);
    appendChain(smallChains_, quotient(bytes.size(), smallSectorSize));
    return start;
  }

  std::string directoryOf(uint32_t smallStart) const {
    std::string entries = entry("Root Entry", rootEntry, middle(0, streams_.size()), smallStart, small_.size());
    setClass(entries);
    std::vector<std::string> nodes(streams_.size());
    addNodes(nodes, 0, streams_.size());
    for (const std::string& node : nodes) entries += node;
    while (entries.size() % sectorSize != 0) entries += entry({}, {}, noEntry, 0, 0);
    return entries;
  }

  // Entries are numbered from 1, the root is 0.
  static uint32_t middle(size_t from, size_t end) {
    return from < end ? static_cast<uint32_t>((from + end) / 2 + 1) : noEntry;
  }

  // Every subtree's root is its middle, which keeps the tree as flat as it can be.
  void addNodes(std::vector<std::string>& nodes, size_t from, size_t end) const {
    if (from >= end) return;
    const size_t root = (from + end) / 2;
    const Stream& stream = streams_[root];
    nodes[root] = entry(stream.name, streamEntry, noEntry, starts_[root], stream.bytes.size());
    setNumber(nodes[root], leftPlace, middle(from, root));
    setNumber(nodes[root], rightPlace, middle(root + 1, end));
    addNodes(nodes, from, root);
    addNodes(nodes, root + 1, end);
  }

  static std::string entry(std::string_view name, uint8_t type, uint32_t child, uint32_t start, size_t size) {
    constexpr char black = 1;
    std::string bytes(entrySize, '\0');
    for (size_t index = 0; index < name.size(); ++index) bytes[index * 2] = name[index];
    setNumber(bytes, nameSizePlace, static_cast<uint16_t>(name.empty() ? 0 : name.size() * 2 + 2));
    bytes[typePlace] = static_cast<char>(type);
    bytes[colorPlace] = black;
    setNumber(bytes, leftPlace, noEntry);
    setNumber(bytes, rightPlace, noEntry);
    setNumber(bytes, childPlace, child);
    setNumber(bytes, startPlace, start);
    setNumber(bytes, sizePlace, static_cast<uint32_t>(size));
    return bytes;
  }

  void setClass(std::string& entries) const { std::copy(kind_.begin(), kind_.end(), entries.begin() + classPlace); }

  // The table chains its own sectors too, and those of the master list, which says where the table is past what the header
  // holds: as many of both as it takes.
  void writeTables() {
    size_t tables = 0, masters = 0;
    for (size_t before = 1; before != tables + masters;) {
      before = tables + masters;
      tables = quotient(chains_.size() + tables + masters, numbersInSector);
      masters = tables > tablesInHeader ? quotient(tables - tablesInHeader, numbersInSector - 1) : 0;
    }
    const auto first = static_cast<uint32_t>(chains_.size());
    for (size_t index = 0; index < tables; ++index) tables_.push_back(first + static_cast<uint32_t>(index));
    masterCount_ = masters;
    chains_.insert(chains_.end(), tables, tableSector);
    chains_.insert(chains_.end(), masters, masterSector);
    out_ += numbers(chains_, freeSector);
    writeMasters(first + static_cast<uint32_t>(tables));
  }

  void writeMasters(uint32_t sector) {
    for (size_t from = tablesInHeader; from < tables_.size(); from += numbersInSector - 1) {
      const size_t end = std::min(from + numbersInSector - 1, tables_.size());
      for (size_t index = from; index < from + numbersInSector - 1; ++index) {
        append32(out_, index < end ? tables_[index] : freeSector);
      }
      append32(out_, end < tables_.size() ? ++sector : endOfChain);
    }
  }

  void writeHeader(uint32_t directory, uint32_t smallTable, size_t smallTableSectors) {
    std::string header("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);
    header.resize(header.size() + sizeof(ClassIdentifier));
    for (const int number : {0x3E, 3, 0xFFFE, 9, 6}) append16(header, number);  // versions, byte order, sizes as powers of 2
    header.resize(header.size() + 10);
    append32(header, tables_.size());
    append32(header, directory);
    append32(header, 0);
    append32(header, smallStreamLimit);
    append32(header, smallTable);
    append32(header, smallTableSectors);
    append32(header, masterCount_ > 0 ? tables_.back() + 1 : endOfChain);
    append32(header, masterCount_);
    for (size_t index = 0; index < tablesInHeader; ++index) {
      append32(header, index < tables_.size() ? tables_[index] : freeSector);
    }
    out_.replace(0, sectorSize, header);
  }

  std::vector<Stream> streams_;
  const ClassIdentifier& kind_;
  std::vector<uint32_t> starts_;                // first sectors of the streams
  std::vector<uint32_t> chains_, smallChains_;  // what follows each sector
  std::vector<uint32_t> tables_;                // the sectors of the chains themselves
  size_t masterCount_ = 0;
  std::string small_, out_;
};

}  // namespace

std::optional<std::string> write(std::span<const Stream> streams, const ClassIdentifier& kind) {
  uint64_t size = 0;
  for (const Stream& stream : streams) size += stream.bytes.size();
  if (size >= mostBytes) return std::nullopt;
  return Writer(streams, kind).write();
}

}  // namespace standin::formats::compound_file
