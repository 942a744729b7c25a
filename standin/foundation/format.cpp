// Formats: the directives are parsed first, then the arguments read in their order, then the text is put together.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "standin/foundation/encodings.hpp"
#include "standin/foundation/log.hpp"
#include "standin/foundation/string_classes.hpp"

namespace standin::foundation {
namespace {

using text::Text;

// How an argument was passed.
enum class Passed { word, longWord, real, longReal, pointer };

union Value {
  int64_t integer;
  double real;
  long double longReal;
  const void* pointer;
};

// A width or a precision: written out, or the argument at a position (from 0).
struct Amount {
  std::optional<int> number;
  std::optional<size_t> argument;
};

struct Directive {
  size_t start = 0, end = 0;  // in the format
  std::string flags;
  Amount width, precision;
  std::string length;  // "hh" to "L"
  char conversion = 0;
  size_t argument = 0;
};

constexpr std::string_view integerConversions = "diuxXo", realConversions = "fFeEgGaA", wordConversions = "cC",
                           pointerConversions = "@sSp";

bool isOneOf(char character, std::string_view set) { return set.find(character) != set.npos; }

// The kind of argument for a conversion; nothing for what is no conversion.
std::optional<Passed> passedFor(char conversion, std::string_view length) {
  if (isOneOf(conversion, pointerConversions)) return Passed::pointer;
  if (isOneOf(conversion, wordConversions)) return Passed::word;
  if (isOneOf(conversion, realConversions)) return length == "L" ? Passed::longReal : Passed::real;
  if (!isOneOf(conversion, integerConversions)) return std::nullopt;
  return length.empty() || length[0] == 'h' ? Passed::word : Passed::longWord;
}

class Parser {
 public:
  explicit Parser(std::u16string_view format) : format_(format) {}

  std::vector<Directive> directives;
  std::vector<Passed> arguments;

  void parse() {
    while ((at_ = format_.find(u'%', at_)) != format_.npos) {
      Directive directive;
      directive.start = at_++;
      if (!parseDirective(directive)) continue;
      directive.end = at_;
      directives.push_back(std::move(directive));
    }
  }

 private:
  char next() const { return at_ < format_.size() && format_[at_] < 0x80 ? static_cast<char>(format_[at_]) : '\0'; }
  bool nextIs(char wanted) {
    if (next() != wanted || wanted == 0) return false;
    ++at_;
    return true;
  }

  // False, with the place just behind the percent sign, for what is no directive.
  bool parseDirective(Directive& directive) {
    const size_t start = at_, known = nextArgument_;
    std::optional<size_t> position = parsePosition();
    parseFlags(directive.flags);
    directive.width = parseAmount();
    if (nextIs('.')) {
      directive.precision = parseAmount();
      if (!directive.precision.argument && !directive.precision.number) directive.precision.number = 0;
    }
    while (next() != 0 && isOneOf(next(), "hlqzjtL")) directive.length += static_cast<char>(format_[at_++]);
    directive.conversion = next();
    if (nextIs('%')) return true;
    const std::optional<Passed> passed = passedFor(directive.conversion, directive.length);
    if (directive.conversion == 0 || !passed) {
      at_ = start;
      nextArgument_ = known;
      return false;
    }
    ++at_;
    directive.argument = position ? *position : nextArgument_++;
    expect(directive.argument, *passed);
    return true;
  }

  // Grouping by thousands, the apostrophe, is read and not done: it is empty in the locale used here.
  void parseFlags(std::string& flags) {
    for (; next() != 0 && isOneOf(next(), "-+ #0'"); ++at_) {
      if (next() != '\'') flags += next();
    }
  }

  std::optional<int> parseNumber() {
    std::optional<int> number;
    while (next() >= '0' && next() <= '9') {
      number = std::min(number.value_or(0) * 10 + (format_[at_++] - u'0'), 1 << 20);
    }
    return number;
  }

  // "2$", counted from 1.
  std::optional<size_t> parsePosition() {
    const size_t start = at_;
    const std::optional<int> number = parseNumber();
    if (number && *number >= 1 && *number <= 256 && nextIs('$')) return static_cast<size_t>(*number - 1);
    at_ = start;
    return std::nullopt;
  }

  Amount parseAmount() {
    if (!nextIs('*')) return {parseNumber(), std::nullopt};
    const std::optional<size_t> position = parsePosition();
    const size_t argument = position ? *position : nextArgument_++;
    expect(argument, Passed::word);
    return {std::nullopt, argument};
  }

  void expect(size_t argument, Passed passed) {
    if (arguments.size() <= argument) arguments.resize(argument + 1, Passed::longWord);
    arguments[argument] = passed;
  }

