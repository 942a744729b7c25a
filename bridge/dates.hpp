// Host dates and platform dates, in both directions, to the second, in local time.
#pragma once

#include "platform/foundation.h"
#include "plugin/host_types.hpp"

namespace bridge {

// An autoreleased calendar date in the local time zone; nil for nil and for an object that lacks a date's properties.
NSDate* NewNSDate(plugin::REALdate* date);

// A host date with one reference for the caller, showing the instant in the platform's default time zone; or nil.
[[nodiscard]] plugin::REALobject hostDate(NSDate* date);

}  // namespace bridge
