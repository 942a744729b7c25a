// Zip containers in memory.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct zip;
struct zip_stat;

namespace standin::formats::zip {

// Reads out no more than 50 times its size and 64 MB, all entries together, and in pieces 250 times its size and 64 MB, but
// no more than 2 GB.
class Archive {
 public:
  // Nothing when the bytes are no zip container. They must outlive the archive.
  static std::optional<Archive> open(std::span<const uint8_t> bytes);

  // Nothing when there is no such entry, it is damaged or encrypted, or it is larger than that or than what is left of the
  // bound.
  std::optional<std::string> read(std::string_view name, uint64_t most = UINT64_MAX);
  // The same in pieces: puts up to so many bytes there and says how many, none at the end, -1 when the rest is damaged. It
  // does not outlive the archive, and holds 4 MB and eight times the container at most.
  using Reading = std::function<int(char* to, int most)>;
  std::optional<Reading> readInPieces(std::string_view name);
  bool contains(std::string_view name) const;
  std::vector<std::string> names() const;

 private:
  struct Close {
    void operator()(::zip* archive) const;
  };
  Archive(::zip* handle, uint64_t size);
  std::optional<struct ::zip_stat> find(std::string_view name, uint64_t most) const;

  std::unique_ptr<::zip, Close> handle_;
  uint64_t size_;                   // bytes of the container
  uint64_t budget_, piecesBudget_;  // bytes still to be read out
};

struct Entry {
  std::string name;
  std::string contents;
  bool compressed = true;
};
// The container of these entries in this order, all of one fixed date, so that equal contents are equal bytes. Nothing when
// memory is short.
std::optional<std::string> write(const std::vector<Entry>& entries);

}  // namespace standin::formats::zip
