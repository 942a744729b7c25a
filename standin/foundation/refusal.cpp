// The refusal of positions where a collection has no element.
#include "standin/foundation/refusal.hpp"

#include <string>

#include "standin/runtime/exception.hpp"

namespace standin::foundation {

void refuseIndex(NSUInteger index, NSUInteger length, NSObject* receiver, const char* selector) {
  if (index < length) return;
  raise(NSRangeException, describeMethod(receiver, selector) + ": Index " + std::to_string(index) +
                              " out of bounds; array length " + std::to_string(length));
}

}  // namespace standin::foundation
