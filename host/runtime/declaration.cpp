// The grammar of declaration strings.
#include "host/runtime/declaration.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/runtime/conversion.hpp"

namespace host {
namespace {

constexpr Kind allKinds[] = {
#define HOST_KIND(name, typeName, code, size, Native) Kind::name,
    HOST_KINDS(HOST_KIND)
#undef HOST_KIND
};

constexpr struct {
  const char* name;
  Kind kind;
} typeAliases[] = {{"Int64", Kind::Integer}, {"UInteger", Kind::UInt64}};

constexpr char variantName[] = "Variant";

char lowered(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter; }
bool isDigit(char letter) { return letter >= '0' && letter <= '9'; }
bool startsName(char letter) { return (lowered(letter) >= 'a' && lowered(letter) <= 'z') || letter == '_'; }
bool continuesName(char letter) { return startsName(letter) || isDigit(letter) || letter == '.'; }

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) { skipSpaces(); }

  Declaration declaration();
  Declaration property();
  ConstantDeclaration constant();

 private:
  [[noreturn]] void fail(std::string message) const { throw DeclarationError{std::move(message), offset_}; }
  bool atEnd() const { return offset_ == text_.size(); }
  char next() const { return atEnd() ? '\0' : text_[offset_]; }
  void skipSpaces() {
    while (!atEnd() && (next() == ' ' || next() == '\t')) ++offset_;
  }
  bool take(char wanted) {
    if (next() != wanted) return false;
    ++offset_;
    skipSpaces();
    return true;
  }
  void expect(char wanted) {
    if (!take(wanted)) fail(std::string("\"") + wanted + "\" is missing");
  }
  bool takeWord(std::string_view word);
  void expectEnd() const {
    if (!atEnd()) fail("nothing more belongs here");
  }
  std::string_view takeName(const char* what);
  Type type();
  Type typeAfterAs();
  std::vector<Parameter> parameters();
  Parameter parameter();
  Value literal();
  Value string();
  Value number();
  Value numberOfBase(int base);

  std::string_view text_;
  size_t offset_ = 0;
};

// A word counts only when the name does not go on after it.
bool Parser::takeWord(std::string_view word) {
  const std::string_view rest = text_.substr(offset_);
  if (!equalNames(rest.substr(0, word.size()), word)) return false;
  if (rest.size() > word.size() && continuesName(rest[word.size()])) return false;
  offset_ += word.size();
  skipSpaces();
  return true;
}

std::string_view Parser::takeName(const char* what) {
  if (!startsName(next())) fail(std::string("the name of ") + what + " is missing");
  const size_t start = offset_;
  while (!atEnd() && continuesName(next())) ++offset_;
  const std::string_view name = text_.substr(start, offset_ - start);
  skipSpaces();
  return name;
}

Type Parser::type() {
  Type found = typeNamed(takeName("a type"));
  if (take('(')) {
    expect(')');
    found.array = true;
  }
  return found;
}

Type Parser::typeAfterAs() {
  if (!takeWord("as")) fail("\"as\" and a type are missing");
  return type();
}

Parameter Parser::parameter() {
  Parameter parsed;
  for (bool more = true; more;) {
    parsed.byref = takeWord("byref") || parsed.byref;
    parsed.assigns = takeWord("assigns") || parsed.assigns;
    more = takeWord("byval") || takeWord("optional");
  }
  parsed.name = takeName("a parameter");
  const bool array = take('(');
  if (array) expect(')');
  parsed.type = typeAfterAs();
  parsed.type.array = parsed.type.array || array;
  if (take('=')) parsed.defaultValue = literal();
  return parsed;
}

std::vector<Parameter> Parser::parameters() {
  std::vector<Parameter> list;
  do {
    list.push_back(parameter());
  } while (take(','));
  return list;
}

Declaration Parser::declaration() {
  Declaration parsed;
  const size_t start = offset_;
  parsed.name = takeName("the method");
  if (take('(')) {
    if (next() != ')') parsed.parameters = parameters();
    expect(')');
  }
  if (takeWord("as")) parsed.result = type();
  if (next() == ',' || next() == '=') {
    offset_ = start;
    parsed = {"Constructor", parameters(), std::nullopt};
  }
  expectEnd();
  return parsed;
}

Declaration Parser::property() {
  Declaration parsed;
  parsed.name = takeName("the property");
  parsed.result = typeAfterAs();
  expectEnd();
  return parsed;
}

ConstantDeclaration Parser::constant() {
  ConstantDeclaration parsed;
  parsed.name = takeName("the constant");
  expect('=');
  parsed.value = literal();
  expectEnd();
  return parsed;
}

Value Parser::literal() {
  if (takeWord("nil")) return {};
  if (takeWord("true")) return Value::boolean(true);
  if (takeWord("false")) return Value::boolean(false);
  return next() == '"' ? string() : number();
}

