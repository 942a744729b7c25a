// Arrays and their members.
#include <algorithm>
#include <vector>

#include "host/language/builtins.hpp"
#include "host/language/conversion.hpp"
#include "host/language/operators.hpp"
#include "host/runtime/array.hpp"
#include "host/runtime/class.hpp"
#include "host/runtime/exception.hpp"

namespace language {
namespace {

using Arguments = std::span<Value>;

HostObject* arrayIn(const Value& value) {
  if (value.isNil()) host::throwNilObject("The array");
  if (value.asObject() == nullptr || !host::isArray(value.asObject())) throwTypeMismatch("This is no array.");
  return value.asObject();
}

// The type that all of the values are of; Variant where they differ.
Type commonType(Arguments values) {
  const auto typeOf = [](const Value& value) {
    if (value.isNil()) return host::typeNamed("Variant");
    return host::typeNamed(value.isObject() ? value.asObject()->type->name() : host::typeName(value.kind()));
  };
  if (values.empty()) return host::typeNamed("Variant");
  const bool numbers = std::all_of(values.begin(), values.end(), [](const Value& value) { return value.isNumber(); });
  const bool fraction = std::any_of(values.begin(), values.end(), [](const Value& value) { return value.isFloating(); });
  if (numbers && fraction) return host::typeNamed("Double");
  const Type first = typeOf(values[0]);
  const bool alike = std::all_of(values.begin(), values.end(), [&](const Value& value) { return typeOf(value) == first; });
  return alike && !(values[0].isObject() && host::isArray(values[0].asObject())) ? first : host::typeNamed("Variant");
}

Value array(Context&, Arguments arguments) {
  HostOwned<HostObject> made = host::makeArray(commonType(arguments), -1);
  for (const Value& value : arguments) host::appendElement(made, value);
  return Value::object(std::move(made));
}

Value lastIndex(Context&, Arguments arguments) { return Value::integer(host::upperBound(arrayIn(arguments[0]))); }
Value count(Context&, Arguments arguments) { return Value::integer(host::upperBound(arrayIn(arguments[0])) + 1); }

Value append(Context&, Arguments arguments) {
  for (const Value& value : arguments.subspan(1)) host::appendElement(arrayIn(arguments[0]), value);
  return {};
}

Value insert(Context&, Arguments arguments) {
  host::insertElement(arrayIn(arguments[0]), host::toInteger(arguments[1]), arguments[2]);
  return {};
}

Value remove(Context&, Arguments arguments) {
  host::removeElement(arrayIn(arguments[0]), host::toInteger(arguments[1]));
  return {};
}

Value removeAll(Context&, Arguments arguments) {
  host::resizeArray(arrayIn(arguments[0]), -1);
  return {};
}

Value pop(Context&, Arguments arguments) {
  HostObject* const from = arrayIn(arguments[0]);
  const int64_t last = host::upperBound(from);
  Value value = host::element(from, last);
  host::removeElement(from, last);
  return value;
}

Value indexOf(Context&, Arguments arguments) {
  HostObject* const within = arrayIn(arguments[0]);
  for (int64_t index = 0; index <= host::upperBound(within); ++index) {
    if (host::equalValues(host::element(within, index), arguments[1])) return Value::integer(index);
  }
  return Value::integer(-1);
}

Value resize(Context&, Arguments arguments) {
  host::resizeArray(arrayIn(arguments[0]), std::max<int64_t>(-1, host::toInteger(arguments[1])));
  return {};
}

Value sort(Context&, Arguments arguments) {
  HostObject* const sorted = arrayIn(arguments[0]);
  std::vector<Value> values;
  for (int64_t index = 0; index <= host::upperBound(sorted); ++index) values.push_back(host::element(sorted, index));
  std::stable_sort(values.begin(), values.end(),
                   [](const Value& left, const Value& right) { return holds(Operator::Less, left, right); });
  for (size_t index = 0; index < values.size(); ++index)
    host::setElement(sorted, static_cast<int64_t>(index), values[index]);
  return {};
}

Value join(Context&, Arguments arguments) {
  HostObject* const elements = arrayIn(arguments[0]);
  const std::string between = arguments.size() > 1 ? host::toUtf8(arguments[1]) : " ";
  std::string text;
  for (int64_t index = 0; index <= host::upperBound(elements); ++index) {
    if (index > 0) text += between;
    text += host::toUtf8(host::element(elements, index));
  }
  return Value::string(text);
}

constexpr unsigned kEverywhere = Plain | OfArray;

constexpr Builtin kTable[] = {
    {"Array", Plain, 0, kAnyNumber, array},
    {"UBound", kEverywhere, 1, 1, lastIndex},
    {"LastIndex", OfArray, 1, 1, lastIndex},
    {"LastRowIndex", OfArray, 1, 1, lastIndex},
    {"Count", OfArray, 1, 1, count},
    {"Append", OfArray, 2, 2, append},
    {"Add", OfArray, 2, kAnyNumber, append},
    {"Insert", OfArray, 3, 3, insert},
    {"AddAt", OfArray, 3, 3, insert},
    {"Remove", OfArray, 2, 2, remove},
    {"RemoveAt", OfArray, 2, 2, remove},
    {"RemoveAll", OfArray, 1, 1, removeAll},
    {"Pop", OfArray, 1, 1, pop},
    {"IndexOf", OfArray, 2, 2, indexOf},
    {"ResizeTo", OfArray, 2, 2, resize},
    {"Redim", kEverywhere, 2, 2, resize},
    {"Sort", OfArray, 1, 1, sort},
    {"Join", kEverywhere, 1, 2, join},
};

}  // namespace

std::span<const Builtin> arrayBuiltins() { return kTable; }

}  // namespace language
