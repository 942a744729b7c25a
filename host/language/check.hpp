// Programs checked without being run.
#pragma once

#include <string_view>
#include <vector>

#include "host/language/interpreter.hpp"

namespace language {

// What is wrong in the program, as far as its text tells: everything that keeps it from being read, and members that no
// value of the declared type can have. At most one error a line, in order.
std::vector<Failure> check(host::Runtime& runtime, std::string_view source);

}  // namespace language
