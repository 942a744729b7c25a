// What a file wrapper knows of its file beside the contents, as values and as the dictionary that the platform hands out.
#pragma once

#include <sys/stat.h>

#include "platform/appkit.h"
#include "platform/owned.h"
#include "standin/formats/file_archive/archive.hpp"

extern "C" {
extern NSString* const NSFileType;
extern NSString* const NSFileTypeDirectory;
extern NSString* const NSFileTypeRegular;
extern NSString* const NSFileTypeSymbolicLink;
extern NSString* const NSFileSize;
extern NSString* const NSFilePosixPermissions;
extern NSString* const NSFileModificationDate;
extern NSString* const NSFileCreationDate;
}

namespace standin::appkit {

using formats::file_archive::FileKind;
using formats::file_archive::Moment;

// What a file is told by: as long as all of this is the same, its contents are.
struct FileStamp {
  uint64_t device = 0, node = 0, size = 0;
  Moment modified;

  bool operator==(const FileStamp&) const = default;
};

// A file as the file system describes it; links are not followed.
struct FileStatus {
  FileKind kind;
  FileStamp stamp;
  uint32_t permissions;
  std::optional<Moment> created;
};
// Nothing, with `errno` set, when there is none; EINVAL for what is neither file nor folder nor link. The name is looked up
// in an open folder (or from AT_FDCWD); an empty name means the opened file itself.
std::optional<FileStatus> fileStatus(int folder, const char* name);

struct FileAttributes {
  std::optional<uint32_t> permissions;
  std::optional<Moment> modified, created;
  std::optional<uint64_t> size;
  Owned<NSDictionary> others;  // as they were set; nil when they never were

  static FileAttributes of(const FileStatus& status);
  static FileAttributes of(NSDictionary* dictionary);
};

// With the type first, whatever was set.
Owned<NSDictionary> newDictionary(const FileAttributes& attributes, FileKind kind);

// Gives the file the permissions and the modification date among the attributes. False with `errno` set.
bool applyAttributes(const FileAttributes& attributes, FileKind kind, const char* path);

}  // namespace standin::appkit
