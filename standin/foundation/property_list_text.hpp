// The text in which collections describe themselves: the old property list notation.
#pragma once

#include <string>

#include "platform/foundation.h"

namespace standin::foundation {

// UTF-8 (ASCII, in fact: other characters are escaped). Dictionaries whose keys are all strings list them sorted.
std::string propertyListText(NSObject* object);

}  // namespace standin::foundation
