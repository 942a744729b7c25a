// PDF objects, streams and the cross-reference table.
#include "standin/layout/pdf/file.hpp"

#include <libdeflate.h>

#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout::pdf {
namespace {

// Of 1 to 12: beyond it pages hardly become smaller, but take much longer.
constexpr int compressionLevel = 4;

// The line of bytes above 127 tells programs that the file is not text.
constexpr std::string_view header = "%PDF-1.5\n%\xE2\xE3\xCF\xD3\n";

}  // namespace

File::File(const std::string& path)
    : file_(std::fopen(path.c_str(), "wb")), compressor_(libdeflate_alloc_compressor(compressionLevel)) {
  if (isOpen()) write(header);
}

File::~File() { libdeflate_free_compressor(compressor_); }

void File::write(std::string_view bytes) {
  failed_ = failed_ || std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size();
  written_ += bytes.size();
}

int File::reserve() {
  offsets_.push_back(0);
  return static_cast<int>(offsets_.size());
}

void File::begin(int object) {
  offsets_[static_cast<size_t>(object) - 1] = written_;
  write(std::to_string(object) + " 0 obj\n");
}

void File::put(int object, std::string_view body) {
  begin(object);
  write(body);
  write("\nendobj\n");
}

void File::putEncodedStream(int object, std::string_view entries, std::string_view data) {
  begin(object);
  write("<<" + std::string(entries) + "/Length " + std::to_string(data.size()) + ">>stream\n");
  write(data);
  write("\nendstream\nendobj\n");
}

// What the compressor does not write of the room for the worst takes no memory.
void File::putStream(int object, std::string_view entries, std::string_view data) {
  const size_t most = libdeflate_zlib_compress_bound(compressor_, data.size());
  const auto compressed = std::make_unique_for_overwrite<char[]>(most);
  const size_t size = libdeflate_zlib_compress(compressor_, data.data(), data.size(), compressed.get(), most);
  putEncodedStream(object, std::string(entries) + "/Filter/FlateDecode", {compressed.get(), size});
}

bool File::finish(int catalog, int information) {
  const uint64_t start = written_;
  std::string table = "xref\n0 " + std::to_string(offsets_.size() + 1) + "\n0000000000 65535 f \n";
  for (const uint64_t offset : offsets_) {
    char line[32];
    std::snprintf(line, sizeof line, "%010llu 00000 n \n", static_cast<unsigned long long>(offset));
    table += line;
  }
  table += "trailer\n<</Size " + std::to_string(offsets_.size() + 1) + "/Root " + reference(catalog) + "/Info " +
           reference(information) + ">>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
  write(table);
  failed_ = std::fclose(file_.release()) != 0 || failed_;
  return !failed_;
}

}  // namespace standin::layout::pdf
