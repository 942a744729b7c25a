// What tests of file wrappers and attachments share: making wrappers, sending their messages, telling file trees apart.
#pragma once

#include <sys/stat.h>

#include <functional>
#include <map>

#include "platform/appkit.h"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/error.hpp"
#include "standin/foundation/url.hpp"
#include "tests/standin/foundation_support.hpp"

namespace file_wrapper_support {

using namespace foundation_support;

enum : NSUInteger { immediate = 1, withoutMapping = 2 };
enum : NSUInteger { atomic = 1, updatingNames = 2 };

inline NSData* bytes(std::string content) { return newData(std::move(content)).autorelease(); }
inline std::string contentOf(NSData* data) {
  if (data == nullptr) return "(nil)";
  const auto span = bytesOf(data);
  return {span.begin(), span.end()};
}
inline NSURL* url(const std::string& path) { return newFileURL(path, false).autorelease(); }

inline NSFileWrapper* pooled(NSFileWrapper* made) { return adopt(made).autorelease(); }
inline NSFileWrapper* fileWith(std::string content) {
  return pooled(NSFileWrapper::initRegularFileWithContents(alloc<NSFileWrapper>(), bytes(std::move(content))));
}
inline NSFileWrapper* named(const char* name, NSFileWrapper* wrapper) {
  NSFileWrapper::setPreferredFilename(wrapper, ns(name));
  return wrapper;
}
inline NSFileWrapper* directory() {
  return pooled(NSFileWrapper::initDirectoryWithFileWrappers(alloc<NSFileWrapper>(), nullptr));
}
inline NSFileWrapper* linkTo(const std::string& path) {
  return pooled(send<NSFileWrapper*>(alloc<NSFileWrapper>(), "initSymbolicLinkWithDestinationURL:", url(path)));
}
inline NSFileWrapper* read(const std::string& path, NSUInteger options = 0, NSError** error = nullptr) {
  return pooled(NSFileWrapper::initWithURL(alloc<NSFileWrapper>(), url(path), options, error));
}
inline bool write(NSFileWrapper* wrapper, const std::string& path, NSUInteger options = 0, NSError** error = nullptr,
                  NSURL* originals = nullptr) {
  return NSFileWrapper::writeToURL(wrapper, url(path), options, originals, error) != NO;
}
inline NSFileWrapper* child(NSFileWrapper* directory, const char* key) {
  return static_cast<NSFileWrapper*>(NSDictionary::objectForKey(NSFileWrapper::fileWrappers(directory), ns(key)));
}
inline std::string add(NSFileWrapper* directory, const char* name, std::string content) {
  return utf8(NSFileWrapper::addRegularFileWithContents(directory, bytes(std::move(content)), ns(name)));
}

// "NSCocoaErrorDomain 260"; "no error" for nil.
inline std::string codeOf(NSError* error) {
  return error != nullptr ? utf8(NSError::domain(error)) + " " + std::to_string(NSError::code(error)) : "no error";
}

// Every file below the folder with its kind, permissions, date and content (or destination).
inline std::map<std::string, std::string> treeAt(const std::string& folder) {
  namespace fs = std::filesystem;
  std::map<std::string, std::string> tree;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    struct stat status {};
    lstat(entry.path().c_str(), &status);
    std::string line = std::to_string(status.st_mode) + " ";
    if (entry.is_symlink()) {
      line += fs::read_symlink(entry.path()).string();
    } else {
      line += std::to_string(status.st_mtim.tv_sec) + "." + std::to_string(status.st_mtim.tv_nsec) + " ";
      if (entry.is_regular_file()) line += readFile(entry.path().c_str()).value_or("(unreadable)");
    }
    tree[entry.path().lexically_relative(folder).string()] = line;
  }
  return tree;
}

}  // namespace file_wrapper_support
