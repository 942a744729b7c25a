// NSFileManager: files by path and by URL.
#include <cerrno>
#include <filesystem>

#include "standin/foundation/checks.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/directory_enumerator.hpp"
#include "standin/foundation/error.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/immortal.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/url.hpp"

namespace standin::foundation {
namespace {

std::string bytesOfPath(NSString* path) { return path != nullptr ? existingPath(utf8Of(path)) : std::string(); }

BOOL succeeded(const std::error_code& code, FileAccess access, const std::string& path, NSError** error) {
  if (!code) return YES;
  report(error, newFileError(access, code.value(), path));
  return NO;
}

NSObject* stringWithRepresentation(NSObject*, const char* bytes, NSUInteger length) {
  return bytes != nullptr ? newString(std::string_view(bytes, length)).autorelease() : nullptr;
}

const char* representationOfPath(NSObject* self, NSString* path) {
  requireArgument(self, "fileSystemRepresentationWithPath:", path);
  return autoreleasedBytes(utf8Of(path));
}

BOOL fileExists(NSObject*, NSString* path) {
  std::error_code ignored;
  return path != nullptr && std::filesystem::exists(bytesOfPath(path), ignored);
}

BOOL fileExistsAsDirectory(NSObject* self, NSString* path, BOOL* isDirectory) {
  if (isDirectory != nullptr) *isDirectory = isFolder(bytesOfPath(path));
  return fileExists(self, path);
}

// Folders go with all that is in them; a symbolic link goes, and not what it leads to.
BOOL removePath(const std::string& path, NSError** error) {
  std::error_code code;
  if (std::filesystem::remove_all(path, code) == 0 && !code) code.assign(ENOENT, std::generic_category());
  return succeeded(code, FileAccess::writing, path, error);
}

BOOL removeItemAtPath(NSObject* self, NSString* path, NSError** error) {
  requireArgument(self, "removeItemAtPath:error:", path);
  return removePath(bytesOfPath(path), error);
}

BOOL removeItemAtURL(NSObject*, NSURL* url, NSError** error) {
  if (const std::optional<std::string> path = filePath(url)) return removePath(existingPath(*path), error);
  report(error, newError(NSCocoaErrorDomain, fileWriteUnsupportedScheme, "The URL names no file."));
  return NO;
}

NSObject* contentsOfDirectory(NSObject*, NSString* path, NSError** error) {
  std::error_code code;
  const Owned<NSArray> names = newNamesInFolder(bytesOfPath(path), code);
  if (!succeeded(code, FileAccess::reading, bytesOfPath(path), error)) return nullptr;
  return Owned<NSArray>(names).autorelease();
}

NSObject* enumeratorAtPath(NSObject*, NSString* path) {
  if (!isFolder(bytesOfPath(path))) return nullptr;
  return newDirectoryEnumerator(bytesOfPath(path)).autorelease();
}

// A folder that exists already is an error unless its parents were to be made too.
BOOL createDirectory(NSObject* self, NSString* path, BOOL withParents, NSDictionary*, NSError** error) {
  static const char* const selector = "createDirectoryAtPath:withIntermediateDirectories:attributes:error:";
  requireArgument(self, selector, path);
  const std::string bytes = bytesOfPath(path);
  std::error_code code;
  if (withParents) {
    std::filesystem::create_directories(bytes, code);
  } else if (!std::filesystem::create_directory(bytes, code) && !code) {
    code.assign(EEXIST, std::generic_category());
  }
  return succeeded(code, FileAccess::writing, bytes, error);
}

// What is there already under the new name is an error and stays.
BOOL moveItem(NSObject*, NSString* from, NSString* to, NSError** error) {
  std::error_code code;
  if (fileExists(nullptr, to)) {
    code.assign(EEXIST, std::generic_category());
  } else {
    std::filesystem::rename(bytesOfPath(from), bytesOfPath(to), code);
  }
  return succeeded(code, FileAccess::writing, bytesOfPath(from), error);
}

NSObject* currentDirectoryPath(NSObject*) { return newString(currentFolder()).autorelease(); }

Object shared;

NSObject* defaultManager(Class) { return platformObject(shared); }

const ClassDefinition fileManagerClass =
    defineClass("NSFileManager", "NSObject")
        .classMethod<defaultManager>("defaultManager")
        .method<stringWithRepresentation>("stringWithFileSystemRepresentation:length:")
        .method<representationOfPath>("fileSystemRepresentationWithPath:")
        .method<fileExists>("fileExistsAtPath:")
        .method<fileExistsAsDirectory>("fileExistsAtPath:isDirectory:")
        .method<removeItemAtPath>("removeItemAtPath:error:")
        .method<removeItemAtURL>("removeItemAtURL:error:")
        .method<contentsOfDirectory>("contentsOfDirectoryAtPath:error:")
        .method<enumeratorAtPath>("enumeratorAtPath:")
        .method<createDirectory>("createDirectoryAtPath:withIntermediateDirectories:attributes:error:")
        .method<moveItem>("moveItemAtPath:toPath:error:")
        .method<currentDirectoryPath>("currentDirectoryPath");
[[maybe_unused]] NSObject* const placed = makeImmortal(shared, fileManagerClass);

}  // namespace
}  // namespace standin::foundation
