// Cutting RTF into tokens.
#include "standin/formats/rtf/lexer.hpp"

#include <algorithm>
#include <array>
#include <climits>

namespace standin::formats::rtf {
namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr auto endsText = [] {
  std::array<bool, 256> table{};
  for (const char c : {'{', '}', '\\', '\r', '\n'}) table[static_cast<unsigned char>(c)] = true;
  return table;
}();

int hexDigit(char c) {
  if (isDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

}  // namespace

Token Lexer::next() {
  // Line ends mean nothing; a zero byte ends nothing either.
  while (!rest_.empty() && (rest_[0] == '\r' || rest_[0] == '\n' || rest_[0] == '\0')) rest_.remove_prefix(1);
  if (rest_.empty()) return {};
  const char first = rest_[0];
  if (first == '{' || first == '}') {
    rest_.remove_prefix(1);
    return {.kind = first == '{' ? TokenKind::open : TokenKind::close};
  }
  if (first == '\\') return control();
  const auto end = std::find_if(rest_.begin(), rest_.end(), [](unsigned char c) { return endsText[c]; });
  const std::string_view text = rest_.substr(0, static_cast<size_t>(end - rest_.begin()));
  rest_.remove_prefix(text.size());
  return {.kind = TokenKind::text, .text = text};
}

Token Lexer::control() {
  rest_.remove_prefix(1);
  if (rest_.empty()) return {};
  if (isLetter(rest_[0])) return controlWord();
  const char symbol = rest_[0];
  rest_.remove_prefix(1);
  if (symbol != '\'') return {.kind = TokenKind::symbol, .byte = static_cast<uint8_t>(symbol)};
  if (rest_.size() < 2 || hexDigit(rest_[0]) < 0 || hexDigit(rest_[1]) < 0) return {.kind = TokenKind::text};
  const int byte = hexDigit(rest_[0]) * 16 + hexDigit(rest_[1]);
  rest_.remove_prefix(2);
  return {.kind = TokenKind::byte, .byte = static_cast<uint8_t>(byte)};
}

Token Lexer::controlWord() {
  const auto end = std::find_if_not(rest_.begin(), rest_.end(), isLetter);
  Token token{.kind = TokenKind::word, .text = rest_.substr(0, static_cast<size_t>(end - rest_.begin()))};
  rest_.remove_prefix(token.text.size());
  token.parameter = parameter();
  if (!rest_.empty() && rest_[0] == ' ') rest_.remove_prefix(1);
  return token;
}

// A number too large for 32 bits stops at their limit.
std::optional<int> Lexer::parameter() {
  const bool negative = rest_.size() > 1 && rest_[0] == '-' && isDigit(rest_[1]);
  if (negative) rest_.remove_prefix(1);
  if (rest_.empty() || !isDigit(rest_[0])) return std::nullopt;
  int64_t value = 0;
  while (!rest_.empty() && isDigit(rest_[0])) {
    value = std::min<int64_t>(value * 10 + (rest_[0] - '0'), INT_MAX);
    rest_.remove_prefix(1);
  }
  return static_cast<int>(negative ? -value : value);
}

}  // namespace standin::formats::rtf
