// Copies standard input where it is asked for.
#include "host/tool/input.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "host/tool/documents.hpp"
#include "host/tool/files.hpp"

namespace tool {

std::string shownName(const std::string& name) { return name == "-" ? "standard input" : name; }

Input::Input(const std::string& name) : path_(name), isCopy_(name == "-") {
  if (!isCopy_) return;
  if (fcntl(STDIN_FILENO, F_GETFD) < 0) throw DocumentError{systemMessage(errno)};
  path_ = (std::filesystem::temp_directory_path() / "styledtext-XXXXXX").string();
  const int file = mkstemp(path_.data());
  if (file < 0) throw DocumentError{"it cannot be kept in " + path_ + ": " + systemMessage(errno)};
  const bool copied = copyAll(STDIN_FILENO, file);
  const int failure = errno;
  close(file);
  if (copied) return;
  unlink(path_.c_str());
  throw DocumentError{systemMessage(failure)};
}

Input::~Input() {
  if (isCopy_) unlink(path_.c_str());
}

}  // namespace tool
