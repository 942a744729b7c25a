// Reads the header, the load commands, the symbols and the exports of a Mach-O image.
#include "tests/macos/image.hpp"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "tests/macos/byte_reader.hpp"
#include "tests/macos/load_commands.hpp"

namespace macos {
namespace {

constexpr size_t headerSize = 32;
constexpr size_t commandHeaderSize = 8;
constexpr size_t nameWidth = 16;

std::vector<uint8_t> contentsOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw ImageError(path + ": cannot be read");
  return std::vector<uint8_t>(std::istreambuf_iterator<char>(stream), {});
}

Range readRange(ByteReader& reader) {
  const uint32_t offset = reader.number<uint32_t>();
  return {offset, reader.number<uint32_t>()};
}

// An entry of the symbol table.
struct SymbolEntry {
  uint32_t name;
  uint8_t type, section;
  uint16_t description;
  uint64_t value;
};
constexpr uint8_t debuggingMask = 0xE0;
constexpr uint8_t typeMask = 0x0E;
constexpr uint8_t externalBit = 0x01;
constexpr uint16_t weakReferenceBit = 0x40;

}  // namespace

Image::Image(const std::string& path) : file_(contentsOf(path)) {
  ByteReader header{file_};
  if (header.number<uint32_t>() != imageMagic) throw ImageError(path + ": is no 64-bit Mach-O image");
  cpuType_ = header.number<uint32_t>();
  header.number<uint32_t>();  // the kind of processor within its type
  fileType_ = header.number<uint32_t>();
  const uint32_t count = header.number<uint32_t>();
  header.number<uint32_t>();  // the size of the commands
  flags_ = header.number<uint32_t>();
  ByteReader commands{file_, headerSize};
  for (uint32_t index = 0; index < count; ++index) {
    const uint32_t command = commands.number<uint32_t>();
    const uint32_t size = commands.number<uint32_t>();
    if (size < commandHeaderSize) throw ImageError(path + ": a load command has no size");
    commands_.push_back(command);
    readCommand(command, commands.take(size - commandHeaderSize));
  }
}

void Image::readCommand(uint32_t command, std::span<const uint8_t> body) {
  ByteReader reader(body);
  switch (command) {
    case segment64:
      return readSegment(body);
    case symbolTable:
      return readSymbols(body);
    case libraryName:
      return readLibrary(body, ownName_);
    case loadLibrary:
      return readLibrary(body, libraries_.emplace_back());
    case minimumMacOS:
      minimumSystem_ = reader.number<uint32_t>();
      return;
    case fixups:
      for (Range* range :
           {&fixupOpcodes_.rebase, &fixupOpcodes_.bind, &fixupOpcodes_.weakBind, &fixupOpcodes_.lazyBind, &exportTrie_}) {
        *range = readRange(reader);
      }
      return;
    default:
      return;
  }
}

void Image::readSegment(std::span<const uint8_t> body) {
  ByteReader reader(body);
  Segment segment;
  segment.name = reader.fixedText(nameWidth);
  for (uint64_t* field : {&segment.address, &segment.size, &segment.fileOffset, &segment.fileSize}) {
    *field = reader.number<uint64_t>();
  }
  reader.number<uint32_t>();  // the protection that may be asked for at most
  segment.protection = reader.number<uint32_t>();
  const uint32_t count = reader.number<uint32_t>();
  reader.number<uint32_t>();  // flags
  for (uint32_t index = 0; index < count; ++index) {
    Section section;
    section.name = reader.fixedText(nameWidth);
    section.segment = reader.fixedText(nameWidth);
    section.address = reader.number<uint64_t>();
    section.size = reader.number<uint64_t>();
    reader.take(16);  // places in the file
    section.type = reader.number<uint32_t>() & 0xFF;
    reader.take(12);
    sections_.push_back(section);
  }
  segments_.push_back(segment);
}

void Image::readLibrary(std::span<const uint8_t> body, Library& library) {
  ByteReader reader(body);
  const uint32_t nameOffset = reader.number<uint32_t>();
  reader.number<uint32_t>();  // a date
  library.version = reader.number<uint32_t>();
  library.compatibility = reader.number<uint32_t>();
  library.name = ByteReader(body, nameOffset - commandHeaderSize).text();
}

void Image::readSymbols(std::span<const uint8_t> body) {
  ByteReader reader(body);
  const uint32_t offset = reader.number<uint32_t>();
  const uint32_t count = reader.number<uint32_t>();
  const auto names = bytes(readRange(reader));
  ByteReader entries(file_, offset);
  for (uint32_t index = 0; index < count; ++index) {
    const auto entry = entries.number<SymbolEntry>();
    if ((entry.type & debuggingMask) != 0) continue;
    symbols_.push_back({ByteReader(names, entry.name).text(), entry.value, (entry.type & typeMask) == 0,
                        (entry.type & externalBit) != 0, (entry.description & weakReferenceBit) != 0,
                        static_cast<unsigned>(entry.description >> 8)});
  }
}

const Section* Image::section(std::string_view name) const {
  const auto found = std::find_if(sections_.begin(), sections_.end(), [&](const auto& item) { return item.name == name; });
  return found == sections_.end() ? nullptr : &*found;
}

const Section* Image::sectionAt(uint64_t address) const {
  const auto found = std::find_if(sections_.begin(), sections_.end(), [&](const Section& item) {
    return address >= item.address && address - item.address < item.size;
  });
  return found == sections_.end() ? nullptr : &*found;
}

uint64_t Image::addressOf(std::string_view name) const {
  for (const Symbol& symbol : symbols_) {
    if (symbol.name == name && !symbol.undefined) return symbol.address;
  }
  throw ImageError("there is no symbol " + std::string(name));
}

std::map<std::string, uint64_t> Image::exports() const {
  std::map<std::string, uint64_t> found;
  if (exportTrie_.size != 0) readExports(bytes(exportTrie_), 0, "", found);
  return found;
}

// A node: what it exports itself, then its children, each the rest of a name and the place of its node.
void Image::readExports(std::span<const uint8_t> trie, size_t node, const std::string& prefix,
                        std::map<std::string, uint64_t>& found) const {
  ByteReader reader(trie, node);
  const uint64_t size = reader.unsignedLeb();
  ByteReader children(trie, reader.place() + size);
  if (size != 0) {
    reader.unsignedLeb();  // flags
    found[prefix] = segments_.front().address + reader.unsignedLeb();
  }
  for (unsigned count = children.number<uint8_t>(); count != 0; --count) {
    const std::string name = prefix + children.text();
    const uint64_t child = children.unsignedLeb();
    if (child <= node) throw ImageError("the exports lead back to where they came from");
    readExports(trie, child, name, found);
  }
}

std::span<const uint8_t> Image::bytes(Range range) const { return ByteReader(file_, range.offset).take(range.size); }

}  // namespace macos
