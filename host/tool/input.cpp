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

Input::Input(const std::string& name) : path_(name) {
  if (name != "-") return;
  if (fcntl(STDIN_FILENO, F_GETFD) < 0) throw DocumentError{systemMessage(errno)};
  std::string folder = (std::filesystem::temp_directory_path() / "styledtext-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) throw DocumentError{"it cannot be kept in " + folder + ": " + systemMessage(errno)};
  folder_ = folder;
  path_ = folder + "/document";
  const int file = open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  const bool copied = file >= 0 && copyAll(STDIN_FILENO, file);
  const int failure = errno;
  if (file >= 0) close(file);
  if (copied) return;
  remove();
  throw DocumentError{systemMessage(failure)};
}

Input::~Input() { remove(); }

void Input::remove() const {
  if (folder_.empty()) return;
  unlink(path_.c_str());
  rmdir(folder_.c_str());
}

}  // namespace tool
