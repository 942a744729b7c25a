// Between attribute dictionaries, which hold platform objects, and styles, which are values.
#pragma once

#include "platform/appkit.h"
#include "platform/owned.h"
#include "standin/text/style.hpp"

namespace standin::appkit {

// What the attributes say, as far as formats carry it. Values of other classes than the key asks for are left out.
text::Style styleOf(NSDictionary* attributes);
// The attributes that say what the style does.
Owned<NSDictionary> attributesOf(const text::Style& style);

}  // namespace standin::appkit
