// Host variants as platform objects.
#pragma once

#include "platform/foundation.h"
#include "plugin/host_types.hpp"

namespace bridge {

// The platform object for the variant's value, by its type code; nil for nil and for types that have no platform form. The
// caller does not own it. Raises the platform's invalid-argument exception for an array with an element that has none.
NSObject* GetVariantAsNSObject(plugin::REALobject variant);

}  // namespace bridge
