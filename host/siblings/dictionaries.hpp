// Platform dictionaries shown to the host program.
#pragma once

#include "host/siblings/services.hpp"
#include "platform/foundation.h"

namespace siblings {

// A new host dictionary of the entries, the caller's; numbers stay numbers, everything else becomes its description. Nil for
// nil.
HostObject* hostDictionary(NSDictionary* entries);

}  // namespace siblings
