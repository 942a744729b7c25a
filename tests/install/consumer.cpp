// A program of somebody else's: it loads the library as a host does, lists the classes that it declares, and asks the
// platform under it for a string's length.
#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "platform/foundation.h"

namespace {

// The beginning of a class record.
struct ClassRecord {
  uint64_t version;
  const char* name;
};

void registerClass(const ClassRecord* record) { std::printf("%s\n", record->name); }
void registerVersion(uint32_t) {}
bool inRuntime() { return false; }

void* resolve(const char* name) {
  if (std::strcmp(name, "PluginRegisterClass") == 0) return reinterpret_cast<void*>(&registerClass);
  if (std::strcmp(name, "RegisterPluginVersion") == 0) return reinterpret_cast<void*>(&registerVersion);
  if (std::strcmp(name, "REALinRuntime") == 0) return reinterpret_cast<void*>(&inRuntime);
  return nullptr;
}

}  // namespace

int main(int, char** arguments) {
  void* library = dlopen(arguments[1], RTLD_NOW);
  if (library == nullptr) return std::fprintf(stderr, "%s\n", dlerror()), 1;
  const auto start = reinterpret_cast<void (*)(void* (*)(const char*))>(dlsym(library, "REALPluginMain"));
  if (start == nullptr) return 1;
  start(resolve);
  std::printf("%lu\n", NSString::length(NSString::stringWithUTF8String(classOf<NSString>(), "four")));
}
