// CoreFoundation's functions on URLs.
#include "platform/corefoundation.h"
#include "standin/foundation/file_reference.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/url.hpp"
#include "standin/runtime/exception.hpp"

using namespace standin;
using namespace standin::foundation;

extern "C" {

CFURLRef CFURLCreateWithString(CFAllocatorRef, CFStringRef text, CFURLRef base) { return newURL(text, base).detach(); }

CFURLRef CFURLCreateFromFSRef(CFAllocatorRef, const FSRef* reference) {
  const std::optional<std::string> path = pathOf(reference);
  return path ? newFileURL(*path, isFolder(*path)).detach() : nullptr;
}

Boolean CFURLGetFSRef(CFURLRef url, FSRef* reference) {
  const std::optional<std::string> path = filePath(url);
  return path && makeReference(*path, reference) ? 1 : 0;
}

CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef, CFURLRef url, CFStringRef component, Boolean isDirectory) {
  return url != nullptr ? newURLAppending(url, component, isDirectory != 0).detach() : nullptr;
}

CFURLRef CFURLCreateCopyDeletingLastPathComponent(CFAllocatorRef, CFURLRef url) {
  return url != nullptr ? newURLDeletingLast(url).detach() : nullptr;
}

CFStringRef CFURLCopyLastPathComponent(CFURLRef url) { return url != nullptr ? newLastComponent(url).detach() : nullptr; }

// The path as the URL has it: a relative one is not seen from the base.
CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFIndex style) {
  if (style != kCFURLPOSIXPathStyle)
    raise(NSInvalidArgumentException, "CFURLCopyFileSystemPath: path style " + std::to_string(style));
  return url != nullptr ? newPath(relativeParts(url)).detach() : nullptr;
}
}
