// File attributes between the file system, values, and dictionaries.
#include "standin/appkit/file_attributes.hpp"

#include <fcntl.h>

#include <cerrno>
#include <cmath>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/date.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"

using standin::foundation::constantString;

extern "C" {
NSString* const NSFileType = constantString("NSFileType");
NSString* const NSFileTypeDirectory = constantString("NSFileTypeDirectory");
NSString* const NSFileTypeRegular = constantString("NSFileTypeRegular");
NSString* const NSFileTypeSymbolicLink = constantString("NSFileTypeSymbolicLink");
NSString* const NSFileSize = constantString("NSFileSize");
NSString* const NSFilePosixPermissions = constantString("NSFilePosixPermissions");
NSString* const NSFileModificationDate = constantString("NSFileModificationDate");
NSString* const NSFileCreationDate = constantString("NSFileCreationDate");
}

namespace standin::appkit {
namespace {

// From 1970, where file systems count from, to the platform's reference date, the first day of 2001.
constexpr int64_t referenceDate = 978307200;

struct DateRow {
  NSString* const* key;
  std::optional<Moment> FileAttributes::*member;
};
constexpr DateRow dateRows[] = {
    {&NSFileModificationDate, &FileAttributes::modified},
    {&NSFileCreationDate, &FileAttributes::created},
};

NSString* typeOf(FileKind kind) {
  switch (kind) {
    case FileKind::directory:
      return NSFileTypeDirectory;
    case FileKind::regular:
      return NSFileTypeRegular;
    case FileKind::link:
      break;
  }
  return NSFileTypeSymbolicLink;
}

std::optional<FileKind> kindOf(mode_t mode) {
  if (S_ISDIR(mode)) return FileKind::directory;
  if (S_ISREG(mode)) return FileKind::regular;
  if (S_ISLNK(mode)) return FileKind::link;
  return std::nullopt;
}

Owned<NSDate> newDate(const Moment& moment) {
  return foundation::newDate(static_cast<double>(moment.seconds - referenceDate) + moment.nanoseconds * 1e-9);
}

std::optional<Moment> momentOf(NSObject* date) {
  if (!NSObject::isKindOfClass(date, classOf<NSDate>())) return std::nullopt;
  const double interval = NSDate::timeIntervalSinceReferenceDate(static_cast<NSDate*>(date)) + referenceDate;
  // Whatever no file system could hold anyway.
  if (!(std::abs(interval) < 1e12)) return std::nullopt;
  const double seconds = std::floor(interval);
  const auto nanoseconds = static_cast<uint32_t>((interval - seconds) * 1e9);
  return Moment{static_cast<int64_t>(seconds), std::min(nanoseconds, 999999999U)};
}

}  // namespace

std::optional<FileStatus> fileStatus(int folder, const char* name) {
  struct statx status {};
  const int flags = AT_SYMLINK_NOFOLLOW | AT_EMPTY_PATH;
  if (::statx(folder, name, flags, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) return std::nullopt;
  const std::optional<FileKind> kind = kindOf(status.stx_mode);
  if (!kind) {
    errno = EINVAL;
    return std::nullopt;
  }
  const auto moment = [](const statx_timestamp& time) { return Moment{time.tv_sec, time.tv_nsec}; };
  FileStatus found{*kind, {}, status.stx_mode & 07777U, {}};
  found.stamp = {uint64_t{status.stx_dev_major} << 32 | status.stx_dev_minor, status.stx_ino, status.stx_size,
                 moment(status.stx_mtime)};
  if ((status.stx_mask & STATX_BTIME) != 0) found.created = moment(status.stx_btime);
  return found;
}

FileAttributes FileAttributes::of(const FileStatus& status) {
  FileAttributes attributes;
  attributes.permissions = status.permissions;
  attributes.modified = status.stamp.modified;
  attributes.created = status.created;
  if (status.kind == FileKind::regular) attributes.size = status.stamp.size;
  return attributes;
}

FileAttributes FileAttributes::of(NSDictionary* dictionary) {
  FileAttributes attributes;
  if (dictionary == nullptr) return attributes;
  attributes.others = adopt(static_cast<NSDictionary*>(NSObject::copy(dictionary)));
  if (NSObject* number = foundation::find(dictionary, NSFilePosixPermissions); foundation::isNumber(number)) {
    attributes.permissions = static_cast<uint32_t>(foundation::integerOf(number)) & 07777U;
  }
  for (const DateRow& row : dateRows) attributes.*row.member = momentOf(foundation::find(dictionary, *row.key));
  return attributes;
}

Owned<NSDictionary> newDictionary(const FileAttributes& attributes, FileKind kind) {
  Owned<NSMutableDictionary> dictionary = foundation::newMutableDictionary();
  const auto set = [&](NSString* key, const Owned<NSObject>& value) { foundation::set(dictionary, key, value); };
  set(NSFileType, retain<NSObject>(typeOf(kind)));
  foundation::addEntries(dictionary, attributes.others);
  set(NSFileType, retain<NSObject>(typeOf(kind)));
  if (attributes.permissions) set(NSFilePosixPermissions, foundation::newNumber(static_cast<int>(*attributes.permissions)));
  for (const DateRow& row : dateRows) {
    if (const auto& moment = attributes.*row.member) set(*row.key, newDate(*moment));
  }
  if (attributes.size) set(NSFileSize, foundation::newNumber(*attributes.size));
  return dictionary;
}

bool applyAttributes(const FileAttributes& attributes, FileKind kind, const char* path) {
  // Rights that a file gives whoever runs it do not travel in documents.
  constexpr mode_t permitted = 01777;
  if (attributes.permissions && kind != FileKind::link && ::chmod(path, *attributes.permissions & permitted) != 0)
    return false;
  if (!attributes.modified) return true;
  const timespec times[] = {{0, UTIME_OMIT},
                            {static_cast<time_t>(attributes.modified->seconds), attributes.modified->nanoseconds}};
  return ::utimensat(AT_FDCWD, path, times, AT_SYMLINK_NOFOLLOW) == 0;
}

}  // namespace standin::appkit
