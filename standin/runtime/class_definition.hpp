// How a platform class is defined here: C++ state plus a table that binds selectors to plain functions.
//
//   struct Counter : Object { NSUInteger value = 0; };
//   NSUInteger value(Counter& self) { return self.value; }
//   NSObject* counter(Class) { return create<Counter>(counterClass).autorelease(); }
//   const ClassDefinition counterClass = defineClass<Counter>("Counter", "NSObject")
//                                            .classMethod<counter>("counter")
//                                            .method<value>("value");
//
// The first parameter of a bound function is the state by reference, `NSObject*` (or another platform pointer), or, for
// a class method, `Class`.
#pragma once

#include <new>
#include <type_traits>
#include <utility>

#include "standin/runtime/exception.hpp"
#include "standin/runtime/object.hpp"

namespace standin {

using RawFunction = IMP;

// How the instances of a class are built and taken apart.
struct InstanceLayout {
  size_t size = 0;
  void (*construct)(void* memory) = nullptr;  // nil: `alloc` raises, instances are made by `create` alone
  void (*destroy)(Object* object) = nullptr;
};

// Drops the selector argument, and turns the receiver into what the function asks for. Memory that runs short leaves the
// method as an NSException: callers know of no other.
template <auto function>
struct MethodThunk;
template <class Result, class Self, class... Arguments, Result (*function)(Self, Arguments...)>
struct MethodThunk<function> {
  static Result call(NSObject* self, SEL, Arguments... arguments) {
    try {
      return function(receiver(self), arguments...);
    } catch (const std::bad_alloc&) {
      raiseOutOfMemory();
    }
  }
  static Self receiver(NSObject* self) {
    if constexpr (std::is_pointer_v<Self>) {
      return static_cast<Self>(self);
    } else {
      return *reinterpret_cast<std::remove_reference_t<Self>*>(self);
    }
  }
  static RawFunction address() { return reinterpret_cast<RawFunction>(&call); }
};

// A class known by name. Definitions are static objects; a class is linked to its superclass, and its selectors are
// registered, when it is first used.
class ClassDefinition {
 public:
  ClassDefinition(const char* name, const char* superclass, InstanceLayout layout);

  template <auto function>
  ClassDefinition& method(const char* selector) {
    return addMethod(selector, MethodThunk<function>::address());
  }
  template <auto function>
  ClassDefinition& classMethod(const char* selector) {
    return addClassMethod(selector, MethodThunk<function>::address());
  }
  // `alloc` sent to this class (not to its subclasses) makes instances of the other one, as class clusters do.
  ClassDefinition& allocatesAs(const ClassDefinition& concrete);

  ClassObject* object() const { return class_; }
  Class platformClass() const { return reinterpret_cast<Class>(class_); }

 private:
  ClassDefinition& addMethod(const char* selector, RawFunction function);
  ClassDefinition& addClassMethod(const char* selector, RawFunction function);

  ClassObject* class_;
};

// Methods added by name to a class that another file defines.
class Category {
 public:
  explicit Category(const char* className) : className_(className) {}

  template <auto function>
  Category& method(const char* selector) {
    return add(selector, MethodThunk<function>::address(), false);
  }
  template <auto function>
  Category& classMethod(const char* selector) {
    return add(selector, MethodThunk<function>::address(), true);
  }

 private:
  Category& add(const char* selector, RawFunction function, bool onMetaclass);

  const char* className_;
};

// A class whose instances carry `State`. `alloc` needs a default constructor; without one only `create` makes instances.
template <class State = Object>
ClassDefinition defineClass(const char* name, const char* superclass) {
  static_assert(std::is_base_of_v<Object, State> && !std::is_polymorphic_v<State>);
  InstanceLayout layout;
  layout.size = sizeof(State);
  if constexpr (std::is_default_constructible_v<State>) layout.construct = [](void* memory) { new (memory) State(); };
  layout.destroy = [](Object* object) { static_cast<State*>(object)->~State(); };
  return {name, superclass, layout};
}

// A new instance of the class, its state made from the arguments; the caller owns it. When the state's constructor
// throws, the memory is given back.
template <class State, class Platform = NSObject, class... Arguments>
Owned<Platform> create(const ClassDefinition& definition, Arguments&&... arguments) {
  Object* memory = allocate(definition.object());
  const Object head = *memory;
  State* state;
  try {
    if constexpr (sizeof...(Arguments) == 0) {
      state = new (memory) State();
    } else if constexpr (std::is_aggregate_v<State>) {
      state = new (memory) State{{}, std::forward<Arguments>(arguments)...};
    } else {
      state = new (memory) State(std::forward<Arguments>(arguments)...);
    }
  } catch (...) {
    static_cast<Object&>(*memory) = head;
    abandon(memory);
    throw;
  }
  static_cast<Object&>(*state) = head;
  return adopt(platformObject<Platform>(*state));
}

}  // namespace standin
