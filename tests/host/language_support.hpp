// Runs programs for tests.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "host/language/interpreter.hpp"
#include "host/runtime/runtime.hpp"

namespace language_test {

// What the program prints, then "LINE:COLUMN: message" if it fails. Also holds it to giving back every reference.
inline std::string outcomeOf(const std::string& source, const std::vector<std::string>& arguments = {}) {
  host::Runtime& runtime = host::Runtime::shared();
  const host::LiveCounts before = runtime.live();
  std::ostringstream output;
  if (const auto failure = language::run(runtime, source, {"program.bas", arguments}, output)) {
    output << failure->position.line << ":" << failure->position.column << ": " << failure->message << "\n";
  }
  EXPECT_TRUE(runtime.live() == before) << source << "\nleaves\n" << runtime.describeLive();
  return output.str();
}

struct Case {
  const char* source;
  const char* expected;
};

template <size_t count>
void check(const Case (&cases)[count]) {
  for (const Case& each : cases) EXPECT_EQ(outcomeOf(each.source), each.expected) << each.source;
}

}  // namespace language_test
