// The names under which encodings are registered, as HTML and XML documents state them.
#pragma once

#include <string>

#include "platform/corefoundation.h"

namespace standin::foundation {

// Empty for an encoding that is unknown or has no registered name.
std::string registeredName(CFStringEncoding encoding);

}  // namespace standin::foundation
