// Ownership of host values, in the type: one reference to a host object, host string or host text.
#pragma once

#include <type_traits>
#include <utility>

#include "plugin/services.hpp"

namespace plugin {

// False when the host has no way to add a reference.
template <class LockService, class Value>
bool lockThrough(const LockService& service, Value value) {
  const auto lock = service.find();
  if (lock != nullptr) lock(value);
  return lock != nullptr;
}
inline bool lockHostValue(REALobject object) { return lockThrough(REALLockObject, object); }
inline bool lockHostValue(REALstring text) { return lockThrough(REALLockString, text); }
inline bool lockHostValue(REALtext text) { return lockThrough(REALLockText, text); }
inline void unlockHostValue(REALobject object) { REALUnlockObject(object); }
inline void unlockHostValue(REALstring text) { REALUnlockString(text); }
inline void unlockHostValue(REALtext text) { REALUnlockText(text); }

// Holds one reference to a host value, or nil, and drops it at its end. A value that the host could not lock is only
// borrowed: dropping a reference that was never added would be somebody else's.
template <class Type>
class HostOwned {
 public:
  HostOwned() = default;
  HostOwned(std::nullptr_t) {}
  HostOwned(HostOwned&& other) noexcept : borrowed_(other.borrowed_), value_(other.detach()) {}
  template <class Derived>
  requires(!std::is_same_v<Derived, Type> && std::is_convertible_v<Derived*, Type*>) HostOwned(HostOwned<Derived>&& other)
  noexcept : borrowed_(other.borrowed_), value_(other.detach()) {}
  HostOwned(const HostOwned&) = delete;
  HostOwned& operator=(HostOwned other) noexcept {
    std::swap(value_, other.value_);
    std::swap(borrowed_, other.borrowed_);
    return *this;
  }
  ~HostOwned() {
    if (value_ != nullptr && !borrowed_) unlockHostValue(value_);
  }

  // Takes over a reference that the caller owns.
  [[nodiscard]] static HostOwned adopt(Type* value) {
    HostOwned owned;
    owned.value_ = value;
    return owned;
  }
  // Adds a reference.
  [[nodiscard]] static HostOwned lock(Type* value) {
    HostOwned owned = adopt(value);
    owned.borrowed_ = value != nullptr && !lockHostValue(value);
    return owned;
  }

  Type* get() const { return value_; }
  operator Type*() const { return value_; }
  explicit operator bool() const { return value_ != nullptr; }
  // Gives the reference to the caller.
  [[nodiscard]] Type* detach() { return std::exchange(value_, nullptr); }

 private:
  template <class>
  friend class HostOwned;

  bool borrowed_ = false;
  Type* value_ = nullptr;
};

template <class Type>
[[nodiscard]] HostOwned<Type> adoptHost(Type* value) {
  return HostOwned<Type>::adopt(value);
}

template <class Type>
[[nodiscard]] HostOwned<Type> lockHost(Type* value) {
  return HostOwned<Type>::lock(value);
}

// Drops the object that a host variable passed by reference holds, and sets the variable to nil.
template <class Type>
void clearReference(Type** variable) {
  if (Type* old = std::exchange(*variable, nullptr)) unlockHostValue(old);
}

// A new host object of the class, or nil when the host has no such class.
template <class Type = REALobjectStruct>
[[nodiscard]] HostOwned<Type> newInstance(const char* className) {
  return adoptHost(static_cast<Type*>(REALnewInstance(className)));
}

}  // namespace plugin
