// Calling native functions by their declarations.
#pragma once

#include <ffi.h>

#include <array>
#include <memory>
#include <span>
#include <vector>

#include "host/runtime/declaration.hpp"
#include "host/runtime/value.hpp"

namespace host {

// A call interface made once and used for every call of a function.
class PreparedCall {
 public:
  // No function takes more parameters, its object included.
  static constexpr size_t maximumParameters = 16;

  PreparedCall() = default;
  PreparedCall(const Declaration& declaration, bool takesSelf);

  // Calls the function with an autorelease pool around it. REQUIRES as many arguments as there are parameters; each is
  // converted to its parameter's type, those by reference are replaced by what the function stored. Variants are boxed and
  // unboxed on the way. Answers nil when nothing is declared as the result. Throws the HostException that the function
  // raised, threw, or that stands for a platform exception that it let pass.
  Value operator()(void* function, HostObject* self, std::span<Value> arguments) const;

 private:
  // The interface points to the list of types, so both stay where they are.
  struct Interface {
    ffi_cif cif;
    std::array<ffi_type*, maximumParameters> types;
  };
  Value call(void* function, HostObject* self, std::span<Value> arguments) const;
  Value callWithReferences(void* function, HostObject* self, std::span<Value> arguments) const;
  Value finish(void* function, void** places) const;

  std::vector<Parameter> parameters_;
  Type result_;
  bool hasResult_ = false;
  bool takesSelf_ = false;
  bool hasReferences_ = false;
  std::shared_ptr<Interface> interface_;
};

// Calls a property's getter, function (object, parameter), as PreparedCall does.
Value callGetter(void* getter, const Type& type, HostObject* object, int64_t parameter);

}  // namespace host
