// Services of the start: versions, registration; and exceptions.
#include "host/runtime/runtime.hpp"
#include "host/runtime/service.hpp"

namespace host {

// A record that cannot be taken is reported when the plug-in's entry point returns.
void registerClassFromPlugin(ClassRecord* record);

namespace {

double version() { return Runtime::shared().version().value_or(0); }
void registerPluginVersion(uint32_t version) { Runtime::shared().setAnnouncedPluginVersion(version); }
bool inRuntime() { return Runtime::shared().inRuntime(); }
void raiseException(HostObject* exception) { Runtime::shared().raise(exception); }

// The result is the caller's to drop. An exception that was pending before stays so.
HostObject* callWithExceptionHandler(void (*function)(void*), void* argument) {
  Runtime& runtime = Runtime::shared();
  const PendingExceptionAside before;
  HostOwned<HostObject> caught;
  try {
    function(argument);
    caught = runtime.takePendingException();
  } catch (const HostException& exception) {
    caught = retain(exception.object());
    (void)runtime.takePendingException();
  }
  return caught.detach();
}

}  // namespace

std::span<const Service> frameServices() {
  static const Service list[] = {
      service<version>("REALGetRBVersion"),
      service<registerPluginVersion>("RegisterPluginVersion"),
      service<inRuntime>("REALinRuntime"),
      service<registerClassFromPlugin>("PluginRegisterClass"),
      service<raiseException>("RuntimeRaiseException"),
      service<callWithExceptionHandler>("PluginCallFunctionWithExceptionHandler"),
  };
  return list;
}

}  // namespace host
