// A folder beside the target, and the change of places.
#include "host/tool/output.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "host/tool/documents.hpp"
#include "host/tool/files.hpp"

namespace tool {
namespace {

namespace fs = std::filesystem;

bool isStream(const std::string& target) {
  std::error_code failure;
  const fs::file_status status = fs::status(target, failure);
  return target == "-" || (fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status));
}

// Links stay links: what they lead to is replaced. A folder's name may end with a slash.
fs::path placeOf(const std::string& target) {
  std::error_code failure;
  const fs::path place = fs::canonical(target, failure);
  if (!failure) return place;
  const fs::path absolute = fs::absolute(target);
  return absolute.has_filename() ? absolute : absolute.parent_path();
}

std::string newFolderIn(const fs::path& parent, const std::string& target) {
  std::string name = (parent / ".styledtext-XXXXXX").string();
  if (mkdtemp(name.data()) != nullptr) return name;
  if (errno == ENOENT) throw DocumentError{"the folder of " + target + " does not exist"};
  throw DocumentError{target + " cannot be written: " + systemMessage(errno)};
}

// Of the folders that may be replaced: documents, and those with nothing to lose.
bool isReplaceable(const fs::path& folder) {
  std::error_code failure;
  return fs::exists(folder / "TXT.rtf", failure) || fs::is_empty(folder, failure);
}

}  // namespace

Output::Output(const std::string& target) : target_(target), isStream_(isStream(target)) {
  const fs::path place = isStream_ ? fs::path("document") : placeOf(target);
  if (!isStream_) target_ = place.string();
  aside_ = newFolderIn(isStream_ ? fs::temp_directory_path() : place.parent_path(), target);
  path_ = (fs::path(aside_) / place.filename()).string();
}

Output::~Output() {
  std::error_code ignored;
  fs::remove_all(aside_, ignored);
}

void Output::finish() { isStream_ ? sendBytes() : takePlace(); }

void Output::sendBytes() const {
  if (isFolder(path_)) throw DocumentError{"a document that is a folder cannot be written to a stream"};
  const int source = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
  const int destination = target_ == "-" ? dup(STDOUT_FILENO) : open(target_.c_str(), O_WRONLY | O_CLOEXEC);
  const bool sent = source >= 0 && destination >= 0 && copyAll(source, destination);
  const int failure = errno;
  if (source >= 0) close(source);
  if (destination >= 0) close(destination);
  if (!sent) throw DocumentError{(target_ == "-" ? "standard output" : target_) + ": " + systemMessage(failure)};
}

// A file that is replaced hands its permissions on. A folder is moved aside first, and back when its successor cannot come.
void Output::takePlace() const {
  std::error_code failure;
  const fs::path old = fs::path(aside_) / ".old";
  const bool replacesFolder = isFolder(path_) && isFolder(target_);
  if (replacesFolder && !isReplaceable(target_)) throw DocumentError{target_ + " is a folder with other things in it"};
  if (replacesFolder) fs::rename(target_, old, failure);
  struct stat status {};
  if (!replacesFolder && stat(target_.c_str(), &status) == 0) chmod(path_.c_str(), status.st_mode & 0777);
  if (!failure) fs::rename(path_, target_, failure);
  if (!failure) return;
  std::error_code ignored;
  if (replacesFolder) fs::rename(old, target_, ignored);
  throw DocumentError{target_ + " cannot be written: " + systemMessage(failure.value())};
}

}  // namespace tool
