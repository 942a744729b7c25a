// What the tests of the runtime share: a call of a service, values in short, and the account of what is alive.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/runtime/conversion.hpp"
#include "host/runtime/runtime.hpp"

namespace host_test {

using namespace host;

// A service as a plug-in would find it. REQUIRES that the host offers it.
template <class Signature>
Signature* service(const char* name) {
  return reinterpret_cast<Signature*>(Runtime::resolve(name));
}

// Every test gives back what it took, and leaves no fault behind.
class RuntimeTest : public testing::Test {
 protected:
  void SetUp() override {
    runtime.faults().clear();
    before_ = runtime.live();
  }
  void TearDown() override {
    runtime.takePendingException();
    EXPECT_TRUE(runtime.live() == before_) << runtime.describeLive();
    runtime.faults().clear();
  }

  Runtime& runtime = Runtime::shared();

 private:
  LiveCounts before_ = {};
};

// "Integer 3", "String abc", "nil", "a Date"
inline std::string show(const Value& value) {
  if (value.isNil()) return "nil";
  if (value.isObject()) return "a " + value.asObject()->type->name();
  return std::string(typeName(value.kind())) + " " + toUtf8(value);
}

// "OutOfBoundsException: ..." when the body throws one, nothing otherwise.
template <class Body>
std::string thrownBy(Body&& body) {
  try {
    body();
  } catch (const HostException& exception) {
    return exception.className() + ": " + exception.message();
  }
  return "";
}

// The method of that name whose declaration takes as many arguments, called.
inline Value call(HostObject* object, std::string_view name, std::vector<Value> arguments = {}) {
  for (const Method* method : object->type->findMethods(name)) {
    if (method->declaration.parameters.size() == arguments.size()) return method->invoke(object, arguments);
  }
  ADD_FAILURE() << "no method " << name;
  return {};
}

inline Value read(HostObject* object, std::string_view property) {
  return object->type->findProperty(property)->read(object);
}

}  // namespace host_test
