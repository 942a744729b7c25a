// File wrappers written to the file system: in one piece or not at all, unchanged files linked instead of copied.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <new>

#include "standin/appkit/file_wrapper.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/files.hpp"

namespace standin::appkit {
namespace {

// Folders that may not be written are opened first: they are to go.
void removeTree(const std::string& path) {
  const std::optional<FileStatus> status = fileStatus(AT_FDCWD, path.c_str());
  if (status && status->kind == FileKind::directory) {
    if ((status->permissions & 0700) != 0700) ::chmod(path.c_str(), 0700);
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(path, ignored)) removeTree(entry.path().string());
    ::rmdir(path.c_str());
  } else {
    ::unlink(path.c_str());
  }
}

std::string inside(std::string folder, const std::string& name) { return (std::move(folder) += '/') += name; }

// What is removed at the end, with all that is in it. `errno` stays.
class Removal {
 public:
  explicit Removal(std::string path) : path_(std::move(path)) {}
  Removal(const Removal&) = delete;
  Removal& operator=(const Removal&) = delete;
  ~Removal() {
    const int before = errno;
    try {
      if (!path_.empty()) removeTree(path_);
    } catch (const std::bad_alloc&) {  // what is left of it stays
    }
    errno = before;
  }
  void cancel() { path_.clear(); }

 private:
  std::string path_;
};

// Everything in the tree is listed before anything is written, which may be into the very tree. `longest` is what is left of
// the longest path that the system takes, and so bounds how deep a tree can be.
FileOutcome listTree(FileWrapper& wrapper, const std::string& root, size_t longest) {
  if (wrapper.kind != FileKind::directory) return {};
  if (FileOutcome outcome = listChildren(wrapper); !outcome) return outcome;
  for (const auto& [key, child] : wrapper.children) {
    if (key.size() >= longest) return {ENAMETOOLONG, root, foundation::FileAccess::writing};
    if (FileOutcome outcome = listTree(wrapperState(child), root, longest - key.size() - 1); !outcome) return outcome;
  }
  return {};
}

class TreeWriter {
 public:
  explicit TreeWriter(std::string originals) : originals_(std::move(originals)) {}

  // Makes the file, which must not exist, and all below it. `place` is the path below the root, from its slash on.
  FileOutcome write(FileWrapper& wrapper, const std::string& path, const std::string& place) {
    if (FileOutcome outcome = make(wrapper, path, place); !outcome) return outcome;
    if (wrapper.kind != FileKind::regular && !applyAttributes(wrapper.attributes, wrapper.kind, path.c_str())) {
      return failedWriting(path);
    }
    note(wrapper, place);
    return {};
  }

  // The wrapper was written at the place.
  void note(FileWrapper& wrapper, const std::string& place) { written_.push_back({&wrapper, place}); }

  // Once the root is where it belongs. Contents that are still to be read from a file which may have gone with what was
  // there before are now read from the new one.
  void finish(FileWrapper& root, const std::string& path, bool updatesNames) {
    for (const auto& [wrapper, place] : written_) {
      if (updatesNames) wrapper->name = foundation::leafOf(wrapper == &root ? path : place);
      const std::optional<FileStatus> status = fileStatus(AT_FDCWD, (path + place).c_str());
      if (!status || status->kind != wrapper->kind) continue;
      const FileOrigin here{path + place, status->stamp};
      if (wrapper->kind == FileKind::regular) {
        const auto& origin = wrapper->contents.origin();
        if (updatesNames || !origin || isInside(origin->path, path)) wrapper->contents.setOrigin(here);
      } else if (updatesNames || (wrapper->found && isInside(wrapper->found->path, path))) {
        wrapper->found = here;
      }
    }
  }

 private:
  struct Written {
    FileWrapper* wrapper;
    std::string place;
  };

  FileOutcome make(FileWrapper& wrapper, const std::string& path, const std::string& place) {
    switch (wrapper.kind) {
      case FileKind::directory:
        return makeDirectory(wrapper, path, place);
      case FileKind::link:
        return ::symlink(wrapper.destination.c_str(), path.c_str()) == 0 ? FileOutcome() : failedWriting(path);
      case FileKind::regular:
        break;
    }
    return makeFile(wrapper, path);
  }

  FileOutcome makeDirectory(FileWrapper& wrapper, const std::string& path, const std::string& place) {
    if (::mkdir(path.c_str(), 0777) != 0) return failedWriting(path);
    for (const auto& [key, child] : wrapper.children) {
      const std::string below = inside(path, key);
      if (!isFileName(key)) return {EILSEQ, below, foundation::FileAccess::writing};
      if (FileOutcome outcome = write(wrapperState(child), below, inside(place, key)); !outcome) return outcome;
    }
    return {};
  }

  FileOutcome makeFile(FileWrapper& wrapper, const std::string& path) {
    if (linkOriginal(wrapper, path)) return {};
    const OpenFile file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file) return failedWriting(path);
    bool reading = false;
    if (!wrapper.contents.writeTo(file.descriptor(), reading)) {
      return reading ? failedReading(wrapper.contents.origin()->path) : failedWriting(path);
    }
    return applyAttributes(wrapper.attributes, FileKind::regular, path.c_str()) ? FileOutcome() : failedWriting(path);
  }

  // A file that is the same among the originals needs no copy. Where it cannot be linked it is copied.
  bool linkOriginal(const FileWrapper& wrapper, const std::string& path) const {
    const auto& origin = wrapper.contents.origin();
    if (originals_.empty() || wrapper.attributesWereSet || !origin || !isInside(origin->path, originals_)) return false;
    const std::optional<FileStatus> status = fileStatus(AT_FDCWD, origin->path.c_str());
    return status && status->stamp == origin->stamp && ::link(origin->path.c_str(), path.c_str()) == 0;
  }

