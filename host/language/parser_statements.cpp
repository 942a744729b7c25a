// The rules of the statements that hold no others.
#include "host/language/builtins.hpp"
#include "host/language/calls.hpp"
#include "host/language/operators.hpp"
#include "host/language/parser.hpp"
#include "host/language/simple_statements.hpp"
#include "host/language/variables.hpp"

namespace language {
namespace {

// "Exit For" and the like; the word after "Exit" may be missing.
struct LoopRow {
  std::string_view word;
  LoopKind kind;
};
constexpr LoopRow kLoops[] = {
    {"for", LoopKind::For}, {"while", LoopKind::While}, {"do", LoopKind::Do}, {"select", LoopKind::Select}};

struct UpdateRow {
  std::string_view symbol;
  Operator code;
};
constexpr UpdateRow kUpdates[] = {{"+=", Operator::Add},
                                  {"-=", Operator::Subtract},
                                  {"*=", Operator::Multiply},
                                  {"/=", Operator::Divide},
                                  {"&=", Operator::Concatenate}};

}  // namespace

StatementPointer Parser::takeSimpleStatement() {
  struct Rule {
    std::string_view word;
    StatementPointer (Parser::*take)();
  };
  static constexpr Rule kRules[] = {{"exit", &Parser::takeLeave},
                                    {"continue", &Parser::takeLeave},
                                    {"return", &Parser::takeReturn},
                                    {"raise", &Parser::takeRaise},
                                    {"print", &Parser::takePrint}};
  for (const Rule& rule : kRules) {
    if (peek().is(rule.word)) return (this->*rule.take)();
  }
  return takeCallOrAssignment();
}

void Parser::takeDeclarations(Block& block) {
  take();
  do {
    struct Name {
      Token token;
      bool isArray;
      ExpressionPointer lastIndex;
    };
    std::vector<Name> names;
    do {
      const Token token = peek();
      takeName("variable");
      const bool isArray = acceptSymbol("(");
      ExpressionPointer lastIndex;
      if (isArray && !peek().isSymbol(")")) lastIndex = takeExpression();
      if (isArray) expectSymbol(")");
      names.push_back({token, isArray, std::move(lastIndex)});
    } while (!peek().is("as") && acceptSymbol(","));
    expect("as");
    const Token typeToken = peek();
    const bool creates = accept("new");
    const Type type = creates ? host::typeNamed(peek().text) : takeType();
    ExpressionPointer initial = creates ? takeNew() : acceptSymbol("=") ? takeExpression() : nullptr;
    if (initial != nullptr && names.size() > 1)
      failAt(typeToken.position, "Only one variable at a time can be given a value");
    for (Name& name : names) {
      Type own = type;
      own.array |= name.isArray;
      const Variable& variable = declare(name.token, own);
      block.add(std::make_unique<Declare>(name.token.position, variable, std::move(initial), std::move(name.lastIndex)));
    }
  } while (acceptSymbol(","));
}

void Parser::takeConstant(Block& block) {
  take();
  const Token name = peek();
  takeName("constant");
  if (accept("as")) takeType();
  expectSymbol("=");
  ExpressionPointer value = takeExpression();
  block.add(
      std::make_unique<Declare>(name.position, declare(name, host::typeNamed("Variant"), true), std::move(value), nullptr));
}

StatementPointer Parser::takeLeave() {
  const Token word = take();
  const bool leaves = word.is("exit");
  if (leaves && (accept("sub") || accept("function"))) {
    if (function_ == nullptr || function_->result != nullptr) failAt(word.position, "Only a Sub can be left like this");
    return std::make_unique<Return>(word.position, nullptr);
  }
  LoopKind kind = LoopKind::Any;
  for (const LoopRow& row : kLoops) {
    if (accept(row.word)) kind = row.kind;
  }
  for (const LoopKind around : loops_) {
    if (kind == LoopKind::Any ? around != LoopKind::Select : around == kind) {
      return std::make_unique<Jump>(word.position, leaves ? Flow::Leave : Flow::Continue, kind);
    }
  }
  failAt(word.position, "There is no such loop around this " + word.text);
}

StatementPointer Parser::takeReturn() {
  const Position start = take().position;
  const bool hasResult = function_ != nullptr && function_->result != nullptr;
  if (atEndOfStatement() && hasResult) failAt(start, "A Function returns a value");
  if (!atEndOfStatement() && !hasResult) failAt(start, "Only a Function returns a value");
  return std::make_unique<Return>(start, hasResult ? takeExpression() : nullptr);
}

StatementPointer Parser::takeRaise() {
  const Position start = take().position;
  return std::make_unique<Raise>(start, takeExpression());
}

StatementPointer Parser::takePrint() {
  const Position start = take().position;
  return std::make_unique<Print>(start, atEndOfStatement() || peek().is("else") ? Expressions{} : takeList());
}

StatementPointer Parser::takeCallOrAssignment() {
  accept("call");
  const size_t first = at_;
  const Position start = peek().position;
  ExpressionPointer target = takePostfix(true);
  const Token next = peek();
  if (acceptSymbol("=")) {
    if (!target->isAssignable()) complainAt(start, "Nothing can be assigned to this");
    return std::make_unique<Assign>(start, std::move(target), takeExpression());
  }
  for (const UpdateRow& row : kUpdates) {
    if (!acceptSymbol(row.symbol)) continue;
    if (!target->isAssignable()) complainAt(start, "Nothing can be assigned to this");
    ExpressionPointer value = takeExpression();
    const size_t end = std::exchange(at_, first);
    ExpressionPointer old = takePostfix(false);
    at_ = end;
    return std::make_unique<Assign>(start, std::move(target),
                                    std::make_unique<Binary>(next.position, row.code, std::move(old), std::move(value)));
  }
  return std::make_unique<Evaluate>(start, std::move(target));
}

}  // namespace language
