// Zip containers through the zip library's memory sources.
#include "standin/formats/zip.hpp"

#include <zip.h>

#include <algorithm>

namespace standin::formats::zip {
namespace {

constexpr uint64_t bytesOutPerByteIn = 50, bytesOutAtLeast = uint64_t{64} << 20;
// 1980-01-01, the first date that containers can hold.
constexpr uint16_t fixedTime = 0, fixedDate = 1 << 5 | 1;

struct CloseFile {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};

// The whole of what the source holds once the archive in it is written.
std::optional<std::string> contentsOf(zip_source_t* source) {
  zip_stat_t information;
  if (zip_source_stat(source, &information) != 0 || zip_source_open(source) != 0) return std::nullopt;
  std::string bytes(information.size, '\0');
  const zip_int64_t count = zip_source_read(source, bytes.data(), bytes.size());
  zip_source_close(source);
  if (count < 0 || static_cast<size_t>(count) != bytes.size()) return std::nullopt;
  return bytes;
}

bool addEntry(zip_t* archive, const Entry& entry) {
  zip_source_t* contents = zip_source_buffer(archive, entry.contents.data(), entry.contents.size(), 0);
  if (contents == nullptr) return false;
  const zip_int64_t index = zip_file_add(archive, entry.name.c_str(), contents, ZIP_FL_ENC_UTF_8);
  if (index < 0) {
    zip_source_free(contents);
    return false;
  }
  const auto place = static_cast<zip_uint64_t>(index);
  const bool isDated = zip_file_set_dostime(archive, place, fixedTime, fixedDate, 0) == 0;
  // The fastest level: documents are written often and are small.
  return isDated && zip_set_file_compression(archive, place, entry.compressed ? ZIP_CM_DEFLATE : ZIP_CM_STORE, 1) == 0;
}

}  // namespace

void Archive::Close::operator()(void* archive) const { zip_discard(static_cast<zip_t*>(archive)); }

std::optional<Archive> Archive::open(std::span<const uint8_t> bytes) {
  if (bytes.empty()) return std::nullopt;  // the library takes that for an archive without entries
  zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr);
  if (source == nullptr) return std::nullopt;
  zip_t* archive = zip_open_from_source(source, ZIP_RDONLY, nullptr);
  if (archive == nullptr) {
    zip_source_free(source);
    return std::nullopt;
  }
  return Archive(archive, bytesOutAtLeast + bytesOutPerByteIn * bytes.size());
}

// The size that the directory claims is not trusted: memory grows with what is really there.
std::optional<std::string> Archive::read(std::string_view name) {
  const std::unique_ptr<zip_file_t, CloseFile> file(
      zip_fopen(static_cast<zip_t*>(handle_.get()), std::string(name).c_str(), 0));
  if (file == nullptr) return std::nullopt;
  std::string contents;
  constexpr size_t step = size_t{1} << 16;
  while (contents.size() <= budget_) {
    const size_t old = contents.size();
    contents.resize(old + std::max(step, old / 2));
    const zip_int64_t count = zip_fread(file.get(), contents.data() + old, contents.size() - old);
    contents.resize(old + static_cast<size_t>(std::max<zip_int64_t>(count, 0)));
    if (count < 0) return std::nullopt;
    if (count == 0) {
      budget_ -= contents.size();
      return contents;
    }
  }
  return std::nullopt;
}

bool Archive::contains(std::string_view name) const {
  return zip_name_locate(static_cast<zip_t*>(handle_.get()), std::string(name).c_str(), 0) >= 0;
}

std::vector<std::string> Archive::names() const {
  auto* archive = static_cast<zip_t*>(handle_.get());
  std::vector<std::string> names;
  for (zip_int64_t index = 0; index < zip_get_num_entries(archive, 0); ++index) {
    if (const char* name = zip_get_name(archive, static_cast<zip_uint64_t>(index), 0)) names.emplace_back(name);
  }
  return names;
}

std::optional<std::string> write(const std::vector<Entry>& entries) {
  zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
  if (target == nullptr) return std::nullopt;
  zip_t* archive = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
  if (archive == nullptr) {
    zip_source_free(target);
    return std::nullopt;
  }
  zip_source_keep(target);
  const bool isWritten =
      std::all_of(entries.begin(), entries.end(), [&](const Entry& entry) { return addEntry(archive, entry); }) &&
      zip_close(archive) == 0;
  if (!isWritten) zip_discard(archive);
  auto bytes = isWritten ? contentsOf(target) : std::nullopt;
  zip_source_free(target);
  return bytes;
}

}  // namespace standin::formats::zip
