// Variants: the host objects in which values travel. A variant of an object is the object itself.
#pragma once

#include "host/runtime/object.hpp"
#include "host/runtime/value.hpp"

namespace host {

// The value as a host object, nil for nil.
HostOwned<HostObject> boxed(const Value& value);
// As `boxed`, with a type code of the caller's choice (for the codes of strings and numbers that no kind of value has).
HostOwned<HostObject> boxedWithTypeCode(const Value& value, int64_t typeCode);
// The value in a variant; any other object is itself the value.
Value unboxed(HostObject* variant);
bool isBoxed(const HostObject* object);

// What VarType says: 0 nil, 2 Int32, 3 Integer, 4 Single, 5 Double, 6 Currency, 7 Date, 8 String, 9 object, 11 Boolean,
// 16 Color, 37 Text; an array 4096 more than its elements.
int64_t typeCodeOf(const HostObject* variant);
int64_t typeCodeOf(const Value& value);

}  // namespace host
