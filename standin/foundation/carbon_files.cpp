// The Carbon file manager's functions over the real file system.
#include <sys/stat.h>

#include <cstring>

#include "platform/corefoundation.h"
#include "standin/foundation/file_reference.hpp"
#include "standin/foundation/files.hpp"

namespace standin::foundation {
namespace {

constexpr OSErr fileNotFound = -43;
constexpr OSErr badParameter = -50;
constexpr OSErr badName = -37;
constexpr OSStatus pathTooLong = -2110;

bool isVolumeRoot(const std::string& path) {
  struct stat own {};
  struct stat folder {};
  if (path == "/") return true;
  return lstat(path.c_str(), &own) == 0 && stat(folderOf(path).c_str(), &folder) == 0 && own.st_dev != folder.st_dev;
}

// The platform's numbers below 16 are its own, 2 being the root of every volume.
uint32_t nodeIdentifier(const std::string& path) {
  constexpr uint32_t rootIdentifier = 2;
  constexpr uint32_t reserved = 16;
  struct stat status {};
  if (isVolumeRoot(path) || lstat(path.c_str(), &status) != 0) return rootIdentifier;
  const auto number = static_cast<uint32_t>(status.st_ino);
  return number < reserved ? number | 0x80000000u : number;
}

bool copyName(const std::string& path, HFSUniStr255* name) {
  const std::optional<std::u16string> units = decomposedName(leafOf(path));
  if (!units || units->size() > std::size(name->unicode)) return false;
  *name = {};
  name->length = static_cast<uint16_t>(units->size());
  std::memcpy(name->unicode, units->data(), units->size() * sizeof(UniChar));
  return true;
}

}  // namespace
}  // namespace standin::foundation

using namespace standin::foundation;

extern "C" {

// The one folder known is that of the frameworks, beside the running program.
OSErr FSFindFolder(FSVolumeRefNum volume, OSType folder, Boolean create, FSRef* found) {
  if (found == nullptr) return badParameter;
  if (volume != kOnAppropriateDisk || folder != kFrameworksFolderType) return fileNotFound;
  const std::string path = joined(folderOf(executablePath()), "Frameworks");
  if (create != 0) mkdir(path.c_str(), 0755);
  return isFolder(path) && makeReference(path, found) ? noErr : fileNotFound;
}

// Of the catalog it tells the node identifier. The parent of "/" is a reference of zeros.
OSErr FSGetCatalogInfo(const FSRef* reference, FSCatalogInfoBitmap asked, FSCatalogInfo* info, HFSUniStr255* name,
                       FSSpec* oldStyleName, FSRef* parent) {
  const std::optional<std::string> path = pathOf(reference);
  if (!path) return fileNotFound;
  if ((asked & ~kFSCatInfoNodeID) != 0 || (asked != 0 && info == nullptr) || oldStyleName != nullptr) return badParameter;
  if (asked != 0) info->nodeID = nodeIdentifier(*path);
  if (name != nullptr && !copyName(*path, name)) return badName;
  if (parent == nullptr) return noErr;
  *parent = {};
  return *path == "/" || makeReference(folderOf(*path), parent) ? noErr : fileNotFound;
}

OSStatus FSRefMakePath(const FSRef* reference, uint8_t* buffer, uint32_t capacity) {
  if (buffer == nullptr) return badParameter;
  const std::optional<std::string> path = pathOf(reference);
  if (!path) return fileNotFound;
  if (path->size() >= capacity) return pathTooLong;
  std::memcpy(buffer, path->c_str(), path->size() + 1);
  return noErr;
}
}
