// What the operators yield.
#include "host/language/operators.hpp"

#include <cmath>

#include "host/language/conversion.hpp"
#include "host/language/frame.hpp"
#include "host/language/strings.hpp"
#include "host/runtime/class.hpp"
#include "host/runtime/date.hpp"
#include "host/runtime/exception.hpp"

namespace language {
namespace {

constexpr OperatorRow kOperators[] = {
    {"or", Operator::Or, 0},      {"xor", Operator::ExclusiveOr, 0}, {"and", Operator::And, 1},
    {"=", Operator::Equal, 2},    {"<>", Operator::Unequal, 2},      {"<", Operator::Less, 2},
    {">", Operator::Greater, 2},  {"<=", Operator::LessOrEqual, 2},  {">=", Operator::GreaterOrEqual, 2},
    {"is", Operator::Is, 2},      {"&", Operator::Concatenate, 3},   {"+", Operator::Add, 4},
    {"-", Operator::Subtract, 4}, {"mod", Operator::Modulo, 5},      {"\\", Operator::DivideWhole, 6},
    {"*", Operator::Multiply, 7}, {"/", Operator::Divide, 7},
};

bool isTextual(const Value& value) { return value.isString() || value.isText(); }

// Integers wrap around as the machine's do.
int64_t combineIntegers(Operator code, int64_t left, int64_t right) {
  const auto one = static_cast<uint64_t>(left);
  const auto other = static_cast<uint64_t>(right);
  switch (code) {
    case Operator::Add:
      return static_cast<int64_t>(one + other);
    case Operator::Subtract:
      return static_cast<int64_t>(one - other);
    case Operator::Multiply:
      return static_cast<int64_t>(one * other);
    default:
      break;
  }
  if (right == 0) host::throwException("RuntimeException", "Division by zero.");
  if (right == -1) return code == Operator::Modulo ? 0 : static_cast<int64_t>(0 - one);
  return code == Operator::Modulo ? left % right : left / right;
}

double combineNumbers(Operator code, double left, double right) {
  switch (code) {
    case Operator::Add:
      return left + right;
    case Operator::Subtract:
      return left - right;
    case Operator::Multiply:
      return left * right;
    case Operator::Divide:
      return left / right;
    default:
      return std::pow(left, right);
  }
}

Value arithmetic(Operator code, const Value& left, const Value& right) {
  if (!left.isNumber() || !right.isNumber()) throwTypeMismatch("This operator takes two numbers.");
  const bool whole = code == Operator::DivideWhole || code == Operator::Modulo;
  const bool stays = code == Operator::Add || code == Operator::Subtract || code == Operator::Multiply;
  if (whole || (stays && left.isInteger() && right.isInteger())) {
    return Value::integer(combineIntegers(code, host::toInteger(left), host::toInteger(right)));
  }
  return Value::number(combineNumbers(code, host::toDouble(left), host::toDouble(right)));
}

// Of Booleans, or of the bits of numbers.
Value logic(Operator code, const Value& left, const Value& right) {
  const bool truths = left.kind() == Kind::Boolean && right.kind() == Kind::Boolean;
  if (!truths && (!left.isNumber() || !right.isNumber()))
    throwTypeMismatch("This operator takes two Booleans or two numbers.");
  const int64_t one = truths ? left.asBoolean() : host::toInteger(left);
  const int64_t other = truths ? right.asBoolean() : host::toInteger(right);
  const int64_t result = code == Operator::And ? one & other : code == Operator::Or ? one | other : one ^ other;
  return truths ? Value::boolean(result != 0) : Value::integer(result);
}

template <class Number>
int order(Number left, Number right) {
  return left < right ? -1 : left > right ? 1 : 0;
}

int orderNumbers(const Value& left, const Value& right) {
  if (!left.isInteger() || !right.isInteger()) return order(host::toDouble(left), host::toDouble(right));
  const bool leftIsLarge = left.kind() == Kind::UInt64 && left.asInteger() < 0;
  const bool rightIsLarge = right.kind() == Kind::UInt64 && right.asInteger() < 0;
  if (leftIsLarge != rightIsLarge) return leftIsLarge ? 1 : -1;
  return order(left.asInteger(), right.asInteger());
}

bool isDate(const Value& value) { return value.asObject() != nullptr && host::isDate(value.asObject()); }
bool isNotANumber(const Value& value) { return value.isFloating() && std::isnan(host::toDouble(value)); }

int orderOf(const Value& left, const Value& right) {
  if (left.isNumber() && right.isNumber()) return orderNumbers(left, right);
  if (isTextual(left) && isTextual(right)) return orderStrings(left, right, CaseRule::Ignored);
  if (isDate(left) && isDate(right)) return order(host::componentsOf(left.asObject()), host::componentsOf(right.asObject()));
  if (left.kind() == Kind::Boolean && right.kind() == Kind::Boolean) return order(left.asBoolean(), right.asBoolean());
  throwTypeMismatch("These two cannot be compared.");
}

bool areOfOneSort(const Value& left, const Value& right) {
  return (left.isNumber() && right.isNumber()) || (isTextual(left) && isTextual(right)) || left.kind() == right.kind();
}

// Values of different sorts are never the same.
bool same(const Value& left, const Value& right) {
  if (left.isNil() || right.isNil()) return left.isNil() && right.isNil();
  if (isDate(left) && isDate(right)) return orderOf(left, right) == 0;
  if (left.isObject() || right.isObject()) return left.asObject() == right.asObject();
  return areOfOneSort(left, right) && orderOf(left, right) == 0;
}

}  // namespace

const OperatorRow* findOperator(std::string_view name) {
  for (const OperatorRow& row : kOperators) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

bool holds(Operator comparison, const Value& left, const Value& right) {
  if (comparison == Operator::Is) return left.asObject() == right.asObject();
  if (isNotANumber(left) || isNotANumber(right)) return comparison == Operator::Unequal;
  if (comparison == Operator::Equal) return same(left, right);
  if (comparison == Operator::Unequal) return !same(left, right);
  const int found = orderOf(left, right);
  switch (comparison) {
    case Operator::Less:
      return found < 0;
    case Operator::Greater:
      return found > 0;
    case Operator::LessOrEqual:
      return found <= 0;
    default:
      return found >= 0;
  }
}

Value combine(Operator code, const Value& left, const Value& right) {
  if (code >= Operator::Equal && code <= Operator::Is) return Value::boolean(holds(code, left, right));
  if (code >= Operator::And) return logic(code, left, right);
  if (code == Operator::Concatenate) return joined(left, right);
  if (code == Operator::Add && isTextual(left) && isTextual(right)) return joined(left, right);
  return arithmetic(code, left, right);
}

// And and Or of Booleans leave the right side alone when the left one decides.
Value Binary::evaluate(Frame& frame) const {
  Value left = left_->evaluate(frame);
  if (left.kind() == Kind::Boolean) {
    if (code_ == Operator::And && !left.asBoolean()) return left;
    if (code_ == Operator::Or && left.asBoolean()) return left;
  }
  const Value right = right_->evaluate(frame);
  if (left.kind() == Kind::Integer && right.kind() == Kind::Integer && code_ <= Operator::Multiply) {
    return Value::integer(combineIntegers(code_, left.asInteger(), right.asInteger()));
  }
  frame.context.position = position;
  return combine(code_, left, right);
}

Value Negation::evaluate(Frame& frame) const {
  const Value value = operand_->evaluate(frame);
  frame.context.position = position;
  return value.isFloating() ? Value::number(-host::toDouble(value)) : combine(Operator::Subtract, Value::integer(0), value);
}

Value Complement::evaluate(Frame& frame) const {
  const Value value = operand_->evaluate(frame);
  frame.context.position = position;
  return value.isInteger() ? Value::integer(~value.asInteger()) : Value::boolean(!isTrue(value));
}

bool isInstance(const host::Runtime& runtime, const Value& value, const std::string& className) {
  return value.asObject() != nullptr && host::isA(value.asObject(), runtime.findClass(className));
}

Value ClassTest::evaluate(Frame& frame) const {
  return Value::boolean(isInstance(frame.context.runtime, value_->evaluate(frame), className_));
}

}  // namespace language
