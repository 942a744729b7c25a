// The rules of expressions.
#include <algorithm>

#include "host/language/calls.hpp"
#include "host/language/conversion.hpp"
#include "host/language/diagnosis.hpp"
#include "host/language/operators.hpp"
#include "host/language/parser.hpp"
#include "host/language/variables.hpp"

namespace language {
namespace {

// Deeper parentheses, and more operators and members in one statement, are refused, so that no program can exhaust the
// stack by its shape.
constexpr size_t kMaximumDepth = 200;
constexpr size_t kMaximumOperations = 4000;

}  // namespace

void Parser::countOperation() {
  if (++operations_ > kMaximumOperations) fail("This statement is too long");
}

ExpressionPointer Parser::takeExpression() { return takeBinary(0); }

ExpressionPointer Parser::takeBinary(size_t level) {
  if (level == kOperatorLevels) return takeSign();
  ExpressionPointer left = takeOperand(level);
  while (true) {
    const Token& token = peek();
    if (level == kComparisonLevel && accept("isa")) {
      left = takeClassTest(std::move(left));
      continue;
    }
    const OperatorRow* row = token.kind == TokenKind::Word || token.kind == TokenKind::Symbol
                                 ? findOperator(token.kind == TokenKind::Word ? token.folded : token.text)
                                 : nullptr;
    if (row == nullptr || row->level != level) return left;
    countOperation();
    take();
    left = std::make_unique<Binary>(token.position, row->code, std::move(left), takeOperand(level));
  }
}

ExpressionPointer Parser::takeOperand(size_t level) {
  if (level != kComparisonLevel || !peek().is("not")) return takeBinary(level + 1);
  const Position start = take().position;
  const DepthGuard guard(*this);
  return std::make_unique<Complement>(start, takeBinary(level));
}

ExpressionPointer Parser::takeClassTest(ExpressionPointer value) {
  countOperation();
  const Position start = peek().position;
  return std::make_unique<ClassTest>(start, std::move(value), takeClassName());
}

ExpressionPointer Parser::takeSign() {
  const Position start = peek().position;
  const DepthGuard guard(*this);
  if (acceptSymbol("+")) return takeSign();
  if (acceptSymbol("-")) return std::make_unique<Negation>(start, takeSign());
  return takePower();
}

ExpressionPointer Parser::takePower() {
  ExpressionPointer left = takePostfix(false);
  while (peek().isSymbol("^")) {
    countOperation();
    const Position start = take().position;
    const DepthGuard guard(*this);
    const bool isNegative = acceptSymbol("-");
    ExpressionPointer right = takePostfix(false);
    if (isNegative) right = std::make_unique<Negation>(start, std::move(right));
    left = std::make_unique<Binary>(start, Operator::Power, std::move(left), std::move(right));
  }
  return left;
}

ExpressionPointer Parser::takePostfix(bool startsStatement) {
  ExpressionPointer expression = takePrimary(startsStatement);
  while (acceptSymbol(".")) {
    countOperation();
    expression = takeMember(std::move(expression), startsStatement);
  }
  return expression;
}

ExpressionPointer Parser::takeMember(ExpressionPointer receiver, bool startsStatement) {
  const Token& name = peek();
  if (name.kind != TokenKind::Word) fail("The name of a member belongs here, not " + describeNext());
  take();
  Expressions arguments = takeArguments(startsStatement);
  const Type* known = diagnosis_ == nullptr ? nullptr : diagnosis_->member(receiver->knownType(), name, arguments.size());
  auto member = std::make_unique<Member>(name.position, std::move(receiver), name.text, std::move(arguments));
  member->typeInText = known;
  return member;
}

ExpressionPointer Parser::takePrimary(bool startsStatement) {
  if (peek().isSymbol("(")) return takeParenthesized();
  if (peek().kind != TokenKind::Word) return takeLiteral();
  if (peek().is("new")) {
    take();
    return takeNew();
  }
  if (peek().is("true") || peek().is("false") || peek().is("nil")) return takeLiteral();
  if (isReserved(peek())) fail("An expression belongs here, not " + describeNext());
  return takeNamed(startsStatement);
}

ExpressionPointer Parser::takeParenthesized() {
  const DepthGuard guard(*this);
  take();
  ExpressionPointer inner = takeExpression();
  expectSymbol(")");
  return inner;
}

ExpressionPointer Parser::takeLiteral() {
  const Token& token = peek();
  const auto literal = [&](Value value) {
    take();
    return std::make_unique<Literal>(token.position, std::move(value));
  };
  switch (token.kind) {
    case TokenKind::Integer:
      return literal(Value::integer(token.integer));
    case TokenKind::Number:
      return literal(Value::number(token.number));
    case TokenKind::Colour:
      return literal(Value::integer(token.integer, Kind::Color));
    case TokenKind::String:
      return literal(Value::string(token.text));
    case TokenKind::Word:
      return literal(token.is("nil") ? Value() : Value::boolean(token.is("true")));
    default:
      fail("An expression belongs here, not " + describeNext());
  }
}

ExpressionPointer Parser::takeNamed(bool startsStatement) {
  const Token& name = peek();
  if (const Variable* variable = scope_->find(name.folded)) {
    take();
    return takeIndex(std::make_unique<VariableReference>(name.position, *variable));
  }
  if (const auto found = functionIndices_.find(name.folded); found != functionIndices_.end()) {
    take();
    return takeFunctionCall(*program_->functions[found->second], name.position, startsStatement);
  }
  if (const Builtin* builtin = takeBuiltinName()) return takeBuiltin(*builtin, name.position, startsStatement);
  if (names_.isGlobalMethod(name.text)) {
    take();
    return std::make_unique<SharedMember>(name.position, "", name.text, takeArguments(startsStatement));
  }
  if (!names_.isClass(name.text)) return takeUnknown(name, startsStatement);
  take();
  return takeSharedMember(name, startsStatement);
}

// While the program is checked, a name is missed once.
ExpressionPointer Parser::takeUnknown(const Token& name, bool startsStatement) {
  if (diagnosis_ == nullptr || diagnosis_->hide(name.folded))
    complainAt(name.position, "There is nothing called \"" + name.text + "\"");
  take();
  takeArguments(startsStatement);
  return std::make_unique<VariableReference>(name.position, Variable{Storage::Global, 0, host::typeNamed("Variant"), false});
}

// "list(index)", or the whole as in "list" and "list()".
ExpressionPointer Parser::takeIndex(ExpressionPointer whole) {
  if (!acceptSymbol("(") || acceptSymbol(")")) return whole;
  const DepthGuard guard(*this);
  const Position start = whole->position;
  ExpressionPointer index = takeExpression();
  expectSymbol(")");
  const Type* list = diagnosis_ == nullptr ? nullptr : whole->knownType();
  auto element = std::make_unique<Element>(start, std::move(whole), std::move(index));
  if (list != nullptr && list->array) element->typeInText = diagnosis_->keep(typeOfElements(*list));
  return element;
}

ExpressionPointer Parser::takeFunctionCall(const Function& function, Position start, bool startsStatement) {
  const bool isList = function.parameters.empty() && function.result != nullptr && function.result->array;
  if (isList) return takeIndex(std::make_unique<FunctionCall>(start, function, Expressions()));
  Expressions arguments = takeArguments(startsStatement);
  if (arguments.size() < function.requiredParameters()) complainAt(start, function.name + " needs more arguments");
  if (arguments.size() > function.parameters.size()) complainAt(start, function.name + " takes fewer arguments");
  for (size_t index = 0; index < std::min(arguments.size(), function.parameters.size()); ++index) {
    const Parameter& parameter = function.parameters[index];
    if (!parameter.isReference) continue;
    const Expression& argument = *arguments[index];
    if (!argument.isAssignable() || !argument.isStored() || !(*argument.declaredType() == parameter.type)) {
      complainAt(argument.position, "A ByRef argument must be a variable of the type " + host::describe(parameter.type));
    }
  }
  return std::make_unique<FunctionCall>(start, function, std::move(arguments));
}

// The name may have two parts, as in "Encodings.UTF8".
const Builtin* Parser::takeBuiltinName() {
  const Builtin* builtin = findBuiltin(Plain, peek().folded);
  if (builtin == nullptr && peek(1).isSymbol(".") && peek(2).kind == TokenKind::Word) {
    builtin = findBuiltin(Plain, peek().folded + "." + peek(2).folded);
    if (builtin != nullptr) at_ += 2;
  }
  if (builtin != nullptr) take();
  return builtin;
}

ExpressionPointer Parser::takeBuiltin(const Builtin& builtin, Position start, bool startsStatement) {
  if (builtin.maximum == 0) return takeIndex(std::make_unique<BuiltinCall>(start, builtin, Expressions()));
  Expressions arguments = takeArguments(startsStatement);
  if (arguments.size() < builtin.minimum) complainAt(start, std::string(builtin.name) + " needs more arguments");
  if (arguments.size() > builtin.maximum) complainAt(start, std::string(builtin.name) + " takes fewer arguments");
  return std::make_unique<BuiltinCall>(start, builtin, std::move(arguments));
}

ExpressionPointer Parser::takeSharedMember(const Token& className, bool startsStatement) {
  if (!acceptSymbol(".")) failAt(className.position, "\"" + className.text + "\" is a class, not a value");
  const Token& name = peek();
  if (name.kind != TokenKind::Word) fail("The name of a member belongs here, not " + describeNext());
  take();
  Expressions arguments = takeArguments(startsStatement);
  const Type* known = diagnosis_ == nullptr ? nullptr : diagnosis_->sharedMember(className.text, name, arguments.size());
  auto member = std::make_unique<SharedMember>(name.position, className.text, name.text, std::move(arguments));
  member->typeInText = known;
  return member;
}

ExpressionPointer Parser::takeNew() {
  const Position start = peek().position;
  std::string className = takeClassName();
  Expressions arguments = takeArguments(false);
  const Type* known = diagnosis_ == nullptr ? nullptr : diagnosis_->creation(className, start, arguments.size());
  auto created = std::make_unique<New>(start, std::move(className), std::move(arguments));
  created->typeInText = known;
  return created;
}

Expressions Parser::takeArguments(bool startsStatement) {
  countOperation();
  if (!acceptSymbol("(")) return startsStatement && atExpression() ? takeList() : Expressions{};
  const DepthGuard guard(*this);
  if (acceptSymbol(")")) return {};
  Expressions arguments = takeList();
  expectSymbol(")");
  return arguments;
}

Expressions Parser::takeList() {
  Expressions list;
  do list.push_back(takeExpression());
  while (acceptSymbol(","));
  return list;
}

bool Parser::atExpression() const {
  const Token& next = peek();
  if (next.kind == TokenKind::Word) {
    return !isReserved(next) || next.is("true") || next.is("false") || next.is("nil") || next.is("new") || next.is("not");
  }
  return next.isSymbol("-") || (next.kind != TokenKind::Symbol && !atEndOfStatement());
}

Parser::DepthGuard::DepthGuard(Parser& parser) : parser_(parser) {
  if (++parser_.depth_ > kMaximumDepth) parser_.fail("This is nested too deeply");
}

}  // namespace language
