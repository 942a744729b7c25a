// Fonts as platform objects.
#pragma once

#include "platform/appkit.h"
#include "standin/runtime/object.hpp"
#include "standin/text/style.hpp"

namespace standin::appkit {

// The one object for a face in a size while any reference to it lives: equal fonts are the same object.
Owned<NSFont> fontObject(const text::Font& font);
const text::Font& fontOf(NSFont* font);

}  // namespace standin::appkit
