// Conversions among values.
#include "host/runtime/conversion.hpp"

#include <charconv>
#include <cmath>
#include <limits>

#include "host/runtime/array.hpp"
#include "host/runtime/class.hpp"
#include "host/runtime/classes/classes.hpp"
#include "host/runtime/date.hpp"
#include "host/runtime/encoding.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/memory_block.hpp"

namespace host {
namespace {

constexpr char objectName[] = "Object";
constexpr char memoryBlockName[] = "MemoryBlock";

std::string describeKind(const Value& value) {
  if (value.isNil()) return "Nil";
  return value.isObject() ? value.asObject()->type->name() : typeName(value.kind());
}

[[noreturn]] void throwMismatch(const Value& value, const Type& type) {
  throwException("TypeMismatchException", "A " + describeKind(value) + " is no " + describe(type) + ".");
}

// The number of steps up the chain of superclasses to the class of that name.
std::optional<int> stepsToClass(const HostClass* type, std::string_view name) {
  int steps = 0;
  for (; type != nullptr; type = type->superclass(), ++steps) {
    if (equalNames(type->name(), name)) return steps;
  }
  return std::nullopt;
}

bool isAnyObject(const Type& type) { return !type.array && type.kind == Kind::Object && equalNames(type.name, objectName); }

bool fits(const HostObject* object, const Type& type) {
  if (type.array)
    return isArray(object) && (type.isVariant() || describe(elementType(object)) == describe(Type{type.kind, type.name}));
  return isAnyObject(type) || stepsToClass(object->type, type.name).has_value();
}

Value toObject(const Value& value, const Type& type) {
  if (value.isNil()) return value;
  const bool wantsMemory = !type.array && equalNames(type.name, memoryBlockName);
  if (wantsMemory && value.isString()) return Value::object(makeMemoryBlock(bytesOf(value.asString())));
  if (!value.isObject()) throwMismatch(value, type);
  if (!fits(value.asObject(), type)) {
    throwException("IllegalCastException", "A " + describeKind(value) + " is no " + describe(type) + ".");
  }
  return value;
}

// The nearest whole number that the kind holds; not-a-number is 0.
int64_t integerFrom(double number) {
  constexpr double limit = 9223372036854775808.0;
  if (std::isnan(number)) return 0;
  if (number >= limit) return std::numeric_limits<int64_t>::max();
  return number < -limit ? std::numeric_limits<int64_t>::min() : static_cast<int64_t>(number);
}

uint64_t unsignedFrom(double number) {
  constexpr double limit = 18446744073709551616.0;
  if (std::isnan(number) || number < 0) return 0;
  return number >= limit ? std::numeric_limits<uint64_t>::max() : static_cast<uint64_t>(number);
}

uint64_t toUnsigned(const Value& value) {
  if (value.isFloating()) return unsignedFrom(toDouble(value));
  return static_cast<uint64_t>(toInteger(value));
}

template <class Number>
std::string shortest(Number number) {
  char buffer[64];
  const Number size = std::fabs(number);
  const bool plain = size == 0 || (size >= Number(1e-4) && size < Number(1e15));
  const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
  return std::string(buffer, std::to_chars(buffer, std::end(buffer), number, format).ptr);
}

std::string sqlDateTime(const HostObject* date) {
  const DateComponents c = componentsOf(date);
  char buffer[160];
  std::snprintf(buffer, sizeof buffer, "%04lld-%02lld-%02lld %02lld:%02lld:%02lld", static_cast<long long>(c[0]),
                static_cast<long long>(c[1]), static_cast<long long>(c[2]), static_cast<long long>(c[3]),
                static_cast<long long>(c[4]), static_cast<long long>(c[5]));
  return buffer;
}

// Of the objects that convert to text; nothing for others.
std::string objectText(const HostObject* object) {
  if (isDate(object)) return sqlDateTime(object);
  if (!isMemoryBlock(object)) return "";
  const std::span<const std::byte> bytes = memoryOf(object);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string_view textIn(const Value& value) { return value.isText() ? bytesOf(value.asText()) : bytesOf(value.asString()); }

// The conversions that lie nearest are the cheapest.
constexpr int costOfNumber = 2, costOfFraction = 5, costOfBoolean = 10, costOfBytes = 20, costOfWriting = 30,
              costOfReading = 40, costOfVariant = 50;

std::optional<int> costToObject(const Value& value, const Type& type) {
  if (type.isVariant() && !type.array) return costOfVariant;
  if (value.isNil()) return 1;
  if (!value.isObject()) {
    if (value.isString() && equalNames(type.name, memoryBlockName)) return costOfBytes;
    return std::nullopt;
  }
  if (type.array || isAnyObject(type)) return fits(value.asObject(), type) ? std::optional(1) : std::nullopt;
  return stepsToClass(value.asObject()->type, type.name);
}

std::optional<int> costToNumber(const Value& value, Kind kind) {
  const bool wantsFraction = kind >= Kind::Single && kind <= Kind::Currency;
  if (value.isNumber())
    return value.isFloating() && !wantsFraction ? costOfFraction : value.isFloating() == wantsFraction ? 1 : costOfNumber;
  if (value.kind() == Kind::Boolean) return costOfBoolean;
  if (value.isString() || value.isText()) return costOfReading;
  return std::nullopt;
}

std::optional<int> costToText(const Value& value) {
  if (value.isString() || value.isText()) return 1;
  if (value.isObject()) {
    if (isMemoryBlock(value.asObject()) || isDate(value.asObject())) return costOfBytes;
    return std::nullopt;
  }
  return value.isNil() ? costOfBytes : costOfWriting;
}

}  // namespace

Value emptyValue(const Type& type) {
  return type.array || type.kind == Kind::Object ? Value() : Value::adoptWord(type.kind, 0);
}

Value convert(const Value& value, const Type& type) {
  if (type.isVariant() && !type.array) return value;
  if (type.array || type.kind == Kind::Object) return toObject(value, type);
  if (value.kind() == type.kind) return value;
  if (value.isNil()) return emptyValue(type);
  const bool wantsText = type.kind == Kind::String || type.kind == Kind::Text;
  if (value.isObject() && !(wantsText && costToText(value))) throwMismatch(value, type);
  switch (type.kind) {
    case Kind::Boolean:
      return Value::boolean(toBoolean(value));
    case Kind::UInt64:
    case Kind::Pointer:
    case Kind::UInt32:
      return Value::unsignedInteger(toUnsigned(value), type.kind);
    case Kind::Single:
      return Value::single(static_cast<float>(toDouble(value)));
    case Kind::Double:
    case Kind::Currency:
      return Value::number(toDouble(value), type.kind);
    case Kind::String:
      return Value::string(toString(value));
    case Kind::Text:
      return Value::text(HostText::make(toUtf8(value)));
    default:
      return Value::integer(toInteger(value), type.kind);
  }
}

std::optional<int> conversionCost(const Value& value, const Type& type) {
  if (type.array || type.kind == Kind::Object) return costToObject(value, type);
  if (value.kind() == type.kind) return 0;
  if (type.kind == Kind::String || type.kind == Kind::Text) return costToText(value);
  if (value.isNil() || value.isObject()) return std::nullopt;
  if (type.kind == Kind::Boolean) return value.isNumber() ? costOfBoolean : costOfReading;
  return costToNumber(value, type.kind);
}

bool toBoolean(const Value& value) {
  if (value.kind() == Kind::Boolean) return value.asBoolean();
  if (value.isString() || value.isText()) return equalNames(textIn(value), "true") || numberIn(textIn(value)) != 0;
  return value.isFloating() ? toDouble(value) != 0 : toInteger(value) != 0;
}

int64_t toInteger(const Value& value) {
  if (value.isInteger()) return value.asInteger();
  if (value.kind() == Kind::Boolean) return value.asBoolean() ? 1 : 0;
  if (value.isString() || value.isText()) {
    const std::string_view text = textIn(value);
    int64_t whole = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), whole);
    if (error == std::errc() && end == text.data() + text.size()) return whole;
  }
  return integerFrom(toDouble(value));
}

