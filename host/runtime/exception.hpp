// Host exceptions: objects of RuntimeException and its subclasses, thrown through C++.
#pragma once

#include <string>
#include <string_view>

#include "host/runtime/object.hpp"

namespace host {

// Carries the exception object. It is no std::exception, so that plug-ins let it pass.
class HostException {
 public:
  explicit HostException(HostOwned<HostObject> object) : object_(std::move(object)) {}

  HostObject* object() const { return object_; }
  const std::string& className() const;
  // UTF-8.
  std::string message() const;
  int64_t errorNumber() const;

 private:
  HostOwned<HostObject> object_;
};

// An exception object of the class, of RuntimeException when there is no such class.
HostOwned<HostObject> makeException(std::string_view className, std::string_view message, int64_t errorNumber = 0);
[[noreturn]] void throwException(std::string_view className, std::string_view message, int64_t errorNumber = 0);

// Exceptions that the language needs by name.
[[noreturn]] void throwOutOfBounds(int64_t index, int64_t upperBound);
[[noreturn]] void throwNilObject(std::string_view what);
// Throws std::bad_alloc when there is not even memory for the exception.
[[noreturn]] void throwOutOfMemory();

}  // namespace host
