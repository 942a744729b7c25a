// The built-in classes, and what they share.
#pragma once

#include <string>

#include "host/runtime/builtin.hpp"
#include "host/runtime/class.hpp"
#include "host/runtime/runtime.hpp"
#include "host/runtime/value.hpp"

namespace host {

extern const BuiltinClass arrayClass, dateClass, dictionaryClass, folderItemClass, memoryBlockClass, runtimeExceptionClass,
    variantClass;
extern const BuiltinClass exceptionClasses[10];

// The class made from the description.
template <const BuiltinClass& description>
const HostClass& builtinClass() {
  static const HostClass& found = *Runtime::shared().findClass(description.name);
  return found;
}

template <const BuiltinClass& description>
bool isInstanceOf(const HostObject* object) {
  return object != nullptr && object->type->stateOwner() == &description;
}

// Text that is the same for equal values, and for them alone.
std::string keyOf(const Value& value);

}  // namespace host
