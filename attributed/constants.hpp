// The platform's names of attributes, document types, document attributes and options, as host strings.
#pragma once

#include "platform/appkit_keys.h"
#include "plugin/host_types.hpp"

namespace attributed {

// The key's text, new each time. Nil for a key that the running system lacks: its address is nil, or it is.
plugin::REALstring textOf(NSString* const* key);

// One accessor a key: `getNSFontAttributeName` and so on.
#define ATTRIBUTED_DECLARE_ACCESSOR(key) \
  inline plugin::REALstring get##key() { return textOf(&key); }
PLATFORM_ATTRIBUTED_STRING_KEYS(ATTRIBUTED_DECLARE_ACCESSOR)
#undef ATTRIBUTED_DECLARE_ACCESSOR

}  // namespace attributed
