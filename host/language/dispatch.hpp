// Calls of the host's members by name: the overload that suits the arguments is chosen once and kept while they stay alike.
#pragma once

#include <array>
#include <bitset>

#include "host/language/builtins.hpp"
#include "host/language/expression.hpp"
#include "host/language/frame.hpp"
#include "host/runtime/class.hpp"

namespace language {

constexpr size_t kMaximumArguments = host::PreparedCall::maximumParameters;

// The values of a call's arguments, with the expressions that they came from. Throws TypeMismatchException for more than
// any function of the host takes.
class Arguments {
 public:
  Arguments(Frame& frame, const Expressions& expressions);
  void add(Value value);

  size_t size() const { return size_; }
  Value& operator[](size_t index) { return values_[index]; }
  std::span<Value> values() { return {values_.data(), size_}; }
  // Nil for an added value.
  const Expression* expression(size_t index) const {
    return index < expressions_.size() ? expressions_[index].get() : nullptr;
  }

 private:
  std::array<Value, kMaximumArguments> values_;
  size_t size_ = 0;
  const Expressions& expressions_;
};

// The overload for one shape of arguments.
class Overload {
 public:
  // Whether the choice holds for these arguments too.
  bool suits(const host::HostClass* type, Arguments& arguments) const;
  // Chooses among the candidates. False when none takes the arguments.
  bool choose(const host::HostClass* type, std::span<const host::Method* const> candidates, Arguments& arguments);
  // By-reference arguments receive what the function stored, also when it raises.
  Value invoke(Frame& frame, HostObject* self, Arguments& arguments) const;
  const host::Method* method() const { return method_; }

 private:
  struct Shape {
    Kind kind = Kind::Nil;
    const host::HostClass* type = nullptr;
    friend bool operator==(const Shape&, const Shape&) = default;
  };
  static Shape shapeOf(const Value& value);

  const host::Method* method_ = nullptr;
  const host::HostClass* type_ = nullptr;
  std::vector<Shape> shapes_;
  std::bitset<kMaximumArguments> omitted_;  // the parameters that get their defaults
};

// With the receiver, if any, as the first argument. Throws TypeMismatchException for too few arguments or too many.
Value callBuiltin(Frame& frame, const Builtin& builtin, const Value* receiver, const Expressions& arguments);

// A member of whatever object the receiver turns out to be.
class MemberCall {
 public:
  explicit MemberCall(std::string name);
  Value read(Frame& frame, const Value& receiver, const Expressions& arguments) const;
  void write(Frame& frame, const Value& receiver, const Expressions& arguments, Value value) const;
  // Of what was read last; nil when that had no class.
  const Type* resultType() const { return resultType_; }

 private:
  Value readBuiltin(Frame& frame, const Value& receiver, const Expressions& arguments) const;
  Value callMethod(Frame& frame, const Value& receiver, const Expressions& arguments) const;

  const std::string name_;
  const std::string foldedName_;
  mutable const host::HostClass* propertyClass_ = nullptr;
  mutable const host::Property* property_ = nullptr;
  mutable const host::HostClass* builtinClass_ = nullptr;
  mutable const Builtin* builtin_ = nullptr;
  mutable Overload reading_;
  mutable Overload writing_;
  mutable const Type* resultType_ = nullptr;
};

// A shared method or constant of a class, or with an empty class name a global method.
class SharedCall {
 public:
  SharedCall(std::string className, std::string name) : className_(std::move(className)), name_(std::move(name)) {}
  Value read(Frame& frame, const Expressions& arguments) const;

 private:
  const std::string className_;
  const std::string name_;
  mutable const host::Constant* constant_ = nullptr;
  mutable Overload overload_;
};

// New Class(arguments).
class Creation {
 public:
  explicit Creation(std::string className) : className_(std::move(className)) {}
  Value make(Frame& frame, const Expressions& arguments) const;

 private:
  const std::string className_;
  mutable Overload overload_;
};

}  // namespace language
