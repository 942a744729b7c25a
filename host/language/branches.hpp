// If and Select Case.
#pragma once

#include "host/language/expression.hpp"
#include "host/language/operators.hpp"
#include "host/language/statement.hpp"

namespace language {

class If : public Statement {
 public:
  struct Branch {
    ExpressionPointer condition;
    Block body;
  };
  If(Position where, std::vector<Branch> branches, Block otherwise)
      : Statement(where), branches_(std::move(branches)), otherwise_(std::move(otherwise)) {}
  Flow run(Frame& frame) const override;

 private:
  const std::vector<Branch> branches_;
  const Block otherwise_;
};

// One test of a Case: a value, "Is" and a comparison, a range, or a class.
struct CaseTest {
  Operator comparison = Operator::Equal;
  ExpressionPointer value;  // nil where the class is tested
  ExpressionPointer last;   // of a range; nil otherwise
  std::string className;
};

class Select : public Statement {
 public:
  struct Case {
    std::vector<CaseTest> tests;
    Block body;
  };
  Select(Position where, ExpressionPointer value, std::vector<Case> cases, Block otherwise)
      : Statement(where), value_(std::move(value)), cases_(std::move(cases)), otherwise_(std::move(otherwise)) {}
  Flow run(Frame& frame) const override;

 private:
  Flow runChosen(Frame& frame) const;

  const ExpressionPointer value_;
  const std::vector<Case> cases_;
  const Block otherwise_;
};

}  // namespace language
