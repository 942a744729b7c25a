// Platform exceptions as the stand-in throws them.
#pragma once

#include <string>
#include <string_view>

#include "platform/foundation.h"

namespace standin {

// Throws an NSException with the name and the reason (UTF-8) and no user information.
[[noreturn]] void raise(NSString* name, std::string_view reason);

// Throws the exception that stands for memory that cannot be had, whatever ran short of it.
[[noreturn]] void raiseOutOfMemory();

// "-[NSClass selector:]" (or "+[…]" for a class object), the way reasons begin.
std::string describeMethod(NSObject* receiver, const char* selector);

}  // namespace standin
