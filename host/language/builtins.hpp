// The functions of the language itself, and the members of the values that are no objects of a class.
#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <string_view>

#include "host/language/value.hpp"

namespace language {

struct Context;

// In what a function is found: by its name alone, or as a member of a value, which is then its first argument.
enum Receiver : unsigned { OfNothing = 0, Plain = 1, OfString = 2, OfNumber = 4, OfArray = 8, OfFolderItem = 16 };

constexpr size_t kAnyNumber = std::numeric_limits<size_t>::max();

struct Builtin {
  const char* name;
  unsigned receivers;  // every one in which it is found
  size_t minimum;      // of arguments, the receiver included
  size_t maximum;
  Value (*function)(Context& context, std::span<Value> arguments);
};

// Nil when there is no such function. The name is in lower case.
const Builtin* findBuiltin(Receiver receiver, std::string_view foldedName);

// Which members the value has; OfNothing where they are those of its class.
Receiver receiverOf(const Value& value);

// The tables, one a theme.
std::span<const Builtin> stringBuiltins();
std::span<const Builtin> searchBuiltins();
std::span<const Builtin> numberBuiltins();
std::span<const Builtin> arrayBuiltins();
std::span<const Builtin> systemBuiltins();

}  // namespace language