  std::u16string_view format_;
  size_t at_ = 0;
  size_t nextArgument_ = 0;
};

std::vector<Value> readArguments(const std::vector<Passed>& kinds, va_list arguments) {
  std::vector<Value> values(kinds.size());
  for (size_t at = 0; at < kinds.size(); ++at) {
    switch (kinds[at]) {
      case Passed::word:
        values[at].integer = va_arg(arguments, int);
        break;
      case Passed::longWord:
        values[at].integer = va_arg(arguments, long);
        break;
      case Passed::real:
        values[at].real = va_arg(arguments, double);
        break;
      case Passed::longReal:
        values[at].longReal = va_arg(arguments, long double);
        break;
      case Passed::pointer:
        values[at].pointer = va_arg(arguments, const void*);
        break;
    }
  }
  return values;
}

// As many of the zero-terminated units as the precision allows.
template <class Unit>
std::basic_string_view<Unit> terminated(const void* start, std::optional<int> precision) {
  const auto* units = static_cast<const Unit*>(start);
  const size_t limit = precision && *precision >= 0 ? static_cast<size_t>(*precision) : SIZE_MAX;
  size_t count = 0;
  while (count < limit && units[count] != 0) ++count;
  return {units, count};
}

// UTF-8 or, when it is not, Mac OS Roman, which has a character for every byte.
Text systemText(std::string_view bytes) {
  if (std::optional<Text> text = decodeUtf8(bytes)) return *std::move(text);
  return *decode({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()}, kCFStringEncodingMacRoman, false);
}

class Renderer {
 public:
  Renderer(const Directive& directive, const std::vector<Value>& values)
      : directive_(directive),
        value_(values.empty() ? Value{0} : values[directive.argument]),
        width_(amount(directive.width, values)),
        precision_(amount(directive.precision, values)) {}

  Text render() const {
    const char conversion = directive_.conversion;
    if (conversion == '%') return Text::latin1("%");
    if (isOneOf(conversion, integerConversions)) return integer();
    if (isOneOf(conversion, realConversions)) return real();
    return padded(conversion == 'p' ? pointer() : characters());
  }

 private:
  static std::optional<int> amount(const Amount& amount, const std::vector<Value>& values) {
    return amount.argument ? static_cast<int>(values[*amount.argument].integer) : amount.number;
  }

  Text characters() const {
    const char16_t unit = static_cast<char16_t>(value_.integer);
    switch (directive_.conversion) {
      case 'c':
        return Text::utf16({std::u16string(1, unit & 0xFF)});
      case 'C':
        return Text::utf16({std::u16string(1, unit)});
      default:
        break;
    }
    if (value_.pointer == nullptr) return Text::latin1("(null)");
    if (directive_.conversion == 's') return systemText(terminated<char>(value_.pointer, precision_));
    if (directive_.conversion == 'S') return Text::utf16(terminated<char16_t>(value_.pointer, precision_));
    return description();
  }

  Text description() const {
    auto* const object = const_cast<NSObject*>(static_cast<const NSObject*>(value_.pointer));
    NSString* const description = NSObject::description(object);
    if (description == nullptr) return Text::latin1("(null)");
    const Text& text = textOf(description);
    const auto limit = precision_ && *precision_ >= 0 ? static_cast<uint32_t>(*precision_) : text.size();
    return text.slice(0, std::min(limit, text.size()));
  }

  Text pointer() const {
    const auto address = reinterpret_cast<uintptr_t>(value_.pointer);
    return address == 0 ? Text::latin1("0x0") : formatted("%#lx", address);
  }

  // What was passed as a word counts with the width its length says.
  int64_t narrowed() const {
    const int64_t value = value_.integer;
    if (isOneOf(directive_.conversion, "di")) {
      if (directive_.length == "hh") return static_cast<int8_t>(value);
      if (directive_.length == "h") return static_cast<int16_t>(value);
      return value;
    }
    if (directive_.length == "hh") return static_cast<uint8_t>(value);
    if (directive_.length == "h") return static_cast<uint16_t>(value);
    return directive_.length.empty() ? static_cast<uint32_t>(value) : value;
  }

  Text integer() const { return formatted(directiveWith("l").c_str(), narrowed()); }
  Text real() const {
    if (directive_.length == "L") return formatted(directiveWith("L").c_str(), value_.longReal);
    return formatted(directiveWith("").c_str(), value_.real);
  }

  // The directive for printf, with width and precision written out.
  std::string directiveWith(const char* length) const {
    std::string text = "%" + directive_.flags;
    if (width_) text += (*width_ < 0 ? "-" : "") + std::to_string(std::abs(static_cast<long>(*width_)));
    if (precision_ && *precision_ >= 0) text += "." + std::to_string(*precision_);
    return text + length + directive_.conversion;
  }

  template <class Argument>
  static Text formatted(const char* directive, Argument argument) {
    const int size = std::snprintf(nullptr, 0, directive, argument);
    if (size < 0) return {};
    std::string text(static_cast<size_t>(size) + 1, '\0');
    std::snprintf(text.data(), text.size(), directive, argument);
    text.pop_back();
    return Text::latin1(text);
  }

  Text padded(Text text) const {
    const size_t wanted = width_ ? static_cast<size_t>(std::abs(static_cast<long>(*width_))) : 0;
    if (text.size() >= wanted) return text;
    Text spaces = Text::latin1(std::string(wanted - text.size(), ' '));
    const bool isLeft = isOneOf('-', directive_.flags) || *width_ < 0;
    Text result = isLeft ? text : spaces;
    result.append(isLeft ? spaces : text);
    return result;
  }

  const Directive& directive_;
  Value value_;
  std::optional<int> width_, precision_;
};

}  // namespace

Text formatText(const Text& format, va_list arguments) {
  std::u16string units(format.size(), 0);
  format.copy(0, format.size(), units.data());
  Parser parser(units);
  parser.parse();
  const std::vector<Value> values = readArguments(parser.arguments, arguments);
  Text result;
  size_t done = 0;
  for (const Directive& directive : parser.directives) {
    result.append(std::u16string_view(units).substr(done, directive.start - done));
    result.append(Renderer(directive, values).render());
    done = directive.end;
  }
  result.append(std::u16string_view(units).substr(done));
  return result;
}

}  // namespace standin::foundation
