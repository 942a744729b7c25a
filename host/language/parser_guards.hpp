// What holds while a block of a program is being read.
#pragma once

#include <optional>

#include "host/language/parser.hpp"

namespace language {

// A block with names of its own, inside a loop of the kind or no loop.
class Parser::BlockGuard {
 public:
  explicit BlockGuard(Parser& parser, std::optional<LoopKind> loop = {}) : parser_(parser), loop_(loop.has_value()) {
    parser_.scope_->open();
    if (loop_) parser_.loops_.push_back(*loop);
  }
  BlockGuard(const BlockGuard&) = delete;
  BlockGuard& operator=(const BlockGuard&) = delete;
  ~BlockGuard() {
    if (loop_) parser_.loops_.pop_back();
    parser_.scope_->close();
  }

 private:
  Parser& parser_;
  const bool loop_;
};

// A block that nothing has ended yet, by the word that begins it.
class Parser::OpenBlock {
 public:
  OpenBlock(Parser& parser, std::string_view word) : parser_(parser) { parser_.openBlocks_.push_back(word); }
  OpenBlock(const OpenBlock&) = delete;
  OpenBlock& operator=(const OpenBlock&) = delete;
  ~OpenBlock() { parser_.openBlocks_.pop_back(); }

 private:
  Parser& parser_;
};

}  // namespace language
