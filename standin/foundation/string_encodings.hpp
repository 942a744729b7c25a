// The encoding numbers of NSString's messages, beside CoreFoundation's.
#pragma once

#include "platform/corefoundation.h"

namespace standin::foundation {

inline constexpr CFStringEncoding noEncoding = 0xFFFFFFFF;

// `noEncoding` for a number that has no counterpart.
CFStringEncoding toCFStringEncoding(NSUInteger stringEncoding);
NSUInteger toStringEncoding(CFStringEncoding encoding);

}  // namespace standin::foundation
