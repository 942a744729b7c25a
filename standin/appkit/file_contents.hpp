// The contents of a regular file: in memory, in an open file, or still where the file is.
#pragma once

#include <memory>
#include <string>

#include "standin/appkit/file_attributes.hpp"

namespace standin::appkit {

// A file that contents were read from or are to be read from.
struct FileOrigin {
  std::string path;
  FileStamp stamp;
};

// A file descriptor that closes itself, keeping `errno`.
class OpenFile {
 public:
  explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
  OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  OpenFile& operator=(OpenFile&&) = delete;
  ~OpenFile();

  explicit operator bool() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

class FileContents {
 public:
  FileContents() = default;  // no bytes
  static FileContents of(Owned<NSData> data);
  static FileContents at(FileOrigin origin);

  // Reads what is still in the file. A large file only stays open instead, if that is allowed: it may go then, and one
  // that shrinks is noticed. False with `errno` set; ESTALE when the file is no longer the one that was found.
  bool load(bool mayKeepOpen);
  // The bytes, read now if they are not in memory yet. Nil with `errno` set as above.
  NSData* data();
  // Writes the bytes without keeping them. False with `errno` set; `failedReading` says at which end.
  bool writeTo(int descriptor, bool& failedReading);
  // Bytes that are in the file alone.
  bool isUnread() const { return data_ == nullptr && opened_ == nullptr && origin_.has_value(); }

  // Where the same bytes are in the file system, as far as is known.
  const std::optional<FileOrigin>& origin() const { return origin_; }
  void setOrigin(FileOrigin origin) { origin_ = std::move(origin); }

 private:
  struct Opened {
    OpenFile file;
    uint64_t size;
  };

  Owned<NSData> data_;
  std::shared_ptr<Opened> opened_;
  std::optional<FileOrigin> origin_;
};

}  // namespace standin::appkit
