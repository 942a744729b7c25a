// What every expression of a program can do.
#pragma once

#include <memory>
#include <vector>

#include "host/language/position.hpp"
#include "host/language/value.hpp"

namespace language {

struct Frame;

class Expression {
 public:
  explicit Expression(Position where) : position(where) {}
  Expression(const Expression&) = delete;
  Expression& operator=(const Expression&) = delete;
  virtual ~Expression() = default;

  virtual Value evaluate(Frame& frame) const = 0;

  virtual bool isAssignable() const { return false; }
  // Raises TypeMismatchException where nothing can be assigned, or not this value.
  virtual void assign(Frame& frame, Value&& value) const;

  // Whether it is a variable; then storage() is where its value lies, else nil.
  virtual bool isStored() const { return false; }
  virtual Value* storage(Frame&) const { return nullptr; }
  // The declared type, where the program's text says it.
  virtual const Type* declaredType() const { return nullptr; }
  // The same, and of calls what the host's declarations say while a program is checked.
  const Type* knownType() const { return typeInText != nullptr ? typeInText : declaredType(); }

  const Position position;
  const Type* typeInText = nullptr;
};

using ExpressionPointer = std::unique_ptr<Expression>;
using Expressions = std::vector<ExpressionPointer>;

}  // namespace language
