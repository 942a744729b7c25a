// RTF as tokens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace standin::formats::rtf {

enum class TokenKind { end, open, close, word, symbol, text, byte };

struct Token {
  TokenKind kind = TokenKind::end;
  std::string_view text{};         // a control word's letters, or a stretch of text
  std::optional<int> parameter{};  // of a control word, within 32 bits
  uint8_t byte = 0;                // of \'hh, or a control symbol's character
};

class Lexer {
 public:
  explicit Lexer(std::span<const uint8_t> bytes) : rest_(reinterpret_cast<const char*>(bytes.data()), bytes.size()) {}

  Token next();
  // Raw bytes, as many as there are: what follows \bin.
  std::string_view take(size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }

 private:
  Token control();
  Token controlWord();
  std::optional<int> parameter();

  std::string_view rest_;
};

}  // namespace standin::formats::rtf
