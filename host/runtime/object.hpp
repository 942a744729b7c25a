// Host objects: a header that the host keeps, then the instance data that plug-ins read and write.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "host/runtime/live_list.hpp"
#include "host/runtime/owned.hpp"

namespace host {

class HostClass;

// Plug-ins find the instance data 48 bytes into the object.
struct HostObject {
  const HostClass* type;
  int64_t references;
  HostObject* previous;
  HostObject* next;
  // The C++ state of the built-in class that the object's class is or descends from; nil for others.
  void* state;
  // Objects are numbered in the order in which they were made.
  uint64_t serial;

  void lock() { ++references; }
  // Dropping the last reference runs the destructors, from the object's class up to its root class, and frees it. What
  // destructors drop themselves ends after them.
  void unlock() {
    if (--references == 0) destroy();
  }

  std::byte* data() { return reinterpret_cast<std::byte*>(this + 1); }
  const std::byte* data() const { return reinterpret_cast<const std::byte*>(this + 1); }
  // A word of the instance data.
  template <class Word>
  Word& word(size_t index = 0) {
    return reinterpret_cast<Word*>(data())[index];
  }
  template <class State>
  State& stateAs() const {
    return *static_cast<State*>(state);
  }

  // Makes an instance with zero-filled data and runs the constructors, from the root class down. A constructor that takes
  // parameters is a method, and the caller's to call.
  static HostOwned<HostObject> make(const HostClass& type);
  static const LiveList<HostObject>& live();

 private:
  void destroy();
  void finish();
};
static_assert(sizeof(HostObject) == 48);

bool isA(const HostObject* object, const HostClass* type);
// "NSRangeZKT #12, 1 reference"
std::string describe(const HostObject& object);

}  // namespace host
