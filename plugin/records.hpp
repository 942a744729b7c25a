// The records that declare a class to the host: the binary layout that the host reads, and the rows that tables are made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "plugin/declaration.hpp"
#include "plugin/host_types.hpp"

namespace plugin {

// Slots without a name are 0.
struct PropertyRecord {
  uint64_t slot0;
  const char* name;
  const char* type;
  uint64_t flags;
  const void* getter;
  const void* setter;  // Nil for a read-only property.
  int64_t parameter;
  uint64_t slots7to11[5];
};

// Instance methods and shared methods alike.
struct MethodRecord {
  const void* function;
  uint64_t slot1;
  const char* declaration;
  uint64_t flags;
  uint64_t slots4to5[2];
};

struct ConstantRecord {
  const char* declaration;
  uint64_t slots1to4[4];
};

struct ClassRecord {
  uint32_t version;
  uint32_t versionHighHalf;
  const char* name;
  const char* superclass;
  int64_t instanceDataSize;
  uint64_t slot4;
  void (*constructor)(REALobject);
  void (*destructor)(REALobject);
  const PropertyRecord* properties;
  uint64_t propertyCount;
  const MethodRecord* methods;
  uint64_t methodCount;
  uint64_t slots11to17[7];
  const ConstantRecord* constants;
  uint64_t constantCount;
  uint64_t flags;
  uint64_t slots21to22[2];
  const MethodRecord* sharedMethods;
  uint64_t sharedMethodCount;
  uint64_t slots25to29[5];
};

inline constexpr uint32_t laidOutVersion = 13;
inline constexpr uint64_t classFlags = 4;
inline constexpr uint64_t propertyFlags = 6;
inline constexpr uint64_t methodFlags = 4;

static_assert(sizeof(PropertyRecord) == 96 && sizeof(MethodRecord) == 48);
static_assert(sizeof(ConstantRecord) == 40 && sizeof(ClassRecord) == 240);
static_assert(offsetof(PropertyRecord, name) == 8 && offsetof(PropertyRecord, type) == 16);
static_assert(offsetof(PropertyRecord, flags) == 24 && offsetof(PropertyRecord, getter) == 32);
static_assert(offsetof(PropertyRecord, setter) == 40 && offsetof(PropertyRecord, parameter) == 48);
static_assert(offsetof(MethodRecord, function) == 0 && offsetof(MethodRecord, declaration) == 16);
static_assert(offsetof(MethodRecord, flags) == 24 && offsetof(ConstantRecord, declaration) == 0);
static_assert(offsetof(ClassRecord, version) == 0 && offsetof(ClassRecord, name) == 8);
static_assert(offsetof(ClassRecord, superclass) == 16 && offsetof(ClassRecord, instanceDataSize) == 24);
static_assert(offsetof(ClassRecord, constructor) == 40 && offsetof(ClassRecord, destructor) == 48);
static_assert(offsetof(ClassRecord, properties) == 56 && offsetof(ClassRecord, propertyCount) == 64);
static_assert(offsetof(ClassRecord, methods) == 72 && offsetof(ClassRecord, methodCount) == 80);
static_assert(offsetof(ClassRecord, constants) == 144 && offsetof(ClassRecord, constantCount) == 152);
static_assert(offsetof(ClassRecord, flags) == 160 && offsetof(ClassRecord, sharedMethods) == 184);
static_assert(offsetof(ClassRecord, sharedMethodCount) == 192);

// The text of a declaration, for as long as the library lives.
template <DeclarationText Declaration>
inline constexpr DeclarationText keptText = Declaration;

// A row that binds a declaration to its function. A declaration that says something else does not compile.
template <DeclarationText Declaration, auto* Function>
MethodRecord method() {
  static_assert(matches<Declaration, Function>, "the declaration and the function's type differ");
  return {reinterpret_cast<const void*>(Function), 0, keptText<Declaration>.text, methodFlags, {}};
}

template <DeclarationText Declaration, auto* Function>
MethodRecord sharedMethod() {
  static_assert(matchesShared<Declaration, Function>, "the declaration and the function's type differ");
  return {reinterpret_cast<const void*>(Function), 0, keptText<Declaration>.text, methodFlags, {}};
}

// A read-only property, and one that can be assigned.
template <DeclarationText Name, DeclarationText Type, auto* Getter>
PropertyRecord property() {
  static_assert(matchesProperty<Type>(Getter), "the type and the getter's type differ");
  const auto getter = reinterpret_cast<const void*>(Getter);
  return {0, keptText<Name>.text, keptText<Type>.text, propertyFlags, getter, nullptr, 0, {}};
}

template <DeclarationText Name, DeclarationText Type, auto* Getter, auto* Setter>
PropertyRecord property() {
  static_assert(matchesProperty<Type>(Getter, Setter), "the type and the accessors' types differ");
  PropertyRecord record = property<Name, Type, Getter>();
  record.setter = reinterpret_cast<const void*>(Setter);
  return record;
}

// The wrapped object's address: all ones has the host read and write the field of the instance data at offset 0 by itself.
inline PropertyRecord handleProperty() {
  const auto hostAccess = reinterpret_cast<const void*>(~uintptr_t{0});
  return {0, "Handle", "Integer", propertyFlags, hostAccess, hostAccess, 0, {}};
}

// "name = value", the value decimal or hexadecimal after "&h".
constexpr ConstantRecord constant(const char* declaration) { return {declaration, {}}; }

// A class in words; what it leaves out is nil or empty.
struct ClassDeclaration {
  const char* name;
  const char* superclass = nullptr;
  int64_t instanceDataSize = 0;
  void (*constructor)(REALobject) = nullptr;
  void (*destructor)(REALobject) = nullptr;
  std::span<const PropertyRecord> properties = {};
  std::span<const MethodRecord> methods = {};
  std::span<const ConstantRecord> constants = {};
  std::span<const MethodRecord> sharedMethods = {};
};

template <class Record>
constexpr const Record* tableOrNil(std::span<const Record> table) {
  return table.empty() ? nullptr : table.data();
}

constexpr ClassRecord classRecord(const ClassDeclaration& declared) {
  ClassRecord record{};
  record.version = laidOutVersion;
  record.name = declared.name;
  record.superclass = declared.superclass;
  record.instanceDataSize = declared.instanceDataSize;
  record.constructor = declared.constructor;
  record.destructor = declared.destructor;
  record.properties = tableOrNil(declared.properties);
  record.propertyCount = declared.properties.size();
  record.methods = tableOrNil(declared.methods);
  record.methodCount = declared.methods.size();
  record.constants = tableOrNil(declared.constants);
  record.constantCount = declared.constants.size();
  record.flags = classFlags;
  record.sharedMethods = tableOrNil(declared.sharedMethods);
  record.sharedMethodCount = declared.sharedMethods.size();
  return record;
}

}  // namespace plugin
