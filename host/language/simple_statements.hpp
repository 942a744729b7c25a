// The statements that hold no others.
#pragma once

#include "host/language/expression.hpp"
#include "host/language/scope.hpp"
#include "host/language/statement.hpp"

namespace language {

// Makes the variable anew, each time it is reached.
class Declare : public Statement {
 public:
  Declare(Position where, const Variable& variable, ExpressionPointer initial, ExpressionPointer lastIndex)
      : Statement(where), variable_(variable), initial_(std::move(initial)), lastIndex_(std::move(lastIndex)) {}
  Flow run(Frame& frame) const override;

 private:
  const Variable variable_;
  const ExpressionPointer initial_;    // nil: the empty value of the type
  const ExpressionPointer lastIndex_;  // of an array with elements from the start; nil otherwise
};

class Assign : public Statement {
 public:
  Assign(Position where, ExpressionPointer target, ExpressionPointer value)
      : Statement(where), target_(std::move(target)), value_(std::move(value)) {}
  Flow run(Frame& frame) const override;

 private:
  const ExpressionPointer target_;
  const ExpressionPointer value_;
};

class Evaluate : public Statement {
 public:
  Evaluate(Position where, ExpressionPointer expression) : Statement(where), expression_(std::move(expression)) {}
  Flow run(Frame& frame) const override;

 private:
  const ExpressionPointer expression_;
};

// Writes a line with the values, a space between them.
class Print : public Statement {
 public:
  Print(Position where, Expressions values) : Statement(where), values_(std::move(values)) {}
  Flow run(Frame& frame) const override;

 private:
  const Expressions values_;
};

class Return : public Statement {
 public:
  Return(Position where, ExpressionPointer value) : Statement(where), value_(std::move(value)) {}
  Flow run(Frame& frame) const override;

 private:
  const ExpressionPointer value_;  // nil in a Sub
};

class Raise : public Statement {
 public:
  Raise(Position where, ExpressionPointer exception) : Statement(where), exception_(std::move(exception)) {}
  Flow run(Frame& frame) const override;

 private:
  const ExpressionPointer exception_;
};

// Exit and Continue.
class Jump : public Statement {
 public:
  Jump(Position where, Flow flow, LoopKind loop) : Statement(where), flow_(flow), loop_(loop) {}
  Flow run(Frame& frame) const override;

 private:
  const Flow flow_;
  const LoopKind loop_;
};

}  // namespace language
