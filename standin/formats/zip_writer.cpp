// Zip containers written: each entry behind its header, and the directory of all at the end.
#include <libdeflate.h>

#include <memory>

#include "standin/formats/little_endian.hpp"
#include "standin/formats/zip.hpp"

namespace standin::formats::zip {
namespace {

// What deflates best for its time: documents are written often.
constexpr int compressionLevel = 3;
constexpr uint16_t version = 20, utf8Names = 0x0800, stored = 0, deflated = 8;
// 1980-01-01, the first date that containers can hold.
constexpr uint16_t fixedTime = 0, fixedDate = 1 << 5 | 1;
constexpr size_t greatest = 0xFFFF'FFFF;  // of a size and of a place; more would take another form of container

struct FreeCompressor {
  void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
};
using Compressor = std::unique_ptr<libdeflate_compressor, FreeCompressor>;

struct Written {
  uint32_t place, compressedSize, checksum;
  uint16_t method;
};

// What a header and the directory say alike.
void appendDescription(std::string& out, const Entry& entry, const Written& written) {
  for (const uint16_t field : {version, utf8Names, written.method, fixedTime, fixedDate}) append16(out, field);
  append32(out, written.checksum);
  append32(out, written.compressedSize);
  append32(out, entry.contents.size());
  append16(out, entry.name.size());
  append16(out, 0);  // extra fields
}

// Compressed where that makes it shorter. What the compressor does not fill of its room takes no memory.
Written appendEntry(std::string& out, const Entry& entry, libdeflate_compressor* compressor) {
  Written written{static_cast<uint32_t>(out.size()), static_cast<uint32_t>(entry.contents.size()),
                  libdeflate_crc32(0, entry.contents.data(), entry.contents.size()), stored};
  std::unique_ptr<char[]> compressed;
  if (entry.compressed && !entry.contents.empty()) {
    compressed = std::make_unique_for_overwrite<char[]>(entry.contents.size());
    const size_t size = libdeflate_deflate_compress(compressor, entry.contents.data(), entry.contents.size(),
                                                    compressed.get(), entry.contents.size());
    if (size != 0) written.method = deflated, written.compressedSize = static_cast<uint32_t>(size);
  }
  out += "PK\3\4";
  appendDescription(out, entry, written);
  out += entry.name;
  out.append(written.method == deflated ? compressed.get() : entry.contents.data(), written.compressedSize);
  return written;
}

void appendDirectoryEntry(std::string& out, const Entry& entry, const Written& written) {
  out += "PK\1\2";
  append16(out, version);
  appendDescription(out, entry, written);
  append16(out, 0);  // comment
  append16(out, 0);  // disk
  append16(out, 0);  // kind of file inside
  append32(out, 0);  // permissions
  append32(out, written.place);
  out += entry.name;
}

}  // namespace

std::optional<std::string> write(const std::vector<Entry>& entries) {
  const Compressor compressor(libdeflate_alloc_compressor(compressionLevel));
  if (compressor == nullptr || entries.size() > 0xFFFF) return std::nullopt;
  std::string out;
  std::vector<Written> written;
  for (const Entry& entry : entries) {
    if (entry.contents.size() > greatest || out.size() > greatest - entry.contents.size()) return std::nullopt;
    written.push_back(appendEntry(out, entry, compressor.get()));
  }
  const size_t directory = out.size();
  for (size_t index = 0; index < entries.size(); ++index) appendDirectoryEntry(out, entries[index], written[index]);
  const size_t directorySize = out.size() - directory;
  out += std::string("PK\5\6\0\0\0\0", 8);
  append16(out, entries.size());
  append16(out, entries.size());
  append32(out, directorySize);
  append32(out, directory);
  append16(out, 0);  // comment
  return out;
}

}  // namespace standin::formats::zip
