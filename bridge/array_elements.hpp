// Host arrays as platform arrays, by the kind of their elements.
#pragma once

#include "platform/foundation.h"
#include "plugin/host_types.hpp"

namespace bridge {

// An array of the kind that an array type code names becomes a new, autoreleased platform array.
using ArrayConversion = NSObject*(plugin::REALobject array);

// Nil for a code that names no array.
ArrayConversion* arrayConversion(int64_t typeCode);

}  // namespace bridge
