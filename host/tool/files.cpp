// Whole files, and their URLs.
#include "host/tool/files.hpp"

#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>

#include "host/language/files.hpp"
#include "host/tool/documents.hpp"

namespace tool {

namespace fs = std::filesystem;

std::string contentsOf(const std::string& path) {
  std::optional<std::string> contents = language::contentsOf(path);
  if (!contents) throw DocumentError{std::strerror(errno)};
  return *std::move(contents);
}

// Beside the file first, so that a failure half-way leaves what was there.
void writeBytes(const std::string& path, std::string_view bytes) {
  const std::string beside = path + ".new";
  errno = 0;
  std::ofstream file(beside, std::ios::binary);
  const bool written = file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())) && file.flush();
  std::error_code failure(written ? 0 : errno != 0 ? errno : EIO, std::generic_category());
  if (written) fs::rename(beside, path, failure);
  std::error_code ignored;
  if (failure) fs::remove(beside, ignored);
  if (failure) throw DocumentError{failure.message()};
}

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
