// For, For Each, While and Do.
#pragma once

#include "host/language/expression.hpp"
#include "host/language/scope.hpp"
#include "host/language/statement.hpp"

namespace language {

// The bounds and the step are computed once, before the first turn.
class For : public Statement {
 public:
  struct Bounds {
    ExpressionPointer first;
    ExpressionPointer last;
    ExpressionPointer step;  // nil: 1
    bool downwards = false;
  };
  For(Position where, ExpressionPointer variable, Bounds bounds, Block body)
      : Statement(where), variable_(std::move(variable)), bounds_(std::move(bounds)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override;

 private:
  template <class Number>
  Flow count(Frame& frame, Number first, Number last, Number step) const;

  const ExpressionPointer variable_;
  const Bounds bounds_;
  const Block body_;
};

// Over the elements of an array, or the keys of a dictionary.
class ForEach : public Statement {
 public:
  ForEach(Position where, ExpressionPointer variable, ExpressionPointer collection, Block body)
      : Statement(where), variable_(std::move(variable)), collection_(std::move(collection)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override;

 private:
  const ExpressionPointer variable_;
  const ExpressionPointer collection_;
  const Block body_;
};

// While ... Wend and Do ... Loop: tests before the body and after it, either of which may be missing.
class Loop : public Statement {
 public:
  struct Test {
    ExpressionPointer condition;  // nil: none
    bool continueIf = true;
  };
  Loop(Position where, LoopKind kind, Test before, Test after, Block body)
      : Statement(where), kind_(kind), before_(std::move(before)), after_(std::move(after)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override;

 private:
  const LoopKind kind_;
  const Test before_;
  const Test after_;
  const Block body_;
};

}  // namespace language
