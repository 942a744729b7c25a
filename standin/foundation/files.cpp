// Questions to the file system that several classes ask.
#include "standin/foundation/files.hpp"

#include <sys/stat.h>
#include <unicode/normalizer2.h>
#include <unicode/ustring.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "standin/foundation/transcoding.hpp"

namespace standin::foundation {
namespace {

bool exists(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

bool isAscii(const std::string& text) {
  return asciiPrefix(reinterpret_cast<const uint8_t*>(text.data()), text.size()) == text.size();
}

std::string sameNameIn(const std::string& folder, const std::string& leaf) {
  const std::optional<std::u16string> wanted = decomposedName(leaf);
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
    std::string name = entry.path().filename().string();
    if (!isAscii(name) && decomposedName(name) == wanted) return name;
  }
  return leaf;
}

}  // namespace

bool isFolder(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string currentFolder() {
  std::error_code ignored;
  return std::filesystem::current_path(ignored).string();
}

std::string executablePath() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).string();
}

std::string folderOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string leafOf(const std::string& path) { return path == "/" ? path : path.substr(path.rfind('/') + 1); }

std::string joined(const std::string& folder, const std::string& leaf) {
  return folder.ends_with('/') ? folder + leaf : folder + "/" + leaf;
}

std::optional<std::u16string> decomposedName(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  std::u16string units(name.size(), u'\0');
  int32_t length = 0;
  u_strFromUTF8(units.data(), static_cast<int32_t>(units.size()), &length, name.data(), static_cast<int32_t>(name.size()),
                &status);
  if (U_FAILURE(status)) return {};
  const icu::Normalizer2* const form = icu::Normalizer2::getNFDInstance(status);
  if (U_FAILURE(status)) return {};
  const icu::UnicodeString result = form->normalize(icu::UnicodeString(units.data(), length), status);
  if (U_FAILURE(status)) return {};
  return std::u16string(result.getBuffer(), static_cast<size_t>(result.length()));
}

std::string existingPath(const std::string& path) {
  if (isAscii(path) || path.empty() || exists(path)) return path;
  const std::string leaf = leafOf(path);
  const std::string folder = path.find('/') != std::string::npos && path != "/" ? existingPath(folderOf(path)) : ".";
  if (isAscii(leaf) || !exists(folder)) return joined(folder, leaf);
  return joined(folder, sameNameIn(folder, leaf));
}

bool writeAll(int descriptor, std::span<const uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t put = ::write(descriptor, bytes.data(), bytes.size());
    if (put < 0 && errno != EINTR) return false;
    if (put > 0) bytes = bytes.subspan(static_cast<size_t>(put));
  }
  return true;
}

}  // namespace standin::foundation
