// Declaration strings: what is read from them, and where they are wrong.
#include "host/runtime/declaration.hpp"

#include "tests/host/runtime_support.hpp"

namespace host_test {
namespace {

class DeclarationTest : public RuntimeTest {};

TEST_F(DeclarationTest, AreRead) {
  const struct {
    const char* text;
    const char* meaning;
  } cases[] = {
      {"copy as NSAttributedStringZKT", "copy as NSAttributedStringZKT"},
      {"Clear", "Clear"},
      {"Clear()", "Clear"},
      {"Keys() As Variant()", "Keys as Variant()"},
      {"LenB( s as string ) as integer", "LenB(s as String) as Integer"},
      {"f(names() as string, BYREF r as NSRangeZKT)", "f(names as String(), byref r as NSRangeZKT)"},
      {"Value(key As Variant, Assigns _value As Variant)", "Value(key as Variant, assigns _value as Variant)"},
      {"f(a as int64 = -3, b as string = \"\", c as string = \"x\"\"y\", d as folderitem = Nil, e as Boolean = true)",
       "f(a as Integer = -3, b as String = \"\", c as String = \"x\"\"y\", d as folderitem = nil, e as Boolean = true)"},
      {"f(byref assigns a as Double = 1e-9)", "f(byref assigns a as Double = 1e-09)"},
      {"f(mask as UInteger = &hFF) as ptr", "f(mask as UInt64 = 255) as Ptr"},
      {"Year as Integer, Month as Integer = 1", "Constructor(Year as Integer, Month as Integer = 1)"},
      // A name that begins like a keyword.
      {"f(byrefs as text, asset as single)", "f(byrefs as Text, asset as Single)"},
  };
  for (const auto& each : cases) EXPECT_EQ(describe(parseDeclaration(each.text)), each.meaning) << each.text;
}

TEST_F(DeclarationTest, SayWhatIsWrongAndWhere) {
  const struct {
    const char* text;
    const char* message;
    size_t offset;
  } cases[] = {
      {"", "the name of the method is missing", 0},
      {"f(a)", "\"as\" and a type are missing", 3},
      {"f(a as Integer", "\")\" is missing", 14},
      {"f(a as )", "the name of a type is missing", 7},
      {"f(a as Integer = )", "a value is missing", 17},
      {"f(a as String = \"x)", "a string does not end", 16},
      {"f(a as Integer = &hZ)", "a number does not follow its prefix", 17},
      {"f(a as Integer,)", "the name of a parameter is missing", 15},
      {"f() as Integer x", "nothing more belongs here", 15},
  };
  for (const auto& each : cases) {
    try {
      parseDeclaration(each.text);
      ADD_FAILURE() << each.text;
    } catch (const DeclarationError& error) {
      EXPECT_EQ(error.message, each.message) << each.text;
      EXPECT_EQ(error.offset, each.offset) << each.text;
    }
  }
}

TEST_F(DeclarationTest, ConstantsHaveTheirTypes) {
  const struct {
    const char* text;
    const char* value;
  } cases[] = {
      {"A = 1", "Integer 1"},    {"B = &hFFFC", "Integer 65532"}, {"C = 1.5", "Double 1.5"},
      {"D = \"x\"", "String x"}, {"E = false", "Boolean False"},  {"F = &b101", "Integer 5"},
  };
  for (const auto& each : cases) EXPECT_EQ(show(parseConstant(each.text).value), each.value) << each.text;
}

// Plug-ins find methods whatever the capitals, the names of parameters and their defaults; nothing else may differ.
TEST_F(DeclarationTest, SignaturesAreCompared) {
  const char* method = "Value(key As Variant, count as Integer = 1) As MemoryBlock";
  const struct {
    const char* other;
    bool same;
  } cases[] = {
      {"value(k as variant, n as INT64) as memoryblock", true},
      {"Value(k as Variant) as MemoryBlock", false},
      {"Value(k as Variant, n as Integer)", false},
      {"Value(byref k as Variant, n as Integer) as MemoryBlock", false},
      {"Value(k as Variant, n as UInt64) as MemoryBlock", false},
      {"Value(k as Variant(), n as Integer) as MemoryBlock", false},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(sameSignature(parseDeclaration(method), parseDeclaration(each.other)), each.same) << each.other;
  }
}

}  // namespace
}  // namespace host_test
