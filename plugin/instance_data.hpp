// Where a host object keeps its instance data, and how its fields are read and written.
#pragma once

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "platform/runtime.h"
#include "plugin/host_types.hpp"

namespace plugin {

// Instance data begins this many bytes into every host object, in words of 8 bytes.
inline constexpr std::size_t instanceDataOffset = 48;
inline constexpr std::size_t instanceWordSize = 8;

// The address of a word of the object's instance data. The object is not nil.
inline void* instanceData(REALobject object, std::size_t word = 0) {
  return reinterpret_cast<std::byte*>(object) + instanceDataOffset + word * instanceWordSize;
}

// The fields from that word on. A nil object reads as zeros.
template <class Fields>
Fields readInstanceData(REALobject object, std::size_t word = 0) {
  static_assert(std::is_trivially_copyable_v<Fields>);
  Fields fields{};
  if (object != nullptr) std::memcpy(&fields, instanceData(object, word), sizeof fields);
  return fields;
}

// The object is not nil. Counts no references.
template <class Fields>
void writeInstanceData(REALobject object, const Fields& fields, std::size_t word = 0) {
  static_assert(std::is_trivially_copyable_v<Fields>);
  std::memcpy(instanceData(object, word), &fields, sizeof fields);
}

// The platform object that a wrapper holds, borrowed from it; nil for a nil or empty wrapper.
template <class Type = NSObject>
Type* platformObject(REALobject wrapper) {
  return static_cast<Type*>(readInstanceData<NSObject*>(wrapper));
}

// Replaces the wrapper's pointer. The reference that it stands for passes to the wrapper; the old one is not released.
inline void setPlatformObject(REALobject wrapper, NSObject* object) { writeInstanceData(wrapper, object); }

}  // namespace plugin
