// Arrays across the boundary: platform arrays, and host arrays of their elements' wrappers.
#pragma once

#include "host/siblings/support.hpp"

namespace siblings {

// A host array of variants, the caller's: the wrappers of the elements, new ones being of the class. Nil without arrays.
HostObject* wrapElements(NSArray* elements, const char* className);
// What the elements of a host array wrap, autoreleased; a nil array gives an empty one. An element of another class raises a
// TypeMismatchException in the host program, and gives nil.
NSArray* wrappedElements(HostObject* array, const char* className);

}  // namespace siblings
