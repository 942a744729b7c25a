// Objects that live as long as the process: singletons and shared values.
#pragma once

#include "standin/runtime/class_object.hpp"

namespace standin::foundation {

// Places an object in static storage into its class, uncounted: it is never released and not among the live objects.
template <class State>
NSObject* makeImmortal(State& state, const ClassDefinition& definition) {
  state.isa = definition.object();
  state.references = -1;
  return platformObject(state);
}

}  // namespace standin::foundation
