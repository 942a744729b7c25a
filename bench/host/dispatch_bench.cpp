// What a host program pays for a statement and for a call of the host, through the interpreter.
#include <benchmark/benchmark.h>

#include <sstream>

#include "host/language/interpreter.hpp"
#include "host/runtime/runtime.hpp"

namespace {

constexpr int64_t kTurns = 200000;

// Runs the statement in a loop and reports the time of one turn.
void statement(benchmark::State& state, const char* declarations, const char* repeated) {
  const std::string program = std::string(declarations) + "\nFor turn As Integer = 1 To " + std::to_string(kTurns) + "\n" +
                              repeated + "\nNext\nFunction Same(n As Integer) As Integer\nReturn n\nEnd Function\n";
  for (auto _ : state) {
    std::ostringstream output;
    const auto failure = language::run(host::Runtime::shared(), program, {"bench.bas", {}}, output);
    if (failure) return state.SkipWithError(failure->message.c_str());
  }
  state.SetItemsProcessed(state.iterations() * kTurns);
}

BENCHMARK_CAPTURE(statement, empty_loop, "", "");
BENCHMARK_CAPTURE(statement, addition, "Dim x As Integer", "x = x + turn");
BENCHMARK_CAPTURE(statement, function, "Dim x As Integer", "x = Same(turn)");
BENCHMARK_CAPTURE(statement, property, "Dim x As Integer\nDim d As New Dictionary", "x = d.Count");
BENCHMARK_CAPTURE(statement, method, "Dim x As Boolean\nDim d As New Dictionary\nd.Value(1) = 2", "x = d.HasKey(1)");
BENCHMARK_CAPTURE(statement, element, "Dim x As Integer\nDim a(9) As Integer", "x = a(3)");
BENCHMARK_CAPTURE(statement, string_function, "Dim s As String = \"hello\"\nDim x As Integer", "x = Len(s)");

}  // namespace
