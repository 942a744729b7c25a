// Shadows as platform objects.
#pragma once

#include "platform/appkit.h"
#include "standin/runtime/object.hpp"
#include "standin/text/style.hpp"

namespace standin::appkit {

Owned<NSShadow> newShadow(const text::Shadow& shadow);
text::Shadow shadowOf(NSShadow* shadow);

}  // namespace standin::appkit
