// What a sibling library adds to the platform's exception class, when one is loaded.
#pragma once

#include "platform/corefoundation.h"
#include "plugin/host_types.hpp"

namespace plugin::sibling {

inline constinit Message<CFMutableDictionaryRef()> GetInstancesDictionary{"GetInstancesDictionaryZKT"};
inline constinit Message<void()> PrepareNSException{"PrepareNSExceptionZKT"};
// The host exception object, with one reference for the caller.
inline constinit Message<REALobject(NSException*)> NewNSException{"NewNSExceptionZKT:"};

// Whether the class method is there.
template <class Signature>
bool offers(const Message<Signature>& message) {
  return NSObject::respondsToSelector(classOf<NSException>(), message.selector()) != NO;
}

}  // namespace plugin::sibling
