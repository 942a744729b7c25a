// Enumerators over arrays, sets and dictionaries.
#pragma once

#include "platform/foundation.h"
#include "platform/owned.h"

namespace standin::foundation {

// Keeps the array alive until it is used up or gone itself.
Owned<NSEnumerator> newArrayEnumerator(NSArray* array);

}  // namespace standin::foundation
