// How the parser goes on behind an error, so that a check finds the next ones and not this one again.
#include <algorithm>

#include "host/language/diagnosis.hpp"
#include "host/language/parser_guards.hpp"

namespace language {
namespace {

// The statements that hold others, and what ends them: "End" and their own word where there is no other.
struct BlockRow {
  std::string_view word, end;
  std::optional<LoopKind> loop;
};
constexpr BlockRow blockRows[] = {
    {"if", "", {}},
    {"select", "", LoopKind::Select},
    {"try", "", {}},
    {"sub", "", {}},
    {"function", "", {}},
    {"for", "next", LoopKind::For},
    {"while", "wend", LoopKind::While},
    {"do", "loop", LoopKind::Do},
};

std::optional<LoopKind> loopOf(std::string_view block) {
  const auto row = std::find_if(std::begin(blockRows), std::end(blockRows),
                                [=](const BlockRow& candidate) { return candidate.word == block; });
  return row == std::end(blockRows) ? std::nullopt : row->loop;
}

constexpr std::string_view declaring[] = {"dim", "var", "const", "for", "each", "catch"};

// Broken blocks inside each other; what is nested deeper is no longer looked at.
constexpr size_t deepestRecovery = 200;

// Thrown where a statement cannot go on because an outer one ends here.
struct OuterBlockEnds {};

}  // namespace

// The block that the line here ends, by its first word; "" when it ends none.
std::string_view Parser::blockEndedHere() const {
  for (const BlockRow& row : blockRows) {
    if (row.end.empty() ? peek().is("end") && peek(1).is(row.word) : peek().is(row.end)) return row.word;
  }
  return "";
}

// By the word that begins it; "" for a statement that holds no others, as "If a Then b" does on its one line.
std::string_view Parser::blockBegunAt(size_t first) const {
  const Token& token = tokens_[first];
  const auto row = std::find_if(std::begin(blockRows), std::end(blockRows),
                                [&](const BlockRow& candidate) { return token.is(candidate.word); });
  if (row == std::end(blockRows)) return "";
  if (!token.is("if")) return row->word;
  size_t last = first;
  while (tokens_[last].kind != TokenKind::EndOfLine && !tokens_[last].is("then")) ++last;
  const bool isOneLine = tokens_[last].is("then") && tokens_[last + 1].kind != TokenKind::EndOfLine;
  return isOneLine ? "" : row->word;
}

bool Parser::isOpen(std::string_view block) const {
  return std::find(openBlocks_.begin(), openBlocks_.end(), block) != openBlocks_.end();
}

void Parser::skipLine() {
  while (!atEndOfStatement()) take();
}

// Names that were declared in what is left out are not to be missed later.
void Parser::hideDeclarations(size_t first) {
  bool declares = false;
  for (size_t index = first; index < tokens_.size() && (index < at_ || tokens_[index].kind != TokenKind::EndOfLine);
       ++index) {
    const Token& token = tokens_[index];
    if (token.kind == TokenKind::EndOfLine) declares = false;
    declares |= std::any_of(std::begin(declaring), std::end(declaring), [&](auto word) { return token.is(word); });
    if (declares && token.kind == TokenKind::Word) diagnosis_->hide(token.folded);
  }
}

void Parser::complainAt(Position position, const std::string& message) {
  if (diagnosis_ == nullptr) failAt(position, message);
  diagnosis_->note({position, message});
}

void Parser::takeRecovering(Block& block) {
  const size_t first = at_;
  try {
    takeInto(block);
    endStatement();
    return;
  } catch (const SyntaxError& error) {
    diagnosis_->note(error);
  } catch (const OuterBlockEnds&) {
  }
  recoverFrom(first, blockBegunAt(first));
}

// Leaves out the line that went wrong, and reads on to the end of the block that it belongs to. A line that ends an outer
// block is left for that one.
void Parser::recoverFrom(size_t first, std::string_view block) {
  while (at_ > first && tokens_[at_ - 1].kind != TokenKind::EndOfLine) --at_;
  hideDeclarations(first);
  if (peek().kind == TokenKind::EndOfFile) return;
  const std::string_view ended = blockEndedHere();
  if (!ended.empty() && ended != block && isOpen(ended)) {
    if (openBlocks_.back() != ended) throw OuterBlockEnds();
    return;
  }
  skipLine();
  if (!block.empty() && ended != block) takeRest(block);
}

void Parser::takeRest(std::string_view block) {
  if (openBlocks_.size() > deepestRecovery) {
    at_ = tokens_.size() - 1;
    return;
  }
  const OpenBlock open(*this, block);
  const BlockGuard guard(*this, loopOf(block));
  Block ignored;
  for (skipEmptyLines(); peek().kind != TokenKind::EndOfFile; skipEmptyLines()) {
    const std::string_view ended = blockEndedHere();
    if (ended == block) return skipLine();
    if (isOpen(ended)) return;
    try {
      atOneOf({"else", "elseif", "case", "catch", "finally"}) ? takeBranch() : takeRecovering(ignored);
    } catch (const OuterBlockEnds&) {
      // The next turn sees what ends here.
    }
  }
}

// Names of the branch before do not hold in the next one.
void Parser::takeBranch() {
  skipLine();
  scope_->close();
  scope_->open();
}

void Parser::readBodyRecovering(Function& function) {
  const size_t first = at_;
  try {
    return takeBody(function);
  } catch (const SyntaxError& error) {
    diagnosis_->note(error);
  } catch (const OuterBlockEnds&) {
  }
  recoverFrom(first, function.result != nullptr ? "function" : "sub");
}

}  // namespace language
