// File contents: reading and copying, always from the very file that was found.
#include "standin/appkit/file_contents.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "standin/foundation/data.hpp"
#include "standin/foundation/files.hpp"

namespace standin::appkit {
namespace {

// Smaller files are read: one that is kept open costs a descriptor.
constexpr uint64_t smallestKeptOpen = 1 << 20;

// Open when the file at the path still is the one of the stamp.
OpenFile openAsFound(const FileOrigin& origin) {
  OpenFile file(::open(origin.path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
  if (!file) return file;
  const std::optional<FileStatus> status = fileStatus(file.descriptor(), "");
  if (status && status->stamp == origin.stamp) return file;
  if (status) errno = ESTALE;
  return OpenFile(-1);
}

std::optional<std::string> readAll(const OpenFile& file, uint64_t size) {
  std::string bytes(size, '\0');
  for (uint64_t filled = 0; filled < size;) {
    const ssize_t got = ::pread(file.descriptor(), bytes.data() + filled, size - filled, static_cast<off_t>(filled));
    if (got < 0 && errno == EINTR) continue;
    if (got == 0) errno = ESTALE;
    if (got <= 0) return std::nullopt;
    filled += static_cast<uint64_t>(got);
  }
  return bytes;
}

// Through the kernel, block by block through memory where it cannot.
bool copyAll(const OpenFile& from, uint64_t size, int to, bool& failedReading) {
  off_t place = 0;
  while (static_cast<uint64_t>(place) < size) {
    const ssize_t moved = ::copy_file_range(from.descriptor(), &place, to, nullptr, size - static_cast<uint64_t>(place), 0);
    if (moved > 0) continue;
    if (moved < 0 && (errno == ENOSPC || errno == EFBIG || errno == EDQUOT)) return false;
    char block[1 << 16];
    const ssize_t got = ::pread(from.descriptor(), block, sizeof block, place);
    failedReading = got <= 0;
    if (got == 0) errno = ESTALE;
    if (got <= 0 || !foundation::writeAll(to, {reinterpret_cast<const uint8_t*>(block), static_cast<size_t>(got)}))
      return false;
    place += got;
  }
  return true;
}

}  // namespace

OpenFile::~OpenFile() {
  if (descriptor_ < 0) return;
  const int before = errno;
  ::close(descriptor_);
  errno = before;
}

FileContents FileContents::of(Owned<NSData> data) {
  FileContents contents;
  contents.data_ = std::move(data);
  return contents;
}

FileContents FileContents::at(FileOrigin origin) {
  FileContents contents;
  contents.origin_ = std::move(origin);
  return contents;
}

bool FileContents::load(bool mayKeepOpen) {
  if (!isUnread()) return true;
  OpenFile file = openAsFound(*origin_);
  if (!file) return false;
  const uint64_t size = origin_->stamp.size;
  if (mayKeepOpen && size >= smallestKeptOpen) {
    opened_ = std::make_shared<Opened>(Opened{std::move(file), size});
    return true;
  }
  std::optional<std::string> bytes = readAll(file, size);
  if (!bytes) return false;
  data_ = foundation::newData(std::move(*bytes));
  return true;
}

NSData* FileContents::data() {
  if (data_ == nullptr && opened_ != nullptr) {
    std::optional<std::string> bytes = readAll(opened_->file, opened_->size);
    if (!bytes) return nullptr;
    data_ = foundation::newData(std::move(*bytes));
    opened_.reset();
  }
  if (data_ == nullptr && origin_ && !load(false)) return nullptr;
  if (data_ == nullptr) data_ = foundation::newData(std::string());
  return data_;
}

bool FileContents::writeTo(int descriptor, bool& failedReading) {
  failedReading = false;
  if (opened_ != nullptr) return copyAll(opened_->file, opened_->size, descriptor, failedReading);
  if (!isUnread()) return foundation::writeAll(descriptor, foundation::bytesOf(data_));
  const OpenFile file = openAsFound(*origin_);
  failedReading = !file;
  return file && copyAll(file, origin_->stamp.size, descriptor, failedReading);
}

}  // namespace standin::appkit
