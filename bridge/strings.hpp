// Host strings and platform strings, in both directions. A nil host string stands for the empty string.
#pragma once

#include "platform/corefoundation.h"
#include "platform/owned.h"
#include "plugin/host_types.hpp"

namespace bridge {

// A platform string that the caller owns; nil for a nil host string or one whose bytes the platform refuses.
[[nodiscard]] CFStringRef RBString2CFString(plugin::REALstring text);

// A UTF-8 host string with one reference for the caller; nil for nil, empty or unconvertible text. Ends at a zero character.
[[nodiscard]] plugin::REALstring CFString2RBString(CFStringRef text);

// A host string of `length` bytes of text in the encoding, with one reference for the caller. Nil for nil bytes and for a
// length outside 1 to 0x7FFFFFFF. Pure ASCII in an 8-bit encoding is tagged ASCII; UTF-16 and UTF-32 become UTF-8; anything
// else keeps its bytes and its tag.
[[nodiscard]] plugin::REALstring REALBuildUnicodeString(const void* bytes, long long length, CFStringEncoding encoding);

// The same for `length` bytes of UTF-16 in the machine's byte order; no text gives the host's empty string.
[[nodiscard]] plugin::REALstring REALBuildUnicodeStringUTF16(const void* bytes, long long length);

// RBString2CFString with an owner, and into the autorelease pool.
inline Owned<NSString> ownedString(plugin::REALstring text) { return adopt(RBString2CFString(text)); }
inline NSString* autoreleasedString(plugin::REALstring text) { return ownedString(text).autorelease(); }

}  // namespace bridge
