// Reads compact unwind tables, and writes a DWARF description for every function in them.
#include "tests/macos/unwind_tables.hpp"

#include <map>
#include <optional>
#include <string>

#include "tests/macos/byte_reader.hpp"

namespace macos {
namespace {

// What the tables say of the code from `start` on.
struct Function {
  uint32_t start;
  uint32_t encoding;
};

constexpr uint32_t compressedPage = 3;
constexpr uint32_t regularPage = 2;
constexpr uint32_t modeMask = 0x0F000000;
constexpr uint32_t framePointerMode = 0x01000000;
constexpr uint32_t personalityMask = 0x30000000;
constexpr unsigned personalityShift = 28;
constexpr uint32_t languageDataFlag = 0x40000000;

class CompactTables {
 public:
  explicit CompactTables(std::span<const uint8_t> bytes) : bytes_(bytes) {
    ByteReader header(bytes_);
    if (header.number<uint32_t>() != 1) throw ImageError("the unwind tables are of an unknown version");
    const uint32_t commonPlace = header.number<uint32_t>();
    readWords(commonPlace, header.number<uint32_t>(), common_);
    const uint32_t personalityPlace = header.number<uint32_t>();
    readWords(personalityPlace, header.number<uint32_t>(), personalities_);
    const uint32_t indexPlace = header.number<uint32_t>();
    readIndex(indexPlace, header.number<uint32_t>());
  }

  const std::vector<Function>& functions() const { return functions_; }
  // Where in the image the pointer to the personality function lies; numbered from 1.
  uint32_t personality(unsigned number) const { return personalities_.at(number - 1); }
  std::optional<uint32_t> languageData(uint32_t start) const {
    const auto found = languageData_.find(start);
    return found == languageData_.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  void readWords(uint32_t place, uint32_t count, std::vector<uint32_t>& words) const {
    ByteReader reader(bytes_, place);
    for (; count != 0; --count) words.push_back(reader.number<uint32_t>());
  }
  // The last entry only ends the one before it.
  void readIndex(uint32_t place, uint32_t count) {
    ByteReader reader(bytes_, place);
    uint32_t languageDataPlace = 0;
    for (uint32_t index = 0; index < count; ++index) {
      const uint32_t firstFunction = reader.number<uint32_t>();
      const uint32_t page = reader.number<uint32_t>();
      const uint32_t nextPlace = reader.number<uint32_t>();
      if (index != 0) readLanguageData(languageDataPlace, nextPlace);
      languageDataPlace = nextPlace;
      if (page != 0) readPage(page, firstFunction);
    }
  }
  void readLanguageData(uint32_t place, uint32_t end) {
    ByteReader reader(bytes_, place);
    while (reader.place() < end) {
      const uint32_t function = reader.number<uint32_t>();
      languageData_[function] = reader.number<uint32_t>();
    }
  }
  void readPage(uint32_t place, uint32_t firstFunction) {
    ByteReader header(bytes_, place);
    const uint32_t kind = header.number<uint32_t>();
    const uint16_t entriesPlace = header.number<uint16_t>();
    const uint16_t count = header.number<uint16_t>();
    ByteReader entries(bytes_, place + entriesPlace);
    if (kind == regularPage) return readRegular(entries, count);
    if (kind != compressedPage) throw ImageError("the unwind tables have a page of an unknown kind");
    std::vector<uint32_t> encodings = common_;
    const uint16_t ownPlace = header.number<uint16_t>();
    readWords(place + ownPlace, header.number<uint16_t>(), encodings);
    for (unsigned index = 0; index < count; ++index) {
      const uint32_t entry = entries.number<uint32_t>();
      functions_.push_back({firstFunction + (entry & 0xFFFFFF), encodings.at(entry >> 24)});
    }
  }
  void readRegular(ByteReader& entries, unsigned count) {
    for (; count != 0; --count) {
      const uint32_t start = entries.number<uint32_t>();
      functions_.push_back({start, entries.number<uint32_t>()});
    }
  }

  std::span<const uint8_t> bytes_;
  std::vector<uint32_t> common_, personalities_;
  std::vector<Function> functions_;
  std::map<uint32_t, uint32_t> languageData_;
};

// DWARF's numbers of the registers that a compact encoding can name, 0 being none.
constexpr uint8_t savedRegisters[] = {0, 3, 12, 13, 14, 15};
constexpr uint8_t framePointer = 6;
constexpr uint8_t returnAddress = 16;
constexpr int64_t wordSize = 8;

constexpr uint8_t defineFrameAddress = 0x0C;
constexpr uint8_t savedAt = 0x80;  // with the register in the low bits

class FrameWriter {
 public:
  FrameWriter(const CompactTables& tables, const uint8_t* base) : tables_(tables), base_(base) {}

