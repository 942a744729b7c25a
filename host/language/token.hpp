// The words that a program's source is made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/language/position.hpp"

namespace language {

enum class TokenKind { Word, Integer, Number, Colour, String, Symbol, EndOfLine, EndOfFile };

struct Token {
  TokenKind kind = TokenKind::EndOfFile;
  Position position;
  std::string text;    // a word or symbol as written; the contents of a string literal
  std::string folded;  // a word in lower case
  int64_t integer = 0;
  double number = 0;

  bool is(std::string_view word) const { return kind == TokenKind::Word && folded == word; }
  bool isSymbol(std::string_view symbol) const { return kind == TokenKind::Symbol && text == symbol; }
};

// Names are compared in lower case; only ASCII letters have cases here.
std::string foldedName(std::string_view name);

// Splits a source into tokens. The last one is EndOfFile, and an EndOfLine stands before it. Throws SyntaxError; where
// errors are collected, the first of each line goes there instead.
std::vector<Token> tokenize(std::string_view source, ErrorsByLine* errors = nullptr);

}  // namespace language
