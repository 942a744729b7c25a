// The refusal of positions where a collection has no element.
#pragma once

#include "platform/foundation.h"

namespace standin::foundation {

// Raises NSRangeException unless index < length.
void refuseIndex(NSUInteger index, NSUInteger length, NSObject* receiver, const char* selector);

}  // namespace standin::foundation
