// The class records by which plug-ins declare classes: the binary layout, shared by the host and its plug-ins.
#pragma once

#include <cstddef>
#include <cstdint>

namespace host {

struct HostObject;

// In place of a property's getter and setter: the host itself reads and writes the field of the instance data.
inline void* const directField = reinterpret_cast<void*>(~uintptr_t{0});

struct PropertyRecord {
  uint64_t zero = 0;
  const char* name = nullptr;
  const char* type = nullptr;
  uint64_t flags = 6;
  void* getter = nullptr;  // value (object, parameter)
  void* setter = nullptr;  // void (object, parameter, value); nil for read-only
  int64_t parameter = 0;   // for a direct field its offset in the instance data
  uint64_t unused[5] = {};
};

struct MethodRecord {
  void* function = nullptr;  // (object, parameters...); (parameters...) for a shared method
  uint64_t zero = 0;
  const char* declaration = nullptr;
  uint64_t flags = 4;
  uint64_t unused[2] = {};
};

struct ConstantRecord {
  const char* declaration = nullptr;
  uint64_t unused[4] = {};
};

struct ClassRecord {
  uint32_t version = 13;
  uint32_t versionHigh = 0;
  const char* name = nullptr;
  const char* superclass = nullptr;
  uint64_t instanceSize = 0;
  uint64_t zero = 0;
  void (*constructor)(HostObject*) = nullptr;
  void (*destructor)(HostObject*) = nullptr;
  const PropertyRecord* properties = nullptr;
  uint64_t propertyCount = 0;
  const MethodRecord* methods = nullptr;
  uint64_t methodCount = 0;
  uint64_t unused[7] = {};
  const ConstantRecord* constants = nullptr;
  uint64_t constantCount = 0;
  uint64_t flags = 4;
  uint64_t sharedProperties[2] = {};
  const MethodRecord* sharedMethods = nullptr;
  uint64_t sharedMethodCount = 0;
  uint64_t unusedEnd[5] = {};
};

static_assert(sizeof(PropertyRecord) == 96 && sizeof(MethodRecord) == 48 && sizeof(ConstantRecord) == 40);
static_assert(sizeof(ClassRecord) == 240 && offsetof(ClassRecord, constants) == 144);
static_assert(offsetof(ClassRecord, sharedMethods) == 184);

}  // namespace host
