// Calls of functions of the program and of the language; members are dispatched elsewhere.
#include "host/language/calls.hpp"

#include "host/language/conversion.hpp"

namespace language {
namespace {

void checkStack(const Context& context) {
  if (static_cast<const char*>(__builtin_frame_address(0)) < context.stackLimit) {
    host::throwException("StackOverflowException", "The functions call each other too deeply.");
  }
}

// The variables of one call. Few fit beside the frame.
class Locals {
 public:
  explicit Locals(size_t count) : more_(count > few_.size() ? new Slot[count] : nullptr) {}
  Slot* get() { return more_ != nullptr ? more_.get() : few_.data(); }

 private:
  std::array<Slot, 12> few_;
  std::unique_ptr<Slot[]> more_;
};

}  // namespace

Value FunctionCall::evaluate(Frame& frame) const {
  checkStack(frame.context);
  Locals locals(function_.slots);
  Frame own{frame.context, locals.get(), {}, LoopKind::Any};
  for (size_t index = 0; index < function_.parameters.size(); ++index) {
    const Parameter& parameter = function_.parameters[index];
    const Expression& argument = index < arguments_.size() ? *arguments_[index] : *parameter.defaultValue;
    if (parameter.isReference) {
      own.locals[index].reference = argument.storage(frame);
    } else {
      own.locals[index].value = conform(argument.evaluate(frame), parameter.type);
    }
  }
  if (function_.result != nullptr) own.result = host::emptyValue(*function_.result);
  function_.body.run(own);
  frame.context.position = position;
  return function_.result == nullptr ? Value() : conform(std::move(own.result), *function_.result);
}

Value callBuiltin(Frame& frame, const Builtin& builtin, const Value* receiver, const Expressions& expressions) {
  std::vector<Value> arguments;
  arguments.reserve(expressions.size() + 1);
  if (receiver != nullptr) arguments.push_back(*receiver);
  const Position call = frame.context.position;
  for (const ExpressionPointer& expression : expressions) arguments.push_back(expression->evaluate(frame));
  frame.context.position = call;
  if (arguments.size() < builtin.minimum || arguments.size() > builtin.maximum) {
    throwTypeMismatch(std::string(builtin.name) + " does not take that many arguments.");
  }
  return builtin.function(frame.context, arguments);
}

Value BuiltinCall::evaluate(Frame& frame) const {
  frame.context.position = position;
  return callBuiltin(frame, builtin_, nullptr, arguments_);
}

Value Member::evaluate(Frame& frame) const {
  const Value receiver = receiver_->evaluate(frame);
  frame.context.position = position;
  return call_.read(frame, receiver, arguments_);
}

void Member::assign(Frame& frame, Value&& value) const {
  const Value receiver = receiver_->evaluate(frame);
  frame.context.position = position;
  call_.write(frame, receiver, arguments_, std::move(value));
}

Value SharedMember::evaluate(Frame& frame) const {
  frame.context.position = position;
  return call_.read(frame, arguments_);
}

Value New::evaluate(Frame& frame) const {
  frame.context.position = position;
  return creation_.make(frame, arguments_);
}

}  // namespace language
