// Throwing objects through C++ frames, and catching those that are exceptions.
#include <utility>

#include "platform/foundation.h"
#include "platform/guard.h"
#include "standin/runtime/class_object.hpp"

namespace {

// What is thrown: it keeps the object alive until somebody has caught it.
struct Thrown {
  Owned<NSObject> object;
};

}  // namespace

extern "C" {

void objc_exception_throw(id exception) { throw Thrown{retain(exception)}; }

NSException* platform_catchException(void (*body)(void*), void* context) {
  try {
    body(context);
    return nullptr;
  } catch (Thrown& thrown) {
    static const standin::ClassObject* const exceptionClass = standin::findClass("NSException");
    if (!standin::isKindOf(thrown.object, exceptionClass)) throw;
    return static_cast<NSException*>(std::exchange(thrown.object, nullptr).autorelease());
  }
}
}
