// How built-in classes are described: declarations bound to C++ functions, whose types are checked against them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <span>
#include <string>

#include "host/runtime/object.hpp"
#include "host/runtime/string.hpp"

namespace host {

// The letter of a C++ type in a function's signature; "&" stands before the type that a pointer points to.
template <class Type>
struct SignatureOf;
#define HOST_SIGNATURE(type, letters)             \
  template <>                                     \
  struct SignatureOf<type> {                      \
    static std::string text() { return letters; } \
  }
HOST_SIGNATURE(void, "v");
HOST_SIGNATURE(bool, "b");
HOST_SIGNATURE(int32_t, "i");
HOST_SIGNATURE(uint32_t, "u");
HOST_SIGNATURE(int64_t, "l");
HOST_SIGNATURE(uint64_t, "L");
HOST_SIGNATURE(float, "f");
HOST_SIGNATURE(double, "d");
HOST_SIGNATURE(void*, "p");
HOST_SIGNATURE(HostString*, "s");
HOST_SIGNATURE(HostText*, "t");
HOST_SIGNATURE(HostObject*, "o");
#undef HOST_SIGNATURE
template <class Pointed>
struct SignatureOf<Pointed*> {
  static std::string text() { return "&" + SignatureOf<Pointed>::text(); }
};

// A function with its signature: the result's letter, then the parameters'.
struct Native {
  void* address = nullptr;
  std::string (*signature)() = nullptr;
};

template <class Result, class... Arguments>
std::string signatureOf() {
  return (SignatureOf<Result>::text() + ... + SignatureOf<Arguments>::text());
}

template <class Result, class... Arguments>
Native native(Result (*function)(Arguments...)) {
  return {reinterpret_cast<void*>(function), &signatureOf<Result, Arguments...>};
}

struct BuiltinMethod {
  const char* declaration;
  Native function;
};

// Getter (object, parameter), setter (object, parameter, value) or none.
struct BuiltinProperty {
  const char* declaration;
  Native getter;
  Native setter = {};
};

// The C++ state of a class's instances, kept apart from the instance data.
struct BuiltinState {
  size_t size = 0;
  void (*construct)(void*) = nullptr;
  void (*destroy)(void*) = nullptr;
};

template <class State>
BuiltinState stateOf() {
  static_assert(alignof(State) <= 16);
  return {sizeof(State), [](void* place) { new (place) State(); },
          [](void* place) { static_cast<State*>(place)->~State(); }};
}

struct BuiltinClass {
  const char* name;
  const char* superclass = nullptr;
  BuiltinState state = {};
  size_t instanceSize = 0;
  std::span<const BuiltinProperty> properties = {};
  std::span<const BuiltinMethod> methods = {};
  std::span<const BuiltinMethod> sharedMethods = {};
  std::span<const char* const> constants = {};
};

// Every built-in class, superclasses first.
std::span<const BuiltinClass* const> builtinClasses();
std::span<const BuiltinMethod> builtinGlobalMethods();

}  // namespace host
