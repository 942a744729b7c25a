// Whole files as bytes.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "standin/foundation/data.hpp"
#include "standin/foundation/files.hpp"

namespace standin::foundation {
namespace {

// An open file; closing keeps `errno`.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  int number() const { return number_; }
  bool isOpen() const { return number_ >= 0; }
  // False when what was written did not reach the file.
  bool close() {
    if (number_ < 0) return true;
    const int before = errno;
    const bool closed = ::close(std::exchange(number_, -1)) == 0;
    if (closed) errno = before;
    return closed;
  }

 private:
  int number_;
};

// The least that a buffer grows by.
constexpr size_t pieceSize = 64 * 1024;

// `expected` is what the file system says; files that do not know their size say 0.
bool readAll(int descriptor, size_t expected, std::string& bytes) {
  // One byte more, to see the end without growing.
  bytes.resize(expected + 1);
  for (size_t filled = 0;;) {
    if (filled == bytes.size()) bytes.resize(filled + std::max(filled, pieceSize));
    const ssize_t got = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) {
      bytes.resize(filled);
      return got == 0;
    }
    filled += static_cast<size_t>(got);
  }
}

bool writeInPlace(const char* path, std::span<const uint8_t> bytes) {
  Descriptor file(::open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  return file.isOpen() && writeAll(file.number(), bytes) && file.close();
}

// What a file made by `open` would have; a file that is replaced hands its own on.
mode_t permissionsFor(const char* path) {
  struct stat old;
  if (::stat(path, &old) == 0) return old.st_mode & 07777;
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

bool writeBeside(const char* path, std::span<const uint8_t> bytes) {
  std::string name = std::string(path) + ".XXXXXX";
  Descriptor file(::mkostemp(name.data(), O_CLOEXEC));
  if (!file.isOpen()) return false;
  const bool written = writeAll(file.number(), bytes) && ::fchmod(file.number(), permissionsFor(path)) == 0 &&
                       file.close() && ::rename(name.c_str(), path) == 0;
  if (!written) {
    const int error = errno;
    ::unlink(name.c_str());
    errno = error;
  }
  return written;
}

}  // namespace

std::optional<std::string> readFile(const char* path) {
  const Descriptor file(::open(path, O_RDONLY | O_CLOEXEC));
  struct stat status;
  if (!file.isOpen() || ::fstat(file.number(), &status) != 0) return std::nullopt;
  if (S_ISDIR(status.st_mode)) {
    errno = EISDIR;
    return std::nullopt;
  }
  std::string bytes;
  if (!readAll(file.number(), static_cast<size_t>(status.st_size), bytes)) return std::nullopt;
  return bytes;
}

bool writeFile(const char* path, std::span<const uint8_t> bytes, bool atomically) {
  return atomically ? writeBeside(path, bytes) : writeInPlace(path, bytes);
}

}  // namespace standin::foundation
