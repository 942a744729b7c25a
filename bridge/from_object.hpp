// Host objects as platform objects.
#pragma once

#include "platform/foundation.h"
#include "plugin/host_types.hpp"

namespace bridge {

// The platform object that the host object stands for, or nil. The caller does not own it: what a wrapper wraps stays the
// wrapper's, anything made is autoreleased. The first host class that fits decides.
NSObject* GetObjectAsNSObject(plugin::REALobject object);

// A platform dictionary, autoreleased; nil for nil. Keys and values without a platform form become [NSNull null]; a nil key
// is left out.
NSDictionary* NewNSDictionary(plugin::REALdictionary* dictionary);

}  // namespace bridge
