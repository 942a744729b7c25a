// Fonts as platform objects.
#pragma once

#include "platform/appkit.h"
#include "standin/runtime/object.hpp"
#include "standin/text/attribute_set.hpp"
#include "standin/text/style.hpp"

namespace standin::appkit {

// The one object for a face in a size while any reference to it lives: equal fonts are the same object.
Owned<NSFont> fontObject(const text::Font& font);
const text::Font& fontOf(NSFont* font);
// The font in which characters with these attributes are drawn: the platform's, Helvetica in 12 points, when they name none.
text::Font fontIn(text::AttributeHandle attributes);

}  // namespace standin::appkit
