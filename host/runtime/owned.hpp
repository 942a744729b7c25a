// Ownership of host objects, strings and texts, in the type: the only place that locks and unlocks.
#pragma once

#include <cstddef>
#include <utility>

namespace host {

// Holds one reference to a host object, string or text, or nil.
template <class Type>
class HostOwned {
 public:
  HostOwned() = default;
  HostOwned(std::nullptr_t) {}
  HostOwned(HostOwned&& other) noexcept : held_(other.detach()) {}
  HostOwned(const HostOwned& other) : held_(other.held_) {
    if (held_ != nullptr) held_->lock();
  }
  HostOwned& operator=(HostOwned other) noexcept {
    std::swap(held_, other.held_);
    return *this;
  }
  ~HostOwned() {
    if (held_ != nullptr) held_->unlock();
  }

  Type* get() const { return held_; }
  operator Type*() const { return held_; }
  Type* operator->() const { return held_; }
  explicit operator bool() const { return held_ != nullptr; }

  // Gives the reference to the caller.
  [[nodiscard]] Type* detach() { return std::exchange(held_, nullptr); }

  // Takes over a reference that the caller owns.
  static HostOwned adopt(Type* held) {
    HostOwned owned;
    owned.held_ = held;
    return owned;
  }

 private:
  Type* held_ = nullptr;
};

// Takes over a reference that the caller owns.
template <class Type>
requires requires(Type* held) { held->unlock(); }
[[nodiscard]] HostOwned<Type> adopt(Type* held) { return HostOwned<Type>::adopt(held); }

// Adds a reference.
template <class Type>
requires requires(Type* held) { held->unlock(); }
[[nodiscard]] HostOwned<Type> retain(Type* held) {
  if (held != nullptr) held->lock();
  return HostOwned<Type>::adopt(held);
}

}  // namespace host
