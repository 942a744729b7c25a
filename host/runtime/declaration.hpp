// The declaration strings of records and of method look-ups, parsed.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/runtime/value.hpp"

namespace host {

struct Type {
  Kind kind = Kind::Object;
  // As declared for a class, canonical for the other kinds.
  std::string name = "Object";
  bool array = false;

  bool isVariant() const;
  // Type names are compared without regard to case.
  friend bool operator==(const Type& left, const Type& right);
};

// The type of that name; an unknown name is a class.
Type typeNamed(std::string_view name);
std::string describe(const Type& type);

struct Parameter {
  std::string name;
  Type type;
  bool byref = false;
  bool assigns = false;  // takes the right side of an assignment
  std::optional<Value> defaultValue;
};

struct Declaration {
  std::string name;
  std::vector<Parameter> parameters;
  std::optional<Type> result;

  // Parameters without a default.
  size_t requiredParameters() const;
};

struct ConstantDeclaration {
  std::string name;
  Value value;
};

// What is wrong with a declaration, and where in it.
struct DeclarationError {
  std::string message;
  size_t offset;
};

// "name(a as Integer, byref b as Range = nil) as String". A list of parameters alone, "Year as Integer, Month as Integer",
// declares a constructor. Throws DeclarationError.
Declaration parseDeclaration(std::string_view text);
// "name as Type". Throws DeclarationError.
Declaration parsePropertyDeclaration(std::string_view text);
// "name = value". Throws DeclarationError.
ConstantDeclaration parseConstant(std::string_view text);

// Same name, parameter types and result.
bool sameSignature(const Declaration& left, const Declaration& right);
// The declaration in canonical spelling.
std::string describe(const Declaration& declaration);

bool equalNames(std::string_view left, std::string_view right);
std::string lowerCase(std::string_view name);

// A map by text that is asked with views of text.
struct TextHash {
  using is_transparent = void;
  size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};
template <class Mapped>
using TextMap = std::unordered_map<std::string, Mapped, TextHash, std::equal_to<>>;

}  // namespace host
