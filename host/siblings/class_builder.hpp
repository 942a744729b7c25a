// Builds the records of the sibling classes and registers them.
#pragma once

#include <memory>
#include <vector>

#include "host/siblings/services.hpp"

namespace siblings {

// Names and declarations are kept as pointers: they live as long as the process.
class ClassBuilder {
 public:
  using Hook = void (*)(HostObject*);

  explicit ClassBuilder(const char* name, const char* superclass = nullptr);

  ClassBuilder& data(size_t bytes, Hook constructor = nullptr, Hook destructor = nullptr);
  // A wrapper: one platform object, the property Handle that shows its address, and the property description.
  ClassBuilder& wrapper();
  // A property that the host reads and writes in the instance data.
  ClassBuilder& field(const char* name, const char* type, int64_t offset);
  template <class Value>
  ClassBuilder& property(const char* name, const char* type, Value (*getter)(HostObject*, int64_t)) {
    return addProperty(name, type, reinterpret_cast<void*>(getter));
  }
  template <class Value>
  ClassBuilder& property(const char* name, const char* type, Value (*getter)(HostObject*, int64_t),
                         void (*setter)(HostObject*, int64_t, Value)) {
    return addProperty(name, type, reinterpret_cast<void*>(getter), reinterpret_cast<void*>(setter));
  }
  template <class Result, class... Arguments>
  ClassBuilder& method(const char* declaration, Result (*function)(HostObject*, Arguments...)) {
    addMethod(methods_, declaration, reinterpret_cast<void*>(function));
    return *this;
  }
  template <class Result, class... Arguments>
  ClassBuilder& shared(const char* declaration, Result (*function)(Arguments...)) {
    addMethod(sharedMethods_, declaration, reinterpret_cast<void*>(function));
    return *this;
  }
  ClassBuilder& constant(const char* declaration);

  // Hands the record to the host, for good.
  static void registerWithHost(const ClassBuilder& builder);

 private:
  ClassBuilder& addProperty(const char* name, const char* type, void* getter, void* setter = nullptr);
  static void addMethod(std::vector<host::MethodRecord>& list, const char* declaration, void* function);

  host::ClassRecord record_;
  std::vector<host::PropertyRecord> properties_;
  std::vector<host::MethodRecord> methods_, sharedMethods_;
  std::vector<host::ConstantRecord> constants_;
};

}  // namespace siblings
