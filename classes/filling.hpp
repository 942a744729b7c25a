// How a wrapper comes to hold a platform object.
#pragma once

#include "platform/owned.h"
#include "plugin/wrappers.hpp"

namespace classes {

enum class Registration { registered, unregistered };

// Gives the object to an empty wrapper; nil leaves it empty. For use within the guard.
inline void fillWrapper(plugin::REALobject wrapper, Owned<NSObject> object,
                        Registration registration = Registration::registered) {
  if (object && registration == Registration::registered) plugin::registerInstance(object, wrapper);
  plugin::setPlatformObject(wrapper, object.detach());
}

// A new platform object with its plain initialiser.
template <class Type>
Owned<Type> makePlatformObject() {
  return adopt(static_cast<Type*>(NSObject::init(alloc<Type>())));
}

}  // namespace classes
