// Conversions that the language makes by itself.
#pragma once

#include <string>

#include "host/language/value.hpp"
#include "host/runtime/conversion.hpp"

namespace language {

// The value as one of the type, as an assignment makes it. An array of elements of another type is copied into one of the
// type. Raises TypeMismatchException, or IllegalCastException for an object of another class.
Value conform(Value value, const Type& type);

// As a condition. Raises TypeMismatchException for what is neither a Boolean nor a number.
bool isTrue(const Value& value);

// As Print shows it: "Nil" for nil, the class of an object that has no text of its own.
std::string printed(const Value& value);

// Of the elements that an array of the type has.
Type typeOfElements(Type arrayType);

[[noreturn]] void throwTypeMismatch(const std::string& message);

}  // namespace language
