// NSError: a domain, a code and what else is known; and the errors of file operations.
#include "standin/foundation/error.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_definition.hpp"
#include "standin/runtime/exception.hpp"

extern "C" {
NSString* const NSCocoaErrorDomain = standin::foundation::constantString("NSCocoaErrorDomain");
NSString* const NSPOSIXErrorDomain = standin::foundation::constantString("NSPOSIXErrorDomain");
NSString* const NSOSStatusErrorDomain = standin::foundation::constantString("NSOSStatusErrorDomain");
NSString* const NSLocalizedDescriptionKey = standin::foundation::constantString("NSLocalizedDescription");
NSString* const NSFilePathErrorKey = standin::foundation::constantString("NSFilePath");
NSString* const NSURLErrorKey = standin::foundation::constantString("NSURL");
NSString* const NSUnderlyingErrorKey = standin::foundation::constantString("NSUnderlyingError");
}

namespace standin::foundation {
namespace {

struct Error : Object {
  Owned<NSString> domain;  // nil, as the information, in an error that was made with `init` alone
  NSInteger code = 0;
  Owned<NSDictionary> userInfo;
};

struct FileErrorRow {
  int systemError;
  CocoaErrorCode reading, writing;
  const char* text;
};

// What each system error means for a file; the first row stands for all others.
constexpr FileErrorRow fileErrors[] = {
    {0, fileReadUnknown, fileWriteUnknown, "could not be used"},
    {ENOENT, fileReadNoSuchFile, fileNoSuchFile, "does not exist"},
    {ENOTDIR, fileReadNoSuchFile, fileNoSuchFile, "does not exist"},
    {EACCES, fileReadNoPermission, fileWriteNoPermission, "may not be accessed"},
    {EPERM, fileReadNoPermission, fileWriteNoPermission, "may not be accessed"},
    {ENAMETOOLONG, fileReadInvalidFileName, fileWriteInvalidFileName, "has a name that is too long"},
    {EILSEQ, fileReadInvalidFileName, fileWriteInvalidFileName, "has a name that no file can have"},
    {ELOOP, fileReadUnknown, fileWriteUnknown, "is a symbolic link that leads back to itself"},
    {ESTALE, fileReadUnknown, fileWriteUnknown, "has changed since it was found"},
    {EFBIG, fileReadTooLarge, fileWriteUnknown, "is too large"},
    {EISDIR, fileReadUnknown, fileWriteUnknown, "is a folder"},
    {ENOTEMPTY, fileReadUnknown, fileWriteUnknown, "is a folder that is not empty"},
    {EMFILE, fileReadUnknown, fileWriteUnknown, "cannot be opened while so many other files are open"},
    {EDQUOT, fileReadUnknown, fileWriteOutOfSpace, "does not fit on the volume"},
    {EEXIST, fileReadUnknown, fileWriteFileExists, "exists already"},
    {ENOSPC, fileReadUnknown, fileWriteOutOfSpace, "does not fit on the volume"},
    {EROFS, fileReadUnknown, fileWriteVolumeReadOnly, "is on a volume that cannot be written"},
};

const FileErrorRow& rowOf(int systemError) {
  for (const FileErrorRow& row : fileErrors) {
    if (row.systemError == systemError) return row;
  }
  return fileErrors[0];
}

NSObject* initWithDomain(NSObject* self, NSString* domain, NSInteger code, NSDictionary* userInfo) {
  Owned<NSObject> error = adopt(self);
  if (domain == nullptr)
    raise(NSInvalidArgumentException, describeMethod(self, "initWithDomain:code:userInfo:") + ": nil domain");
  Error& state = stateOf<Error>(self);
  state.domain = adopt(static_cast<NSString*>(NSObject::copy(domain)));
  state.code = code;
  state.userInfo = userInfo != nullptr ? adopt(static_cast<NSDictionary*>(NSObject::copy(userInfo))) : newDictionary({});
  return error.detach();
}

NSObject* errorWithDomain(Class self, NSString* domain, NSInteger code, NSDictionary* userInfo) {
  return adopt(initWithDomain(NSObject::alloc(self), domain, code, userInfo)).autorelease();
}

NSString* domain(Error& self) { return self.domain; }
NSInteger code(Error& self) { return self.code; }
NSDictionary* userInfo(Error& self) { return self.userInfo; }

std::string domainAndCode(const Error& error) { return describe(error.domain) + " " + std::to_string(error.code); }

NSString* localizedDescription(Error& self) {
  if (NSObject* text = find(self.userInfo, NSLocalizedDescriptionKey)) return static_cast<NSString*>(text);
  return newString("The operation failed (" + domainAndCode(self) + ").").autorelease();
}

NSString* description(Error& self) {
  return newString(domainAndCode(self) + ": " + describe(localizedDescription(self))).autorelease();
}

extern const ClassDefinition errorClass;

BOOL isEqual(NSObject* receiver, NSObject* other) {
  if (receiver == other) return YES;
  if (!isKindOf(other, errorClass.object())) return NO;
  const Error& self = stateOf<Error>(receiver);
  const Error& error = stateOf<Error>(other);
  return self.code == error.code && equal(self.domain, error.domain) && NSObject::isEqual(self.userInfo, error.userInfo);
}

NSUInteger hash(Error& self) { return static_cast<NSUInteger>(self.code) + NSObject::hash(self.domain); }
NSObject* copy(NSObject* self, void*) { return retainObject(self); }

const ClassDefinition errorClass = defineClass<Error>("NSError", "NSObject")
                                       .classMethod<errorWithDomain>("errorWithDomain:code:userInfo:")
                                       .method<initWithDomain>("initWithDomain:code:userInfo:")
                                       .method<domain>("domain")
                                       .method<code>("code")
                                       .method<userInfo>("userInfo")
                                       .method<localizedDescription>("localizedDescription")
                                       .method<description>("description")
                                       .method<isEqual>("isEqual:")
                                       .method<hash>("hash")
                                       .method<copy>("copyWithZone:");

// Of the file at the path; a path without a folder means the current one.
bool folderExists(std::string_view path) {
  const size_t slash = path.rfind('/');
  return slash == std::string_view::npos || slash == 0 || ::access(std::string(path.substr(0, slash)).c_str(), F_OK) == 0;
}

// Text from the file system need not be UTF-8.
Owned<NSString> newPathText(std::string_view path) {
  Owned<NSString> text = newString(path);
  return text ? std::move(text) : newString(text::Text::latin1(path));
}

}  // namespace

Owned<NSError> newError(NSString* domain, NSInteger code, NSDictionary* userInfo) {
  Owned<NSError> error = create<Error, NSError>(errorClass);
  return adopt(static_cast<NSError*>(initWithDomain(error.detach(), domain, code, userInfo)));
}

Owned<NSError> newError(NSString* domain, NSInteger code, std::string_view description) {
  return newError(domain, code, newDictionary({{NSLocalizedDescriptionKey, newPathText(description)}}));
}

Owned<NSError> newFileError(FileAccess access, int systemError, std::string_view path) {
  const FileErrorRow& row = rowOf(systemError);
  const std::string_view leaf = path.substr(path.rfind('/') + 1);
  const std::string quoted = "\"" + std::string(leaf.empty() ? path : leaf) + "\"";
  const bool lacksFolder = access == FileAccess::writing && systemError == ENOENT && !folderExists(path);
  const std::string text = (lacksFolder ? "The folder of " : "") + quoted + " " + row.text + ".";
  const Owned<NSError> cause = newError(NSPOSIXErrorDomain, systemError, std::strerror(systemError));
  return newError(NSCocoaErrorDomain, access == FileAccess::reading ? row.reading : row.writing,
                  newDictionary({{NSLocalizedDescriptionKey, newPathText(text)},
                                 {NSFilePathErrorKey, newPathText(path)},
                                 {NSUnderlyingErrorKey, cause}}));
}

void report(NSError** destination, Owned<NSError> error) {
  if (destination != nullptr) *destination = error.autorelease();
}

}  // namespace standin::foundation
