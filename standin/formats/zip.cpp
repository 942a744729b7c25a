// Zip containers read: the zip library finds the entries, which are inflated in one piece.
#include "standin/formats/zip.hpp"

#include <libdeflate.h>
#include <zip.h>

#include <algorithm>

namespace standin::formats::zip {
namespace {

// Repetitive documents are deflated to a fiftieth, short ones to less.
constexpr uint64_t bytesOutPerByteIn = 50, bytesOutAtLeast = uint64_t{64} << 20;

struct CloseFile {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};
struct FreeDecompressor {
  void operator()(libdeflate_decompressor* decompressor) const { libdeflate_free_decompressor(decompressor); }
};

zip_t* archiveOf(void* handle) { return static_cast<zip_t*>(handle); }

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

}  // namespace

void Archive::Close::operator()(void* archive) const { zip_discard(archiveOf(archive)); }

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

Archive::Archive(void* handle, uint64_t size)
    : handle_(handle), size_(size), budget_(bytesOutAtLeast + bytesOutPerByteIn * size) {}

// What the directory claims is held against the archive's own size and the bound before memory is taken for it.
std::optional<std::string> Archive::read(std::string_view name) {
  zip_stat_t entry;
  constexpr zip_uint64_t needed = ZIP_STAT_INDEX | ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_CRC;
  if (zip_stat(archiveOf(handle_.get()), std::string(name).c_str(), 0, &entry) != 0) return std::nullopt;
  if ((entry.valid & needed) != needed || entry.comp_size > size_ || entry.size > budget_) return std::nullopt;
  if ((entry.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && entry.encryption_method != ZIP_EM_NONE) return std::nullopt;
  auto contents = rawBytes(archiveOf(handle_.get()), entry);
  if (contents && entry.comp_method == ZIP_CM_DEFLATE) contents = inflated(*contents, entry.size);
  const bool isKnown = entry.comp_method == ZIP_CM_DEFLATE || entry.comp_method == ZIP_CM_STORE;
  if (!contents || !isKnown || libdeflate_crc32(0, contents->data(), contents->size()) != entry.crc) return std::nullopt;
  budget_ -= contents->size();
  return contents;
}

bool Archive::contains(std::string_view name) const {
  return zip_name_locate(archiveOf(handle_.get()), std::string(name).c_str(), 0) >= 0;
}

std::vector<std::string> Archive::names() const {
  zip_t* archive = archiveOf(handle_.get());
  std::vector<std::string> names;
  for (zip_int64_t index = 0; index < zip_get_num_entries(archive, 0); ++index) {
    if (const char* name = zip_get_name(archive, static_cast<zip_uint64_t>(index), 0)) names.emplace_back(name);
  }
  return names;
}

}  // namespace standin::formats::zip
