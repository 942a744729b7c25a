// Zip containers read: the zip library finds the entries, and inflates those that are too large for one piece.
#include "standin/formats/zip.hpp"

#include <libdeflate.h>
#include <zip.h>

#include <algorithm>
#include <utility>

#include "standin/formats/memory_allowance.hpp"

namespace standin::formats::zip {
namespace {

// An entry that is no larger is inflated in one piece, which takes a third of the time.
constexpr uint64_t mostInOnePiece(uint64_t containerBytes) { return (uint64_t{4} << 20) + 8 * containerBytes; }

// What is read in pieces takes no memory, but time: real tables are deflated to a hundredth.
constexpr uint64_t mostInPieces(uint64_t containerBytes) {
  return std::min((uint64_t{64} << 20) + 250 * containerBytes, uint64_t{2} << 30);
}

struct CloseFile {
  void operator()(zip_file_t* file) const {
    if (file != nullptr) zip_fclose(file);
  }
};
struct FreeDecompressor {
  void operator()(libdeflate_decompressor* decompressor) const { libdeflate_free_decompressor(decompressor); }
};

// The entry's bytes as they lie in the container.
std::optional<std::string> rawBytes(zip_t* archive, const zip_stat_t& entry) {
  const std::unique_ptr<zip_file_t, CloseFile> file(zip_fopen_index(archive, entry.index, ZIP_FL_COMPRESSED));
  if (file == nullptr) return std::nullopt;
  std::string bytes(entry.comp_size, '\0');
  if (zip_fread(file.get(), bytes.data(), bytes.size()) != static_cast<zip_int64_t>(bytes.size())) return std::nullopt;
  return bytes;
}

// Nothing unless they come to exactly that size.
std::optional<std::string> inflated(const std::string& bytes, uint64_t size) {
  const std::unique_ptr<libdeflate_decompressor, FreeDecompressor> decompressor(libdeflate_alloc_decompressor());
  if (decompressor == nullptr) return std::nullopt;
  std::string contents(size, '\0');
  const auto result = libdeflate_deflate_decompress(decompressor.get(), bytes.data(), bytes.size(), contents.data(),
                                                    contents.size(), nullptr);
  if (result != LIBDEFLATE_SUCCESS) return std::nullopt;
  return contents;
}

Archive::Reading readingOf(std::string contents) {
  return [contents = std::move(contents), at = size_t{0}](char* to, int most) mutable {
    const size_t count = contents.copy(to, static_cast<size_t>(most), at);
    at += count;
    return static_cast<int>(count);
  };
}

// Damaged is also what ends before the size that the directory says, or goes on behind it.
Archive::Reading readingOf(std::shared_ptr<zip_file_t> file, uint64_t size) {
  return [file = std::move(file), left = size](char* to, int most) mutable {
    const zip_int64_t count = zip_fread(file.get(), to, static_cast<zip_uint64_t>(most));
    if (count < 0 || static_cast<uint64_t>(count) > left || (count == 0 && left > 0)) return -1;
    left -= static_cast<uint64_t>(count);
    return static_cast<int>(count);
  };
}

}  // namespace

void Archive::Close::operator()(::zip* archive) const { zip_discard(archive); }

std::optional<Archive> Archive::open(std::span<const uint8_t> bytes) {
  if (bytes.empty()) return std::nullopt;  // the library takes that for an archive without entries
  zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr);
  if (source == nullptr) return std::nullopt;
  zip_t* archive = zip_open_from_source(source, ZIP_RDONLY, nullptr);
  if (archive == nullptr) {
    zip_source_free(source);
    return std::nullopt;
  }
  return Archive(archive, bytes.size());
}

Archive::Archive(::zip* handle, uint64_t size)
    : handle_(handle), size_(size), budget_(memoryBound(size)), piecesBudget_(mostInPieces(size)) {}

// What the directory claims is held against the archive's own size and the bound before memory is taken for it.
std::optional<struct ::zip_stat> Archive::find(std::string_view name, uint64_t most) const {
  zip_stat_t entry;
  constexpr zip_uint64_t needed = ZIP_STAT_INDEX | ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_CRC;
  if (zip_stat(handle_.get(), std::string(name).c_str(), 0, &entry) != 0) return std::nullopt;
  if ((entry.valid & needed) != needed || entry.comp_size > size_ || entry.size > most) return std::nullopt;
  if ((entry.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && entry.encryption_method != ZIP_EM_NONE) return std::nullopt;
  if (entry.comp_method != ZIP_CM_DEFLATE && entry.comp_method != ZIP_CM_STORE) return std::nullopt;
  return entry;
}

std::optional<std::string> Archive::read(std::string_view name, uint64_t most) {
  const auto entry = find(name, std::min(most, budget_));
  if (!entry) return std::nullopt;
  auto contents = rawBytes(handle_.get(), *entry);
  if (contents && entry->comp_method == ZIP_CM_DEFLATE) contents = inflated(*contents, entry->size);
  if (!contents || libdeflate_crc32(0, contents->data(), contents->size()) != entry->crc) return std::nullopt;
  budget_ -= contents->size();
  return contents;
}

std::optional<Archive::Reading> Archive::readInPieces(std::string_view name) {
  const auto entry = find(name, piecesBudget_);
  if (!entry) return std::nullopt;
  if (entry->size <= std::min(mostInOnePiece(size_), budget_)) {
    auto contents = read(name);
    return contents ? std::optional(readingOf(*std::move(contents))) : std::nullopt;
  }
  std::shared_ptr<zip_file_t> file(zip_fopen_index(handle_.get(), entry->index, 0), CloseFile());
  if (file == nullptr) return std::nullopt;
  piecesBudget_ -= entry->size;
  return readingOf(std::move(file), entry->size);
}

bool Archive::contains(std::string_view name) const {
  return zip_name_locate(handle_.get(), std::string(name).c_str(), 0) >= 0;
}

std::vector<std::string> Archive::names() const {
  ::zip* archive = handle_.get();
  std::vector<std::string> names;
  for (zip_int64_t index = 0; index < zip_get_num_entries(archive, 0); ++index) {
    if (const char* name = zip_get_name(archive, static_cast<zip_uint64_t>(index), 0)) names.emplace_back(name);
  }
  return names;
}

}  // namespace standin::formats::zip
