// Which names a place in the program can see, and where their values lie.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/language/value.hpp"

namespace language {

enum class Storage { Local, Global, Reference };

struct Variable {
  Storage storage = Storage::Local;
  size_t slot = 0;
  Type type;
  bool isConstant = false;
};

// The blocks of one function, innermost last. Every variable of the function has a slot of its own.
class Scope {
 public:
  // The variables of a function see those of the program, if any. The program's outlive it.
  Scope(Storage storage, const Scope* outer) : storage_(storage), outer_(outer) { open(); }

  void open() { blocks_.emplace_back(); }
  void close() { blocks_.pop_back(); }

  // Nil if the innermost block already has the name.
  const Variable* declare(const std::string& foldedName, Type type, bool isConstant = false);
  const Variable* declareReference(const std::string& foldedName, Type type);
  const Variable* find(const std::string& foldedName) const;

  size_t slots() const { return types_.size(); }
  // Of the variables, by slot.
  const std::vector<Type>& types() const { return types_; }

 private:
  const Variable* add(const std::string& foldedName, Variable variable);

  Storage storage_;
  const Scope* outer_;
  std::vector<Type> types_;
  std::vector<std::map<std::string, Variable>> blocks_;
};

}  // namespace language
