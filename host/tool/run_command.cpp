// Runs a host program.
#include "host/tool/run_command.hpp"

#include <iostream>
#include <optional>

#include "host/language/check.hpp"
#include "host/runtime/runtime.hpp"
#include "host/tool/documents.hpp"
#include "host/tool/files.hpp"
#include "host/tool/input.hpp"
#include "host/tool/messages.hpp"
#include "host/tool/plugins.hpp"

namespace tool {
namespace {

std::string describe(const std::string& path, language::Position position) {
  return path + ":" + std::to_string(position.line) + ":" + std::to_string(position.column);
}

// What was alive before the program ran is not its own.
bool releasedAll(const host::LiveCounts& before, const std::string& program) {
  const host::Runtime& runtime = host::Runtime::shared();
  if (runtime.live() == before) return true;
  report(program, "these are still alive:\n" + runtime.describeLive());
  return false;
}

std::optional<std::string> sourceOf(const std::string& path) {
  try {
    return contentsOf(Input(path).path());
  } catch (const DocumentError& error) {
    report(shownName(path), error.message);
    return std::nullopt;
  }
}

int checkProgram(const std::string& path, const std::string& source) {
  const std::vector<language::Failure> failures = language::check(host::Runtime::shared(), source);
  for (const language::Failure& failure : failures)
    std::cerr << describe(path, failure.position) << ": " << failure.message << '\n';
  return failures.empty() ? Succeeded : Failed;
}

}  // namespace

int runProgram(const RunOptions& options) {
  const std::string& path = options.invocation.path;
  const std::optional<std::string> source = sourceOf(path);
  if (!source || !loadPlugins()) return Failed;
  if (options.checkOnly) return checkProgram(shownName(path), *source);
  host::Runtime& runtime = host::Runtime::shared();
  const host::LiveCounts before = runtime.live();
  const auto failure = language::run(runtime, *source, options.invocation, std::cout);
  if (failure) report(describe(shownName(path), failure->position), failure->message);
  if (finishOutput() != Succeeded) return Failed;
  if (options.checkReferences && !releasedAll(before, shownName(path))) return ReferencesLeft;
  return failure ? Failed : Succeeded;
}

}  // namespace tool
