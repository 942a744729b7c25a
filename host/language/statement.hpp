// What every statement of a program can do.
#pragma once

#include <memory>
#include <vector>

#include "host/language/position.hpp"

namespace language {

struct Frame;

// How a statement ended. Leave and Continue are meant for the innermost loop of the kind that the frame names.
enum class Flow { Next, Leave, Continue, Return };
enum class LoopKind { Any, For, While, Do, Select };

class Statement {
 public:
  explicit Statement(Position where) : position(where) {}
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  virtual ~Statement() = default;

  virtual Flow run(Frame& frame) const = 0;

  const Position position;
};

using StatementPointer = std::unique_ptr<Statement>;

class Block {
 public:
  void add(StatementPointer statement) { statements_.push_back(std::move(statement)); }
  bool isEmpty() const { return statements_.empty(); }
  Flow run(Frame& frame) const;

 private:
  std::vector<StatementPointer> statements_;
};

}  // namespace language
