// What class a host object is of.
#pragma once

#include "plugin/services.hpp"

namespace attributed {

// False also when the host does not know the class or cannot tell.
inline bool isInstanceOf(plugin::REALobject object, const char* hostClass) {
  const auto found = plugin::REALGetClassRef(hostClass);
  return found != nullptr && plugin::REALObjectIsA(object, found);
}

}  // namespace attributed
