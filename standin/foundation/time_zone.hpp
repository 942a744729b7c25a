// Time zones for C++ code.
#pragma once

#include <string>

#include "platform/foundation.h"
#include "platform/owned.h"

namespace standin::foundation {

// The zone of this system, as TZ and /etc/localtime name it now; immortal.
NSTimeZone* localTimeZone();
// Nil for a name that the zone database does not know.
Owned<NSTimeZone> newTimeZone(const std::string& name);
// Seconds east of Greenwich at an instant, given in seconds since the reference date. Nil is Greenwich.
int64_t secondsFromGMT(NSTimeZone* zone, int64_t secondsSinceReference);

}  // namespace standin::foundation
