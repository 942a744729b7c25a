// Archives read: whatever `write` would not have written is refused.
#include <concepts>

#include "standin/formats/file_archive/layout.hpp"

namespace standin::formats::file_archive {
namespace {

// Thrown and caught in this file alone.
struct Refused {};

class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  ArchivedFile file(size_t depth) {
    if (depth > maximumDepth) throw Refused();
    ArchivedFile file = head();
    if (file.kind == FileKind::directory) {
      readChildren(file, depth);
    } else {
      file.bytes = bytes();
    }
    return file;
  }

  bool atEnd() const { return rest_.empty(); }

  std::string_view take(uint64_t count) {
    if (count > rest_.size()) throw Refused();
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
  }

  template <std::integral Number>
  Number number() {
    uint64_t value = 0;
    size_t shift = 0;
    for (const char byte : take(sizeof(Number))) value |= uint64_t{static_cast<uint8_t>(byte)} << (8 * shift++);
    return static_cast<Number>(value);
  }

 private:
  ArchivedFile head() {
    ArchivedFile file;
    const uint8_t kind = number<uint8_t>(), fields = number<uint8_t>();
    if (kind > static_cast<uint8_t>(FileKind::link) || (fields & ~allFields) != 0) throw Refused();
    file.kind = static_cast<FileKind>(kind);
    if ((fields & permissionsField) != 0) file.permissions = number<uint32_t>();
    if ((fields & modifiedField) != 0) file.modified = moment();
    if ((fields & createdField) != 0) file.created = moment();
    if ((fields & nameField) != 0) file.name = bytes();
    if ((fields & preferredNameField) != 0) file.preferredName = bytes();
    return file;
  }

  void readChildren(ArchivedFile& folder, size_t depth) {
    // The list grows as children are found: the number alone claims no memory.
    for (uint64_t left = number<uint64_t>(); left > 0; --left) {
      std::string key(bytes());
      if (!folder.children.empty() && key <= folder.children.back().key) throw Refused();
      folder.children.push_back(file(depth + 1));
      folder.children.back().key = std::move(key);
    }
  }

  Moment moment() {
    const auto seconds = number<int64_t>();
    const auto nanoseconds = number<uint32_t>();
    if (nanoseconds >= 1'000'000'000) throw Refused();
    return {seconds, nanoseconds};
  }

  std::string_view bytes() { return take(number<uint64_t>()); }

  std::string_view rest_;
};

}  // namespace

std::optional<ArchivedFile> read(std::span<const uint8_t> bytes) {
  try {
    Reader reader({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    if (reader.take(signature.size()) != signature) return std::nullopt;
    const uint64_t sum = reader.number<uint64_t>();
    if (sum != checksum({reinterpret_cast<const char*>(bytes.data()) + headerSize, bytes.size() - headerSize})) {
      return std::nullopt;
    }
    ArchivedFile file = reader.file(1);
    if (!reader.atEnd()) return std::nullopt;
    return file;
  } catch (const Refused&) {
    return std::nullopt;
  }
}

}  // namespace standin::formats::file_archive
