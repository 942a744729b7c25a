// The host services that the sibling classes use, found by name when they are first needed.
#pragma once

#include <cstdint>

#include "host/runtime/object.hpp"
#include "host/runtime/record.hpp"
#include "platform/corefoundation.h"

namespace host {
struct HostString;
}

namespace siblings {

using host::HostObject;
using host::HostString;

using Resolver = void* (*)(const char* name);
void setResolver(Resolver resolver);
void* findService(const char* name);

// A service that the host lacks answers the empty value, and is asked for again by the next call.
template <class Signature>
class Service;
template <class Result, class... Arguments>
class Service<Result(Arguments...)> {
 public:
  constexpr explicit Service(const char* name) : name_(name) {}

  Result operator()(Arguments... arguments) const {
    if (function_ == nullptr) function_ = reinterpret_cast<Result (*)(Arguments...)>(findService(name_));
    return function_ != nullptr ? function_(arguments...) : Result();
  }

 private:
  const char* name_;
  mutable Result (*function_)(Arguments...) = nullptr;
};

inline constinit Service<void(host::ClassRecord*)> registerClass{"PluginRegisterClass"};
inline constinit Service<HostObject*(const char*)> newInstance{"PluginNewInstance"};
inline constinit Service<void(HostObject*)> lockObject{"REALLockObject"};
inline constinit Service<void(HostObject*)> unlockObject{"REALUnlockObject"};
inline constinit Service<void*(HostObject*, const char*)> loadObjectMethod{"REALLoadObjectMethod"};
inline constinit Service<void(HostObject*)> raiseException{"RuntimeRaiseException"};
inline constinit Service<bool(HostObject*, const char*, HostString*)> setStringProperty{"REALSetPropValueString"};
inline constinit Service<bool(HostObject*, const char*, HostString**)> getStringProperty{"REALGetPropValueString"};
inline constinit Service<void*(HostObject*)> memoryBlockPointer{"memoryBlockGetPtr"};
inline constinit Service<int64_t(HostObject*)> memoryBlockSize{"memoryBlockGetSize"};
inline constinit Service<void(HostString*)> unlockString{"REALUnlockString"};
inline constinit Service<HostString*(const void*, int32_t, uint32_t)> buildString{"REALBuildStringWithEncoding"};
inline constinit Service<CFStringRef(HostString*, bool)> copyPlatformString{"REALGetStringCFString"};
inline constinit Service<void*(const char*)> classReference{"pluginObjectType"};
inline constinit Service<bool(HostObject*, void*)> isInstance{"RuntimeObjectIsa"};
// Of variants, the only kind that plug-ins make: element type 4.
inline constinit Service<HostObject*(int32_t, int64_t)> createArray{"RuntimeArrayCreateSingleDimBoundedArray"};
// The array takes a reference of its own.
inline constinit Service<void(HostObject*, int64_t, HostObject*)> insertElement{"PluginObjectArrayInsertProc"};
inline constinit Service<int64_t(HostObject*)> upperBound{"RuntimeUBound"};
// Answers what hands out elements, one reference the caller's.
using ElementGetter = HostObject* (*)(HostObject*, int64_t);
inline constinit Service<ElementGetter(HostObject*)> elementGetter{"PluginObjectArrayGetProc"};
inline constinit Service<HostObject*(HostString*)> variantOfString{"StringToVariant"};
inline constinit Service<HostObject*(double)> variantOfDouble{"DoubleToVariant"};
inline constinit Service<HostObject*(int64_t)> variantOfInteger{"IntegerToVariant"};

}  // namespace siblings
