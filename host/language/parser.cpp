// Tokens, names and functions: what the rules of the grammar share.
#include "host/language/parser.hpp"

#include <algorithm>

#include "host/language/builtins.hpp"
#include "host/language/diagnosis.hpp"

namespace language {
namespace {

constexpr std::string_view kReserved[] = {
    "and",  "as",   "byref",  "byval", "case", "catch", "const",   "continue", "dim",      "do",     "downto",
    "each", "else", "elseif", "end",   "exit", "false", "finally", "for",      "function", "if",     "isa",
    "loop", "mod",  "new",    "next",  "nil",  "not",   "or",      "raise",    "return",   "select", "step",
    "sub",  "then", "to",     "true",  "try",  "until", "var",     "wend",     "while",    "xor",    "print",
};

}  // namespace

std::span<const std::string_view> reservedWords() { return kReserved; }

bool isReserved(const Token& token) {
  return std::find(std::begin(kReserved), std::end(kReserved), token.folded) != std::end(kReserved);
}

std::unique_ptr<Program> parse(std::string_view source, const HostNames& names) { return Parser(source, names).run(); }

size_t Function::requiredParameters() const {
  return static_cast<size_t>(std::count_if(parameters.begin(), parameters.end(),
                                           [](const Parameter& parameter) { return parameter.defaultValue == nullptr; }));
}

Parser::Parser(std::string_view source, const HostNames& names, Diagnosis* diagnosis)
    : names_(names),
      diagnosis_(diagnosis),
      tokens_(tokenize(source, diagnosis == nullptr ? nullptr : &diagnosis->errors())) {}

std::unique_ptr<Program> Parser::run() {
  findFunctions();
  readMain();
  for (size_t index = 0; index < functionStarts_.size(); ++index) readBody(index);
  return std::move(program_);
}

// Tokens.

const Token& Parser::peek(size_t ahead) const { return tokens_[std::min(at_ + ahead, tokens_.size() - 1)]; }

const Token& Parser::take() {
  const Token& token = peek();
  if (at_ + 1 < tokens_.size()) ++at_;
  return token;
}

bool Parser::accept(std::string_view word) { return peek().is(word) ? (take(), true) : false; }
bool Parser::acceptSymbol(std::string_view symbol) { return peek().isSymbol(symbol) ? (take(), true) : false; }

void Parser::expect(std::string_view word) {
  if (!accept(word)) fail("\"" + std::string(word) + "\" belongs here, not " + describeNext());
}

void Parser::expectSymbol(std::string_view symbol) {
  if (!acceptSymbol(symbol)) fail("\"" + std::string(symbol) + "\" belongs here, not " + describeNext());
}

bool Parser::atEndOfStatement() const { return peek().kind == TokenKind::EndOfLine || peek().kind == TokenKind::EndOfFile; }
bool Parser::atSeparator() const { return peek().kind == TokenKind::EndOfLine && peek().text == ":"; }

void Parser::endStatement() {
  if (atEndOfStatement()) return;
  complainAt(peek().position, "The statement is complete before " + describeNext());
  skipLine();
}

void Parser::skipEmptyLines() {
  while (peek().kind == TokenKind::EndOfLine) take();
}

std::string Parser::describeNext() const {
  switch (peek().kind) {
    case TokenKind::EndOfLine:
      return "the end of the line";
    case TokenKind::EndOfFile:
      return "the end of the program";
    case TokenKind::String:
      return "a string";
    case TokenKind::Integer:
    case TokenKind::Number:
    case TokenKind::Colour:
      return "a number";
    default:
      return "\"" + peek().text + "\"";
  }
}

void Parser::fail(const std::string& message) const { failAt(peek().position, message); }
void Parser::failAt(Position position, const std::string& message) { throw SyntaxError(position, message); }

// Names and types.

std::string Parser::takeName(const char* purpose) {
  if (peek().kind != TokenKind::Word) fail("The name of a " + std::string(purpose) + " belongs here, not " + describeNext());
  if (isReserved(peek())) fail("\"" + peek().text + "\" cannot be the name of a " + std::string(purpose));
  return take().text;
}

const Variable& Parser::declare(const Token& name, const Type& type, bool isConstant) {
  const Variable* variable = scope_->declare(name.folded, type, isConstant);
  if (variable != nullptr) return *variable;
  complainAt(name.position, "\"" + name.text + "\" is already declared here");
  return *scope_->find(name.folded);
}

Type Parser::takeType() {
  const Token& name = peek();
  takeName("type");
  Type type = host::typeNamed(name.text);
  if (type.kind == Kind::Object && !type.isVariant() && !names_.isClass(name.text)) {
    complainAt(name.position, "There is no type \"" + name.text + "\"");
    type = host::typeNamed("Variant");
  }
  if (acceptSymbol("(")) {
    expectSymbol(")");
    type.array = true;
  }
  return type;
}

std::string Parser::takeClassName() {
  const Token& name = peek();
  takeName("class");
  if (!names_.isClass(name.text)) complainAt(name.position, "There is no class \"" + name.text + "\"");
  return name.text;
}

// Functions.

bool Parser::atFunction() const { return peek().is("sub") || peek().is("function"); }

void Parser::findFunctions() {
  bool atStart = true;
  while (peek().kind != TokenKind::EndOfFile) {
    if (atStart && atFunction()) takeFunction();
    atStart = take().kind == TokenKind::EndOfLine;
  }
  at_ = 0;
}

void Parser::takeFunction() {
  auto function = std::make_unique<Function>();
  const bool hasResult = take().is("function");
  const Token name = peek();
  try {
    readHeading(*function, hasResult);
  } catch (const SyntaxError& error) {
    if (diagnosis_ == nullptr) throw;
    diagnosis_->note(error);
    diagnosis_->hide(name.folded);
    return;
  }
  if (!functionIndices_.emplace(name.folded, program_->functions.size()).second)
    complainAt(name.position, "There is already a function \"" + name.text + "\"");
  program_->functions.push_back(std::move(function));
  functionStarts_.push_back(at_);
}

void Parser::readHeading(Function& function, bool hasResult) {
  function.position = peek().position;
  function.name = takeName("function");
  if (acceptSymbol("(") && !acceptSymbol(")")) {
    do function.parameters.push_back(takeParameter());
    while (acceptSymbol(","));
    expectSymbol(")");
  }
  if (hasResult) {
    expect("as");
    function.result = std::make_unique<Type>(takeType());
  }
  endStatement();
}

Parameter Parser::takeParameter() {
  Parameter parameter;
  parameter.isReference = accept("byref");
  if (!parameter.isReference) accept("byval");
  parameter.name = foldedName(takeName("parameter"));
  const bool isArray = acceptSymbol("(");
  if (isArray) expectSymbol(")");
  if (accept("as")) parameter.type = takeType();
  parameter.type.array |= isArray;
  if (!acceptSymbol("=")) return parameter;
  if (parameter.isReference) fail("A ByRef parameter has no default");
  parameter.defaultValue = takeSign();
  return parameter;
}

void Parser::skipFunction() {
  const Token& start = take();
  do {
    while (take().kind != TokenKind::EndOfLine) {
    }
    skipEmptyLines();
    if (peek().kind == TokenKind::EndOfFile)
      return complainAt(start.position, "This " + start.text + " has no End " + start.text);
  } while (!peek().is("end") || !peek(1).is(start.folded));
  take();
  take();
  endStatement();
}

void Parser::readMain() {
  program_->main.name = "main";
  for (skipEmptyLines(); peek().kind != TokenKind::EndOfFile; skipEmptyLines()) {
    atFunction() ? skipFunction() : takeLineInto(program_->main.body);
  }
  program_->main.slots = globals_.slots();
  program_->globalTypes = globals_.types();
}

void Parser::readBody(size_t index) {
  Function& function = *program_->functions[index];
  Scope scope(Storage::Local, &globals_);
  for (const Parameter& parameter : function.parameters) {
    const Variable* added = parameter.isReference ? scope.declareReference(parameter.name, parameter.type)
                                                  : scope.declare(parameter.name, parameter.type);
    if (added == nullptr) complainAt(function.position, "Two parameters are called \"" + parameter.name + "\"");
  }
  at_ = functionStarts_[index];
  scope_ = &scope;
  function_ = &function;
  diagnosis_ == nullptr ? takeBody(function) : readBodyRecovering(function);
  function.slots = scope.slots();
  scope_ = &globals_;
  function_ = nullptr;
}

void Parser::takeBody(Function& function) {
  const char* kind = function.result != nullptr ? "Function" : "Sub";
  function.body = takeBlock({"end"}, kind, function.position);
  expectEnd(kind);
}

}  // namespace language