double toDouble(const Value& value) {
  if (value.kind() == Kind::Single) return static_cast<double>(value.asSingle());
  if (value.isFloating()) return value.asDouble();
  if (value.kind() == Kind::UInt64) return static_cast<double>(value.asUnsigned());
  if (value.isInteger()) return static_cast<double>(value.asInteger());
  if (value.kind() == Kind::Boolean) return value.asBoolean() ? 1 : 0;
  return value.isString() || value.isText() ? numberIn(textIn(value)) : 0;
}

HostOwned<HostString> toString(const Value& value) {
  if (value.isString()) return retain(value.asString());
  const bool untagged = value.isObject() && isMemoryBlock(value.asObject());
  return HostString::make(toUtf8(value), untagged ? encodingUnknown : encodingUTF8);
}

std::string toUtf8(const Value& value) {
  if (value.isString()) return utf8Of(value.asString());
  if (value.isText()) return std::string(bytesOf(value.asText()));
  if (value.kind() == Kind::Boolean) return value.asBoolean() ? "True" : "False";
  if (value.kind() == Kind::Single) return shortest(value.asSingle());
  if (value.isFloating()) return numberText(value.asDouble());
  if (value.kind() == Kind::UInt64) return std::to_string(value.asUnsigned());
  if (value.isInteger()) return std::to_string(value.asInteger());
  return value.isObject() ? objectText(value.asObject()) : std::string();
}

std::string numberText(double number) { return shortest(number); }

double numberIn(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  if (text.size() > 2 && text[0] == '&') {
    const char prefix = lowerCase(text.substr(1, 1))[0];
    const int base = prefix == 'h' ? 16 : prefix == 'o' ? 8 : 2;
    int64_t whole = 0;
    std::from_chars(text.data() + 2, text.data() + text.size(), whole, base);
    return static_cast<double>(whole);
  }
  if (text.starts_with('+')) text.remove_prefix(1);
  // Words for infinity and not-a-number are no numbers here.
  if (text.find_first_of("0123456789") > 2) return 0;
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool equalValues(const Value& left, const Value& right) { return keyOf(left) == keyOf(right); }

}  // namespace host
