// Services of objects and their classes.
#include "host/runtime/runtime.hpp"
#include "host/runtime/service.hpp"

namespace host {
namespace {

HostObject* newInstance(const char* className) {
  return className != nullptr ? Runtime::shared().newInstance(className).detach() : nullptr;
}

void* classReference(const char* className) {
  return className != nullptr ? const_cast<HostClass*>(Runtime::shared().findClass(className)) : nullptr;
}

bool isInstance(HostObject* object, void* reference) { return isA(object, static_cast<const HostClass*>(reference)); }

void lockObject(HostObject* object) {
  if (object != nullptr) object->lock();
}

void unlockObject(HostObject* object) {
  if (object != nullptr) object->unlock();
}

void* loadObjectMethod(HostObject* object, const char* declaration) {
  if (object == nullptr || declaration == nullptr) return nullptr;
  if (!Runtime::shared().faults().countLookup(declaration)) return nullptr;
  const Method* method = object->type->findMethodDeclared(declaration);
  return method != nullptr ? method->function : nullptr;
}

// There are no modules: every global method belongs to none.
void* loadGlobalMethod(void* module, const char* declaration) {
  if (module != nullptr || declaration == nullptr) return nullptr;
  if (!Runtime::shared().faults().countLookup(declaration)) return nullptr;
  const Method* method = Runtime::shared().findGlobalMethodDeclared(declaration);
  return method != nullptr ? method->function : nullptr;
}

}  // namespace

std::span<const Service> objectServices() {
  static const Service list[] = {
      service<newInstance>("PluginNewInstance"),         service<classReference>("pluginObjectType"),
      service<isInstance>("RuntimeObjectIsa"),           service<lockObject>("REALLockObject"),
      service<unlockObject>("REALUnlockObject"),         service<loadObjectMethod>("REALLoadObjectMethod"),
      service<loadGlobalMethod>("REALLoadGlobalMethod"),
  };
  return list;
}

}  // namespace host
