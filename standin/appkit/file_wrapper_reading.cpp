// File wrappers read from the file system, at once or when they are asked, and compared with it.
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

#include "standin/appkit/file_wrapper.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/files.hpp"

namespace standin::appkit {
namespace {

FileOutcome failed(int error, std::string path) { return {error, std::move(path), foundation::FileAccess::reading}; }

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

// Calls visit(descriptor, name) for what is in the folder until it answers false; false with `errno` set when the folder
// cannot be read.
template <class Visit>
bool forEachName(const std::string& path, Visit&& visit) {
  const OpenFolder folder(::opendir(path.c_str()));
  if (folder == nullptr) return false;
  for (;;) {
    errno = 0;
    const dirent* entry = ::readdir(folder.get());
    if (entry == nullptr) return errno == 0;
    const std::string_view name = entry->d_name;
    if (name != "." && name != ".." && !visit(::dirfd(folder.get()), entry->d_name)) return true;
  }
}

std::optional<std::string> linkDestination(const std::string& path) {
  char target[PATH_MAX];
  const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
  if (length < 0) return std::nullopt;
  return std::string(target, static_cast<size_t>(length));
}

// The wrapper of a file that was found, contents and children still to be read.
FileOutcome describe(FileWrapper& wrapper, const std::string& path, const FileStatus& status) {
  wrapper.kind = status.kind;
  wrapper.attributes = FileAttributes::of(status);
  const std::string leaf = foundation::leafOf(path);
  wrapper.name = leaf;
  wrapper.preferredName = withoutClashMark(leaf);
  if (status.kind == FileKind::regular) {
    wrapper.contents = FileContents::at({path, status.stamp});
    return {};
  }
  wrapper.found = FileOrigin{path, status.stamp};
  wrapper.childrenAreUnread = status.kind == FileKind::directory;
  if (status.kind != FileKind::link) return {};
  std::optional<std::string> destination = linkDestination(path);
  if (!destination) return failed(errno, path);
  wrapper.destination = std::move(*destination);
  return {};
}

FileOutcome readWhole(FileWrapper& wrapper, bool mayKeepOpen) {
  if (wrapper.kind == FileKind::regular && !wrapper.contents.load(mayKeepOpen)) {
    return failed(errno, wrapper.contents.origin()->path);
  }
  if (wrapper.kind != FileKind::directory) return {};
  if (FileOutcome outcome = listChildren(wrapper); !outcome) return outcome;
  for (const auto& [key, child] : wrapper.children) {
    if (FileOutcome outcome = readWhole(wrapperState(child), mayKeepOpen); !outcome) return outcome;
  }
  return {};
}

// Makes the wrapper what the one just read is. Children of the same name and kind stay the objects they are.
void become(FileWrapper& wrapper, FileWrapper& fresh) {
  wrapper.kind = fresh.kind;
  wrapper.name = fresh.name;
  if (!wrapper.preferredName) wrapper.preferredName = fresh.preferredName;
  wrapper.attributes = fresh.attributes;
  wrapper.attributesWereSet = false;
  wrapper.contents = fresh.contents;
  wrapper.destination = fresh.destination;
  wrapper.destinationURL = nullptr;
  wrapper.found = fresh.found;
  wrapper.childrenAreUnread = fresh.childrenAreUnread;
  std::map<std::string, Owned<NSFileWrapper>> children;
  std::swap(children, fresh.children);
  for (auto& [key, child] : children) {
    std::erase(wrapperState(child.get()).parents, &fresh);
    const auto old = wrapper.children.find(key);
    if (old == wrapper.children.end() || wrapperState(old->second).kind != wrapperState(child.get()).kind) continue;
    become(wrapperState(old->second), wrapperState(child.get()));
    child = old->second;
  }
  while (!wrapper.children.empty()) removeChild(wrapper, std::string(wrapper.children.begin()->first));
  for (auto& [key, child] : children) putChild(wrapper, key, std::move(child));
}

bool sameBytes(FileWrapper& wrapper, const std::string& path) {
  NSData* own = wrapper.contents.data();
  const std::optional<std::string> others = foundation::readFile(path.c_str());
  const auto bytes = foundation::bytesOf(own);
  return own != nullptr && others && std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()) == *others;
}

bool matchesChildren(FileWrapper& wrapper, const std::string& path) {
  if (!listChildren(wrapper)) return false;
  size_t matching = 0;
  bool differs = false;
  const bool wasRead = forEachName(path, [&](int, const char* name) {
    const auto child = wrapper.children.find(name);
    differs = child == wrapper.children.end() || !matchesFile(wrapperState(child->second), foundation::joined(path, name));
    matching += differs ? 0 : 1;
    return !differs;
  });
  return wasRead && !differs && matching == wrapper.children.size();
}

}  // namespace

