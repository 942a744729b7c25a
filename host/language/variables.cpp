// Reads and writes variables and elements.
#include "host/language/variables.hpp"

#include "host/language/conversion.hpp"
#include "host/language/frame.hpp"
#include "host/runtime/array.hpp"

namespace language {
namespace {

HostObject* arrayIn(const Value& value) {
  if (value.isNil()) host::throwNilObject("The array");
  if (value.asObject() == nullptr || !host::isArray(value.asObject())) throwTypeMismatch("Only an array has elements.");
  return value.asObject();
}

int64_t indexIn(const Value& value) {
  if (!value.isNumber()) throwTypeMismatch("An index is a number.");
  return host::toInteger(value);
}

}  // namespace

void Expression::assign(Frame& frame, Value&&) const {
  frame.context.position = position;
  throwTypeMismatch("Nothing can be assigned to this.");
}

Value* VariableReference::storage(Frame& frame) const {
  Slot& slot = (variable_.storage == Storage::Global ? frame.context.globals : frame.locals)[variable_.slot];
  return variable_.storage == Storage::Reference ? slot.reference : &slot.value;
}

Value VariableReference::evaluate(Frame& frame) const { return *storage(frame); }

void VariableReference::assign(Frame& frame, Value&& value) const {
  frame.context.position = position;
  *storage(frame) = conform(std::move(value), variable_.type);
}

Value Element::evaluate(Frame& frame) const {
  const Value array = array_->evaluate(frame);
  const Value index = index_->evaluate(frame);
  frame.context.position = position;
  return host::element(arrayIn(array), indexIn(index));
}

void Element::assign(Frame& frame, Value&& value) const {
  const Value array = array_->evaluate(frame);
  const Value index = index_->evaluate(frame);
  frame.context.position = position;
  host::setElement(arrayIn(array), indexIn(index), value);
}

}  // namespace language
