// Functions that look into strings: comparing, finding, replacing, splitting. Case is ignored unless a function says
// otherwise.
#include <algorithm>

#include "host/language/builtins.hpp"
#include "host/language/conversion.hpp"
#include "host/language/strings.hpp"
#include "host/runtime/array.hpp"

namespace language {
namespace {

using Arguments = std::span<Value>;

Characters characters(const Value& value) { return charactersOf(host::toUtf8(value)); }
Characters foldedCharacters(const Value& value) { return folded(characters(value)); }

size_t positionIn(const Value& whole, const Value& wanted, int64_t from) {
  return foldedCharacters(whole).find(foldedCharacters(wanted), static_cast<size_t>(std::max<int64_t>(0, from)));
}

// InStr([start,] source, find): both count from 1, and 0 is nowhere.
Value inString(Context&, Arguments arguments) {
  const bool hasStart = arguments.size() == 3;
  const int64_t from = hasStart ? host::toInteger(arguments[0]) - 1 : 0;
  const Arguments strings = arguments.subspan(hasStart ? 1 : 0);
  return Value::integer(static_cast<int64_t>(positionIn(strings[0], strings[1], from) + 1));
}

// Counts from 0, and -1 is nowhere.
Value indexOf(Context&, Arguments arguments) {
  const Value& wanted = arguments[arguments.size() - 1];
  const int64_t from = arguments.size() == 3 ? host::toInteger(arguments[1]) : 0;
  return Value::integer(static_cast<int64_t>(positionIn(arguments[0], wanted, from)));
}

Value contains(Context&, Arguments arguments) {
  return Value::boolean(positionIn(arguments[0], arguments[1], 0) != Characters::npos);
}

Value beginsWith(Context&, Arguments arguments) {
  return Value::boolean(foldedCharacters(arguments[0]).starts_with(foldedCharacters(arguments[1])));
}

Value endsWith(Context&, Arguments arguments) {
  return Value::boolean(foldedCharacters(arguments[0]).ends_with(foldedCharacters(arguments[1])));
}

Value replace(Arguments arguments, size_t most) {
  const Characters source = characters(arguments[0]);
  const Characters wanted = foldedCharacters(arguments[1]);
  if (wanted.empty()) return arguments[0];
  const Characters haystack = folded(source);
  const Characters replacement = characters(arguments[2]);
  Characters result;
  size_t copied = 0;
  for (size_t turn = 0; turn < most; ++turn) {
    const size_t found = haystack.find(wanted, copied);
    if (found == Characters::npos) break;
    result.append(source, copied, found - copied).append(replacement);
    copied = found + wanted.size();
  }
  return stringLike(arguments[0], utf8Of(result.append(source, copied)));
}

Value replaceFirst(Context&, Arguments arguments) { return replace(arguments, 1); }
Value replaceAll(Context&, Arguments arguments) { return replace(arguments, kAnyNumber); }

// An empty delimiter splits into single characters. This comparison respects case, as what is joined again should.
std::vector<std::string> fields(const Value& source, const Value& delimiter) {
  const std::string text = host::toUtf8(source);
  const std::string between = host::toUtf8(delimiter);
  std::vector<std::string> found;
  if (between.empty()) {
    for (const char32_t character : charactersOf(text)) found.push_back(utf8Of({character}));
    return found;
  }
  size_t start = 0;
  for (size_t at = text.find(between); at != std::string::npos; at = text.find(between, start)) {
    found.push_back(text.substr(start, at - start));
    start = at + between.size();
  }
  found.push_back(text.substr(start));
  return found;
}

Value split(Context&, Arguments arguments) {
  const auto found = fields(arguments[0], arguments.size() > 1 ? arguments[1] : Value::string(" "));
  HostOwned<HostObject> array = host::makeArray(host::typeNamed(arguments[0].isText() ? "Text" : "String"), -1);
  for (const std::string& field : found) host::appendElement(array, stringLike(arguments[0], field));
  return Value::object(std::move(array));
}

Value countFields(Context&, Arguments arguments) {
  return Value::integer(static_cast<int64_t>(fields(arguments[0], arguments[1]).size()));
}

// Counts from 1; "" where there is no such field.
Value nthField(Context&, Arguments arguments) {
  const auto found = fields(arguments[0], arguments[1]);
  const int64_t number = host::toInteger(arguments[2]);
  const bool exists = number >= 1 && number <= static_cast<int64_t>(found.size());
  return stringLike(arguments[0], exists ? found[static_cast<size_t>(number - 1)] : "");
}

// StrComp(a, b, mode): mode 0 respects case, and is the only way to.
Value compare(Context&, Arguments arguments) {
  const bool respects = arguments.size() < 3 || host::toInteger(arguments[2]) == 0;
  const int order = orderStrings(arguments[0], arguments[1], respects ? CaseRule::Respected : CaseRule::Ignored);
  return Value::integer(order < 0 ? -1 : order > 0 ? 1 : 0);
}

constexpr unsigned kEverywhere = Plain | OfString;

constexpr Builtin kTable[] = {
    {"InStr", Plain, 2, 3, inString},
    {"IndexOf", OfString, 2, 3, indexOf},
    {"Contains", OfString, 2, 2, contains},
    {"BeginsWith", OfString, 2, 2, beginsWith},
    {"EndsWith", OfString, 2, 2, endsWith},
    {"Replace", kEverywhere, 3, 3, replaceFirst},
    {"ReplaceAll", kEverywhere, 3, 3, replaceAll},
    {"Split", kEverywhere, 1, 2, split},
    {"CountFields", kEverywhere, 2, 2, countFields},
    {"NthField", kEverywhere, 3, 3, nthField},
    {"StrComp", Plain, 2, 3, compare},
    {"Compare", OfString, 2, 3, compare},
};

}  // namespace

std::span<const Builtin> searchBuiltins() { return kTable; }

}  // namespace language
