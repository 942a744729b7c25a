// Everything that calls: functions of the program, built-in ones, members of objects and classes, and New.
#pragma once

#include "host/language/builtins.hpp"
#include "host/language/dispatch.hpp"
#include "host/language/expression.hpp"
#include "host/language/program.hpp"

namespace language {

class FunctionCall : public Expression {
 public:
  FunctionCall(Position where, const Function& function, Expressions arguments)
      : Expression(where), function_(function), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override;
  const Type* declaredType() const override { return function_.result.get(); }

 private:
  const Function& function_;
  const Expressions arguments_;
};

class BuiltinCall : public Expression {
 public:
  BuiltinCall(Position where, const Builtin& builtin, Expressions arguments)
      : Expression(where), builtin_(builtin), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override;

 private:
  const Builtin& builtin_;
  const Expressions arguments_;
};

// receiver.name or receiver.name(arguments)
class Member : public Expression {
 public:
  Member(Position where, ExpressionPointer receiver, std::string name, Expressions arguments)
      : Expression(where), receiver_(std::move(receiver)), call_(std::move(name)), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override;
  bool isAssignable() const override { return true; }
  void assign(Frame& frame, Value&& value) const override;
  const Type* declaredType() const override { return call_.resultType(); }

 private:
  const ExpressionPointer receiver_;
  const MemberCall call_;
  const Expressions arguments_;
};

// Class.name or Class.name(arguments)
class SharedMember : public Expression {
 public:
  SharedMember(Position where, std::string className, std::string name, Expressions arguments)
      : Expression(where), call_(std::move(className), std::move(name)), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override;

 private:
  const SharedCall call_;
  const Expressions arguments_;
};

class New : public Expression {
 public:
  New(Position where, std::string className, Expressions arguments)
      : Expression(where), creation_(std::move(className)), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override;

 private:
  const Creation creation_;
  const Expressions arguments_;
};

}  // namespace language
