// Programs checked without being run: what is found, where, and that nothing more is.
#include "host/language/check.hpp"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/host/language_support.hpp"

namespace language_test {
namespace {

// "LINE:COLUMN MESSAGE" for each error.
std::string errorsOf(const std::string& source) {
  std::string text;
  for (const language::Failure& failure : language::check(host::Runtime::shared(), source)) {
    text +=
        std::to_string(failure.position.line) + ":" + std::to_string(failure.position.column) + " " + failure.message + "\n";
  }
  return text;
}

void checkErrors(std::initializer_list<Case> cases) {
  for (const Case& each : cases) EXPECT_EQ(errorsOf(each.source), each.expected) << each.source;
}

TEST(Check, EveryErrorOfAProgramIsFound) {
  checkErrors({
      {"Print \"open\nPrint 12abc\nPrint 99999999999999999999\nPrint #\nPrint 1",
       "1:7 This string has no closing quote\n2:7 A name cannot begin with a digit\n3:7 This number is too large\n"
       "4:7 This character has no meaning here\n"},
      {"Print (\nDim a As Integr\na = 1\nPrint b\nPrint b\nDim c\nPrint c\nDim d As Integer, d As String",
       "1:8 An expression belongs here, not the end of the line\n2:10 There is no type \"Integr\"\n"
       "4:7 There is nothing called \"b\"\n6:6 \"as\" belongs here, not the end of the line\n8:19 \"d\" is already declared "
       "here\n"},
      {"Print Left(\"a\")\nPrint Twice(1, 2)\nTwice(1) = 3\nSwap(1)\nFunction Twice(x As Integer) As Integer\nReturn 2 * x\n"
       "End Function\nSub Swap(ByRef x As Integer)\nReturn 1\nEnd Sub",
       "1:7 Left needs more arguments\n2:7 Twice takes fewer arguments\n3:1 Nothing can be assigned to this\n"
       "4:6 A ByRef argument must be a variable of the type Integer\n9:1 Only a Function returns a value\n"},
  });
}

// Each has one error, and goes on well behind it.
TEST(Check, AnErrorIsReportedOnce) {
  checkErrors({
      {"For i As Integer = 1 too 3\nPrint i\nIf i = 2 Then\nExit For\nEnd If\nNext\nPrint i2\n",
       "1:22 \"to\" belongs here, not \"too\"\n7:7 There is nothing called \"i2\"\n"},
      {"If 1 = 1 Thn\nDim x As Integer\nElse\nDim x As String\nEnd If\nPrint 1 1",
       "1:10 \"then\" belongs here, not \"Thn\"\n6:9 The statement is complete before a number\n"},
      {"If True Then Print (\nPrint )",
       "1:21 An expression belongs here, not the end of the line\n2:7 An expression belongs here, not \")\"\n"},
      {"While True\nIf True Then\nPrint 1\nWend\nPrint )",
       "4:1 An expression belongs here, not \"Wend\"\n5:7 An expression belongs here, not \")\"\n"},
      {"Next\nPrint )", "1:1 An expression belongs here, not \"Next\"\n2:7 An expression belongs here, not \")\"\n"},
      {"Select Case 1\nCase 1\nCse 2\nPrint 2\nEnd Select\nPrint )",
       "3:1 There is nothing called \"Cse\"\n6:7 An expression belongs here, not \")\"\n"},
      {"Sub A(x As Integer\nPrint x\nEnd Sub\nA(1)\nPrint )",
       "1:19 \")\" belongs here, not the end of the line\n5:7 An expression belongs here, not \")\"\n"},
      {"Sub A()\nDim x As Integer\nEnd If\nPrint x, y\nEnd Sub\nSub B()\nPrint )\nEnd Sub",
       "3:5 \"End Sub\" belongs here, not \"If\"\n4:10 There is nothing called \"y\"\n7:7 An expression belongs here, not "
       "\")\"\n"},
      {"Sub A()\nIf 1 Thn\nWhile (\nFor i As\nEnd Sub\nPrint )",
       "2:6 \"then\" belongs here, not \"Thn\"\n3:8 An expression belongs here, not the end of the line\n"
       "4:9 The name of a type belongs here, not the end of the line\n6:7 An expression belongs here, not \")\"\n"},
      {"Do\nPrint 1", "1:1 This Do has no end\n"},
      {"Sub A()\nPrint 1", "1:1 This Sub has no End Sub\n"},
      {"Try\nPrint 1\nCatch 5\nPrint 2\nEnd Try extra\nPrint )",
       "3:7 The name of a variable belongs here, not a number\n6:7 An expression belongs here, not \")\"\n"},
  });
}

TEST(Check, MembersAreLookedUpByTheTypesInTheText) {
  checkErrors({
      {"Dim d As New Dictionary\nd.Value(1) = 2\nPrint d.Count, d.Foo\nd.Remove\nPrint d.Value(1, 2)",
       "3:18 Dictionary has no member \"Foo\"\n4:3 No \"Remove\" of Dictionary takes 0 arguments\n"
       "5:9 No \"Value\" of Dictionary takes 2 arguments\n"},
      {"Dim s As String\nPrint s.Trim, s.Trm\nDim a() As Date\nPrint a(0).Year, a(0).Yaer, a.Count\nPrint a.Cuont",
       "2:17 String has no member \"Trm\"\n4:23 Date has no member \"Yaer\"\n5:9 Date() has no member \"Cuont\"\n"},
      {"Dim v As Variant = 1\nPrint v.Anything\nDim e As RuntimeException\nPrint e.Message, e.Cause",
       "4:20 RuntimeException has no member \"Cause\"\n"},
      {"Function Made() As Date\nReturn New Date\nEnd Function\nPrint Made.Yaer, Made.Year\nPrint New Date(1, 2, 3, 4, 5, "
       "6, 7)",
       "4:12 Date has no member \"Yaer\"\n5:11 No \"Constructor\" of Date takes 7 arguments\n"},
  });
}

// A check finds what running the program finds, and first.
TEST(Check, AgreesWithRunning) {
  for (const char* source :
       {"Print (", "Dim a As", "If True Then\nPrint 1", "For Each\nNext", "Exit For", "x = 1", "Sub\nEnd Sub",
        "Function F()\nEnd Function", "Print 1 _ 2", "Select Case 1\nEnd Select Print", "Const a", "a.b = 3"}) {
    std::string first = errorsOf(source);
    first = first.substr(0, first.find('\n') + 1);
    first.insert(first.find(' '), ":");
    EXPECT_EQ(first, outcomeOf(source)) << source;
  }
}

TEST(Check, DeepAndLongProgramsEnd) {
  std::string blocks, headers, members = "Dim d As Dictionary\nPrint d";
  for (int depth = 0; depth < 20'000; ++depth) {
    blocks += "If True Then\n";
    headers += "While (\n";
  }
  for (int length = 0; length < 10'000; ++length) members += ".Value(1)";
  for (const std::string& source : {blocks, headers, members}) EXPECT_NE(errorsOf(source), "");
}

}  // namespace
}  // namespace language_test
