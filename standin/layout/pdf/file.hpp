// A PDF file being written: its objects one after another, and at the end the table of where they are.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct libdeflate_compressor;

namespace standin::layout::pdf {

class File {
 public:
  explicit File(const std::string& path);
  ~File();
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  bool isOpen() const { return file_ != nullptr; }
  // The number of an object that is written later.
  int reserve();
  void put(int object, std::string_view body);
  // Entries are those of the stream's dictionary without its length and filter; the data is compressed here.
  void putStream(int object, std::string_view entries, std::string_view data);
  // The data stays as it is; the entries name its filter.
  void putEncodedStream(int object, std::string_view entries, std::string_view data);
  // The table and the trailer. False when anything could not be written.
  bool finish(int catalog, int information);

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void write(std::string_view bytes);
  void begin(int object);

  std::unique_ptr<std::FILE, Close> file_;
  libdeflate_compressor* compressor_;
  std::vector<uint64_t> offsets_;  // by number, from 1
  uint64_t written_ = 0;
  bool failed_ = false;
};

}  // namespace standin::layout::pdf
