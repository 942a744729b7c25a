// Functions on numbers, and between numbers and their texts.
#include <unicode/decimfmt.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "host/language/builtins.hpp"
#include "host/language/conversion.hpp"
#include "host/runtime/exception.hpp"

namespace language {
namespace {

using Arguments = std::span<Value>;

const Value& number(const Value& value) {
  if (!value.isNumber()) throwTypeMismatch("This function takes a number.");
  return value;
}

template <double (*function)(double)>
Value ofOne(Context&, Arguments arguments) {
  return Value::number(function(host::toDouble(number(arguments[0]))));
}

template <double (*function)(double, double)>
Value ofTwo(Context&, Arguments arguments) {
  return Value::number(function(host::toDouble(number(arguments[0])), host::toDouble(number(arguments[1]))));
}

Value absolute(Context&, Arguments arguments) {
  if (!number(arguments[0]).isInteger()) return Value::number(std::fabs(host::toDouble(arguments[0])));
  const int64_t value = arguments[0].asInteger();
  return Value::integer(value < 0 ? static_cast<int64_t>(0 - static_cast<uint64_t>(value)) : value);
}

Value sign(Context&, Arguments arguments) {
  const double value = host::toDouble(number(arguments[0]));
  return Value::integer(value > 0 ? 1 : value < 0 ? -1 : 0);
}

template <bool greatest>
Value extreme(Context&, Arguments arguments) {
  const Value* best = &number(arguments[0]);
  for (const Value& each : arguments) {
    const double difference = host::toDouble(number(each)) - host::toDouble(*best);
    if (greatest ? difference > 0 : difference < 0) best = &each;
  }
  return *best;
}

template <unsigned bits>
Value digits(Context&, Arguments arguments) {
  auto value = static_cast<uint64_t>(host::toInteger(arguments[0]));
  std::string text;
  do text += "0123456789ABCDEF"[value & ((1U << bits) - 1)];
  while ((value >>= bits) != 0);
  std::reverse(text.begin(), text.end());
  return Value::string(text);
}

Value parsed(Context&, Arguments arguments) { return Value::number(host::numberIn(host::toUtf8(arguments[0]))); }
Value toInteger(Context&, Arguments arguments) { return host::convert(arguments[0], host::typeNamed("Integer")); }
Value toDouble(Context&, Arguments arguments) { return Value::number(host::toDouble(arguments[0])); }

// "#" is a digit where there is one, "0" always; "," groups, "%" multiplies by 100; other characters stay as they are.
Value format(Context&, Arguments arguments) {
  UErrorCode error = U_ZERO_ERROR;
  const icu::DecimalFormatSymbols symbols(icu::Locale::getUS(), error);
  icu::DecimalFormat pattern(icu::UnicodeString::fromUTF8(host::toUtf8(arguments[1])), symbols, error);
  if (U_FAILURE(error)) host::throwException("InvalidArgumentException", "This is no format of a number.");
  pattern.setRoundingMode(icu::DecimalFormat::kRoundHalfUp);
  icu::UnicodeString text;
  if (number(arguments[0]).isInteger()) {
    pattern.format(arguments[0].asInteger(), text);
  } else {
    pattern.format(host::toDouble(arguments[0]), text);
  }
  std::string utf8;
  return Value::string(text.toUTF8String(utf8));
}

Value text(Context& context, Arguments arguments) {
  if (arguments.size() > 1) return format(context, arguments);
  return Value::string(host::toString(arguments[0]));
}

constexpr Builtin kTable[] = {
    {"Abs", Plain | OfNumber, 1, 1, absolute},
    {"Sign", Plain, 1, 1, sign},
    {"Floor", Plain, 1, 1, ofOne<std::floor>},
    {"Ceil", Plain, 1, 1, ofOne<std::ceil>},
    {"Round", Plain, 1, 1, ofOne<std::round>},
    {"Sqrt", Plain, 1, 1, ofOne<std::sqrt>},
    {"Exp", Plain, 1, 1, ofOne<std::exp>},
    {"Log", Plain, 1, 1, ofOne<std::log>},
    {"Sin", Plain, 1, 1, ofOne<std::sin>},
    {"Cos", Plain, 1, 1, ofOne<std::cos>},
    {"Tan", Plain, 1, 1, ofOne<std::tan>},
    {"Atan", Plain, 1, 1, ofOne<std::atan>},
    {"Atan2", Plain, 2, 2, ofTwo<std::atan2>},
    {"Pow", Plain, 2, 2, ofTwo<std::pow>},
    {"Min", Plain, 1, kAnyNumber, extreme<false>},
    {"Max", Plain, 1, kAnyNumber, extreme<true>},
    {"Hex", Plain, 1, 1, digits<4>},
    {"Oct", Plain, 1, 1, digits<3>},
    {"Bin", Plain, 1, 1, digits<1>},
    {"ToHex", OfNumber, 1, 1, digits<4>},
    {"Val", Plain | OfString, 1, 1, parsed},
    {"CDbl", Plain, 1, 1, toDouble},
    {"CLong", Plain, 1, 1, toInteger},
    {"ToDouble", OfString | OfNumber, 1, 1, toDouble},
    {"ToInteger", OfString | OfNumber, 1, 1, toInteger},
    {"Str", Plain, 1, 2, text},
    {"Format", Plain, 2, 2, format},
};

}  // namespace

std::span<const Builtin> numberBuiltins() { return kTable; }

}  // namespace language
