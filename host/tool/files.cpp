// Whole files, and their URLs.
#include "host/tool/files.hpp"

#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>

#include "host/language/files.hpp"
#include "host/runtime/file_contents.hpp"
#include "host/tool/documents.hpp"

namespace tool {

namespace fs = std::filesystem;

std::string contentsOf(const std::string& path) {
  std::optional<std::string> contents = language::contentsOf(path);
  if (!contents) throw DocumentError{systemMessage(errno)};
  return *std::move(contents);
}

void writeBytes(const std::string& path, std::string_view bytes) {
  if (!host::replaceContents(path, bytes)) throw DocumentError{systemMessage(errno)};
}

bool isFolder(const std::string& path) {
  std::error_code failure;
  return fs::is_directory(path, failure);
}

bool copyAll(int source, int destination) {
  char buffer[1 << 16];
  while (true) {
    const ssize_t count = read(source, buffer, sizeof(buffer));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count == 0;
    for (ssize_t done = 0; done < count;) {
      const ssize_t written = write(destination, buffer + done, static_cast<size_t>(count - done));
      if (written < 0 && errno != EINTR) return false;
      if (written > 0) done += written;
    }
  }
}

std::string systemMessage(int error) { return std::strerror(error); }

std::string fileURL(const std::string& path) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char c : fs::absolute(path).string()) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) != 0 || std::strchr("/-._~", c) != nullptr) {
      url += c;
    } else {
      ((url += '%') += digits[byte >> 4]) += digits[byte & 15];
    }
  }
  return url;
}

}  // namespace tool
