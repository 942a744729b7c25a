// Checks, while compiling, that a declaration in the host's language says the same as the type of the function bound to it.
//
//   declaration = name [ "(" parameter { "," parameter } ")" ] [ "as" type ]
//   parameter   = [ "byref" ] name "as" type [ "=" ( "nil" | number | `""` ) ]
//
// Words are read in any capitals.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "plugin/host_types.hpp"

namespace plugin {

// A declaration as a template argument.
template <std::size_t Size>
struct DeclarationText {
  char text[Size];
  consteval DeclarationText(const char (&source)[Size]) { std::copy_n(source, Size, text); }
  constexpr std::string_view view() const { return {text, Size - 1}; }
};

// How a value travels between host and function. Every class type and Variant is an Object.
enum class HostType { None, Integer, UInt64, Double, Boolean, String, MemoryBlock, FolderItem, Dictionary, Object };

struct HostParameter {
  HostType type = HostType::None;
  bool byReference = false;
  constexpr bool operator==(const HostParameter&) const = default;
};

inline constexpr std::size_t parameterLimit = 12;

// What a declaration, or a function, says of a method. A malformed declaration is not valid and matches nothing.
struct MethodShape {
  bool valid = true;
  HostType result = HostType::None;
  std::size_t count = 0;
  std::array<HostParameter, parameterLimit> parameters{};

  constexpr void add(HostParameter parameter) {
    if (count == parameterLimit || parameter.type == HostType::None) {
      valid = false;
    } else {
      parameters[count++] = parameter;
    }
  }
  constexpr bool operator==(const MethodShape&) const = default;
};

namespace declaration {

constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isWord(char c) { return (lower(c) >= 'a' && lower(c) <= 'z') || isDigit(c) || c == '_'; }

constexpr bool equalInAnyCapitals(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return lower(a) == lower(b); });
}

struct TypeName {
  std::string_view name;
  HostType type;
};
inline constexpr TypeName typeNames[] = {
    {"integer", HostType::Integer},       {"uint64", HostType::UInt64},         {"double", HostType::Double},
    {"boolean", HostType::Boolean},       {"string", HostType::String},         {"memoryblock", HostType::MemoryBlock},
    {"folderitem", HostType::FolderItem}, {"dictionary", HostType::Dictionary},
};

constexpr HostType typeNamed(std::string_view name) {
  if (name.empty() || isDigit(name.front())) return HostType::None;
  for (const TypeName& row : typeNames) {
    if (equalInAnyCapitals(row.name, name)) return row.type;
  }
  return HostType::Object;
}

class Parser {
 public:
  constexpr explicit Parser(std::string_view text) : rest_(text) {}

  constexpr MethodShape parse() {
    MethodShape shape;
    if (word().empty()) return invalid();
    if (take('(') && !parameters(shape)) return invalid();
    if (takeWord("as")) {
      shape.result = typeNamed(word());
      if (shape.result == HostType::None) return invalid();
    }
    skipSpace();
    return rest_.empty() ? shape : invalid();
  }

 private:
  static constexpr MethodShape invalid() { return {.valid = false}; }

  constexpr bool parameters(MethodShape& shape) {
    do {
      if (!parameter(shape)) return false;
    } while (take(','));
    return take(')');
  }

  constexpr bool parameter(MethodShape& shape) {
    HostParameter found;
    found.byReference = takeWord("byref");
    if (word().empty() || !takeWord("as")) return false;
    found.type = typeNamed(word());
    shape.add(found);
    return shape.valid && (!take('=') || fits(found, defaultValue()));
  }

  constexpr std::string_view defaultValue() {
    skipSpace();
    if (rest_.substr(0, 2) == R"("")") {
      rest_.remove_prefix(2);
      return R"("")";
    }
    return word();
  }

  static constexpr bool fits(HostParameter parameter, std::string_view value) {
    if (parameter.byReference || value.empty()) return false;
    switch (parameter.type) {
      case HostType::Integer:
      case HostType::UInt64:
      case HostType::Double:
        return std::all_of(value.begin(), value.end(), isDigit);
      case HostType::String:
        return value == R"("")";
      case HostType::None:
      case HostType::Boolean:
        return false;
      default:
        return equalInAnyCapitals(value, "nil");
    }
  }

