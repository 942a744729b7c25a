// Reads and writes whole files.
#include "host/language/files.hpp"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/runtime/exception.hpp"
#include "host/runtime/file_contents.hpp"

namespace language {

void throwFileError(const std::string& path) {
  const int code = errno == 0 ? EIO : errno;
  host::throwException("IOException", path + ": " + std::strerror(code), code);
}

std::optional<std::string> contentsOf(const std::string& path) {
  std::error_code none;
  errno = std::filesystem::is_directory(path, none) ? EISDIR : 0;
  if (errno != 0) return {};
  std::ifstream file(path, std::ios::binary);
  std::ostringstream contents;
  if (file && file.peek() != std::ifstream::traits_type::eof()) contents << file.rdbuf();
  if (!file.is_open() || file.bad()) return {};
  return std::move(contents).str();
}

std::string readFile(const std::string& path) {
  std::optional<std::string> contents = contentsOf(path);
  if (!contents) throwFileError(path);
  return *std::move(contents);
}

void writeFile(const std::string& path, std::string_view bytes) {
  if (!host::replaceContents(path, bytes)) throwFileError(path);
}

}  // namespace language
