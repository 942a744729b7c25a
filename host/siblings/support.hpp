// What the sibling classes share: strings across the boundary, wrappers and their registry, and the guard.
#pragma once

#include <utility>

#include "host/siblings/services.hpp"
#include "platform/guard.h"
#include "platform/owned.h"

namespace siblings {

// A host string that the caller owns; nil for nil and the empty string.
HostString* hostString(NSString* string);
// Autoreleased; the empty string for nil.
NSString* platformString(HostString* string);

// From platform object to the host object that wraps it; neither is kept alive by it.
CFMutableDictionaryRef registry();

// The platform object that a wrapper holds, nil for a nil wrapper.
template <class Platform = NSObject>
Platform* wrapped(HostObject* wrapper) {
  return wrapper != nullptr ? wrapper->word<Platform*>() : nullptr;
}
// The wrapper of the object, one reference the caller's: the registered one, else a new one of the class. Nil for nil.
HostObject* wrap(NSObject* object, const char* className);
// Puts a platform object into a wrapper that holds none yet, and registers it.
void fill(HostObject* wrapper, NSObject* object);
// Removes the wrapper's entry and releases what it holds.
void empty(HostObject* wrapper);

// The host exception object for a platform exception, the caller's; nil when it cannot be made.
HostObject* exceptionObject(NSException* exception);
// Raises the platform exception in the host program, when the sibling's function returns.
void raise(NSException* exception);
// Raises an exception of one of the host's own classes.
void raise(const char* className, const char* message);

// Runs the body; a platform exception is raised in the host program, and the empty value answered.
template <class Body>
auto guarded(Body&& body) {
  using Result = decltype(body());
  Result result{};
  if (NSException* exception = catchException([&] { result = body(); })) raise(exception);
  return result;
}

}  // namespace siblings
