// Wraps platform objects in host objects and keeps the shared registry of wrappers.
#include "plugin/wrappers.hpp"

#include <cstring>

#include "platform/owned.h"
#include "plugin/exceptions.hpp"
#include "plugin/sibling.hpp"

namespace plugin {

void obtainSharedServices() {
  if (instances == nullptr && sibling::offers(sibling::GetInstancesDictionary)) {
    instances = sibling::GetInstancesDictionary(classOf<NSException>());
  }
  if (!ExceptionsInitialized && sibling::offers(sibling::PrepareNSException)) {
    sibling::PrepareNSException(classOf<NSException>());
    ExceptionsInitialized = true;
  }
}

REALobject registeredInstance(NSObject* object) {
  if (instances == nullptr) return nullptr;
  return static_cast<REALobject>(const_cast<void*>(CFDictionaryGetValue(instances, object)));
}

REALobject lockRegisteredInstance(NSObject* object) { return lockHost(registeredInstance(object)).detach(); }

void registerInstance(NSObject* object, REALobject wrapper) {
  if (instances != nullptr) CFDictionarySetValue(instances, object, wrapper);
}

void unregisterInstance(NSObject* object) {
  if (instances != nullptr) CFDictionaryRemoveValue(instances, object);
}

void emptyWrapper(REALobject wrapper) {
  NSObject* object = platformObject(wrapper);
  if (object == nullptr) return;
  unregisterInstance(object);
  NSObject::release(object);  // Not through an owner, whose destructor lets no exception out.
  setPlatformObject(wrapper, nullptr);
}

void constructWrapper(REALobject) { obtainSharedServices(); }

void destroyWrapper(REALobject wrapper) {
  obtainSharedServices();
  if (platformObject(wrapper) != nullptr) guarded([&] { emptyWrapper(wrapper); });
}

REALobject wrapRegistered(NSObject* object, const char* hostClass) {
  if (object == nullptr) return nullptr;
  if (REALobject wrapper = lockRegisteredInstance(object)) return wrapper;
  HostOwned<REALobjectStruct> wrapper = newInstance(hostClass);
  if (!wrapper) return nullptr;
  setPlatformObject(wrapper, retain(object).detach());
  registerInstance(object, wrapper);
  return wrapper.detach();
}

namespace {

// A new instance of the host class that wraps instances of the platform class, or nil.
HostOwned<REALobjectStruct> newWrapperOf(Class platformClass) {
  constexpr char suffix[] = "ZKT";
  const char* name = object_getClassName(platformClass);
  if (name == nullptr) return nullptr;
  const std::size_t length = std::strlen(name);
  if (length >= classNameLimit) return nullptr;
  char hostClass[classNameLimit + sizeof suffix];
  std::memcpy(hostClass, name, length);
  std::memcpy(hostClass + length, suffix, sizeof suffix);
  return newInstance(hostClass);
}

}  // namespace

REALobject NewNSObjectZKT(NSObject* object, Class platformClass) {
  if (object == nullptr || platformClass == nullptr) return nullptr;
  for (Class tried = NSObject::class_(object); tried != nullptr; tried = class_getSuperclass(tried)) {
    HostOwned<REALobjectStruct> wrapper = newWrapperOf(tried);
    if (!wrapper || NSObject::isKindOfClass(object, platformClass) == NO) continue;
    setPlatformObject(wrapper, retain(object).detach());
    return wrapper.detach();
  }
  return nullptr;
}

}  // namespace plugin
