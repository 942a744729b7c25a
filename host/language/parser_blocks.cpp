// The rules of the statements that hold others.
#include <algorithm>

#include "host/language/branches.hpp"
#include "host/language/calls.hpp"
#include "host/language/diagnosis.hpp"
#include "host/language/loops.hpp"
#include "host/language/parser_guards.hpp"
#include "host/language/try.hpp"
#include "host/language/variables.hpp"

namespace language {

bool Parser::atOneOf(std::initializer_list<std::string_view> words) const {
  return std::any_of(words.begin(), words.end(), [this](std::string_view word) { return peek().is(word); });
}

void Parser::expectEnd(std::string_view what) {
  if (!accept("end") || !accept(foldedName(what)))
    fail("\"End " + std::string(what) + "\" belongs here, not " + describeNext());
}

// The lines up to one that begins with one of the words.
Block Parser::takeBlock(std::initializer_list<std::string_view> ends, std::string_view what, Position start) {
  const BlockGuard guard(*this);
  const std::string word = foldedName(what);
  const OpenBlock open(*this, word);
  Block block;
  for (skipEmptyLines(); !atOneOf(ends); skipEmptyLines()) {
    if (peek().kind == TokenKind::EndOfFile) failAt(start, "This " + std::string(what) + " has no end");
    takeLineInto(block);
  }
  return block;
}

// What follows Then or Else on the same line.
Block Parser::takeLine() {
  const BlockGuard guard(*this);
  Block block;
  do takeInto(block);
  while (!peek().is("else") && atSeparator() && (take(), !atEndOfStatement()));
  return block;
}

void Parser::takeLineInto(Block& block) {
  if (diagnosis_ != nullptr) return takeRecovering(block);
  takeInto(block);
  endStatement();
}

void Parser::takeInto(Block& block) {
  operations_ = 0;
  if (atFunction()) fail("A " + peek().text + " stands by itself, not inside anything");
  if (peek().is("dim") || peek().is("var")) return takeDeclarations(block);
  if (peek().is("const")) return takeConstant(block);
  block.add(takeStatement());
}

StatementPointer Parser::takeStatement() {
  const DepthGuard guard(*this);
  struct Rule {
    std::string_view word;
    StatementPointer (Parser::*take)();
  };
  static constexpr Rule kRules[] = {{"if", &Parser::takeIf},   {"select", &Parser::takeSelect},
                                    {"for", &Parser::takeFor}, {"while", &Parser::takeWhile},
                                    {"do", &Parser::takeDo},   {"try", &Parser::takeTry}};
  for (const Rule& rule : kRules) {
    // The analyzer loses sight of who owns a statement on its way through the member pointer.
    if (peek().is(rule.word)) return (this->*rule.take)();  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
  }
  return takeSimpleStatement();
}

StatementPointer Parser::takeIf() {
  const Position start = take().position;
  std::vector<If::Branch> branches;
  ExpressionPointer condition = takeExpression();
  expect("then");
  if (!atEndOfStatement()) return takeLineIf(start, std::move(condition));
  branches.push_back({std::move(condition), takeBlock({"elseif", "else", "end"}, "If", start)});
  while (accept("elseif")) {
    condition = takeExpression();
    expect("then");
    branches.push_back({std::move(condition), takeBlock({"elseif", "else", "end"}, "If", start)});
  }
  Block otherwise;
  if (accept("else")) otherwise = takeBlock({"end"}, "If", start);
  expectEnd("If");
  return std::make_unique<If>(start, std::move(branches), std::move(otherwise));
}

StatementPointer Parser::takeLineIf(Position start, ExpressionPointer condition) {
  std::vector<If::Branch> branches;
  branches.push_back({std::move(condition), takeLine()});
  Block otherwise;
  if (accept("else")) otherwise = takeLine();
  return std::make_unique<If>(start, std::move(branches), std::move(otherwise));
}

StatementPointer Parser::takeSelect() {
  const Position start = take().position;
  expect("case");
  ExpressionPointer value = takeExpression();
  endStatement();
  skipEmptyLines();
  std::vector<Select::Case> cases;
  Block otherwise;
  const BlockGuard guard(*this, LoopKind::Select);
  while (accept("case")) {
    if (accept("else")) {
      otherwise = takeBlock({"end"}, "Select", start);
      break;
    }
    std::vector<CaseTest> tests;
    do tests.push_back(takeCaseTest());
    while (acceptSymbol(","));
    endStatement();
    cases.push_back({std::move(tests), takeBlock({"case", "end"}, "Select", start)});
  }
  expectEnd("Select");
  return std::make_unique<Select>(start, std::move(value), std::move(cases), std::move(otherwise));
}

CaseTest Parser::takeCaseTest() {
  CaseTest test;
  if (accept("isa")) {
    test.className = takeClassName();
    return test;
  }
  if (accept("is")) {
    const OperatorRow* row = peek().kind == TokenKind::Symbol ? findOperator(peek().text) : nullptr;
    if (row == nullptr || row->level != kComparisonLevel) fail("A comparison belongs here, not " + describeNext());
    take();
    test.comparison = row->code;
  }
  test.value = takeExpression();
  if (accept("to")) test.last = takeExpression();
  return test;
}

StatementPointer Parser::takeFor() {
  const Position start = take().position;
  const BlockGuard guard(*this, LoopKind::For);
  return accept("each") ? takeForEach(start) : takeCounting(start);
}

// A name of its own ("For i As Integer"), or a variable that is there.
ExpressionPointer Parser::takeLoopVariable() {
  const Token name = peek();
  takeName("variable");
  if (accept("as")) return std::make_unique<VariableReference>(name.position, declare(name, takeType()));
  const Variable* variable = scope_->find(name.folded);
  if (variable == nullptr) failAt(name.position, "There is no variable \"" + name.text + "\"");
  if (variable->isConstant) failAt(name.position, "\"" + name.text + "\" is a constant");
  return std::make_unique<VariableReference>(name.position, *variable);
}

StatementPointer Parser::takeForEach(Position start) {
  ExpressionPointer variable = takeLoopVariable();
  expect("in");
  ExpressionPointer collection = takeExpression();
  Block body = takeBlock({"next"}, "For", start);
  takeNext();
  return std::make_unique<ForEach>(start, std::move(variable), std::move(collection), std::move(body));
}

StatementPointer Parser::takeCounting(Position start) {
  ExpressionPointer variable = takeLoopVariable();
  expectSymbol("=");
  For::Bounds bounds;
  bounds.first = takeExpression();
  bounds.downwards = accept("downto");
  if (!bounds.downwards) expect("to");
  bounds.last = takeExpression();
  if (accept("step")) bounds.step = takeExpression();
  Block body = takeBlock({"next"}, "For", start);
  takeNext();
  return std::make_unique<For>(start, std::move(variable), std::move(bounds), std::move(body));
}

void Parser::takeNext() {
  expect("next");
  if (!atEndOfStatement()) takeName("variable");
}

StatementPointer Parser::takeWhile() {
  const Position start = take().position;
  const BlockGuard guard(*this, LoopKind::While);
  Loop::Test test{takeExpression(), true};
  Block body = takeBlock({"wend"}, "While", start);
  expect("wend");
  return std::make_unique<Loop>(start, LoopKind::While, std::move(test), Loop::Test{}, std::move(body));
}

StatementPointer Parser::takeDo() {
  const Position start = take().position;
  const BlockGuard guard(*this, LoopKind::Do);
  const auto takeTest = [this]() -> Loop::Test {
    if (accept("while")) return {takeExpression(), true};
    if (accept("until")) return {takeExpression(), false};
    return {};
  };
  Loop::Test before = takeTest();
  Block body = takeBlock({"loop"}, "Do", start);
  expect("loop");
  return std::make_unique<Loop>(start, LoopKind::Do, std::move(before), takeTest(), std::move(body));
}

StatementPointer Parser::takeTry() {
  const Position start = take().position;
  Block body = takeBlock({"catch", "finally", "end"}, "Try", start);
  std::vector<Try::Catch> catches;
  while (accept("catch")) {
    const BlockGuard guard(*this);
    std::optional<Variable> variable;
    if (!atEndOfStatement()) {
      const Token name = peek();
      takeName("variable");
      variable = declare(name, accept("as") ? takeType() : host::typeNamed("RuntimeException"));
    }
    catches.push_back({std::move(variable), takeBlock({"catch", "finally", "end"}, "Try", start)});
  }
  Block finally;
  if (accept("finally")) finally = takeBlock({"end"}, "Try", start);
  expectEnd("Try");
  return std::make_unique<Try>(start, std::move(body), std::move(catches), std::move(finally));
}

}  // namespace language
