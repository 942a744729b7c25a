// Messages that sibling libraries answer: the methods they add to platform classes, and those of their own platform classes.
// None of them need be there.
#pragma once

#include "platform/foundation.h"
#include "plugin/host_types.hpp"

namespace bridge {

// Added to NSValue. The host objects that come back carry one reference for the caller.
struct ValueExtensions {
  static inline constinit Message<plugin::REALobject(NSObject*)> NewQTKitNSViewZKT{"NewQTKitNSViewZKT:"};

  static inline constinit Message<plugin::REALobject()> QTTimeValueZKT{"QTTimeValueZKT"};
  static inline constinit Message<plugin::REALobject()> QTTimeRangeValueZKT{"QTTimeRangeValueZKT"};
  static inline constinit Message<plugin::REALobject()> CMTimeValueZKT{"CMTimeValueZKT"};
  static inline constinit Message<plugin::REALobject()> CMTimeRangeValueZKT{"CMTimeRangeValueZKT"};
  static inline constinit Message<plugin::REALobject()> CMTimeMappingValueZKT{"CMTimeMappingValueZKT"};

  static inline constinit Message<NSValue*(plugin::REALobject)> valueWithQTTimeZKT{"valueWithQTTimeZKT:"};
  static inline constinit Message<NSValue*(plugin::REALobject)> valueWithQTTimeRangeZKT{"valueWithQTTimeRangeZKT:"};
  static inline constinit Message<NSValue*(plugin::REALobject)> valueWithCMTimeZKT{"valueWithCMTimeZKT:"};
  static inline constinit Message<NSValue*(plugin::REALobject)> valueWithCMTimeRangeZKT{"valueWithCMTimeRangeZKT:"};
  static inline constinit Message<NSValue*(plugin::REALobject)> valueWithCMTimeMappingZKT{"valueWithCMTimeMappingZKT:"};
};

// The platform class that carries a host object. It comes and goes with its library, so it is looked up on every use.
struct HostObjectCarrier {
  static Class find() { return objc_getClass(ZKTREALobjectWrapper::className_); }

  static inline constinit Message<NSObject*(plugin::REALobject)> wrap{"wrap:"};
  static inline constinit Message<plugin::REALobject()> unwrap{"unwrap"};
};

}  // namespace bridge