  void write(const Function& function, uint32_t end) {
    if (function.encoding == 0 || end == function.start) return;
    if ((function.encoding & modeMask) != framePointerMode) throw ImageError("a function does not keep the frame pointer");
    const unsigned personality = (function.encoding & personalityMask) >> personalityShift;
    const size_t common = commonEntry(personality);
    const size_t entry = begin();
    number(static_cast<uint32_t>(bytes_.size() - common));
    address(function.start);
    number(uint64_t{end - function.start});
    if (personality != 0)
      writeLanguageData(function);
    else
      number(uint8_t{0});
    writeSavedRegisters(function.encoding);
    finish(entry);
  }
  std::vector<uint8_t> finished() {
    number(uint32_t{0});
    return std::move(bytes_);
  }

 private:
  // What the functions of a personality share. With the frame pointer kept, that is where everything is but the registers.
  size_t commonEntry(unsigned personality) {
    const auto known = commonEntries_.find(personality);
    if (known != commonEntries_.end()) return known->second;
    const size_t entry = begin();
    number(uint32_t{0});
    number(uint8_t{1});
    text(personality != 0 ? "zPLR" : "zR");
    for (const uint8_t byte : {uint8_t{1}, uint8_t{0x78}, returnAddress}) number(byte);  // units of 1, and of -8
    number(uint8_t(personality != 0 ? 11 : 1));
    if (personality != 0) {
      number(uint8_t{0});
      bytes_.insert(bytes_.end(), base_ + tables_.personality(personality), base_ + tables_.personality(personality) + 8);
      number(uint8_t{0});
    }
    number(uint8_t{0});
    for (const uint8_t byte : {defineFrameAddress, framePointer, uint8_t(2 * wordSize)}) number(byte);
    saved(returnAddress, 1);
    saved(framePointer, 2);
    finish(entry);
    return commonEntries_[personality] = entry;
  }
  void writeLanguageData(const Function& function) {
    number(uint8_t{8});
    const auto data = tables_.languageData(function.start);
    const bool wanted = (function.encoding & languageDataFlag) != 0;
    if (wanted != data.has_value()) throw ImageError("the unwind tables miss a function's language data");
    if (wanted)
      address(*data);
    else
      number(uint64_t{0});
  }
  // Five registers of three bits each, from so many words below the frame pointer upwards.
  void writeSavedRegisters(uint32_t encoding) {
    const int64_t deepest = (encoding >> 16) & 0xFF;
    for (int64_t index = 0; index < 5; ++index) {
      const uint32_t saver = (encoding >> (3 * index)) & 7;
      if (saver >= std::size(savedRegisters)) throw ImageError("the unwind tables name an unknown register");
      if (saver != 0) saved(savedRegisters[saver], static_cast<uint8_t>(2 + deepest - index));
    }
  }
  void saved(uint8_t which, uint8_t wordsBelow) {
    number(uint8_t(savedAt | which));
    number(wordsBelow);
  }

  size_t begin() {
    const size_t entry = bytes_.size();
    number(uint32_t{0});
    return entry;
  }
  // Pads with instructions that do nothing, which are zeros, and puts the length in front.
  void finish(size_t entry) {
    while (bytes_.size() % wordSize != 0) number(uint8_t{0});
    const auto length = static_cast<uint32_t>(bytes_.size() - entry - sizeof(uint32_t));
    std::memcpy(&bytes_[entry], &length, sizeof(length));
  }
  void text(std::string_view characters) {
    bytes_.insert(bytes_.end(), characters.begin(), characters.end());
    number(uint8_t{0});
  }
  void address(uint32_t offset) { number(reinterpret_cast<uint64_t>(base_ + offset)); }
  template <class Number>
  void number(Number value) {
    const auto* first = reinterpret_cast<const uint8_t*>(&value);
    bytes_.insert(bytes_.end(), first, first + sizeof(value));
  }

  const CompactTables& tables_;
  const uint8_t* base_;
  std::vector<uint8_t> bytes_;
  std::map<unsigned, size_t> commonEntries_;
};

}  // namespace

std::vector<uint8_t> callFrameInformation(std::span<const uint8_t> compact, const uint8_t* base, uint64_t textEnd) {
  const CompactTables tables(compact);
  FrameWriter writer(tables, base);
  const auto& functions = tables.functions();
  for (size_t index = 0; index < functions.size(); ++index) {
    const bool last = index + 1 == functions.size();
    writer.write(functions[index], last ? static_cast<uint32_t>(textEnd) : functions[index + 1].start);
  }
  return writer.finished();
}

}  // namespace macos
