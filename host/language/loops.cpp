// Runs For, For Each, While and Do.
#include "host/language/loops.hpp"

#include <limits>
#include <optional>

#include "host/language/conversion.hpp"
#include "host/language/frame.hpp"
#include "host/runtime/array.hpp"
#include "host/runtime/dictionary.hpp"

namespace language {
namespace {

// What a loop of the kind does after a turn: nothing to go on, else the flow that it ends with.
std::optional<Flow> afterTurn(Flow flow, LoopKind kind, const Frame& frame) {
  if (flow == Flow::Next) return {};
  if (flow == Flow::Return || (frame.jump != LoopKind::Any && frame.jump != kind)) return flow;
  if (flow == Flow::Continue) return {};
  return Flow::Next;
}

double numberIn(const Value& value) {
  if (!value.isNumber()) throwTypeMismatch("The bounds of a For are numbers.");
  return host::toDouble(value);
}

// The next value, or nothing where it would leave the range of integers.
std::optional<int64_t> following(int64_t value, int64_t step) {
  int64_t next;
  if (__builtin_add_overflow(value, step, &next)) return {};
  return next;
}
std::optional<double> following(double value, double step) { return value + step; }

Value wrapped(int64_t value) { return Value::integer(value); }
Value wrapped(double value) { return Value::number(value); }
int64_t counter(const Value& value, int64_t) { return host::toInteger(value); }
double counter(const Value& value, double) { return host::toDouble(value); }

}  // namespace

Flow For::run(Frame& frame) const {
  const Value first = bounds_.first->evaluate(frame);
  const Value last = bounds_.last->evaluate(frame);
  const Value step = bounds_.step == nullptr ? Value::integer(1) : bounds_.step->evaluate(frame);
  frame.context.position = position;
  const double sign = bounds_.downwards ? -1 : 1;
  if (numberIn(step) == 0) throwTypeMismatch("The step of a For is not 0.");
  if (first.isInteger() && last.isInteger() && step.isInteger()) {
    return count(frame, first.asInteger(), last.asInteger(), step.asInteger() * static_cast<int64_t>(sign));
  }
  return count(frame, numberIn(first), numberIn(last), numberIn(step) * sign);
}

// The body may change the variable; the next turn counts on from there.
template <class Number>
Flow For::count(Frame& frame, Number first, Number last, Number step) const {
  for (std::optional<Number> value = first; value && (step > 0 ? *value <= last : *value >= last);) {
    variable_->assign(frame, wrapped(*value));
    if (const auto end = afterTurn(body_.run(frame), LoopKind::For, frame)) return *end;
    value = following(counter(variable_->evaluate(frame), step), step);
    if (value) variable_->assign(frame, wrapped(*value));
  }
  return Flow::Next;
}

Flow ForEach::run(Frame& frame) const {
  const Value collection = collection_->evaluate(frame);
  frame.context.position = position;
  if (collection.isNil()) host::throwNilObject("The collection of a For Each");
  HostObject* const object = collection.asObject();
  const bool isArray = object != nullptr && host::isArray(object);
  if (!isArray && (object == nullptr || !host::isDictionary(object))) {
    throwTypeMismatch("For Each goes through an array or the keys of a dictionary.");
  }
  for (int64_t index = 0; index < (isArray ? host::upperBound(object) + 1 : host::dictionaryCount(object)); ++index) {
    variable_->assign(frame, isArray ? host::element(object, index) : host::dictionaryKey(object, index));
    if (const auto end = afterTurn(body_.run(frame), LoopKind::For, frame)) return *end;
  }
  return Flow::Next;
}

Flow Loop::run(Frame& frame) const {
  const auto continues = [&](const Test& test) {
    return test.condition == nullptr || isTrue(test.condition->evaluate(frame)) == test.continueIf;
  };
  do {
    if (!continues(before_)) return Flow::Next;
    if (const auto end = afterTurn(body_.run(frame), kind_, frame)) return *end;
  } while (continues(after_));
  return Flow::Next;
}

}  // namespace language
