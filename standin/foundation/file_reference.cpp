// File references: a process-wide table of files, known by what the file system never gives to two files at a time.
//
// A file is found again at the path last seen; else, for the files referred to last, through a descriptor kept open; else
// under another name in its folder, which is found again in the same way.
#include "standin/foundation/file_reference.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <deque>
#include <filesystem>
#include <unordered_map>
#include <utility>
#include <vector>

#include "standin/foundation/files.hpp"

namespace standin::foundation {
namespace {

// Inode numbers are given again after a deletion; the time of birth tells old and new apart where it is kept.
struct Identity {
  uint64_t device = 0;
  uint64_t inode = 0;
  int64_t birth = 0;  // nanoseconds, 0 when unknown
  bool operator==(const Identity&) const = default;
};

struct IdentityHash {
  size_t operator()(const Identity& identity) const {
    return static_cast<size_t>((identity.inode ^ identity.device << 40) * 0x9E3779B97F4A7C15u);
  }
};

struct File {
  Identity identity;
  std::string path;
  size_t folder;  // its place in the table; the root's own is itself
  int descriptor = -1;
};

// What the 80 bytes hold.
struct Content {
  uint32_t mark;
  uint32_t place;
  Identity identity;
};
constexpr uint32_t contentMark = 0x46695265;
static_assert(sizeof(Content) <= sizeof(FSRef));

std::optional<Identity> identityOf(const std::string& path) {
  struct statx status {};
  if (statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, STATX_INO | STATX_BTIME, &status) != 0) return {};
  const bool knowsBirth = (status.stx_mask & STATX_BTIME) != 0;
  return Identity{makedev(status.stx_dev_major, status.stx_dev_minor), status.stx_ino,
                  knowsBirth ? status.stx_btime.tv_sec * 1'000'000'000 + status.stx_btime.tv_nsec : 0};
}

// Absolute, and free of symbolic links but for the file itself.
std::optional<std::string> canonical(const std::string& path) {
  std::error_code error;
  const std::string leaf = leafOf(path);
  const bool namesItself = !leaf.empty() && leaf != "." && leaf != ".." && leaf != "/";
  const std::filesystem::path real = std::filesystem::canonical(namesItself ? folderOf(path) : path, error);
  if (error) return {};
  return namesItself ? joined(real.string(), leaf) : real.string();
}

class FileTable {
 public:
  std::optional<Content> refer(const std::string& path) {
    const std::optional<size_t> place = placeOf(path);
    if (!place) return {};
    keepOpen(*place);
    return Content{contentMark, static_cast<uint32_t>(*place), files_[*place].identity};
  }

  std::optional<std::string> path(const Content& content) {
    if (content.mark != contentMark || content.place >= files_.size()) return {};
    if (files_[content.place].identity != content.identity) return {};
    return locate(content.place);
  }

 private:
  static constexpr size_t keptDescriptors = 64;

  std::optional<size_t> placeOf(const std::string& path) {
    const std::optional<Identity> identity = identityOf(path);
    if (!identity) return {};
    std::vector<size_t>& known = byIdentity_[*identity];
    for (const size_t place : known) {
      if (files_[place].path == path) return place;
      // Another path that still leads there is a hard link, a file of its own.
      if (identityOf(files_[place].path) == identity) continue;
      files_[place].path = path;
      return place;
    }
    return add(*identity, path);
  }

  std::optional<size_t> add(const Identity& identity, const std::string& path) {
    std::optional<size_t> folder = files_.size();
    if (path != "/") folder = placeOf(folderOf(path));
    if (!folder) return {};
    const size_t place = files_.size();
    files_.push_back({identity, path, path == "/" ? place : *folder});
    byIdentity_[identity].push_back(place);
    return place;
  }

  void keepOpen(size_t place) {
    File& file = files_[place];
    if (file.descriptor >= 0) return;
    file.descriptor = open(file.path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC);
    if (file.descriptor < 0) return;
    if (open_.size() == keptDescriptors) {
      close(std::exchange(files_[open_.front()].descriptor, -1));
      open_.pop_front();
    }
    open_.push_back(place);
  }

  std::optional<std::string> locate(size_t place) {
    File& file = files_[place];
    if (identityOf(file.path) == file.identity) return file.path;
    std::optional<std::string> found = byDescriptor(file);
    if (!found && file.folder != place) found = inFolder(file);
    if (found) file.path = *found;
    return found;
  }

  static std::optional<std::string> byDescriptor(const File& file) {
    if (file.descriptor < 0) return {};
    std::error_code error;
    const std::string link = "/proc/self/fd/" + std::to_string(file.descriptor);
    const std::string path = std::filesystem::read_symlink(link, error).string();
    if (error || identityOf(path) != file.identity) return {};
    return path;
  }

  std::optional<std::string> inFolder(const File& file) {
    const std::optional<std::string> folder = locate(file.folder);
    if (!folder) return {};
    if (const std::string path = joined(*folder, leafOf(file.path)); identityOf(path) == file.identity) return path;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(*folder, error)) {
      if (identityOf(entry.path().string()) == file.identity) return entry.path().string();
    }
    return {};
  }

  std::deque<File> files_;
  std::unordered_map<Identity, std::vector<size_t>, IdentityHash> byIdentity_;
  std::deque<size_t> open_;  // places of the files kept open, the oldest first
};

FileTable& table() {
  static FileTable* const files = new FileTable;
  return *files;
}

}  // namespace

bool makeReference(const std::string& path, FSRef* reference) {
  const std::optional<std::string> real = canonical(existingPath(path));
  const std::optional<Content> content = real ? table().refer(*real) : std::nullopt;
  if (!content || reference == nullptr) return false;
  *reference = {};
  std::memcpy(reference, &*content, sizeof *content);
  return true;
}

std::optional<std::string> pathOf(const FSRef* reference) {
  if (reference == nullptr) return {};
  Content content;
  std::memcpy(static_cast<void*>(&content), reference, sizeof content);
  return table().path(content);
}

}  // namespace standin::foundation
