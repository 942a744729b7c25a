// Platform dictionaries as host dictionaries.
#pragma once

#include "platform/foundation.h"
#include "plugin/host_types.hpp"

namespace bridge {

// A new host dictionary with one reference for the caller; nil for nil and when the host cannot make one. Keys and values
// become host variants; [NSNull null] and what the host has no form for become nil.
[[nodiscard]] plugin::REALdictionary* NSDictionaryRB(NSDictionary* dictionary);

}  // namespace bridge
