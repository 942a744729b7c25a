// CoreFoundation's type identifiers: which class carries which, and the types that are no Foundation class.
#pragma once

#include <span>

#include "platform/corefoundation.h"
#include "standin/runtime/object.hpp"

namespace standin::foundation {

// The state of objects that are CoreFoundation's alone, of class `__NSCFType`.
struct CoreObject : Object {
  CFTypeID type = 0;
};

// An object of a type that has no other content here.
Owned<NSObject> newCoreObject(CFTypeID type);

}  // namespace standin::foundation
