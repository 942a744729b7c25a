// A program that can run: its main part and its functions, with every name resolved.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/language/expression.hpp"
#include "host/language/statement.hpp"

namespace host {
class Runtime;
}

namespace language {

struct Parameter {
  std::string name;
  Type type;
  bool isReference = false;
  ExpressionPointer defaultValue;  // nil where the argument is required
};

struct Function {
  std::string name;
  Position position;
  std::vector<Parameter> parameters;
  std::unique_ptr<Type> result;  // nil for a Sub
  size_t slots = 0;              // the parameters have the first ones
  Block body;

  size_t requiredParameters() const;
};

struct Program {
  std::vector<std::unique_ptr<Function>> functions;
  Function main;  // its slots are the global variables
  std::vector<Type> globalTypes;
};

// What the host knows by name, in any capitals.
struct HostNames {
  std::function<bool(const std::string& name)> isClass;
  std::function<bool(const std::string& name)> isGlobalMethod;
};

HostNames namesOf(const host::Runtime& runtime);

// Throws SyntaxError.
std::unique_ptr<Program> parse(std::string_view source, const HostNames& names);

}  // namespace language
