// The sibling structure classes that members read and return: ranges and sizes.
#pragma once

#include "plugin/host_owned.hpp"
#include "plugin/instance_data.hpp"

namespace classes {

// Their instance data are the platform's structures, field for field in 8-byte words.
static_assert(sizeof(NSRange) == 16 && sizeof(NSSize) == 16);

// Nil reads as zeros.
inline NSRange rangeOf(plugin::REALobject range) { return plugin::readInstanceData<NSRange>(range); }
inline NSSize sizeOf(plugin::REALobject size) { return plugin::readInstanceData<NSSize>(size); }

// A new structure object with one reference for the caller, or nil when the host cannot make one.
template <class Structure>
plugin::REALobject newStructure(const char* className, const Structure& value) {
  auto object = plugin::newInstance(className);
  if (object) plugin::writeInstanceData(object, value);
  return object.detach();
}
inline plugin::REALobject newRange(NSRange range) { return newStructure("NSRangeZKT", range); }
inline plugin::REALobject newSize(NSSize size) { return newStructure("NSSizeZKT", size); }

}  // namespace classes
