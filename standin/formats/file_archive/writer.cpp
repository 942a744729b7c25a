// Archives written.
#include <concepts>

#include "standin/formats/file_archive/layout.hpp"

namespace standin::formats::file_archive {
namespace {

class Writer {
 public:
  // False when the tree nests too deep.
  bool file(const ArchivedFile& file, size_t depth) {
    if (depth > maximumDepth) return false;
    head(file);
    if (file.kind != FileKind::directory) {
      bytes(file.bytes);
      return true;
    }
    number<uint64_t>(file.children.size());
    for (const ArchivedFile& child : file.children) {
      bytes(child.key);
      if (!this->file(child, depth + 1)) return false;
    }
    return true;
  }

  std::string out = std::string(headerSize, '\0');

 private:
  void head(const ArchivedFile& file) {
    const auto bit = [](const auto& field, Field mask) { return field ? unsigned{mask} : 0U; };
    out += static_cast<char>(file.kind);
    out += static_cast<char>(bit(file.permissions, permissionsField) | bit(file.modified, modifiedField) |
                             bit(file.created, createdField) | bit(file.name, nameField) |
                             bit(file.preferredName, preferredNameField));
    if (file.permissions) number(*file.permissions);
    for (const auto& moment : {file.modified, file.created}) {
      if (!moment) continue;
      number(moment->seconds);
      number(moment->nanoseconds);
    }
    for (const auto* name : {&file.name, &file.preferredName}) {
      if (*name) bytes(**name);
    }
  }

  void bytes(std::string_view bytes) {
    number<uint64_t>(bytes.size());
    out += bytes;
  }

  template <std::integral Number>
  void number(Number value) {
    for (size_t byte = 0; byte < sizeof value; ++byte) out += static_cast<char>(static_cast<uint64_t>(value) >> (8 * byte));
  }
};

}  // namespace

std::optional<std::string> write(const ArchivedFile& file) {
  Writer writer;
  if (!writer.file(file, 1)) return std::nullopt;
  std::string& out = writer.out;
  out.replace(0, signature.size(), signature);
  const uint64_t sum = checksum(std::string_view(out).substr(headerSize));
  for (size_t byte = 0; byte < sizeof sum; ++byte) out[signature.size() + byte] = static_cast<char>(sum >> (8 * byte));
  return std::move(out);
}

}  // namespace standin::formats::file_archive
