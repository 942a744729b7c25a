// The host's form of each platform type that members take or return, and the way there and back.
#pragma once

#include "bridge/folder_items.hpp"
#include "bridge/from_object.hpp"
#include "bridge/memory.hpp"
#include "bridge/strings.hpp"
#include "bridge/to_dictionary.hpp"
#include "classes/structures.hpp"
#include "platform/appkit.h"
#include "plugin/wrappers.hpp"

namespace classes {

using namespace plugin;
using namespace bridge;

// `argument` turns what the host passes into a platform value that belongs to nobody; `result` turns what the platform
// answers into a host value whose one reference belongs to the host. A type has those of the two that members need.
template <class Platform>
struct HostForm;

template <class Platform>
using HostArgument = typename HostForm<Platform>::Host;

// Wrapper objects, read through their instance data; nil and empty ones are nil.
template <class Platform>
struct WrapperForm {
  using Host = REALobject;
  static Platform* argument(Host object) { return platformObject<Platform>(object); }
};

template <>
struct HostForm<NSAttributedString*> : WrapperForm<NSAttributedString> {
  static Host result(NSAttributedString* text) { return NewNSObjectZKT(text, classOf<NSAttributedString>()); }
};
template <>
struct HostForm<NSCell*> {
  static REALobject result(NSCell* cell) { return NewNSObjectZKT(cell, classOf<NSCell>()); }
};
template <>
struct HostForm<NSColor*> : WrapperForm<NSColor> {
  static Host result(NSColor* color) { return NewNSColorZKT(color); }
};
template <>
struct HostForm<NSFileWrapper*> : WrapperForm<NSFileWrapper> {
  static Host result(NSFileWrapper* fileWrapper) { return NewNSFileWrapperZKT(fileWrapper); }
};
template <>
struct HostForm<NSImage*> : WrapperForm<NSImage> {
  static Host result(NSImage* image) { return NewNSImageZKT(image); }
};

// Values.
template <>
struct HostForm<NSString*> {
  using Host = REALstring;
  static NSString* argument(Host text) { return autoreleasedString(text); }
  static Host result(NSString* text) { return CFString2RBString(text); }
};
template <>
struct HostForm<NSURL*> {
  static REALstring result(NSURL* url) { return CFString2RBString(NSURL::absoluteString(url)); }
};
template <>
struct HostForm<NSData*> {
  using Host = REALmemoryBlock;
  static NSData* argument(Host block) { return NewNSData(block); }
  static Host result(NSData* data) { return NSDataRB(data); }
};
template <>
struct HostForm<NSDictionary*> {
  using Host = REALdictionary*;
  static NSDictionary* argument(Host dictionary) { return NewNSDictionary(dictionary); }
  static Host result(NSDictionary* dictionary) { return NSDictionaryRB(dictionary); }
};
template <>
struct HostForm<NSRange> {
  using Host = REALobject;
  static NSRange argument(Host range) { return rangeOf(range); }
};
template <>
struct HostForm<NSSize> {
  using Host = REALobject;
  static NSSize argument(Host size) { return sizeOf(size); }
  static Host result(NSSize size) { return newSize(size); }
};

// Numbers. A location is unsigned on both sides, a count is the host's Integer.
template <>
struct HostForm<BOOL> {
  static bool result(BOOL answer) { return answer != NO; }
};
template <>
struct HostForm<CGFloat> {
  using Host = double;
  static CGFloat argument(Host number) { return number; }
  static Host result(CGFloat number) { return number; }
};
template <>
struct HostForm<NSUInteger> {
  using Host = uint64_t;
  static NSUInteger argument(Host location) { return location; }
  static int64_t result(NSUInteger count) { return static_cast<int64_t>(count); }
};

}  // namespace classes
