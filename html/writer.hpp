// Writes an attributed string in the library's HTML dialect: tags where attributes change, around escaped text.
#pragma once

#include <string>

#include "platform/appkit.h"

namespace html {

// The document. Afterwards `cachedAttributes` holds the last run's attributes.
std::u16string write(NSAttributedString* source);

// The tags that end what `cachedAttributes` has open. At most one font tag is closed.
std::u16string closingTags();

}  // namespace html
