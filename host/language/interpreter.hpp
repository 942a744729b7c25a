// Runs programs.
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "host/language/position.hpp"

namespace host {
class Runtime;
}

namespace language {

// How the program was started.
struct Invocation {
  std::string path;  // of the program's file
  std::vector<std::string> arguments;
  uint64_t mostSteps = UINT64_MAX;  // statements and turns of loops; a program that takes more is ended
};

// Why a program was refused or ended early, and where in its text.
struct Failure {
  Position position;
  std::string message;  // of an exception that nobody caught: its class and its message
};

// Reads the program and runs it. What it prints goes to the output. Everything that the program held is released when this
// returns.
std::optional<Failure> run(host::Runtime& runtime, std::string_view source, const Invocation& invocation,
                           std::ostream& output);

}  // namespace language
