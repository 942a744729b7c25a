// A Mach-O image as its file describes it: what the checks ask about and the loader works from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace macos {

// What is wrong with an image, or with loading it.
struct ImageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Segment {
  std::string name;
  uint64_t address, size, fileOffset, fileSize;
  uint32_t protection;  // 1 to read, 2 to write, 4 to execute
};

struct Section {
  std::string segment, name;
  uint64_t address, size;
  uint32_t type;
};

// A library that the image is linked with, or the image's own name.
struct Library {
  std::string name;
  uint32_t version, compatibility;  // a byte each for the last two parts
};

struct Symbol {
  std::string name;
  uint64_t address;
  bool undefined, external, weakReference;
  unsigned library;  // of an undefined symbol: the position in the list of libraries, from 1
};

struct Range {
  uint32_t offset, size;
};

// The opcodes that tell what in the image must be relocated, and with what.
struct FixupOpcodes {
  Range rebase, bind, weakBind, lazyBind;
};

class Image {
 public:
  // Throws ImageError when the file is no 64-bit Mach-O image.
  explicit Image(const std::string& path);

  uint32_t cpuType() const { return cpuType_; }
  uint32_t fileType() const { return fileType_; }
  uint32_t flags() const { return flags_; }
  // The kinds of the load commands, in their order.
  const std::vector<uint32_t>& commands() const { return commands_; }
  // The oldest system it runs on, as in Library.
  uint32_t minimumSystem() const { return minimumSystem_; }
  const Library& ownName() const { return ownName_; }
  const std::vector<Library>& libraries() const { return libraries_; }
  const std::vector<Segment>& segments() const { return segments_; }
  const std::vector<Section>& sections() const { return sections_; }
  const std::vector<Symbol>& symbols() const { return symbols_; }
  const FixupOpcodes& fixupOpcodes() const { return fixupOpcodes_; }

  // Nil when there is no such section.
  const Section* section(std::string_view name) const;
  const Section* sectionAt(uint64_t address) const;
  // The address of a symbol of the image, exported or not. Throws ImageError when there is none.
  uint64_t addressOf(std::string_view symbol) const;
  // Exported names with their addresses.
  std::map<std::string, uint64_t> exports() const;
  // A part of the file. Throws ImageError when the file ends before it.
  std::span<const uint8_t> bytes(Range range) const;

 private:
  void readCommand(uint32_t command, std::span<const uint8_t> body);
  void readSegment(std::span<const uint8_t> body);
  void readLibrary(std::span<const uint8_t> body, Library& library);
  void readSymbols(std::span<const uint8_t> body);
  void readExports(std::span<const uint8_t> trie, size_t node, const std::string& prefix,
                   std::map<std::string, uint64_t>& found) const;

  std::vector<uint8_t> file_;
  uint32_t cpuType_ = 0, fileType_ = 0, flags_ = 0, minimumSystem_ = 0;
  std::vector<uint32_t> commands_;
  Library ownName_ = {};
  std::vector<Library> libraries_;
  std::vector<Segment> segments_;
  std::vector<Section> sections_;
  std::vector<Symbol> symbols_;
  FixupOpcodes fixupOpcodes_ = {};
  Range exportTrie_ = {};
};

}  // namespace macos
