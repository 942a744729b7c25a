// Runs Try.
#include "host/language/try.hpp"

#include <new>

#include "host/language/frame.hpp"
#include "host/language/variables.hpp"
#include "host/runtime/class.hpp"

namespace language {

Flow runReportingShortage(const Block& block, Frame& frame) {
  try {
    return block.run(frame);
  } catch (const std::bad_alloc&) {
    host::throwOutOfMemory();
  }
}

Flow Try::run(Frame& frame) const {
  Flow flow;
  try {
    flow = runCaught(frame);
  } catch (const host::HostException&) {
    const Position raised = frame.context.position;
    if (const Flow left = finally_.run(frame); left != Flow::Next) return left;
    frame.context.position = raised;
    throw;
  }
  const Value result = frame.result;
  const LoopKind jump = frame.jump;
  if (const Flow left = finally_.run(frame); left != Flow::Next) return left;
  frame.result = result;
  frame.jump = jump;
  return flow;
}

Flow Try::runCaught(Frame& frame) const {
  const Catch* chosen = nullptr;
  try {
    return runReportingShortage(body_, frame);
  } catch (const host::HostException& exception) {
    for (const Catch& each : catches_) {
      if (each.variable && !host::isA(exception.object(), frame.context.runtime.findClass(each.variable->type.name)))
        continue;
      chosen = &each;
      break;
    }
    if (chosen == nullptr) throw;
    if (chosen->variable) {
      VariableReference(position, *chosen->variable).assign(frame, Value::object(host::retain(exception.object())));
    }
  }
  return runReportingShortage(chosen->body, frame);
}

}  // namespace language
