// Runs the statements that hold no others.
#include "host/language/simple_statements.hpp"

#include "host/language/conversion.hpp"
#include "host/language/frame.hpp"
#include "host/language/variables.hpp"
#include "host/runtime/array.hpp"

namespace language {

// An empty block is a step too: it may be all that a loop holds.
Flow Block::run(Frame& frame) const {
  frame.context.takeStep();
  for (const StatementPointer& statement : statements_) {
    frame.context.takeStep();
    frame.context.position = statement->position;
    if (const Flow flow = statement->run(frame); flow != Flow::Next) return flow;
  }
  return Flow::Next;
}

Flow Declare::run(Frame& frame) const {
  Value value;
  if (initial_ != nullptr) {
    value = initial_->evaluate(frame);
  } else if (variable_.type.array) {
    const int64_t last = lastIndex_ == nullptr ? -1 : host::toInteger(lastIndex_->evaluate(frame));
    value = Value::object(host::makeArray(typeOfElements(variable_.type), last));
  } else {
    value = host::emptyValue(variable_.type);
  }
  VariableReference(position, variable_).assign(frame, std::move(value));
  return Flow::Next;
}

Flow Assign::run(Frame& frame) const {
  target_->assign(frame, value_->evaluate(frame));
  return Flow::Next;
}

Flow Evaluate::run(Frame& frame) const {
  expression_->evaluate(frame);
  return Flow::Next;
}

Flow Print::run(Frame& frame) const {
  std::string line;
  for (const ExpressionPointer& value : values_) {
    if (value != values_.front()) line += ' ';
    line += printed(value->evaluate(frame));
  }
  frame.context.output << line << '\n';
  return Flow::Next;
}

Flow Return::run(Frame& frame) const {
  if (value_ != nullptr) frame.result = value_->evaluate(frame);
  return Flow::Return;
}

Flow Raise::run(Frame& frame) const {
  const Value exception = exception_->evaluate(frame);
  frame.context.position = position;
  if (exception.isNil()) host::throwNilObject("The exception to raise");
  const host::HostClass* root = frame.context.runtime.findClass("RuntimeException");
  if (exception.asObject() == nullptr || !host::isA(exception.asObject(), root)) {
    throwTypeMismatch("Only an exception can be raised.");
  }
  throw host::HostException(host::retain(exception.asObject()));
}

Flow Jump::run(Frame& frame) const {
  frame.jump = loop_;
  return flow_;
}

}  // namespace language
