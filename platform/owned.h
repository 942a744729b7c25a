// Ownership of platform objects, in the type: the only place that sends retain and release.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "platform/runtime.h"

// Holds one reference to a platform object, or nil.
template <class Type>
class Owned {
 public:
  Owned() = default;
  Owned(std::nullptr_t) {}
  Owned(Owned&& other) noexcept : object_(other.detach()) {}
  Owned(const Owned& other) : object_(other.object_) {
    if (object_ != nullptr) NSObject::retain(object_);
  }
  template <class Derived>
  requires(!std::is_same_v<Derived, Type> && std::is_convertible_v<Derived*, Type*>) Owned(Owned<Derived> other)
  noexcept : object_(other.detach()) {}
  Owned& operator=(Owned other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Owned() {
    if (object_ != nullptr) NSObject::release(object_);
  }

  Type* get() const { return object_; }
  operator Type*() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // Gives the reference to the caller.
  [[nodiscard]] Type* detach() { return std::exchange(object_, nullptr); }
  // Gives the reference to the innermost autorelease pool.
  Type* autorelease() {
    Type* object = detach();
    if (object != nullptr) NSObject::autorelease(object);
    return object;
  }

  // Takes over a reference that the caller owns.
  static Owned adopt(Type* object) {
    Owned owned;
    owned.object_ = object;
    return owned;
  }

 private:
  Type* object_ = nullptr;
};

template <class Type>
[[nodiscard]] Owned<Type> adopt(Type* object) {
  return Owned<Type>::adopt(object);
}

// Adds a reference.
template <class Type>
[[nodiscard]] Owned<Type> retain(Type* object) {
  if (object != nullptr) NSObject::retain(object);
  return Owned<Type>::adopt(object);
}

// An autorelease pool for the lifetime of this value.
class AutoreleasePool {
 public:
  AutoreleasePool() : pool_(objc_autoreleasePoolPush()) {}
  AutoreleasePool(const AutoreleasePool&) = delete;
  AutoreleasePool& operator=(const AutoreleasePool&) = delete;
  ~AutoreleasePool() { objc_autoreleasePoolPop(pool_); }

 private:
  void* pool_;
};