Value Parser::string() {
  std::string content;
  for (;;) {
    const size_t end = text_.find('"', offset_ + 1);
    if (end == std::string_view::npos) fail("a string does not end");
    content += text_.substr(offset_ + 1, end - offset_ - 1);
    offset_ = end + 1;
    if (next() != '"') break;
    content += '"';
  }
  skipSpaces();
  return Value::string(content);
}

Value Parser::number() {
  if (next() == '&' && offset_ + 1 < text_.size()) {
    const char prefix = lowered(text_[offset_ + 1]);
    if (prefix == 'h') return numberOfBase(16);
    if (prefix == 'o') return numberOfBase(8);
    if (prefix == 'b') return numberOfBase(2);
  }
  const char* const start = text_.data() + offset_;
  const char* const end = text_.data() + text_.size();
  double number = 0;
  const auto [stop, error] = std::from_chars(start, end, number);
  if (error != std::errc()) fail("a value is missing");
  int64_t whole = 0;
  const auto [wholeStop, wholeError] = std::from_chars(start, end, whole);
  offset_ += static_cast<size_t>(stop - start);
  skipSpaces();
  const bool isWhole = wholeError == std::errc() && wholeStop == stop;
  const bool isMinusZero = number == 0 && std::signbit(number);  // which no integer is
  return isWhole && !isMinusZero ? Value::integer(whole) : Value::number(number);
}

Value Parser::numberOfBase(int base) {
  const char* const start = text_.data() + offset_ + 2;
  uint64_t number = 0;
  const auto [stop, error] = std::from_chars(start, text_.data() + text_.size(), number, base);
  if (error != std::errc()) fail("a number does not follow its prefix");
  offset_ += static_cast<size_t>(stop - start) + 2;
  skipSpaces();
  return Value::integer(static_cast<int64_t>(number));
}

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) result.append(c == '"' ? 2 : 1, c);
  return result + '"';
}

std::string describeLiteral(const Value& value) {
  if (value.isNil()) return "nil";
  if (value.isString()) return quoted(bytesOf(value.asString()));
  if (value.kind() == Kind::Boolean) return value.asBoolean() ? "true" : "false";
  return value.isFloating() ? numberText(value.asDouble()) : std::to_string(value.asInteger());
}

std::string describe(const Parameter& parameter) {
  std::string text = std::string(parameter.byref ? "byref " : "") + (parameter.assigns ? "assigns " : "");
  text += parameter.name + " as " + describe(parameter.type);
  if (parameter.defaultValue) text += " = " + describeLiteral(*parameter.defaultValue);
  return text;
}

}  // namespace

bool equalNames(std::string_view left, std::string_view right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                   [](char one, char other) { return lowered(one) == lowered(other); });
}

std::string lowerCase(std::string_view name) {
  std::string result(name);
  std::transform(result.begin(), result.end(), result.begin(), lowered);
  return result;
}

// `typeNamed` spells it in one way only.
bool Type::isVariant() const { return kind == Kind::Object && name == variantName; }

bool operator==(const Type& left, const Type& right) {
  return left.kind == right.kind && left.array == right.array && equalNames(left.name, right.name);
}

Type typeNamed(std::string_view name) {
  if (equalNames(name, variantName)) return {Kind::Object, variantName, false};
  for (const Kind kind : allKinds) {
    if (kind != Kind::Nil && equalNames(name, typeName(kind))) return {kind, typeName(kind), false};
  }
  for (const auto& alias : typeAliases) {
    if (equalNames(name, alias.name)) return {alias.kind, typeName(alias.kind), false};
  }
  return {Kind::Object, std::string(name), false};
}

std::string describe(const Type& type) { return type.name + (type.array ? "()" : ""); }

size_t Declaration::requiredParameters() const {
  return static_cast<size_t>(std::count_if(parameters.begin(), parameters.end(),
                                           [](const Parameter& parameter) { return !parameter.defaultValue; }));
}

Declaration parseDeclaration(std::string_view text) { return Parser(text).declaration(); }
Declaration parsePropertyDeclaration(std::string_view text) { return Parser(text).property(); }
ConstantDeclaration parseConstant(std::string_view text) { return Parser(text).constant(); }

bool sameSignature(const Declaration& left, const Declaration& right) {
  const auto sameParameter = [](const Parameter& one, const Parameter& other) {
    return one.type == other.type && one.byref == other.byref && one.assigns == other.assigns;
  };
  return equalNames(left.name, right.name) && left.result == right.result &&
         std::equal(left.parameters.begin(), left.parameters.end(), right.parameters.begin(), right.parameters.end(),
                    sameParameter);
}

std::string describe(const Declaration& declaration) {
  std::string text = declaration.name;
  for (size_t index = 0; index < declaration.parameters.size(); ++index) {
    text += (index == 0 ? "(" : ", ") + describe(declaration.parameters[index]);
  }
  if (!declaration.parameters.empty()) text += ")";
  if (declaration.result) text += " as " + describe(*declaration.result);
  return text;
}

}  // namespace host
