// The stand-in's log, found by name: other platforms have no such switch.
#include "host/tool/platform_log.hpp"

#include <dlfcn.h>

#include <cstddef>

namespace tool {

void silencePlatformLog() {
  using Sink = void (*)(void* context, const char* message, size_t length);
  const auto setSink = reinterpret_cast<void (*)(Sink, void*)>(dlsym(RTLD_DEFAULT, "standin_setLogSink"));
  if (setSink != nullptr) setSink([](void*, const char*, size_t) {}, nullptr);
}

}  // namespace tool
