// Runs If and Select Case.
#include "host/language/branches.hpp"

#include <algorithm>

#include "host/language/conversion.hpp"
#include "host/language/frame.hpp"

namespace language {
namespace {

bool passes(const CaseTest& test, const Value& value, Frame& frame) {
  if (test.value == nullptr) return isInstance(frame.context.runtime, value, test.className);
  const Value first = test.value->evaluate(frame);
  if (test.last == nullptr) return holds(test.comparison, value, first);
  return holds(Operator::GreaterOrEqual, value, first) && holds(Operator::LessOrEqual, value, test.last->evaluate(frame));
}

}  // namespace

Flow If::run(Frame& frame) const {
  for (const Branch& branch : branches_) {
    if (isTrue(branch.condition->evaluate(frame))) return branch.body.run(frame);
  }
  return otherwise_.run(frame);
}

Flow Select::run(Frame& frame) const {
  const Flow flow = runChosen(frame);
  return flow == Flow::Leave && frame.jump == LoopKind::Select ? Flow::Next : flow;
}

Flow Select::runChosen(Frame& frame) const {
  const Value value = value_->evaluate(frame);
  for (const Case& each : cases_) {
    const auto passing = [&](const CaseTest& test) { return passes(test, value, frame); };
    if (std::any_of(each.tests.begin(), each.tests.end(), passing)) return each.body.run(frame);
  }
  return otherwise_.run(frame);
}

}  // namespace language
