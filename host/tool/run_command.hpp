// styledtext run [--check] PROGRAM [ARGS]
#pragma once

#include "host/language/interpreter.hpp"

namespace tool {

struct RunOptions {
  language::Invocation invocation;
  // Report what is wrong with the program instead of running it.
  bool checkOnly = false;
  // Report what is still alive when the program has ended.
  bool checkReferences = false;
};

int runProgram(const RunOptions& options);

}  // namespace tool
