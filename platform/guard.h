// The guard primitive: runs code and hands back the platform exception that it threw.
#pragma once

#include <memory>
#include <type_traits>

struct NSException;

extern "C" {
// Runs body(context). Answers nil, or the NSException (or subclass) that body threw, autoreleased. Anything else that is
// thrown passes through. One implementation a system: the stand-in's here, an Objective-C++ file on macOS.
NSException* platform_catchException(void (*body)(void*), void* context);
}

template <class Body>
NSException* catchException(Body&& body) {
  using Callable = std::remove_reference_t<Body>;
  return platform_catchException([](void* context) { (*static_cast<Callable*>(context))(); },
                                 const_cast<void*>(static_cast<const void*>(std::addressof(body))));
}
