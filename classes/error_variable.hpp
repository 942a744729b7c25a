// The host variable, passed by reference, in which a member leaves the platform's error.
#pragma once

#include "plugin/wrappers.hpp"

namespace classes {

// Drops what the variable holds and leaves it nil until `store` was called.
class ErrorVariable {
 public:
  explicit ErrorVariable(plugin::REALobject* variable) : variable_(variable) { plugin::clearReference(variable); }

  // Where the platform is to leave its error.
  NSError** address() { return &error_; }
  // Leaves the platform's error, wrapped, in the variable: nil when there was none. For use within the guard.
  void store() { *variable_ = plugin::NewNSErrorZKT(error_); }

 private:
  plugin::REALobject* variable_;
  NSError* error_ = nullptr;
};

}  // namespace classes
