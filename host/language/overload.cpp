// Chooses among overloads and passes the arguments.
#include <optional>

#include "host/language/dispatch.hpp"
#include "host/runtime/conversion.hpp"

namespace language {

using host::HostClass;
using host::Method;

namespace {

using Omitted = std::bitset<kMaximumArguments>;

// Of classes that have nothing to do with each other, a nil of the one is never meant for the other.
std::optional<int> costOfNil(const Type& declared, const Type& wanted) {
  if (declared == wanted) return 0;
  if (wanted.isVariant()) return 3;
  if (declared.kind != Kind::Object || wanted.kind != Kind::Object || declared.array != wanted.array) return {};
  const host::Runtime& runtime = host::Runtime::shared();
  const HostClass* own = runtime.findClass(declared.name);
  const HostClass* other = runtime.findClass(wanted.name);
  if (declared.isVariant() || (own != nullptr && own->isKindOf(other))) return 1;
  return {};
}

std::optional<int> costOf(const Value& value, const Expression* expression, const host::Parameter& parameter) {
  const Type* declared = expression == nullptr ? nullptr : expression->declaredType();
  if (parameter.byref) {
    if (expression == nullptr || !expression->isAssignable()) return {};
    if (declared != nullptr && !declared->isVariant()) return costOfNil(*declared, parameter.type);
  }
  if (value.isNil() && declared != nullptr && !declared->isVariant()) return costOfNil(*declared, parameter.type);
  return host::conversionCost(value, parameter.type);
}

// The parameters that get their defaults when there are fewer arguments: the last ones that have any.
std::optional<Omitted> omittedParameters(const host::Declaration& declaration, size_t arguments) {
  const auto& parameters = declaration.parameters;
  if (arguments > parameters.size()) return {};
  size_t surplus = parameters.size() - arguments;
  Omitted omitted;
  for (size_t index = parameters.size(); index-- > 0 && surplus > 0;) {
    if (!parameters[index].defaultValue) continue;
    omitted.set(index);
    --surplus;
  }
  if (surplus > 0) return {};
  return omitted;
}

std::optional<int> totalCost(const Method& method, const Omitted& omitted, Arguments& arguments) {
  int total = static_cast<int>(omitted.count());
  size_t argument = 0;
  for (size_t index = 0; index < method.declaration.parameters.size(); ++index) {
    if (omitted[index]) continue;
    const auto cost = costOf(arguments[argument], arguments.expression(argument), method.declaration.parameters[index]);
    if (!cost) return {};
    total += *cost;
    ++argument;
  }
  return total;
}

}  // namespace

Arguments::Arguments(Frame& frame, const Expressions& expressions) : expressions_(expressions) {
  const Position call = frame.context.position;
  for (const ExpressionPointer& expression : expressions) add(expression->evaluate(frame));
  frame.context.position = call;
}

void Arguments::add(Value value) {
  if (size_ == values_.size()) host::throwException("TypeMismatchException", "No function takes that many arguments.");
  values_[size_++] = std::move(value);
}

Overload::Shape Overload::shapeOf(const Value& value) {
  return {value.kind(), value.isObject() ? value.asObject()->type : nullptr};
}

bool Overload::suits(const HostClass* type, Arguments& arguments) const {
  if (method_ == nullptr || type_ != type || shapes_.size() != arguments.size()) return false;
  for (size_t index = 0; index < shapes_.size(); ++index) {
    if (!(shapes_[index] == shapeOf(arguments[index]))) return false;
  }
  return true;
}

// The cheapest conversion wins; among equals, the one that is declared first.
bool Overload::choose(const HostClass* type, std::span<const Method* const> candidates, Arguments& arguments) {
  method_ = nullptr;
  int lowest = 0;
  for (const Method* candidate : candidates) {
    const auto omitted = omittedParameters(candidate->declaration, arguments.size());
    const auto cost = omitted ? totalCost(*candidate, *omitted, arguments) : std::nullopt;
    if (!cost || (method_ != nullptr && *cost >= lowest)) continue;
    method_ = candidate;
    omitted_ = *omitted;
    lowest = *cost;
  }
  type_ = type;
  shapes_.clear();
  for (const Value& value : arguments.values()) shapes_.push_back(shapeOf(value));
  return method_ != nullptr;
}

Value Overload::invoke(Frame& frame, HostObject* self, Arguments& arguments) const {
  const auto& parameters = method_->declaration.parameters;
  std::array<Value, kMaximumArguments> placed;
  std::array<size_t, kMaximumArguments> origin{};
  bool byReference = false;
  for (size_t index = 0, argument = 0; index < parameters.size(); ++index) {
    if (omitted_[index]) {
      placed[index] = *parameters[index].defaultValue;
      continue;
    }
    placed[index] = std::move(arguments[argument]);
    origin[index] = argument++;
    if (!parameters[index].byref) continue;
    byReference = true;
    // The function is handed the variable's own reference, not a second one.
    if (Value* variable = arguments.expression(origin[index])->storage(frame)) *variable = Value();
  }
  const std::span<Value> values(placed.data(), parameters.size());
  if (!byReference) return method_->invoke(self, values);
  const auto giveBack = [&] {
    for (size_t index = 0; index < parameters.size(); ++index) {
      if (parameters[index].byref && !omitted_[index]) {
        arguments.expression(origin[index])->assign(frame, std::move(placed[index]));
      }
    }
  };
  Value result;
  try {
    result = method_->invoke(self, values);
  } catch (...) {
    giveBack();
    throw;
  }
  giveBack();
  return result;
}

}  // namespace language
