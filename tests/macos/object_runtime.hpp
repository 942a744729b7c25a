// What macOS's Objective-C runtime has and the stand-in's has not: sending by jumping, and catching by class.
#pragma once

#include <typeinfo>

#include "platform/foundation.h"

extern "C" {
// Jump to the method with everything as it was passed: any registers, any result. The second is for results that come back
// through memory, whose address is the first argument then.
void macos_objc_msgSend();
void macos_objc_msgSend_stret();

// The object that the exception being caught carries; it is released by macos_objc_end_catch.
NSObject* macos_objc_begin_catch(void* exception);
void macos_objc_end_catch();
NSObject* macos_objc_retainAutorelease(NSObject* object);
}

namespace macos {

// What a catch of NSException compares with what was thrown: it matches platform exceptions of that class and its
// subclasses.
const std::type_info& exceptionClassType();

}  // namespace macos
