// Runs a host program.
#include "host/tool/run_command.hpp"

#include <cerrno>
#include <cstring>
#include <iostream>
#include <optional>

#include "host/language/files.hpp"
#include "host/runtime/runtime.hpp"
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

}  // namespace

int runProgram(const RunOptions& options) {
  const std::optional<std::string> source = language::contentsOf(options.invocation.path);
  if (!source) report(options.invocation.path, std::strerror(errno));
  if (!source || !loadPlugins()) return Failed;
  host::Runtime& runtime = host::Runtime::shared();
  const host::LiveCounts before = runtime.live();
  const auto failure = language::run(runtime, *source, options.invocation, std::cout);
  if (failure) report(describe(options.invocation.path, failure->position), failure->message);
  if (!std::cout.flush()) {
    report("standard output", "not everything could be written");
    return Failed;
  }
  if (options.checkReferences && !releasedAll(before, options.invocation.path)) return ReferencesLeft;
  return failure ? Failed : Succeeded;
}

}  // namespace tool
