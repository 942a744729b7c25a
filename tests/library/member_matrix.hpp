// Every function of every record, with what it takes to call it: an object, empty or full, and plain arguments.
#pragma once

#include <set>

#include "tests/library/member_calls.hpp"

namespace member_matrix {

using calls::Value;

struct Target {
  const host::HostClass* type;
  const host::Method* method;      // nil for a property
  const host::Property* property;  // nil for a method
  bool writes = false;             // the property's setter

  std::string name() const;
  std::vector<host::Type> parameters() const;
  bool isInstance() const { return method == nullptr || !method->shared; }
};

// Of the five classes. Of the shared methods that answer a constant, which are one function over one table, a few stand for
// all.
std::vector<Target> allTargets();

// Values made while the host is whole, an argument for each type.
struct Arguments {
  Arguments();
  Value plain(const host::Type& type) const;
  // Nil, zero or empty.
  static Value empty(const host::Type& type);

  Value text, wrapper, attributes, rtf;
};

// An instance of the target's class; a full one holds a platform object with contents.
Value objectFor(const Target& target, bool full, const Arguments& arguments);

// Calls the member. An exception of a class that no member is documented to raise is a failure.
void invoke(const Target& target, const Value& object, std::vector<Value>& values);

// Lets go of what the HTML writer keeps from one call to the next.
void settle();

}  // namespace member_matrix
