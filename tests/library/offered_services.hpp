// A host made of the services that a test offers, and nothing else.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "bridge/memory.hpp"
#include "plugin/services.hpp"

namespace frame_test {

class OfferedServices : public testing::Test {
 protected:
  OfferedServices() { forgetEverything(); }
  ~OfferedServices() override { forgetEverything(); }

  template <class Result, class... Arguments>
  void offer(const char* name, Result (*function)(Arguments...)) {
    offered()[name] = reinterpret_cast<void*>(function);
  }
  static int lookups(const std::string& name) { return asked()[name]; }
  static size_t namesLookedUp() { return asked().size(); }
  static void* resolve(const char* name) {
    ++asked()[name];
    const auto found = offered().find(name);
    return found == offered().end() ? nullptr : found->second;
  }
  static void forgetCells() {
#define FORGET(accessor, cell, lookup, ...) plugin::cell = nullptr;
    PLUGIN_HOST_SERVICES(FORGET)
    PLUGIN_ARRAY_GETTERS(FORGET)
#undef FORGET
    plugin::pStringLength = nullptr;
    plugin::pVariantType = nullptr;
    bridge::myMemoryBlockGetPtr = nullptr;
    bridge::memoryBlockConstructor = nullptr;
    bridge::memoryBlockConstructorSought = false;
  }

 private:
  static std::map<std::string, void*>& offered() {
    static std::map<std::string, void*> services;
    return services;
  }
  static std::map<std::string, int>& asked() {
    static std::map<std::string, int> counts;
    return counts;
  }
  static void forgetEverything() {
    forgetCells();
    offered().clear();
    asked().clear();
    plugin::gResolver = &resolve;
    plugin::hostVersion = 0.0;
    plugin::CurrentREALControlVersion = 13;
  }
};

}  // namespace frame_test
