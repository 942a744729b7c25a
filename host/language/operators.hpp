// The operators of expressions.
#pragma once

#include <string_view>

#include "host/language/expression.hpp"

namespace host {
class Runtime;
}

namespace language {

enum class Operator {
  Add,
  Subtract,
  Multiply,
  Divide,
  DivideWhole,
  Modulo,
  Power,
  Concatenate,
  Equal,
  Unequal,
  Less,
  Greater,
  LessOrEqual,
  GreaterOrEqual,
  Is,
  And,
  Or,
  ExclusiveOr
};

// How tightly an operator of two operands binds: the loosest level is 0.
struct OperatorRow {
  std::string_view name;  // in lower case
  Operator code;
  size_t level;
};
constexpr size_t kOperatorLevels = 8;
constexpr size_t kComparisonLevel = 2;  // "Not" binds looser than this, tighter than "And"
const OperatorRow* findOperator(std::string_view name);

// What the operator yields. Raises TypeMismatchException when the operands do not suit it.
Value combine(Operator code, const Value& left, const Value& right);
bool holds(Operator comparison, const Value& left, const Value& right);

// Whether it is an object of the class or of a class derived from it.
bool isInstance(const host::Runtime& runtime, const Value& value, const std::string& className);

class Binary : public Expression {
 public:
  Binary(Position where, Operator code, ExpressionPointer left, ExpressionPointer right)
      : Expression(where), code_(code), left_(std::move(left)), right_(std::move(right)) {}
  Value evaluate(Frame& frame) const override;

 private:
  const Operator code_;
  const ExpressionPointer left_;
  const ExpressionPointer right_;
};

class Negation : public Expression {
 public:
  Negation(Position where, ExpressionPointer operand) : Expression(where), operand_(std::move(operand)) {}
  Value evaluate(Frame& frame) const override;

 private:
  const ExpressionPointer operand_;
};

class Complement : public Expression {
 public:
  Complement(Position where, ExpressionPointer operand) : Expression(where), operand_(std::move(operand)) {}
  Value evaluate(Frame& frame) const override;

 private:
  const ExpressionPointer operand_;
};

// value IsA Class
class ClassTest : public Expression {
 public:
  ClassTest(Position where, ExpressionPointer value, std::string className)
      : Expression(where), value_(std::move(value)), className_(std::move(className)) {}
  Value evaluate(Frame& frame) const override;

 private:
  const ExpressionPointer value_;
  const std::string className_;
};

}  // namespace language
