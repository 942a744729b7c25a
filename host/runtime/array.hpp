// Host arrays of one dimension.
#pragma once

#include "host/runtime/declaration.hpp"
#include "host/runtime/object.hpp"
#include "host/runtime/value.hpp"

namespace host {

// An array of elements 0 to the upper bound, -1 for none, all empty.
HostOwned<HostObject> makeArray(const Type& elementType, int64_t upperBound);
bool isArray(const HostObject* object);

// These REQUIRE an array.
const Type& elementType(const HostObject* array);
int64_t upperBound(const HostObject* array);
// An index out of range throws OutOfBoundsException. Variants are unboxed, values converted to the element type.
Value element(const HostObject* array, int64_t index);
void setElement(HostObject* array, int64_t index, const Value& value);
// Before the element at the index; the index after the last one appends.
void insertElement(HostObject* array, int64_t index, const Value& value);
void appendElement(HostObject* array, const Value& value);
void removeElement(HostObject* array, int64_t index);
// New elements are empty.
void resizeArray(HostObject* array, int64_t upperBound);

// Whether arrays made from now on show plug-ins where their elements lie. At first they do.
void setDirectArrayStorage(bool direct);

}  // namespace host
