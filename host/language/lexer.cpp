// Splits a source into tokens.
#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "host/language/token.hpp"

namespace language {
namespace {

constexpr std::array<std::string_view, 24> kSymbols = {"<>", "<=", ">=", "+=", "-=", "*=", "/=", "&=", "+", "-", "*", "/",
                                                       "\\", "^",  "&",  "=",  "<",  ">",  "(",  ")",  ",", ".", ":", "_"};

bool isDigit(char unit) { return unit >= '0' && unit <= '9'; }
bool isLetter(char unit) { return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') || (unit & 0x80) != 0; }
bool isWordUnit(char unit) { return isLetter(unit) || isDigit(unit) || unit == '_'; }
bool isBlank(char unit) { return unit == ' ' || unit == '\t' || unit == '\r'; }
bool startsCharacter(char unit) { return (unit & 0xC0) != 0x80; }

void appendCharacter(std::string& text, uint32_t character) {
  auto put = [&](uint32_t unit) { text += static_cast<char>(unit); };
  if (character < 0x80) return put(character);
  if (character < 0x800) return put(0xC0 | character >> 6), put(0x80 | (character & 0x3F));
  if (character < 0x10000) {
    put(0xE0 | character >> 12);
  } else {
    put(0xF0 | character >> 18);
    put(0x80 | (character >> 12 & 0x3F));
  }
  put(0x80 | (character >> 6 & 0x3F));
  put(0x80 | (character & 0x3F));
}

class Lexer {
 public:
  Lexer(std::string_view source, ErrorsByLine* errors) : source_(source), errors_(errors) {
    if (source_.starts_with("\xEF\xBB\xBF")) source_.remove_prefix(3);
  }

  std::vector<Token> run() {
    while (at_ < source_.size()) next();
    begin(TokenKind::EndOfLine);
    begin(TokenKind::EndOfFile);
    return std::move(tokens_);
  }

 private:
  char peek(size_t ahead = 0) const { return at_ + ahead < source_.size() ? source_[at_ + ahead] : '\0'; }
  bool onEndOfLine() const { return at_ >= source_.size() || source_[at_] == '\n'; }

  void advance(size_t count = 1) {
    for (; count > 0 && at_ < source_.size(); --count, ++at_) {
      if (source_[at_] == '\n') {
        position_ = {position_.line + 1, 1};
      } else if (startsCharacter(source_[at_])) {
        ++position_.column;
      }
    }
  }

  std::string_view take(size_t count) {
    const std::string_view taken = source_.substr(at_, count);
    advance(count);
    return taken;
  }

  template <class Predicate>
  size_t span(Predicate belongs, size_t from = 0) const {
    size_t length = from;
    while (at_ + length < source_.size() && belongs(source_[at_ + length])) ++length;
    return length;
  }

  Token& begin(TokenKind kind) {
    tokens_.push_back({});
    tokens_.back().kind = kind;
    tokens_.back().position = position_;
    return tokens_.back();
  }

  void complain(Position position, const char* message) {
    const SyntaxError error(position, message);
    if (errors_ == nullptr) throw error;
    errors_->emplace(position.line, error);
  }

  void next() {
    if (isBlank(peek())) return advance();
    if (onEndOfLine()) return begin(TokenKind::EndOfLine), advance();
    if (peek() == '\'' || (peek() == '/' && peek(1) == '/')) return comment();
    if (peek() == '"') return string();
    if (isDigit(peek()) || (peek() == '.' && isDigit(peek(1)))) return number();
    if (peek() == '&' && literalWithPrefix()) return;
    if (isLetter(peek()) || (peek() == '_' && isWordUnit(peek(1)))) return word();
    symbol();
  }

  void comment() {
    advance(span([](char unit) { return unit != '\n'; }));
  }

  void word() {
    const size_t length = span(isWordUnit);
    Token& token = begin(TokenKind::Word);
    token.text = take(length);
    token.folded = foldedName(token.text);
    if (token.folded != "rem") return;
    tokens_.pop_back();
    comment();
  }

  void string() {
    Token& token = begin(TokenKind::String);
    advance();
    while (peek() != '"' || peek(1) == '"') {
      if (onEndOfLine()) return complain(token.position, "This string has no closing quote");
      if (peek() == '"') advance();
      token.text += take(1);
    }
    advance();
  }

  void number() {
    size_t length = span(isDigit);
    bool whole = true;
    if (peek(length) == '.' && isDigit(peek(length + 1))) whole = false, length = span(isDigit, length + 1);
    if (const size_t exponent = exponentAt(length)) whole = false, length = exponent;
    if (length < source_.size() - at_ && isWordUnit(peek(length))) {
      complain(position_, "A name cannot begin with a digit");
      length = span(isWordUnit, length);
    }
    Token& token = begin(whole ? TokenKind::Integer : TokenKind::Number);
    const std::string_view digits = take(length);
    const char* end = digits.data() + digits.size();
    const auto read =
        whole ? std::from_chars(digits.data(), end, token.integer) : std::from_chars(digits.data(), end, token.number);
    if (read.ec != std::errc{}) complain(token.position, "This number is too large");
  }

  // The length of the number with the exponent that begins at a length, or 0.
  size_t exponentAt(size_t length) const {
    if (peek(length) != 'e' && peek(length) != 'E') return 0;
    ++length;
    if (peek(length) == '+' || peek(length) == '-') ++length;
    return isDigit(peek(length)) ? span(isDigit, length) : 0;
  }

  // &hFF, &b101, &o17, &cRRGGBB and the character &u1F600. False if this "&" is the operator.
  bool literalWithPrefix() {
    const char prefix = static_cast<char>(peek(1) | 0x20);
    const int base = prefix == 'b' ? 2 : prefix == 'o' ? 8 : prefix == 'h' || prefix == 'u' || prefix == 'c' ? 16 : 0;
    const size_t length = base == 0 ? 0 : span(isWordUnit, 2);
    if (length <= 2) return false;
    uint64_t value = 0;
    const char* first = source_.data() + at_ + 2;
    const char* end = source_.data() + at_ + length;
    const auto read = std::from_chars(first, end, value, base);
    if (read.ptr != end) return false;
    addLiteral(prefix, value, length, read.ec == std::errc{});
    return true;
  }

  void addLiteral(char prefix, uint64_t value, size_t length, bool fits) {
    const bool isCharacter = prefix == 'u';
    const uint64_t limit = isCharacter ? 0x10FFFF : prefix == 'c' ? 0xFFFFFFFF : UINT64_MAX;
    if (!fits || value > limit) complain(position_, "This number is too large");
    if (isCharacter && value >= 0xD800 && value <= 0xDFFF) complain(position_, "This is half a character");
    Token& token = begin(isCharacter ? TokenKind::String : prefix == 'c' ? TokenKind::Colour : TokenKind::Integer);
    token.integer = static_cast<int64_t>(value);
    if (isCharacter) appendCharacter(token.text, static_cast<uint32_t>(value));
    advance(length);
  }

  void symbol() {
    const auto found = std::find_if(kSymbols.begin(), kSymbols.end(), [this](std::string_view candidate) {
      return source_.substr(at_).starts_with(candidate);
    });
    if (found == kSymbols.end()) return complain(position_, "This character has no meaning here"), advance();
    if (*found == "_") return continuation();
    Token& token = begin(*found == ":" ? TokenKind::EndOfLine : TokenKind::Symbol);
    token.text = take(found->size());
  }

  void continuation() {
    const Position start = position_;
    advance();
    advance(span(isBlank));
    if (peek() == '\'' || (peek() == '/' && peek(1) == '/')) comment();
    if (!onEndOfLine()) complain(start, "Nothing but a comment may follow the line continuation");
    advance();
  }

  std::string_view source_;
  ErrorsByLine* errors_;
  size_t at_ = 0;
  Position position_;
  std::vector<Token> tokens_;
};

}  // namespace

std::string foldedName(std::string_view name) {
  std::string folded(name);
  for (char& unit : folded) {
    if (unit >= 'A' && unit <= 'Z') unit = static_cast<char>(unit | 0x20);
  }
  return folded;
}

std::vector<Token> tokenize(std::string_view source, ErrorsByLine* errors) { return Lexer(source, errors).run(); }

}  // namespace language
