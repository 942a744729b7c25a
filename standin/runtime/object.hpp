// What every platform object is in memory here, and how C++ state becomes one.
#pragma once

#include <cstdint>
#include <new>
#include <utility>

#include "platform/owned.h"
#include "platform/runtime.h"

namespace standin {

struct ClassObject;

// The head of every object: its class and its reference count. State types of classes derive from it and stay free of
// virtual functions, so that the head is at address 0. Counts are plain: platform objects are used from one thread.
struct Object {
  ClassObject* isa = nullptr;
  int64_t references = 1;  // negative: immortal
};

// Memory for an instance of the class, with the head filled in: one reference, counted as live. The state is not yet
// constructed: `create` and `alloc` do that. Throws std::bad_alloc.
Object* allocate(ClassObject* cls);
// Gives back what `allocate` gave, when the state could not be constructed.
void abandon(Object* memory);

// The state behind a platform object.
template <class State>
State& stateOf(NSObject* object) {
  return *reinterpret_cast<State*>(object);
}
template <class Platform = NSObject>
Platform* platformObject(Object& state) {
  return reinterpret_cast<Platform*>(&state);
}

// Adds and drops references without a message: no class here overrides retain or release.
NSObject* retainObject(NSObject* object);
void releaseObject(NSObject* object);
NSObject* autoreleaseObject(NSObject* object);

// Lets the object live as long as the process, and takes it out of the count of live objects: for singletons and constants.
NSObject* makeImmortal(NSObject* object);

// The object's class is `cls` or a descendant of it.
bool isKindOf(NSObject* object, const ClassObject* cls);

}  // namespace standin
