// Literals, variables and the elements of arrays.
#pragma once

#include "host/language/expression.hpp"
#include "host/language/scope.hpp"

namespace language {

class Literal : public Expression {
 public:
  Literal(Position where, Value value) : Expression(where), value_(std::move(value)) {}
  Value evaluate(Frame&) const override { return value_; }

 private:
  Value value_;
};

class VariableReference : public Expression {
 public:
  VariableReference(Position where, const Variable& variable) : Expression(where), variable_(variable) {}
  Value evaluate(Frame& frame) const override;
  bool isAssignable() const override { return !variable_.isConstant; }
  void assign(Frame& frame, Value&& value) const override;
  bool isStored() const override { return true; }
  Value* storage(Frame& frame) const override;
  const Type* declaredType() const override { return &variable_.type; }

 private:
  const Variable variable_;
};

// array(index)
class Element : public Expression {
 public:
  Element(Position where, ExpressionPointer array, ExpressionPointer index)
      : Expression(where), array_(std::move(array)), index_(std::move(index)) {}
  Value evaluate(Frame& frame) const override;
  bool isAssignable() const override { return true; }
  void assign(Frame& frame, Value&& value) const override;

 private:
  const ExpressionPointer array_;
  const ExpressionPointer index_;
};

}  // namespace language
