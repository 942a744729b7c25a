// What is found while a program is read to be checked, and the types that its text tells.
#pragma once

#include <deque>
#include <set>
#include <string>
#include <vector>

#include "host/language/expression.hpp"
#include "host/language/token.hpp"
#include "host/runtime/runtime.hpp"

namespace language {

class Diagnosis {
 public:
  explicit Diagnosis(const host::Runtime& runtime) : runtime_(runtime) {}

  ErrorsByLine& errors() { return errors_; }
  void note(const SyntaxError& error) { errors_.emplace(error.position.line, error); }

  // Names whose declarations could not be read. False when it was hidden before.
  bool hide(const std::string& foldedName) { return hidden_.insert(foldedName).second; }

  // Each notes an error when no value of the type has such a member, or none that takes so many arguments. They answer the
  // member's type, nil when it has none or the text does not tell.
  const Type* member(const Type* receiver, const Token& name, size_t arguments);
  const Type* sharedMember(const std::string& className, const Token& name, size_t arguments);
  // A new object's.
  const Type* creation(const std::string& className, Position position, size_t arguments);

  // The type, kept for as long as this is.
  const Type* keep(Type type) { return &types_.emplace_back(std::move(type)); }

 private:
  using Methods = std::vector<const host::Method*>;

  const Type* objectMember(const host::HostClass& type, const std::string& owner, const Token& name, size_t arguments);
  bool builtinMember(const Type& receiver, const Token& name, size_t arguments);
  const Type* resultOf(const std::string& owner, const Methods& methods, const Token& name, size_t arguments);

  const host::Runtime& runtime_;
  ErrorsByLine errors_;
  std::set<std::string> hidden_;
  std::deque<Type> types_;
};

}  // namespace language
