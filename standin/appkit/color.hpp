// Colours as platform objects.
#pragma once

#include "platform/appkit.h"
#include "standin/runtime/object.hpp"
#include "standin/text/style.hpp"

namespace standin::appkit {

Owned<NSColor> newColor(const text::Color& color);
const text::Color& colorOf(NSColor* color);

}  // namespace standin::appkit
