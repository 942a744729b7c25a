// Where something stands in a program's source, and the error that points there.
#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>

namespace language {

// Both count from 1; a column is a character, not a byte.
struct Position {
  uint32_t line = 1;
  uint32_t column = 1;
};

// The program cannot be read. Thrown by the lexer and the parser, never once a program runs.
class SyntaxError : public std::runtime_error {
 public:
  SyntaxError(Position where, const std::string& message) : std::runtime_error(message), position(where) {}
  Position position;
};

// The first error of each line: what else is wrong there often follows from it.
using ErrorsByLine = std::map<uint32_t, SyntaxError>;

}  // namespace language
