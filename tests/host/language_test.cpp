// The language: what programs print, and where errors point.
#include "tests/host/language_support.hpp"

namespace language_test {
namespace {

TEST(Language, Literals) {
  check({
      {"Print 42, -7, &hFF, &b101, &o17, &HfF", "42 -7 255 5 15 255\n"},
      {"Print 1.5, .25, 1e3, 2.5E-1", "1.5 0.25 1000 0.25\n"},
      {"Print \"say \"\"hi\"\"\", \"\"", "say \"hi\" \n"},
      {"Print True, False, Nil", "True False Nil\n"},
      {"Print &u1F600 & &uE9, Chr(8364)", "😀é €\n"},
      {"Print 1 ' a comment\nRem all of it\n// and this\nPrint 2", "1\n2\n"},
      {"Print 1 + _ ' goes on\n  2", "3\n"},
      {"Print 1 : Print 2", "1\n2\n"},
      {"\xEF\xBB\xBFPrint 1\r\nPrint 2\r\n", "1\n2\n"},
      {"", ""},
  });
}

TEST(Language, Operators) {
  check({
      {"Print 1 + 2 * 3 - 4 / 2", "5\n"},
      {"Print (1 + 2) * 3, 2 ^ 3 ^ 2, -2 ^ 2, 2 ^ -1", "9 64 -4 0.5\n"},
      {"Print 7 \\ 2, -7 \\ 2, 7 Mod 3, -7 Mod 3, 7.9 \\ 2", "3 -3 1 -1 3\n"},
      {"Print 7 / 2, 1 / 4", "3.5 0.25\n"},
      {"Print 10 Mod 4 * 2", "2\n"},
      {"Print \"a\" + \"b\" & 1 + 2 & \"c\"", "ab3c\n"},
      {"Print 1 = 1.0, 1 <> 2, 2 >= 3, \"a\" < \"B\", \"abc\" = \"ABC\"", "True True False True True\n"},
      {"Print Not 1 = 2 And True, True Xor True, 6 And 3, 6 Or 1, Not 0", "True False 2 7 -1\n"},
      {"Print 9223372036854775807 + 1", "-9223372036854775808\n"},
      {"Print &h8000000000000000 \\ -1, &h8000000000000000 Mod -1", "-9223372036854775808 0\n"},
      {"Print Nil = Nil, Nil = 0, Nil Is Nil", "True False True\n"},
      {"Print &c00FF00 = 65280", "True\n"},
      {"Dim v As Variant = 3\nPrint v = \"3\", v <> True, v = 3.0", "False True True\n"},
  });
}

TEST(Language, TheRightSideIsLeftAloneWhenTheLeftDecides) {
  const std::string functions = "Function Loud(value As Boolean) As Boolean\nPrint \"asked\"\nReturn value\nEnd Function\n";
  EXPECT_EQ(outcomeOf(functions + "Print False And Loud(True)"), "False\n");
  EXPECT_EQ(outcomeOf(functions + "Print True Or Loud(True)"), "True\n");
  EXPECT_EQ(outcomeOf(functions + "Print True And Loud(False)"), "asked\nFalse\n");
}

TEST(Language, Variables) {
  check({
      {"Dim a, b As Integer, c As String = \"x\"\nPrint a, b, c", "0 0 x\n"},
      {"Var i As Integer = 7.9\nVar d As Double = 2\nVar s As String = 5\nPrint i, d / 4, s + \"!\"", "7 0.5 5!\n"},
      {"Dim value As Integer\nVALUE = 3\nPrint Value", "3\n"},
      {"Dim v\n", "1:6: \"as\" belongs here, not the end of the line\n"},
      {"Dim i As Integer = 1\ni += 2\ni *= 5\ni -= 1\nPrint i\nDim s As String = \"a\"\ns &= 1\ns += \"b\"\nPrint s",
       "14\na1b\n"},
      {"Const Size = 3\nPrint Size * 2", "6\n"},
      {"Dim d As New Dictionary\nd.Value(\"a\") = 1\nPrint d.Count", "1\n"},
      {"Dim v As Variant = 1\nv = \"text\"\nPrint v\nv = Nil\nPrint v", "text\nNil\n"},
      {"For i As Integer = 1 To 2\nDim x As Integer\nx = x + i\nPrint x\nNext", "1\n2\n"},
      {"If True Then\nDim x As Integer = 1\nPrint x\nEnd If\nIf True Then\nDim x As String = \"s\"\nPrint x\nEnd If",
       "1\ns\n"},
  });
}

TEST(Language, Branches) {
  const std::string program =
      "For i As Integer = 1 To 4\nIf i = 1 Then\nPrint \"one\"\nElseIf i = 2 Then\nPrint \"two\"\nElse\nPrint \"many\"\nEnd "
      "If\nNext";
  EXPECT_EQ(outcomeOf(program), "one\ntwo\nmany\nmany\n");
  check({
      {"If 1 = 2 Then Print 1 Else Print 2", "2\n"},
      {"If True Then Print 1 : Print 2 Else Print 3\nPrint 4", "1\n2\n4\n"},
      {"If True Then If False Then Print 1 Else Print 2", "2\n"},
      {"Select Case 7\nCase 1, 2\nPrint \"low\"\nCase 5 To 8\nPrint \"middle\"\nCase Else\nPrint \"else\"\nEnd Select",
       "middle\n"},
      {"Select Case \"ABC\"\nCase \"abc\"\nPrint 1\nEnd Select", "1\n"},
      {"Select Case 3\nCase Is < 3\nPrint 1\nCase Is >= 3, 100\nPrint 2\nEnd Select", "2\n"},
      {"Dim o As Variant = New Dictionary\nSelect Case o\nCase IsA Date\nPrint 1\nCase IsA Dictionary\nPrint 2\nEnd Select",
       "2\n"},
      {"Select Case 1\nCase 2\nCase Else\nEnd Select\nPrint \"done\"", "done\n"},
  });
}

TEST(Language, Loops) {
  check({
      {"For i As Integer = 1 To 3\nPrint i\nNext i", "1\n2\n3\n"},
      {"Dim i As Integer\nFor i = 5 DownTo 1 Step 2\nNext\nPrint i", "-1\n"},
      {"For d As Double = 0 To 1 Step 0.5\nPrint d\nNext", "0\n0.5\n1\n"},
      {"For i As Integer = 3 To 1\nPrint i\nNext\nPrint \"none\"", "none\n"},
      {"For i As Integer = 9223372036854775806 To 9223372036854775807\nPrint i\nNext",
       "9223372036854775806\n9223372036854775807\n"},
      {"Dim i As Integer\nWhile i < 3\ni += 1\nIf i = 2 Then Continue\nPrint i\nWend", "1\n3\n"},
      {"Dim i As Integer\nDo\ni += 1\nLoop Until i = 4\nPrint i", "4\n"},
      {"Dim i As Integer\nDo Until i = 4\ni += 1\nIf i = 2 Then Exit\nLoop\nPrint i", "2\n"},
      {"For i As Integer = 1 To 2\nDim j As Integer\nWhile True\nj += 1\nIf j = 3 Then Continue For\nWend\nNext\nPrint "
       "\"out\"",
       "out\n"},
      {"For i As Integer = 1 To 9\nSelect Case i\nCase 3\nExit For\nCase Else\nPrint i\nEnd Select\nNext", "1\n2\n"},
      {"For Each s As String In Array(\"a\", \"b\")\nPrint s\nNext", "a\nb\n"},
      {"Dim d As New Dictionary\nd.Value(\"x\") = 1\nd.Value(2) = \"y\"\nFor Each k As Variant In d\nPrint k, "
       "d.Value(k)\nNext",
       "x 1\n2 y\n"},
  });
}

TEST(Language, Functions) {
  check({
      {"Print Double2(4)\nFunction Double2(n As Integer) As Integer\nReturn n * 2\nEnd Function", "8\n"},
      {"Sub Greet(name As String, mark As String = \"!\")\nPrint \"Hi \" + name + mark\nEnd Sub\nGreet(\"A\")\nGreet \"B\", "
       "\"?\"",
       "Hi A!\nHi B?\n"},
      {"Dim n As Integer = 1\nBump(n)\nBump n\nPrint n\nSub Bump(ByRef value As Integer)\nvalue += 1\nEnd Sub", "3\n"},
      {"Dim n As Integer = 1\nOuter(n)\nPrint n\nSub Outer(ByRef a As Integer)\nInner(a)\nEnd Sub\nSub Inner(ByRef b As "
       "Integer)\nb = 9\nEnd Sub",
       "9\n"},
      {"Dim total As Integer = 5\nAdd(2)\nPrint total\nSub Add(n As Integer)\ntotal += n\nEnd Sub", "7\n"},
      {"Function Fib(n As Integer) As Integer\nIf n < 2 Then Return n\nReturn Fib(n - 1) + Fib(n - 2)\nEnd Function\nPrint "
       "Fib(15)",
       "610\n"},
      {"Function Nothing() As String\nEnd Function\nPrint \"[\" + Nothing + \"]\"", "[]\n"},
      {"Function List() As String()\nReturn Array(\"p\", \"q\")\nEnd Function\nDim l() As String = List\nPrint l(1), "
       "List(0)",
       "q p\n"},
      {"Sub Fill(values() As Integer)\nvalues.Append(3)\nExit Sub\nEnd Sub\nDim v() As Integer\nFill v\nPrint v.Count",
       "1\n"},
  });
}

TEST(Language, Arrays) {
  check({
      {"Dim a(2) As Integer\na(2) = 5\nPrint a(0), a(2), UBound(a), a.Count", "0 5 2 3\n"},
      {"Dim a() As String\na.Append(\"x\")\na.Insert(0, \"w\")\na.Append \"y\"\na.Remove(1)\nPrint Join(a, \",\"), "
       "a.IndexOf(\"Y\")",
       "w,y 1\n"},
      {"Dim a() As Integer = Array(3, 1, 2)\na.Sort\nPrint a.Pop, Join(a, \"-\")\na.RemoveAll\nPrint a.LastIndex",
       "3 1-2\n-1\n"},
      {"Dim a() As Variant = Array(1, \"two\", Nil)\nPrint a(0), a(1), a(2)", "1 two Nil\n"},
      {"Dim a() As Integer = Array(1)\nDim b() As Integer = a\nb(0) = 9\nPrint a(0)", "9\n"},
      {"Dim parts() As String = Split(\"a,b,,c\", \",\")\nPrint parts.Count, parts(3)\nPrint \"x y\".Split.Count",
       "4 c\n2\n"},
      {"Dim a(1) As Integer\nPrint a(2)", "2:7: OutOfBoundsException: Index 2 is not in 0 to 1.\n"},
      {"Dim a(1) As Integer\na(-1) = 3", "2:1: OutOfBoundsException: Index -1 is not in 0 to 1.\n"},
      {"Dim a() As Integer\nPrint a.Pop", "2:9: OutOfBoundsException: Index -1 is not in 0 to -1.\n"},
      {"Dim a() As Integer = Nil\nPrint a(0)", "2:7: NilObjectException: The array is Nil.\n"},
  });
}

TEST(Language, Strings) {
  check({
      {"Print Len(\"aé😀\"), LenB(\"aé😀\"), \"aé😀\".Length", "3 7 3\n"},
      {"Print Left(\"héllo\", 2), Right(\"héllo\", 9), Mid(\"héllo\", 2, 3), \"héllo\".Middle(1, 3), Mid(\"abc\", 9)",
       "hé héllo éll éll \n"},
      {"Print \"[\" + Trim(\"  a b \") + \"]\", LTrim(\" x\"), RTrim(\"y \") + \".\"", "[a b] x y.\n"},
      {"Print Uppercase(\"straße é\"), \"ÀB\".Lowercase", "STRASSE É àb\n"},
      {"Print InStr(\"Hello\", \"L\"), InStr(4, \"Hello\", \"l\"), InStr(\"Hello\", \"z\"), \"Hello\".IndexOf(\"LL\")",
       "3 4 0 2\n"},
      {"Print Replace(\"aXbx\", \"x\", \"-\"), ReplaceAll(\"aXbx\", \"x\", \"--\"), ReplaceAll(\"a\", \"\", \"b\")",
       "a-bx a--b-- a\n"},
      {"Print Asc(\"é\"), Asc(\"\"), Hex(255), Bin(5), Oct(8)", "233 -1 FF 101 10\n"},
      {"Print Val(\"12.5kg\"), Val(\"x\"), Str(0.1), CStr(3), CLong(\"7\") + 1", "12.5 0 0.1 3 8\n"},
      {"Print Format(1234.5, \"#,##0.00\"), Format(0.256, \"0%\"), Format(-7, \"000\")", "1,234.50 26% -007\n"},
      {"Print StrComp(\"a\", \"A\", 0) <> 0, StrComp(\"a\", \"A\", 1), \"abc\".BeginsWith(\"AB\"), \"abc\".EndsWith(\"bc\")",
       "True 0 True True\n"},
      {"Print CountFields(\"a;b\", \";\"), NthField(\"a;b\", \";\", 2), \"[\" + NthField(\"a\", \";\", 3) + \"]\"",
       "2 b []\n"},
      {"Dim s As String = ConvertEncoding(\"é\", Encodings.ISOLatin1)\nPrint LenB(s), Len(s), s = \"é\", s + \"!\"",
       "1 1 True é!\n"},
      {"Dim t As Text = \"né\"\nPrint t.Length, t + \"e\", t.Uppercase", "2 née NÉ\n"},
      {"Print 3.ToString + \"x\"", "3x\n"},
      {"Print 3x", "1:7: A name cannot begin with a digit\n"},
      {"Dim n As Integer = 12\nPrint n.ToString + \"!\"", "12!\n"},
      {"Print Chr(&hD800)", "1:7: OutOfBoundsException: There is no character 55296.\n"},
  });
}

TEST(Language, Numbers) {
  check({
      {"Print Abs(-3), Abs(-2.5), Floor(-1.5), Ceil(1.2), Round(2.5), Sqrt(16), Sign(-9)", "3 2.5 -2 2 3 4 -1\n"},
      {"Print Min(3, 1.5, 2), Max(3, 4)", "1.5 4\n"},
      {"Dim u As UInt64 = -1\nPrint u > 1, u", "True 18446744073709551615\n"},
      {"Print 1 \\ 0", "1:9: RuntimeException: Division by zero.\n"},
      {"Print 0.0 / 0 = 0.0 / 0", "False\n"},
  });
}

TEST(Language, Exceptions) {
  check({
      {"Try\nRaise New OutOfBoundsException(\"far\")\nCatch e As NilObjectException\nPrint 1\nCatch e As "
       "OutOfBoundsException\nPrint e.Message\nEnd Try",
       "far\n"},
      {"Try\nDim d As Dictionary\nPrint d.Count\nCatch e\nPrint \"caught\", e IsA NilObjectException\nFinally\nPrint "
       "\"finally\"\nEnd Try",
       "caught True\nfinally\n"},
      {"Try\nTry\nRaise New IOException\nFinally\nPrint \"inner\"\nEnd Try\nCatch\nPrint \"outer\"\nEnd Try",
       "inner\nouter\n"},
      {"Print F\nFunction F() As Integer\nTry\nReturn 1\nFinally\nPrint \"last\"\nEnd Try\nEnd Function", "last\n1\n"},
      {"Sub Deep()\nDeep\nEnd Sub\nTry\nDeep\nCatch e As StackOverflowException\nPrint \"deep\"\nEnd Try", "deep\n"},
      {"Print 1\nRaise New IOException(\"gone\")\nPrint 2", "1\n2:1: IOException: gone\n"},
      {"Sub A()\nDim d As Dictionary\nd.Value(1) = 2\nEnd Sub\nTry\nA\nFinally\nPrint \"on the way\"\nEnd Try",
       "on the way\n3:3: NilObjectException: What \"Value\" is assigned to is Nil.\n"},
      {"Dim e As RuntimeException\nRaise e", "2:1: NilObjectException: The exception to raise is Nil.\n"},
      {"Dim v As Variant = 3\nRaise v", "2:1: TypeMismatchException: Only an exception can be raised.\n"},
      {"Print 1 + \"a\"", "1:9: TypeMismatchException: This operator takes two numbers.\n"},
      {"Dim d As New Dictionary\nPrint d.Colour", "2:9: TypeMismatchException: Dictionary has no member \"Colour\".\n"},
      {"Dim d As Dictionary = New Date", "1:5: IllegalCastException: A Date is no Dictionary.\n"},
  });
}

// What an assignment makes of a value of another type; what cannot be is refused.
TEST(Language, Conversions) {
  struct Row {
    const char* type;
    const char* value;
    const char* printed;
  };
  const Row rows[] = {
      {"Integer", "2.9", "2"},
      {"Integer", "-2.9", "-2"},
      {"Integer", "\"12\"", "12"},
      {"Integer", "1e30", "9223372036854775807"},
      {"UInt64", "18446744073709551615.0", "18446744073709551615"},
      {"Double", "3", "3"},
      {"Double", "\"0.5\"", "0.5"},
      {"Single", "0.1", "0.1"},
      {"String", "0.1", "0.1"},
      {"String", "True", "True"},
      {"String", "Nil", ""},
      {"Text", "\"né\"", "né"},
      {"Boolean", "1", "True"},
      {"Variant", "1.5", "1.5"},
      {"Color", "&cFF0000", "16711680"},
      {"MemoryBlock", "\"abc\"", "MemoryBlock"},
      {"Dictionary", "Nil", "Nil"},
      {"Date", "New Date(2024, 2, 29)", "2024-02-29 00:00:00"},
      {"String", "New Date(2024, 2, 30)", "2024-03-01 00:00:00"},
  };
  for (const Row& row : rows) {
    const std::string start = "Dim value As " + std::string(row.type);
    const std::string end = std::string(row.value) + "\nPrint value";
    const std::string expected = row.printed + std::string("\n");
    EXPECT_EQ(outcomeOf(start + " = " + end), expected) << row.type << " from " << row.value;
    EXPECT_EQ(outcomeOf(start + "\nvalue = " + end), expected) << row.type << " from " << row.value;
    EXPECT_EQ(outcomeOf("Show(" + std::string(row.value) + ")\nSub Show(value As " + row.type + ")\nPrint value\nEnd Sub"),
              expected)
        << row.type << " from " << row.value;
    EXPECT_EQ(outcomeOf("Print Given()\nFunction Given() As " + std::string(row.type) + "\nReturn " + row.value +
                        "\nEnd Function"),
              expected)
        << row.type << " from " << row.value;
  }
  const char* refused[][2] = {
      {"Integer", "New Date"}, {"Dictionary", "5"}, {"Date", "\"today\""}, {"FolderItem", "New Date"}};
  for (const auto& [type, value] : refused) {
    const std::string program = "Dim v As Variant = " + std::string(value) + "\nTry\nDim x As " + type +
                                " = v\nPrint \"taken\"\nCatch e\nPrint \"refused\"\nEnd Try";
    EXPECT_EQ(outcomeOf(program), "refused\n") << type << " from " << value;
  }
}

// Arrays keep to the type of their elements wherever they are made.
TEST(Language, ArraysOfEveryType) {
  check({
      {"Dim d() As Double = Array(1, 2)\nPrint d(0) / 4", "0.25\n"},
      {"Dim s() As String = Array(1, 2)\nPrint s(0) + s(1)", "12\n"},
      {"Dim i() As Integer = Array(1.9, 2.9)\nPrint i(0) + i(1)", "3\n"},
      {"Dim b(1) As Boolean\nb(1) = True\nPrint b(0), b(1)", "False True\n"},
      {"Dim d(1) As Date\nPrint d(0)\nd(1) = New Date(2000, 1, 1)\nPrint d(1).Year", "Nil\n2000\n"},
      {"Dim s(0) As Single\ns(0) = 0.1\nPrint s(0)", "0.1\n"},
      {"Dim n() As Dictionary\nn.Append(New Dictionary)\nn(0).Value(\"a\") = 1\nPrint n(0).Value(\"A\")", "1\n"},
      {"Dim a() As Date\na.Append(\"x\")", "2:3: TypeMismatchException: A String is no Date.\n"},
      {"Dim v As Variant = Array(1, 2)\nDim t As Integer\nFor Each n As Integer In v\nt += n\nNext\nPrint t, v.Count",
       "3 2\n"},
      {"Dim a() As Integer\nTry\na.Insert(1, 5)\nCatch e As OutOfBoundsException\nPrint a.Count\nEnd Try", "0\n"},
      {"Dim a(2) As Integer\na.ResizeTo(0)\nPrint a.Count\na.ResizeTo(-9)\nPrint a.Count", "1\n0\n"},
      {"Dim s() As String = Array(\"b\", \"C\", \"a\")\ns.Sort\nPrint Join(s)", "a b C\n"},
      {"Dim v() As Variant = Array(1, \"a\")\nv.Sort", "2:3: TypeMismatchException: These two cannot be compared.\n"},
  });
}

TEST(Language, DictionariesAndVariants) {
  check({
      {"Dim d As New Dictionary\nd.Value(\"Key\") = 1\nd.Value(\"KEY\") = 2\nd.Value(1.0) = 3\nd.Value(1) = 4\nPrint "
       "d.Count, d.Value(\"key\"), d.Value(1)",
       "2 2 4\n"},
      {"Dim d As New Dictionary\nPrint d.Value(\"none\")",
       "2:9: KeyNotFoundException: The dictionary has no key \"none\".\n"},
      {"Dim d As New Dictionary\nd.Value(1) = New Dictionary\nd.Value(1).Value(2) = \"deep\"\nPrint d.Value(1).Value(2)",
       "deep\n"},
      {"Dim d As New Dictionary\nd.Value(1) = 5\nd.Value(1) += 2\nPrint d.Value(1), d.Lookup(2, \"no\")", "7 no\n"},
      {"Print VarType(1), VarType(\"\"), VarType(1.5), VarType(True), VarType(Nil), VarType(New Date), VarType(Array(1))",
       "3 8 5 11 0 7 4099\n"},
      {"Dim v As Variant = \"12\"\nPrint v.Length, v.Uppercase\nv = 12\nPrint v.StringValue.Length", "2 12\n2\n"},
  });
}

// Everything that the parser refuses, with the place to which the message points.
TEST(Language, Errors) {
  check({
      {"Print \"open", "1:7: This string has no closing quote\n"},
      {"Print 1\nPrint ?", "2:7: This character has no meaning here\n"},
      {"Print \"é\" + zebra", "1:13: There is nothing called \"zebra\"\n"},
      {"Dim x As Zebra", "1:10: There is no type \"Zebra\"\n"},
      {"Dim x As Integer\nDim X As String", "2:5: \"X\" is already declared here\n"},
      {"Dim if As Integer", "1:5: \"if\" cannot be the name of a variable\n"},
      {"If True Then\nPrint 1", "1:1: This If has no end\n"},
      {"While True\nPrint 1\nNext", "3:1: An expression belongs here, not \"Next\"\n"},
      {"Sub A()\nPrint 1", "1:1: This Sub has no End Sub\n"},
      {"If True Then\nSub A()\nEnd Sub\nEnd If", "2:1: A Sub stands by itself, not inside anything\n"},
      {"Print (1 + 2", "1:13: \")\" belongs here, not the end of the line\n"},
      {"Print 1 2", "1:9: The statement is complete before a number\n"},
      {"1 = 2", "1:1: Nothing can be assigned to this\n"},
      {"Const C = 1\nC = 2", "2:1: Nothing can be assigned to this\n"},
      {"Exit For", "1:1: There is no such loop around this Exit\n"},
      {"Return 1", "1:1: Only a Function returns a value\n"},
      {"Function F() As Integer\nReturn\nEnd Function", "2:1: A Function returns a value\n"},
      {"F(1, 2)\nSub F(a As Integer)\nEnd Sub", "1:1: F takes fewer arguments\n"},
      {"F\nSub F(a As Integer)\nEnd Sub", "1:1: F needs more arguments\n"},
      {"F(1)\nSub F(ByRef a As Integer)\nEnd Sub", "1:3: A ByRef argument must be a variable of the type Integer\n"},
      {"Print Left(\"a\")", "1:7: Left needs more arguments\n"},
      {"Print Dictionary", "1:7: \"Dictionary\" is a class, not a value\n"},
      {"Print 99999999999999999999", "1:7: This number is too large\n"},
      {"Print &u110000", "1:7: This number is too large\n"},
      {"Sub A()\nEnd Sub\nSub a()\nEnd Sub", "3:5: There is already a function \"a\"\n"},
  });
}

// Programs of a hostile shape end with a message; those at the limits run.
TEST(Language, ShapesAreBounded) {
  const auto repeated = [](const std::string& text, int times) {
    std::string result;
    for (int turn = 0; turn < times; ++turn) result += text;
    return result;
  };
  const std::string deep = "nested too deeply", isLong = "This statement is too long";
  const struct {
    std::string before, piece, after;  // the piece stands there as often as said, its end as often behind it
    std::string end;
    int most;
    std::string message;
  } rows[] = {
      {"Print ", "(", "1", ")", 99, deep},
      {"Print ", "Abs(", "1", ")", 99, deep},
      {"Print ", "-", "1", "", 198, deep},
      {"Print ", "Not ", "True", "", 198, deep},
      {"", "If True Then\n", "Print 1\n", "End If\n", 198, deep},
      {"Print 1", "+1", "", "", 4000, isLong},
      {"Print \"a\"", ".Trim", "", "", 2000, isLong},
  };
  for (const auto& row : rows) {
    const auto outcome = [&](int times) {
      return outcomeOf(row.before + repeated(row.piece, times) + row.after + repeated(row.end, times));
    };
    EXPECT_EQ(outcome(row.most).find(row.message), std::string::npos) << row.piece;
    for (const int tooMany : {row.most + 1, 100'000}) {
      EXPECT_NE(outcome(tooMany).find(row.message), std::string::npos) << row.piece << tooMany;
    }
  }
  EXPECT_EQ(outcomeOf("Print New Date(1" + repeated(",1", 16) + ")"),
            "1:11: TypeMismatchException: No function takes that many arguments.\n");
  EXPECT_EQ(outcomeOf("Print New Date(1" + repeated(",1", 15) + ")"),
            "1:11: TypeMismatchException: No \"Constructor\" of Date takes these arguments.\n");
}

// Whoever runs a program can bound it, also one whose loop is empty or that catches everything.
TEST(Language, StepsAreBounded) {
  host::Runtime& runtime = host::Runtime::shared();
  for (const char* source :
       {"Do\nLoop", "While True\nTry\nDo\nLoop\nCatch\nEnd Try\nWend", "Dim i As Integer\nFor i = 1 To 99999\nNext"}) {
    const host::LiveCounts before = runtime.live();
    std::ostringstream output;
    const auto failure = language::run(runtime, source, {"program.bas", {}, 1000}, output);
    ASSERT_TRUE(failure) << source;
    EXPECT_NE(failure->message.find("The program took too many steps."), std::string::npos) << failure->message;
    EXPECT_TRUE(runtime.live() == before) << source;
  }
}

TEST(Language, ProgramsSeeTheirArguments) {
  EXPECT_EQ(outcomeOf("Print System.Arguments.Count, System.Arguments(1), System.CommandLine", {"a", "b c"}),
            "2 b c a b c\n");
}

}  // namespace
}  // namespace language_test
