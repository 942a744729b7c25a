// Runs programs.
#include "host/language/interpreter.hpp"

#include <sys/resource.h>

#include <algorithm>
#include <exception>

#include "host/language/conversion.hpp"
#include "host/language/files.hpp"
#include "host/language/frame.hpp"
#include "host/language/program.hpp"
#include "host/language/try.hpp"

namespace language {
namespace {

// The address below which no function of the program is called: a quarter of the stack stays for what the host and its
// plug-ins do.
const char* stackLimit() {
  constexpr rlim_t usual = 8 << 20;
  rlimit limit{};
  const bool known = getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY;
  const rlim_t size = std::min(known ? limit.rlim_cur : usual, usual);
  return static_cast<const char*>(__builtin_frame_address(0)) - size / 4 * 3;
}

std::optional<Failure> runProgram(const Program& program, Context& context) {
  std::vector<Slot> globals(program.main.slots);
  for (size_t index = 0; index < globals.size(); ++index)
    globals[index].value = host::emptyValue(program.globalTypes[index]);
  context.globals = globals.data();
  Frame frame{context, nullptr, {}, LoopKind::Any};
  try {
    runReportingShortage(program.main.body, frame);
    return {};
  } catch (const host::HostException& exception) {
    const std::string message = exception.message();
    return Failure{context.position, exception.className() + (message.empty() ? "" : ": " + message)};
  } catch (const std::exception& error) {
    return Failure{context.position, std::string("RuntimeException: ") + error.what()};
  }
}

}  // namespace

HostNames namesOf(const host::Runtime& runtime) {
  return {[&runtime](const std::string& name) { return runtime.findClass(name) != nullptr; },
          [&runtime](const std::string& name) { return !runtime.findGlobalMethods(name).empty(); }};
}

std::optional<Failure> run(host::Runtime& runtime, std::string_view source, const Invocation& invocation,
                           std::ostream& output) {
  registerStreams(runtime);
  try {
    const std::unique_ptr<Program> program = parse(source, namesOf(runtime));
    Context context{runtime, output, invocation, nullptr, {}, stackLimit(), invocation.mostSteps};
    return runProgram(*program, context);
  } catch (const SyntaxError& error) {
    return Failure{error.position, error.what()};
  }
}

}  // namespace language
