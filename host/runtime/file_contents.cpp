// A new file beside the old one, which then takes its name.
#include "host/runtime/file_contents.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

namespace host {
namespace {

bool writeAll(int file, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t written = ::write(file, contents.data(), contents.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) contents.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

bool writeAndClose(int file, std::string_view contents) {
  const bool isWritten = writeAll(file, contents);
  const int failure = errno;
  const bool isClosed = ::close(file) == 0;
  if (!isWritten) errno = failure;
  return isWritten && isClosed;
}

bool writeInPlace(const std::string& path, std::string_view contents) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  return file >= 0 && writeAndClose(file, contents);
}

// Where the links of the path lead; the path itself when nothing is there.
std::string followed(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), std::free);
  return real != nullptr ? real.get() : path;
}

// A new file in the folder of the path, which gives its name; -1 when none can be made there.
int makeBeside(const std::string& path, std::string& name) {
  constexpr int attempts = 100;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    name = path + "." + std::to_string(::getpid()) + "-" + std::to_string(attempt);
    const int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file >= 0 || errno != EEXIST) return file;
  }
  return -1;
}

}  // namespace

bool replaceContents(const std::string& path, std::string_view contents) {
  const std::string target = followed(path);
  struct stat old {};
  const bool isThere = ::lstat(target.c_str(), &old) == 0;
  if (isThere && (!S_ISREG(old.st_mode) || old.st_uid != ::geteuid() || ::access(target.c_str(), W_OK) != 0))
    return writeInPlace(target, contents);
  std::string beside;
  const int file = makeBeside(target, beside);
  if (file < 0) return writeInPlace(target, contents);
  const bool keepsRights = !isThere || ::fchmod(file, old.st_mode & 07777) == 0;
  if (writeAndClose(file, contents) && keepsRights && ::rename(beside.c_str(), target.c_str()) == 0) return true;
  const int failure = errno;
  ::unlink(beside.c_str());
  errno = failure;
  return false;
}

}  // namespace host
