// Any platform object as a host value.
#pragma once

#include "platform/foundation.h"
#include "plugin/host_types.hpp"

namespace bridge {

// The host variant for the object: a host value where the host has one of that kind, otherwise a host object that wraps it.
// The first rule that fits decides, also when it gives nil. The result carries one reference for the caller.
[[nodiscard]] plugin::REALobject NewVariantFromNSObject(NSObject* object);

}  // namespace bridge
