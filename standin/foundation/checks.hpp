// The refusals that strings, data and collections share: ranges, indexes and nil arguments, with the platform's reasons.
#pragma once

#include "platform/foundation.h"

namespace standin::foundation {

// NSRangeException unless index <= limit, "-[Class selector:]: Index 9 out of bounds; string length 5"; `noun` names what
// has the length.
void requireIndex(NSObject* receiver, const char* selector, NSUInteger index, NSUInteger limit, const char* noun,
                  NSUInteger length);
// NSRangeException unless the array has an element there: index < length.
void requireElement(NSObject* receiver, const char* selector, NSUInteger index, NSUInteger length);
// NSRangeException unless the range lies within the length.
void requireRange(NSObject* receiver, const char* selector, NSRange range, const char* noun, NSUInteger length);
// NSInvalidArgumentException for nil.
void requireArgument(NSObject* receiver, const char* selector, const void* argument);

}  // namespace standin::foundation
