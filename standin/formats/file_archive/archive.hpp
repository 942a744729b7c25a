// Archives of file trees: one run of bytes for a file, a symbolic link, or a folder with all that is in it. The format is
// described in docs/file-wrapper-archive.md.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace standin::formats::file_archive {

enum class FileKind : uint8_t { directory, regular, link };

// Seconds since 1970 and what is left over.
struct Moment {
  int64_t seconds = 0;
  uint32_t nanoseconds = 0;

  bool operator==(const Moment&) const = default;
};

// Names are bytes, as file systems have them; they need not be names that a file could have.
struct ArchivedFile {
  FileKind kind = FileKind::directory;
  std::optional<uint32_t> permissions;
  std::optional<Moment> modified, created;
  std::optional<std::string> name, preferredName;
  std::string_view bytes;              // a file's contents, a link's destination
  std::string key;                     // the unique name in the folder; empty for the root
  std::vector<ArchivedFile> children;  // of a folder, in ascending order of their keys
};

// Folders nested deeper than this are neither written nor read.
inline constexpr size_t maximumDepth = 512;

// Nothing for a tree that nests too deep.
std::optional<std::string> write(const ArchivedFile& file);
// The file, its `bytes` inside those given; or nothing when they are not exactly what `write` made. Memory grows with the
// number of bytes.
std::optional<ArchivedFile> read(std::span<const uint8_t> bytes);

}  // namespace standin::formats::file_archive
