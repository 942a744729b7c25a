// Services between folder items and the platform's file references.
#include <filesystem>

#include "host/runtime/folder_item.hpp"
#include "host/runtime/service.hpp"
#include "host/runtime/string.hpp"
#include "platform/corefoundation.h"
#include "platform/owned.h"

namespace host {
namespace {

constexpr size_t maximumNameUnits = 255;
constexpr size_t pathCapacity = 4096;

bool referenceTo(const std::string& path, FSRef* reference) {
  const AutoreleasePool pool;
  NSString* text = NSString::stringWithUTF8String(classOf<NSString>(), path.c_str());
  return CFURLGetFSRef(NSURL::fileURLWithPath(classOf<NSURL>(), text), reference) != 0;
}

// Without a name the item's own reference, which only an existing item has; with one the parent's reference and the item's
// name in it.
bool referenceFromFolderItem(HostObject* item, FSRef* reference, HFSUniStr255* name) {
  if (!isFolderItem(item)) return false;
  const std::filesystem::path path = pathOf(item);
  if (name == nullptr) return referenceTo(path.string(), reference);
  const std::u16string units = utf16Of(path.filename().string());
  if (units.empty() || units.size() > maximumNameUnits || !referenceTo(path.parent_path().string(), reference)) return false;
  name->length = static_cast<uint16_t>(units.size());
  units.copy(name->unicode, units.size());
  return true;
}

HostObject* folderItemFromParent(const FSRef* parent, const HFSUniStr255* name) {
  uint8_t path[pathCapacity] = {};
  if (parent == nullptr || name == nullptr || name->length == 0 || name->length > maximumNameUnits) return nullptr;
  if (FSRefMakePath(parent, path, sizeof path) != noErr) return nullptr;
  const std::filesystem::path folder(reinterpret_cast<const char*>(path));
  return makeFolderItem((folder / utf8Of(std::u16string_view(name->unicode, name->length))).string()).detach();
}

}  // namespace

std::span<const Service> folderItemServices() {
  static const Service list[] = {
      service<referenceFromFolderItem>("REALFSRefFromFolderItem"),
      service<folderItemFromParent>("REALFolderItemFromParentFSRef"),
  };
  return list;
}

}  // namespace host
