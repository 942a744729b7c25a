// Host classes, built in or declared by a plug-in's record, in one form: members are declarations bound to functions.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/runtime/call.hpp"
#include "host/runtime/declaration.hpp"
#include "host/runtime/object.hpp"

namespace host {

struct ClassRecord;
class HostClass;

struct Property {
  std::string name;
  Type type;
  void* getter = nullptr;
  void* setter = nullptr;
  int64_t parameter = 0;
  const HostClass* owner = nullptr;
  PreparedCall set;

  bool isDirect() const;
  bool isReadOnly() const { return setter == nullptr; }
  Value read(HostObject* object) const;
  // REQUIRES a property that is not read-only.
  void write(HostObject* object, const Value& value) const;
};

struct Method {
  std::string text;  // the declaration as written
  Declaration declaration;
  void* function = nullptr;
  bool shared = false;
  const HostClass* owner = nullptr;  // nil for a global method
  PreparedCall call;

  // REQUIRES one argument a parameter. Of a shared or global method the object is nil.
  Value invoke(HostObject* object, std::span<Value> arguments) const { return call(function, object, arguments); }
};

struct Constant {
  std::string text;
  std::string name;
  Value value;
};

struct BuiltinClass;

class HostClass {
 public:
  // Throw PluginError when the description is not right, naming class and member.
  HostClass(const BuiltinClass& description, const HostClass* superclass);
  HostClass(const ClassRecord& record, const HostClass* superclass);

  const std::string& name() const { return name_; }
  const HostClass* superclass() const { return superclass_; }
  bool isKindOf(const HostClass* other) const;
  // Nil for a built-in class.
  const ClassRecord* record() const { return record_; }
  const BuiltinClass* builtin() const { return builtin_; }
  // The built-in class whose C++ state instances carry, or nil.
  const BuiltinClass* stateOwner() const { return stateOwner_; }
  // Of an instance, superclasses included.
  size_t dataSize() const { return dataSize_; }
  // Where the class's own instance data begins.
  size_t dataOffset() const { return dataOffset_; }

  // Declared by this class, in order.
  std::span<const Property> properties() const { return properties_; }
  std::span<const Method> methods() const { return methods_; }
  std::span<const Method> sharedMethods() const { return sharedMethods_; }
  std::span<const Constant> constants() const { return constants_; }

  // Look-ups by name go on to the superclasses; nil when there is none.
  const Property* findProperty(std::string_view name) const;
  const Constant* findConstant(std::string_view name) const;
  // Every overload, those of this class before those of its superclasses.
  std::vector<const Method*> findMethods(std::string_view name) const;
  std::vector<const Method*> findSharedMethods(std::string_view name) const;
  // "Constructor" methods of the nearest class that has any.
  std::vector<const Method*> constructors() const;
  // The instance method of that declaration, as plug-ins ask for it.
  const Method* findMethodDeclared(const char* declaration) const;

  // The constructor and destructor that the record names.
  void runConstructors(HostObject* object) const;
  void runDestructors(HostObject* object) const;

 private:
  using NameIndex = TextMap<std::vector<size_t>>;
  template <class Result>
  Result parsed(std::string_view text, Result (*parse)(std::string_view)) const;
  std::vector<const Method*> overloads(std::string_view name, NameIndex HostClass::*index,
                                       std::vector<Method> HostClass::*list) const;
  void addProperty(Property property);
  void addMethod(std::string_view text, void* function, bool shared);
  void addConstant(std::string_view text);
  void layOut(size_t ownSize);

  std::string name_;
  const HostClass* superclass_;
  const ClassRecord* record_ = nullptr;
  const BuiltinClass* builtin_ = nullptr;
  const BuiltinClass* stateOwner_ = nullptr;
  size_t dataSize_ = 0, dataOffset_ = 0;
  std::vector<Property> properties_;
  std::vector<Method> methods_, sharedMethods_;
  std::vector<Constant> constants_;
  NameIndex propertyIndex_, methodIndex_, sharedMethodIndex_, constantIndex_;
  mutable TextMap<const Method*> declared_;  // what plug-ins asked for, found or not
};

// A plug-in that cannot be loaded, or declares what the host cannot take.
struct PluginError {
  std::string message;
};

}  // namespace host
