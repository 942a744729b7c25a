// Errors for C++ code: making NSError objects, and the codes of the platform's file errors.
#pragma once

#include <string_view>

#include "platform/foundation.h"
#include "platform/owned.h"

extern "C" {
extern NSString* const NSCocoaErrorDomain;
extern NSString* const NSPOSIXErrorDomain;
extern NSString* const NSOSStatusErrorDomain;
extern NSString* const NSLocalizedDescriptionKey;
extern NSString* const NSFilePathErrorKey;
extern NSString* const NSURLErrorKey;
extern NSString* const NSUnderlyingErrorKey;
}

namespace standin::foundation {

// Codes of NSCocoaErrorDomain.
enum CocoaErrorCode : NSInteger {
  fileNoSuchFile = 4,
  fileReadUnknown = 256,
  fileReadNoPermission = 257,
  fileReadInvalidFileName = 258,
  fileReadCorruptFile = 259,
  fileReadNoSuchFile = 260,
  fileReadTooLarge = 263,
  fileReadUnsupportedScheme = 262,
  fileWriteUnknown = 512,
  fileWriteNoPermission = 513,
  fileWriteInvalidFileName = 514,
  fileWriteFileExists = 516,
  fileWriteUnsupportedScheme = 518,
  fileWriteOutOfSpace = 640,
  fileWriteVolumeReadOnly = 642,
};

Owned<NSError> newError(NSString* domain, NSInteger code, std::string_view description);
Owned<NSError> newError(NSString* domain, NSInteger code, NSDictionary* userInfo);

enum class FileAccess { reading, writing };
// The Cocoa error for a failed system call on the file, with the POSIX error beneath it. `systemError` is an errno value.
Owned<NSError> newFileError(FileAccess access, int systemError, std::string_view path);

// Stores the error, autoreleased, where a caller asked for it: `destination` may be nil.
void report(NSError** destination, Owned<NSError> error);

}  // namespace standin::foundation
