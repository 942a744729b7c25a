// The grammar for editors: it has the language's words, and none of its patterns is broken. jq, whose regular expressions
// are those of editors, reads it.
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <set>
#include <sstream>

#include "host/language/builtins.hpp"
#include "host/language/operators.hpp"
#include "host/language/parser.hpp"
#include "tests/host/language_support.hpp"

namespace language_test {
namespace {

using Words = std::set<std::string>;

// What the filter prints of the grammar, or with "null" of nothing; "" when jq finds an error.
std::string jq(const std::string& arguments) {
  FILE* pipe = popen(("jq -r " + arguments + " " SOURCE_FOLDER "/editors/styledtext.tmLanguage.json 2>&1").c_str(), "r");
  std::string output;
  std::array<char, 4096> buffer;
  while (const size_t count = fread(buffer.data(), 1, buffer.size(), pipe)) output.append(buffer.data(), count);
  return pclose(pipe) == 0 ? output : "";
}

class Grammar : public testing::Test {
 protected:
  void SetUp() override {
    if (WEXITSTATUS(system("command -v jq >/dev/null")) != 0) GTEST_SKIP() << "jq is not installed";
  }

  // The words of the patterns of a part: what stands between its innermost parentheses and bars, in lower case.
  static Words wordsOf(const std::string& part) {
    std::istringstream lines(
        jq("'.repository[\"" + part +
           "\"].patterns[].match | capture(\"[(][?]i?:(?<words>[^()]+)[)]|^(?<one>[^()]+)$\") | .words // "
           ".one' "));
    Words words;
    for (std::string line; std::getline(lines, line);) {
      std::istringstream alternatives(line);
      for (std::string word; std::getline(alternatives, word, '|');) {
        std::erase(word, '\\');
        words.insert(language::foldedName(word));
      }
    }
    return words;
  }
};

Words builtinNames(unsigned receivers) {
  Words names;
  for (const auto& table : {language::stringBuiltins(), language::searchBuiltins(), language::numberBuiltins(),
                            language::arrayBuiltins(), language::systemBuiltins()}) {
    for (const language::Builtin& builtin : table) {
      if ((builtin.receivers & receivers) != 0) names.insert(language::foldedName(builtin.name));
    }
  }
  return names;
}

TEST_F(Grammar, HasTheWordsOfTheLanguage) {
  const auto reserved = language::reservedWords();
  EXPECT_EQ(wordsOf("keywords"), Words(reserved.begin(), reserved.end()));
  EXPECT_EQ(wordsOf("functions"), builtinNames(language::Plain));
  Words members = wordsOf("members");
  std::erase_if(members, [](const std::string& word) { return word.find('[') != std::string::npos; });
  EXPECT_EQ(members, builtinNames(language::OfString | language::OfNumber | language::OfArray | language::OfFolderItem));
  Words types{"variant"};
#define HOST_TYPE(kind, name, code, size, Native) types.insert(language::foldedName(name));
  HOST_KINDS(HOST_TYPE)
#undef HOST_TYPE
  types.erase("");
  EXPECT_EQ(wordsOf("types"), types);
}

TEST_F(Grammar, HasPatternsThatFindWhatTheyAreFor) {
  struct Row {
    const char *text, *name, *found;
  };
  constexpr Row rows[] = {
      {"Print 1 ' note", "comment.line.apostrophe", "' note"},
      {"REM note", "comment.line.rem", "REM note"},
      {"Print remark", "comment.line.rem", ""},
      {"x = &hFF + 1", "constant.numeric.hexadecimal", "&hFF"},
      {"x = 1.5e-3 + a2", "constant.numeric", "1.5e-3"},
      {"y = a2", "constant.numeric", ""},
      {"Function Twice(x As Integer)", "meta.function", "Function Twice"},
      {"Dim d As New Dictionary", "meta.type", "As New Dictionary"},
      {"next", "keyword.control", "next"},
      {"nextOne", "keyword.control", ""},
      {"s = Left(t, 1)", "support.function", "Left"},
      {"s = t.left(1)", "support.function", ""},
      {"s = t.left(1)", "support.function.member", "left"},
      {"e = Encodings.UTF8", "support.function", "Encodings.UTF8"},
      {"Dim t As NSShadowZKT", "support.class", "NSShadowZKT"},
      {"a = 1 + _ ' more", "punctuation.continuation", "_ "},
  };
  for (const Row& row : rows) {
    const std::string filter = "--arg text \"" + std::string(row.text) + "\" --arg name " + row.name +
                               ".styledtext 'first(.. | objects | select(.name? == $name) | .match as $pattern | $text | "
                               "match($pattern).string) // \"\"'";
    EXPECT_EQ(jq(filter), row.found + std::string("\n")) << row.text << " as " << row.name;
  }
}

TEST_F(Grammar, HasPatternsThatCompile) {
  EXPECT_EQ(jq("'[.. | objects | (.match?, .begin?, .end?) | strings] | map(. as $pattern | \"x\" | test($pattern) | 1) | "
               "add > 20'"),
            "true\n");
}

TEST_F(Grammar, HasNoReferenceToAPartThatIsMissing) {
  EXPECT_EQ(jq("'[.. | objects | .include? // empty | ltrimstr(\"#\")] - (.repository | keys) | length'"), "0\n");
}

}  // namespace
}  // namespace language_test
