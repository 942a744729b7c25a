// Functions on the characters of strings.
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

#include "host/language/builtins.hpp"
#include "host/language/conversion.hpp"
#include "host/language/strings.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/runtime.hpp"

namespace language {
namespace {

using Arguments = std::span<Value>;

Characters characters(const Value& value) { return charactersOf(host::toUtf8(value)); }

// A count or a position, not below 0.
size_t count(const Value& value) { return static_cast<size_t>(std::max<int64_t>(0, host::toInteger(value))); }

Value length(Context&, Arguments arguments) { return Value::integer(static_cast<int64_t>(characters(arguments[0]).size())); }

Value bytes(Context&, Arguments arguments) {
  return Value::integer(static_cast<int64_t>(host::bytesOf(host::toString(arguments[0])).size()));
}

Value part(const Value& whole, size_t first, size_t length) {
  const Characters all = characters(whole);
  return stringLike(whole, utf8Of(first < all.size() ? all.substr(first, length) : Characters()));
}

Value left(Context&, Arguments arguments) { return part(arguments[0], 0, count(arguments[1])); }

Value right(Context&, Arguments arguments) {
  const size_t size = characters(arguments[0]).size();
  return part(arguments[0], size - std::min(size, count(arguments[1])), Characters::npos);
}

// Counts from 0.
Value middle(Context&, Arguments arguments) {
  return part(arguments[0], count(arguments[1]), arguments.size() > 2 ? count(arguments[2]) : Characters::npos);
}

// Counts from 1.
Value mid(Context&, Arguments arguments) {
  const size_t first = std::max<size_t>(1, count(arguments[1]));
  return part(arguments[0], first - 1, arguments.size() > 2 ? count(arguments[2]) : Characters::npos);
}

enum Side { Start = 1, End = 2, Both = 3 };

template <Side side>
Value trim(Context&, Arguments arguments) {
  const Characters all = characters(arguments[0]);
  const auto isBlank = [](char32_t each) { return u_isUWhiteSpace(static_cast<UChar32>(each)) != 0; };
  auto first = all.begin();
  auto last = all.end();
  while ((side & Start) != 0 && first != last && isBlank(*first)) ++first;
  while ((side & End) != 0 && first != last && isBlank(*(last - 1))) --last;
  return stringLike(arguments[0], utf8Of(Characters(first, last)));
}

template <icu::UnicodeString& (icu::UnicodeString::*change)()>
Value inCase(Context&, Arguments arguments) {
  icu::UnicodeString text = icu::UnicodeString::fromUTF8(host::toUtf8(arguments[0]));
  std::string changed;
  return stringLike(arguments[0], (text.*change)().toUTF8String(changed));
}

Value character(Context&, Arguments arguments) {
  const int64_t code = host::toInteger(arguments[0]);
  if (code < 0 || code > 0x10FFFF || U_IS_SURROGATE(code)) {
    host::throwException("OutOfBoundsException", "There is no character " + std::to_string(code) + ".");
  }
  return Value::string(utf8Of({static_cast<char32_t>(code)}));
}

Value code(Context&, Arguments arguments) {
  const Characters all = characters(arguments[0]);
  return Value::integer(all.empty() ? -1 : static_cast<int64_t>(all.front()));
}

Value repeated(Context&, Arguments arguments) {
  const std::string one = host::toUtf8(arguments[0]);
  const size_t times = count(arguments[1]);
  if (!one.empty() && times > INT32_MAX / one.size())
    host::throwException("OutOfMemoryException", "The string is too long.");
  std::string text;
  text.reserve(one.size() * times);
  for (size_t turn = 0; turn < times; ++turn) text += one;
  return stringLike(arguments[0], text);
}

template <uint32_t number>
Value encodingNumber(Context&, Arguments) {
  return Value::integer(number);
}

Value encoding(Context&, Arguments arguments) { return Value::integer(host::encodingOf(host::toString(arguments[0]))); }

uint32_t encodingIn(const Value& value) { return static_cast<uint32_t>(host::toInteger(value)); }

// The same bytes, read otherwise from now on.
Value defineEncoding(Context&, Arguments arguments) {
  return Value::string(host::HostString::make(host::bytesOf(host::toString(arguments[0])), encodingIn(arguments[1])));
}

Value convertEncoding(Context&, Arguments arguments) {
  return Value::string(host::converted(host::toString(arguments[0]), encodingIn(arguments[1])));
}

Value endOfLine(Context&, Arguments) { return Value::string("\n"); }
Value toStringValue(Context&, Arguments arguments) { return Value::string(host::toString(arguments[0])); }
Value toTextValue(Context&, Arguments arguments) { return Value::text(host::HostText::make(host::toUtf8(arguments[0]))); }

constexpr auto uppercase = static_cast<icu::UnicodeString& (icu::UnicodeString::*)()>(&icu::UnicodeString::toUpper);
constexpr auto lowercase = static_cast<icu::UnicodeString& (icu::UnicodeString::*)()>(&icu::UnicodeString::toLower);
constexpr unsigned kEverywhere = Plain | OfString;

constexpr Builtin kTable[] = {
    {"Len", kEverywhere, 1, 1, length},
    {"Length", OfString, 1, 1, length},
    {"Bytes", OfString, 1, 1, bytes},
    {"Left", kEverywhere, 2, 2, left},
    {"Right", kEverywhere, 2, 2, right},
    {"Mid", kEverywhere, 2, 3, mid},
    {"Middle", OfString, 2, 3, middle},
    {"Trim", kEverywhere, 1, 1, trim<Both>},
    {"LTrim", kEverywhere, 1, 1, trim<Start>},
    {"RTrim", kEverywhere, 1, 1, trim<End>},
    {"TrimLeft", OfString, 1, 1, trim<Start>},
    {"TrimRight", OfString, 1, 1, trim<End>},
    {"Uppercase", kEverywhere, 1, 1, inCase<uppercase>},
    {"Lowercase", kEverywhere, 1, 1, inCase<lowercase>},
    {"Chr", Plain, 1, 1, character},
    {"Asc", kEverywhere, 1, 1, code},
    {"Repeat", kEverywhere, 2, 2, repeated},
    {"Encodings.ASCII", Plain, 0, 0, encodingNumber<host::encodingASCII>},
    {"Encodings.ISOLatin1", Plain, 0, 0, encodingNumber<host::encodingLatin1>},
    {"Encodings.MacRoman", Plain, 0, 0, encodingNumber<host::encodingMacRoman>},
    {"Encodings.UTF8", Plain, 0, 0, encodingNumber<host::encodingUTF8>},
    {"Encodings.UTF16", Plain, 0, 0, encodingNumber<host::encodingUTF16>},
    {"Encodings.UTF32", Plain, 0, 0, encodingNumber<host::encodingUTF32>},
    {"Encodings.WindowsLatin1", Plain, 0, 0, encodingNumber<host::encodingWindowsLatin1>},
    {"Encoding", kEverywhere, 1, 1, encoding},
    {"DefineEncoding", kEverywhere, 2, 2, defineEncoding},
    {"ConvertEncoding", kEverywhere, 2, 2, convertEncoding},
    {"EndOfLine", Plain, 0, 0, endOfLine},
    {"CStr", Plain, 1, 1, toStringValue},
    {"ToString", OfString | OfNumber, 1, 1, toStringValue},
    {"ToText", OfString | OfNumber, 1, 1, toTextValue},
};

}  // namespace

std::span<const Builtin> stringBuiltins() { return kTable; }

}  // namespace language
