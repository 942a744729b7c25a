// Services: the functions that plug-ins look up by name. Each theme's file lists its own.
#pragma once

#include <span>
#include <string_view>

#include "host/runtime/faults.hpp"

namespace host {

struct Service {
  const char* name;
  void* function;
  CallCounter* counter;
};

// Stands in front of a service's function: counts its calls, and does nothing from the one on that is to fail.
template <auto Function>
struct CountedService;
template <class Result, class... Arguments, Result (*Function)(Arguments...)>
struct CountedService<Function> {
  static inline constinit CallCounter counter;
  static Result call(Arguments... arguments) {
    if (++counter.calls >= counter.failFrom) [[unlikely]]
      return Result();
    return Function(arguments...);
  }
};

template <auto Function>
Service service(const char* name) {
  using Counted = CountedService<Function>;
  return {name, reinterpret_cast<void*>(&Counted::call), &Counted::counter};
}

std::span<const Service> frameServices();
std::span<const Service> objectServices();
std::span<const Service> propertyServices();
std::span<const Service> variantServices();
std::span<const Service> stringServices();
std::span<const Service> arrayServices();
std::span<const Service> memoryBlockServices();
std::span<const Service> folderItemServices();

// All of them.
std::span<const Service> services();
// Nil when there is no such service.
const Service* findService(std::string_view name);

}  // namespace host
