// Conversions between the values of the host's language.
#pragma once

#include <optional>
#include <string>

#include "host/runtime/declaration.hpp"
#include "host/runtime/value.hpp"

namespace host {

// The value as one of the type, by the language's rules for assigning a Variant: numbers among each other (to an integer by
// dropping the fraction, out of range to the nearest), numbers and Booleans from and to strings, strings and texts,
// strings and memory blocks, nil to the empty value of any type. Throws TypeMismatchException for what cannot be, and
// IllegalCastException for an object of a class that is not the type's.
Value convert(const Value& value, const Type& type);

// How far the value is from the type: 0 is the same, nothing is not to be converted. For choosing among overloads.
std::optional<int> conversionCost(const Value& value, const Type& type);

// The empty value of the type: 0, false, "" or nil.
Value emptyValue(const Type& type);

// Readings of any value; what is not a number reads as 0, nil as "".
bool toBoolean(const Value& value);
int64_t toInteger(const Value& value);
double toDouble(const Value& value);
HostOwned<HostString> toString(const Value& value);
std::string toUtf8(const Value& value);

// "3", "0.1", "1e+21": the shortest text that reads back as the number.
std::string numberText(double number);
// The number that the text begins with, 0 when it begins with none; &h, &o and &b prefixes are understood.
double numberIn(std::string_view text);

// Equal as dictionary keys and variants are: strings without regard to case, numbers by value, objects by identity.
bool equalValues(const Value& left, const Value& right);

}  // namespace host
