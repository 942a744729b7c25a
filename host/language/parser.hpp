// The parser's state and its rules, a method each.
#pragma once

#include <initializer_list>
#include <map>
#include <span>

#include "host/language/branches.hpp"
#include "host/language/builtins.hpp"
#include "host/language/program.hpp"
#include "host/language/scope.hpp"
#include "host/language/token.hpp"

namespace language {

// Words of the language, which nothing else can be called, in lower case.
std::span<const std::string_view> reservedWords();
bool isReserved(const Token& token);

class Diagnosis;

class Parser {
 public:
  // With a diagnosis the program is read to be checked: what is wrong is noted there, and the rest read on.
  Parser(std::string_view source, const HostNames& names, Diagnosis* diagnosis = nullptr);
  std::unique_ptr<Program> run();

 private:
  class BlockGuard;
  class OpenBlock;
  class DepthGuard {
   public:
    explicit DepthGuard(Parser& parser);
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;
    ~DepthGuard() { --parser_.depth_; }

   private:
    Parser& parser_;
  };

  // Tokens.
  const Token& peek(size_t ahead = 0) const;
  const Token& take();
  bool accept(std::string_view word);
  bool acceptSymbol(std::string_view symbol);
  void expect(std::string_view word);
  void expectSymbol(std::string_view symbol);
  bool atEndOfStatement() const;
  bool atSeparator() const;  // the ":" between statements
  void endStatement();
  void skipEmptyLines();
  std::string describeNext() const;
  [[noreturn]] void fail(const std::string& message) const;
  [[noreturn]] static void failAt(Position position, const std::string& message);

  // Reading on behind an error, while the program is checked.
  void complainAt(Position position, const std::string& message);
  void takeRecovering(Block& block);
  void recoverFrom(size_t first, std::string_view block);
  void takeRest(std::string_view block);
  void takeBranch();
  void readBodyRecovering(Function& function);
  void hideDeclarations(size_t first);
  void skipLine();
  bool isOpen(std::string_view block) const;
  std::string_view blockEndedHere() const;
  std::string_view blockBegunAt(size_t first) const;

  // Names and types.
  std::string takeName(const char* purpose);
  const Variable& declare(const Token& name, const Type& type, bool isConstant = false);
  Type takeType();
  std::string takeClassName();

  // Functions: their headings are read first, then the main part, then their bodies.
  void findFunctions();
  void takeFunction();
  void readHeading(Function& function, bool hasResult);
  Parameter takeParameter();
  void readMain();
  void readBody(size_t index);
  void takeBody(Function& function);
  void skipFunction();
  bool atFunction() const;

  // Statements.
  Block takeBlock(std::initializer_list<std::string_view> ends, std::string_view what, Position start);
  Block takeLine();
  bool atOneOf(std::initializer_list<std::string_view> words) const;
  void expectEnd(std::string_view what);
  void takeLineInto(Block& block);
  void takeInto(Block& block);
  StatementPointer takeStatement();
  StatementPointer takeSimpleStatement();
  void takeDeclarations(Block& block);
  void takeConstant(Block& block);
  StatementPointer takeIf();
  StatementPointer takeLineIf(Position start, ExpressionPointer condition);
  StatementPointer takeSelect();
  CaseTest takeCaseTest();
  StatementPointer takeFor();
  StatementPointer takeForEach(Position start);
  StatementPointer takeCounting(Position start);
  ExpressionPointer takeLoopVariable();
  void takeNext();
  StatementPointer takeWhile();
  StatementPointer takeDo();
  StatementPointer takeTry();
  StatementPointer takeLeave();
  StatementPointer takeReturn();
  StatementPointer takeRaise();
  StatementPointer takePrint();
  StatementPointer takeCallOrAssignment();

  // Expressions, loosest first.
  ExpressionPointer takeExpression();
  ExpressionPointer takeBinary(size_t level);
  ExpressionPointer takeOperand(size_t level);
  ExpressionPointer takeClassTest(ExpressionPointer value);
  ExpressionPointer takeSign();
  ExpressionPointer takePower();
  ExpressionPointer takePostfix(bool startsStatement);
  ExpressionPointer takeMember(ExpressionPointer receiver, bool startsStatement);
  ExpressionPointer takePrimary(bool startsStatement);
  ExpressionPointer takeParenthesized();
  ExpressionPointer takeLiteral();
  ExpressionPointer takeNamed(bool startsStatement);
  ExpressionPointer takeUnknown(const Token& name, bool startsStatement);
  ExpressionPointer takeIndex(ExpressionPointer whole);
  ExpressionPointer takeFunctionCall(const Function& function, Position start, bool startsStatement);
  ExpressionPointer takeBuiltin(const Builtin& builtin, Position start, bool startsStatement);
  ExpressionPointer takeSharedMember(const Token& className, bool startsStatement);
  ExpressionPointer takeNew();
  const Builtin* takeBuiltinName();
  // With their parentheses, which a call that is a statement may lack.
  Expressions takeArguments(bool startsStatement);
  Expressions takeList();
  bool atExpression() const;
  // Bounds the height of a statement's tree.
  void countOperation();

  const HostNames& names_;
  Diagnosis* const diagnosis_;
  std::vector<Token> tokens_;
  size_t at_ = 0;
  size_t depth_ = 0;       // of parentheses and blocks
  size_t operations_ = 0;  // in this statement
  std::unique_ptr<Program> program_ = std::make_unique<Program>();
  Scope globals_{Storage::Global, nullptr};
  Scope* scope_ = &globals_;
  const Function* function_ = nullptr;  // the one being read; nil in the main part
  std::vector<LoopKind> loops_;         // around the statement being read
  std::vector<std::string_view> openBlocks_;
  std::map<std::string, size_t> functionIndices_;
  std::vector<size_t> functionStarts_;
};

}  // namespace language
