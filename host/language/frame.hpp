// What a running program works on: the frame of the function that runs, and what all of its functions share.
#pragma once

#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/language/interpreter.hpp"
#include "host/language/position.hpp"
#include "host/language/statement.hpp"
#include "host/language/value.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/runtime.hpp"

namespace language {

// Where a variable lies: its value, or for a by-reference parameter the caller's.
struct Slot {
  Value value;
  Value* reference = nullptr;
};

struct Context {
  host::Runtime& runtime;
  std::ostream& output;
  const Invocation& invocation;
  Slot* globals = nullptr;
  // The call or statement that runs; where an exception that nobody catches is reported.
  Position position;
  // A function that is called with the stack below this raises StackOverflowException.
  const char* stackLimit = nullptr;
  uint64_t stepsLeft = UINT64_MAX;

  // Throws std::runtime_error, which no program can catch.
  void takeStep() {
    if (stepsLeft-- == 0) throw std::runtime_error("The program took too many steps.");
  }
};

struct Frame {
  Context& context;
  Slot* locals = nullptr;
  Value result;
  // The loop that Flow::Leave and Flow::Continue are meant for.
  LoopKind jump = LoopKind::Any;
};

}  // namespace language