  static bool isInside(const std::string& path, const std::string& folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
  }

  std::string originals_;
  std::vector<Written> written_;
};

// A folder of the program's own beside the target.
std::optional<std::string> makeWorkFolder(const std::string& path) {
  constexpr size_t enoughOfName = 100;
  std::string name =
      foundation::joined(foundation::folderOf(path), "." + foundation::leafOf(path).substr(0, enoughOfName) + ".XXXXXX");
  if (::mkdtemp(name.data()) == nullptr) return std::nullopt;
  return name;
}

// The finished file takes the target's place in one step; what was there comes to where the finished file was.
bool exchange(const std::string& finished, const std::string& target) {
  if (::renameat2(AT_FDCWD, finished.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE) == 0) return true;
  if (errno == ENOENT) return ::rename(finished.c_str(), target.c_str()) == 0;
  if (errno != EINVAL && errno != ENOSYS) return false;
  // The file system cannot exchange. A file still takes another's place in one step; anything else takes two, and back when
  // the second one fails.
  if (::rename(finished.c_str(), target.c_str()) == 0) return true;
  const std::string old = finished + ".old";
  if (::rename(target.c_str(), old.c_str()) != 0) return false;
  if (::rename(finished.c_str(), target.c_str()) == 0) return true;
  const int error = errno;
  ::rename(old.c_str(), target.c_str());
  errno = error;
  return false;
}

FileOutcome writeInOnePiece(TreeWriter& writer, FileWrapper& wrapper, const std::string& path) {
  const std::optional<std::string> work = makeWorkFolder(path);
  if (!work) return failedWriting(path);
  const Removal removal(*work);
  const std::string finished = *work + "/new";
  if (FileOutcome outcome = writer.write(wrapper, finished, ""); !outcome) {
    // Errors name the file that was to be, not the one that is being removed.
    if (outcome.path.starts_with(finished)) outcome.path.replace(0, finished.size(), path);
    return outcome;
  }
  return exchange(finished, path) ? FileOutcome() : failedWriting(path);
}

using Bytes = std::span<const uint8_t>;

bool writeInto(const FileWrapper& wrapper, Bytes contents, const std::string& path) {
  return foundation::writeFile(path.c_str(), contents, false) &&
         applyAttributes(wrapper.attributes, FileKind::regular, path.c_str());
}

// A finished file takes the place of the one that was there, so that until then that one is whole, and so that other names
// of it keep what they had. False with `errno` set.
bool replaceFile(const FileWrapper& wrapper, Bytes contents, const std::string& path, mode_t permissions) {
  const std::optional<std::string> work = makeWorkFolder(path);
  if (!work) return false;
  const Removal removal(*work);
  const std::string finished = *work + "/new";
  const OpenFile made(::open(finished.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  return made && ::fchmod(made.descriptor(), permissions) == 0 && writeInto(wrapper, contents, finished) &&
         ::rename(finished.c_str(), path.c_str()) == 0;
}

// In folders that may not be written, and where the file itself may not be moved, it is overwritten as it stands. So is what
// is no file.
bool overwriteFile(const FileWrapper& wrapper, Bytes contents, const std::string& path) {
  struct stat old {};
  if (::stat(path.c_str(), &old) != 0 || !S_ISREG(old.st_mode)) return writeInto(wrapper, contents, path);
  if (!OpenFile(::open(path.c_str(), O_WRONLY | O_CLOEXEC))) return false;
  std::error_code failure;
  const std::string target = std::filesystem::canonical(path, failure).string();
  if (!failure && replaceFile(wrapper, contents, target, old.st_mode & 01777)) return true;
  const bool mayNotReplace = failure || errno == EACCES || errno == EPERM || errno == EBUSY;
  return mayNotReplace && writeInto(wrapper, contents, path);
}

// The bytes are in memory before the file goes, which may be the one they come from.
FileOutcome overwrite(TreeWriter& writer, FileWrapper& wrapper, const std::string& path) {
  NSData* contents = wrapper.contents.data();
  if (contents == nullptr) return failedReading(wrapper.contents.origin()->path);
  if (!overwriteFile(wrapper, foundation::bytesOf(contents), path)) return failedWriting(path);
  writer.note(wrapper, "");
  return {};
}

FileOutcome writeInPlace(TreeWriter& writer, FileWrapper& wrapper, const std::string& path) {
  const bool exists = fileStatus(AT_FDCWD, path.c_str()).has_value() || errno == EINVAL;
  if (exists && wrapper.kind == FileKind::regular) return overwrite(writer, wrapper, path);
  if (exists) return {EEXIST, path, foundation::FileAccess::writing};
  Removal removal(path);
  FileOutcome outcome = writer.write(wrapper, path, "");
  const bool cameBetween = outcome.systemError == EEXIST && outcome.path == path;
  if (outcome || cameBetween) removal.cancel();
  return outcome;
}

}  // namespace

bool isFileName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." && name.size() <= longestFileName &&
         name.find_first_of(std::string_view("/\0", 2)) == name.npos;
}

FileOutcome writeFile(FileWrapper& wrapper, const std::string& given, NSUInteger options, const std::string& originals) {
  const std::string path = foundation::existingPath(given);
  if (FileOutcome outcome = listTree(wrapper, path, PATH_MAX); !outcome) return outcome;
  TreeWriter writer(originals.empty() ? originals : foundation::existingPath(originals));
  const bool inOnePiece = (options & writeAtomically) != 0;
  FileOutcome outcome = inOnePiece ? writeInOnePiece(writer, wrapper, path) : writeInPlace(writer, wrapper, path);
  if (outcome) writer.finish(wrapper, path, (options & writeUpdatingNames) != 0);
  return outcome;
}

}  // namespace standin::appkit
