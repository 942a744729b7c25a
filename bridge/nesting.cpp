// The refusal of values that nest too deeply.
#include "bridge/nesting.hpp"

#include "platform/corefoundation.h"

namespace bridge {

void NestingLevel::refuse() {
  static_assert(nestingLimit == 1000, "The text below names the limit.");
  NSString* const reason =
      __CFStringMakeConstantString("Values are nested more than 1000 levels deep, or contain themselves.");
  objc_exception_throw(NSException::exceptionWithName(classOf<NSException>(), NSInvalidArgumentException, reason, nullptr));
}

}  // namespace bridge