  constexpr void skipSpace() {
    while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
  }
  constexpr bool take(char c) {
    skipSpace();
    if (rest_.empty() || rest_.front() != c) return false;
    rest_.remove_prefix(1);
    return true;
  }
  constexpr std::string_view peekWord() {
    skipSpace();
    std::size_t length = 0;
    while (length < rest_.size() && isWord(rest_[length])) ++length;
    return rest_.substr(0, length);
  }
  constexpr std::string_view word() {
    const std::string_view found = peekWord();
    rest_.remove_prefix(found.size());
    return found;
  }
  constexpr bool takeWord(std::string_view expected) {
    if (!equalInAnyCapitals(peekWord(), expected)) return false;
    word();
    return true;
  }

  std::string_view rest_;
};

template <class Type>
inline constexpr HostType hostTypeOf = HostType::None;
template <>
inline constexpr HostType hostTypeOf<int64_t> = HostType::Integer;
template <>
inline constexpr HostType hostTypeOf<uint64_t> = HostType::UInt64;
template <>
inline constexpr HostType hostTypeOf<double> = HostType::Double;
template <>
inline constexpr HostType hostTypeOf<bool> = HostType::Boolean;
template <>
inline constexpr HostType hostTypeOf<REALstringStruct*> = HostType::String;
template <>
inline constexpr HostType hostTypeOf<REALmemoryBlockStruct*> = HostType::MemoryBlock;
template <>
inline constexpr HostType hostTypeOf<REALfolderItemStruct*> = HostType::FolderItem;
template <>
inline constexpr HostType hostTypeOf<REALdictionary*> = HostType::Dictionary;
template <>
inline constexpr HostType hostTypeOf<REALobjectStruct*> = HostType::Object;

template <class Type>
constexpr HostParameter parameterOf() {
  if constexpr (hostTypeOf<Type> != HostType::None) {
    return {hostTypeOf<Type>, false};
  } else if constexpr (std::is_pointer_v<Type>) {
    return {hostTypeOf<std::remove_pointer_t<Type>>, true};
  } else {
    return {};
  }
}

template <class Result, class... Parameters>
constexpr MethodShape shapeOf(Result (*)(Parameters...)) {
  MethodShape shape;
  shape.result = hostTypeOf<Result>;
  shape.valid = std::is_void_v<Result> || shape.result != HostType::None;
  (shape.add(parameterOf<Parameters>()), ...);
  return shape;
}

template <class Signature>
struct WithoutSelf;
template <class Result, class... Parameters>
struct WithoutSelf<Result(REALobject, Parameters...)> {
  using Type = Result(Parameters...);
};
// An instance method takes the host object before the declared parameters.
template <class Signature>
concept TakesSelf = requires {
  typename WithoutSelf<Signature>::Type;
};

constexpr bool equal(std::string_view text, MethodShape function) {
  const MethodShape declared = Parser(text).parse();
  return declared.valid && function.valid && declared == function;
}

}  // namespace declaration

// A shared method takes the declared parameters only.
template <DeclarationText Declaration, auto* Function>
inline constexpr bool matchesShared = declaration::equal(Declaration.view(), declaration::shapeOf(Function));

template <DeclarationText Declaration, auto* Function>
constexpr bool matchesInstanceMethod() {
  using Signature = std::remove_pointer_t<decltype(Function)>;
  if constexpr (declaration::TakesSelf<Signature>) {
    using Declared = typename declaration::WithoutSelf<Signature>::Type;
    return declaration::equal(Declaration.view(), declaration::shapeOf(static_cast<Declared*>(nullptr)));
  } else {
    return false;
  }
}
template <DeclarationText Declaration, auto* Function>
inline constexpr bool matches = matchesInstanceMethod<Declaration, Function>();

// A property's getter takes the object and the property parameter; its setter the new value besides.
template <DeclarationText Type, class Value>
constexpr bool matchesProperty(Value (*)(REALobject, int64_t), void (*)(REALobject, int64_t, Value) = nullptr) {
  return declaration::hostTypeOf<Value> == declaration::typeNamed(Type.view());
}

}  // namespace plugin
