// Host folder items, paths and platform URLs.
#include "bridge/folder_items.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>

#include "bridge/strings.hpp"
#include "platform/owned.h"
#include "plugin/host_owned.hpp"
#include "plugin/services.hpp"

namespace bridge {
namespace {

using plugin::REALfolderItem;
using plugin::REALstring;

// The file system's root folders have this node identifier.
constexpr uint32_t rootNode = 2;
// Tells the host to take the path as a POSIX path as it stands.
constexpr int64_t nativePath = 3;

// A file name as the file system keeps it: accents apart from their letters.
Owned<NSString> decomposed(NSString* name) {
  Owned<NSMutableString> copy = adopt(CFStringCreateMutableCopy(kCFAllocatorDefault, 0, name));
  if (!copy) return retain(name);
  CFStringNormalize(copy, kCFStringNormalizationFormD);
  return copy;
}

Owned<NSURL> urlOf(const FSRef& reference) { return adopt(CFURLCreateFromFSRef(kCFAllocatorDefault, &reference)); }

Owned<NSURL> urlOfExistingItem(REALfolderItem item) {
  FSRef reference{};
  if (!plugin::REALFSRefFromFolderItem(item, &reference, nullptr)) return nullptr;
  return urlOf(reference);
}

Owned<NSURL> urlInsideParent(REALfolderItem item) {
  FSRef parent{};
  HFSUniStr255 leaf{};
  if (!plugin::REALFSRefFromFolderItem(item, &parent, &leaf)) return nullptr;
  const Owned<NSURL> folder = urlOf(parent);
  if (!folder || leaf.length == 0) return nullptr;
  const Owned<NSString> plain = adopt(CFStringCreateWithCharacters(kCFAllocatorDefault, leaf.unicode, leaf.length));
  if (!plain) return nullptr;
  const Owned<NSString> name = decomposed(plain);
  return adopt(CFURLCreateCopyAppendingPathComponent(kCFAllocatorDefault, folder, name, false));
}

bool exists(const FSRef& reference) {
  return FSGetCatalogInfo(&reference, kFSCatInfoNone, nullptr, nullptr, nullptr, nullptr) == noErr;
}

// Where an existing file is: its folder and its name there. False for a root folder, which lies in none.
bool locate(const FSRef& file, FSRef& parent, HFSUniStr255& leaf) {
  FSCatalogInfo catalog{};
  if (FSGetCatalogInfo(&file, kFSCatInfoNodeID, &catalog, nullptr, nullptr, &parent) != noErr) return false;
  if (catalog.nodeID == rootNode) parent = {};
  return FSGetCatalogInfo(&file, kFSCatInfoNone, nullptr, &leaf, nullptr, nullptr) == noErr && exists(parent);
}

void findGetTrueFolderItem() {
  if (doneGetTrueFolderItem) return;
  GetTrueFolderItem = plugin::loadFrameworkMethod<REALfolderItem(REALstring, int64_t)>(
      "GetTrueFolderItem(path As String, pathMode As Integer) As FolderItem");
  doneGetTrueFolderItem = true;
}

REALfolderItem itemByPath(const FSRef& file) {
  std::array<uint8_t, 4096> path{};
  if (FSRefMakePath(&file, path.data(), path.size()) != noErr) return nullptr;
  const auto length = strnlen(reinterpret_cast<const char*>(path.data()), path.size());
  const auto text =
      plugin::adoptHost(REALBuildUnicodeString(path.data(), static_cast<long long>(length), kCFStringEncodingUTF8));
  if (!text) return nullptr;
  findGetTrueFolderItem();
  return GetTrueFolderItem == nullptr ? nullptr : GetTrueFolderItem(text, nativePath);
}

REALfolderItem existingItem(const FSRef& file) {
  FSRef parent{};
  HFSUniStr255 leaf{};
  if (locate(file, parent, leaf)) return plugin::REALFolderItemFromParentFSRef(&parent, &leaf);
  return itemByPath(file);
}

// A name longer than a leaf name can be is cut.
HFSUniStr255 leafName(NSString* name) {
  HFSUniStr255 leaf{};
  const CFIndex length = std::min<CFIndex>(CFStringGetLength(name), std::size(leaf.unicode));
  leaf.length = static_cast<uint16_t>(length);
  CFStringGetCharacters(name, {0, length}, leaf.unicode);
  return leaf;
}

REALfolderItem itemInsideParent(NSURL* url) {
  const Owned<NSURL> folder = adopt(CFURLCreateCopyDeletingLastPathComponent(kCFAllocatorDefault, url));
  FSRef parent{};
  if (!folder || !CFURLGetFSRef(folder, &parent)) return nullptr;
  const Owned<NSString> component = adopt(CFURLCopyLastPathComponent(url));
  if (!component) return nullptr;
  const HFSUniStr255 leaf = leafName(decomposed(component));
  return plugin::REALFolderItemFromParentFSRef(&parent, &leaf);
}

}  // namespace

CFURLRef CreateCFURLfromFolderItem(REALfolderItem item) {
  if (item == nullptr) return nullptr;
  if (Owned<NSURL> url = urlOfExistingItem(item)) return url.detach();
  return urlInsideParent(item).detach();
}

REALfolderItem NSURLRBFile(NSURL* url) {
  if (url == nullptr) return nullptr;
  FSRef file{};
  return CFURLGetFSRef(url, &file) ? existingItem(file) : itemInsideParent(url);
}

NSURL* urlFromString(REALstring text) {
  const Owned<NSString> string = ownedString(text);
  if (!string) return nullptr;
  return adopt(CFURLCreateWithString(kCFAllocatorDefault, string, nullptr)).autorelease();
}

NSString* pathFromString(REALstring text) { return autoreleasedString(text); }

NSURL* urlFromFolderItem(REALfolderItem item) { return adopt(CreateCFURLfromFolderItem(item)).autorelease(); }

NSString* pathFromFolderItem(REALfolderItem item) {
  NSURL* const url = urlFromFolderItem(item);
  if (url == nullptr) return nullptr;
  return adopt(CFURLCopyFileSystemPath(url, kCFURLPOSIXPathStyle)).autorelease();
}

bool isFolderItem(plugin::REALobject object) {
  return plugin::REALLoadObjectMethod(object, "TrueItem(Index as integer) as Folderitem") != nullptr;
}

}  // namespace bridge