BOOL FileOutcome::reportTo(NSError** error) const {
  if (systemError == 0) return YES;
  foundation::report(error, foundation::newFileError(access, systemError, path));
  return NO;
}

FileOutcome failedReading(std::string path) { return {errno, std::move(path), foundation::FileAccess::reading}; }
FileOutcome failedWriting(std::string path) { return {errno, std::move(path), foundation::FileAccess::writing}; }

FileOutcome listChildren(FileWrapper& directory) {
  if (!directory.childrenAreUnread) return {};
  const std::string folder = directory.found->path;
  FileOutcome outcome;
  std::map<std::string, Owned<NSFileWrapper>> children;
  const bool wasRead = forEachName(folder, [&](int descriptor, const char* name) {
    const std::string path = foundation::joined(folder, name);
    const std::optional<FileStatus> status = fileStatus(descriptor, name);
    Owned<NSFileWrapper> child = newFileWrapper();
    outcome = status ? describe(wrapperState(child), path, *status) : failedReading(path);
    children.emplace(name, std::move(child));
    return static_cast<bool>(outcome);
  });
  if (!wasRead) return failedReading(folder);
  if (!outcome) return outcome;
  directory.childrenAreUnread = false;
  for (auto& [key, child] : children) putChild(directory, key, std::move(child));
  return {};
}

FileOutcome readFile(FileWrapper& wrapper, const std::string& given, NSUInteger options) {
  const std::string path = foundation::existingPath(given);
  const std::optional<FileStatus> status = fileStatus(AT_FDCWD, path.c_str());
  if (!status) return failedReading(path);
  const Owned<NSFileWrapper> fresh = newFileWrapper();
  if (FileOutcome outcome = describe(wrapperState(fresh), path, *status); !outcome) return outcome;
  const bool atOnce = (options & readImmediately) != 0;
  if (atOnce) {
    if (FileOutcome outcome = readWhole(wrapperState(fresh), (options & readWithoutMapping) == 0); !outcome) return outcome;
  } else if (!wrapper.children.empty()) {
    if (FileOutcome outcome = listChildren(wrapperState(fresh)); !outcome) return outcome;
  }
  become(wrapper, wrapperState(fresh));
  return {};
}

// A file that was read or written matches by its size and date alone; one that never was, by its bytes.
bool matchesFile(FileWrapper& wrapper, const std::string& path) {
  const std::optional<FileStatus> status = fileStatus(AT_FDCWD, path.c_str());
  if (!status || status->kind != wrapper.kind) return false;
  switch (wrapper.kind) {
    case FileKind::directory:
      return matchesChildren(wrapper, path);
    case FileKind::link:
      return linkDestination(path) == wrapper.destination;
    case FileKind::regular:
      break;
  }
  const std::optional<FileOrigin>& origin = wrapper.contents.origin();
  if (!origin) return sameBytes(wrapper, path);
  return origin->stamp.size == status->stamp.size && origin->stamp.modified == status->stamp.modified;
}

}  // namespace standin::appkit
