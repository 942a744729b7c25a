// NSData read from and written to the files that URLs name.
#include <cerrno>
#include <string>

#include "standin/foundation/data.hpp"
#include "standin/foundation/error.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/url.hpp"

namespace standin::foundation {
namespace {

// Nil for a URL that names no file: nothing here reaches a network.
NSObject* dataWithContents(Class self, NSURL* url, NSUInteger, NSError** error) {
  const std::optional<std::string> path = filePath(url);
  if (!path) {
    report(error, newError(NSCocoaErrorDomain, fileReadUnsupportedScheme, "The URL names no file."));
    return nullptr;
  }
  const std::string existing = existingPath(*path);
  std::optional<std::string> bytes = readFile(existing.c_str());
  if (!bytes) {
    report(error, newFileError(FileAccess::reading, errno, *path));
    return nullptr;
  }
  Owned<NSObject> data = adopt(NSObject::init(NSObject::alloc(self)));
  stateOf<Data>(data).bytes = *std::move(bytes);
  return data.autorelease();
}

NSObject* dataWithContentsOfURL(Class self, NSURL* url) { return dataWithContents(self, url, 0, nullptr); }

BOOL writeToURL(NSData* self, NSURL* url, BOOL atomically) {
  const std::optional<std::string> path = filePath(url);
  return path && writeFile(existingPath(*path).c_str(), bytesOf(self), atomically != NO);
}

[[maybe_unused]] const Category dataByURL = Category("NSData")
                                                .classMethod<dataWithContentsOfURL>("dataWithContentsOfURL:")
                                                .classMethod<dataWithContents>("dataWithContentsOfURL:options:error:")
                                                .method<writeToURL>("writeToURL:atomically:");

}  // namespace
}  // namespace standin::foundation
