// The command line, from the outside: what it writes where, and its exit status.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

struct Outcome {
  std::string output;  // both streams
  int status;
};

// The command lies beside the tests.
std::string command() { return (fs::read_symlink("/proc/self/exe").parent_path() / "styledtext").string(); }

Outcome shell(const std::string& line) {
  FILE* pipe = popen((line + " 2>&1").c_str(), "r");
  std::string output;
  std::array<char, 4096> buffer;
  while (const size_t count = fread(buffer.data(), 1, buffer.size(), pipe)) output.append(buffer.data(), count);
  return {output, WEXITSTATUS(pclose(pipe))};
}

class CommandLine : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(command())) GTEST_SKIP() << "styledtext is not built";
    std::string pattern = (fs::temp_directory_path() / "styledtextXXXXXX").string();
    folder_ = mkdtemp(pattern.data());
  }
  void TearDown() override {
    if (!folder_.empty()) fs::remove_all(folder_);
  }

  Outcome run(const std::string& arguments) {
    return shell("cd '" + folder_.string() + "' && '" + command() + "' " + arguments);
  }
  Outcome runProgram(const std::string& source, const std::string& options = "", const std::string& arguments = "") {
    std::ofstream(folder_ / "program.bas") << source;
    return run("run " + options + " program.bas " + arguments);
  }

  fs::path folder_;
};

TEST_F(CommandLine, WrongUsageExitsWithTwo) {
  for (const char* arguments : {"", "run", "unknown", "classes --colour", "run --check"}) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2) << arguments;
    EXPECT_TRUE(outcome.output.starts_with("styledtext: ")) << arguments << ": " << outcome.output;
  }
  EXPECT_EQ(run("--help").status, 0);
}

TEST_F(CommandLine, FailuresNameTheFileAndThePlace) {
  EXPECT_EQ(run("run missing.bas").output, "styledtext: missing.bas: No such file or directory\n");
  EXPECT_EQ(run("run .").output, "styledtext: .: Is a directory\n");
  EXPECT_EQ(run("run missing.bas").status, 1);
  const Outcome syntax = runProgram("Print 1\nPrint (");
  EXPECT_EQ(syntax.output, "styledtext: program.bas:2:8: An expression belongs here, not the end of the line\n");
  EXPECT_EQ(syntax.status, 1);
  const Outcome uncaught = runProgram("Print 1\nRaise New IOException");
  EXPECT_EQ(uncaught.output, "1\nstyledtext: program.bas:2:1: IOException\n");
  EXPECT_EQ(uncaught.status, 1);
}

TEST_F(CommandLine, ProgramsGetEveryArgumentAfterTheirName) {
  const Outcome outcome = runProgram("For Each a As String In System.Arguments\nPrint \"<\" + a + \">\"\nNext", "",
                                     "one 'two three' --check-references -x é ''");
  EXPECT_EQ(outcome.output, "<one>\n<two three>\n<--check-references>\n<-x>\n<é>\n<>\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(CommandLine, WhatIsLeftAliveIsReported) {
  const Outcome clean = runProgram("Dim d As New Dictionary\nd.Value(1) = \"x\"", "--check-references");
  EXPECT_EQ(clean.output, "");
  EXPECT_EQ(clean.status, 0);
  const std::string circle = "Dim d As New Dictionary\nd.Value(1) = d";
  const Outcome leaking = runProgram(circle, "--check-references");
  EXPECT_EQ(leaking.status, 3);
  EXPECT_NE(leaking.output.find("Dictionary #"), std::string::npos) << leaking.output;
  EXPECT_EQ(runProgram(circle).status, 0);
}

TEST_F(CommandLine, APluginThatIsNotThereIsAnError) {
  fs::copy_file(command(), folder_ / "styledtext");
  const Outcome outcome = shell("LD_LIBRARY_PATH='" + fs::path(command()).parent_path().string() + "' '" +
                                (folder_ / "styledtext").string() + "' classes");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.output.starts_with("styledtext: SiblingsZKT.so: ")) << outcome.output;
}

TEST_F(CommandLine, ClassesAreListedFromTheirRecords) {
  struct Row {
    const char* name;
    const char* heading;
    std::vector<const char*> contents;
  };
  const Row rows[] = {
      {"NSAttributedStringZKT",
       "NSAttributedStringZKT\n",
       {"Properties (4)", "    Length As Integer   ' read-only\n", "    Handle As Integer\n", "Methods (47)",
        "    initWithURL(url as string, byref documentAttributes as dictionary) as boolean\n", "Shared methods (109)",
        "    NSFontAttributeName as string\n"}},
      {"nsmutableattributedstringzkt",
       "NSMutableAttributedStringZKT (a NSAttributedStringZKT)\n",
       {"Methods (28)", "    addAttribute(name as string, value as variant, range as NSRangeZKT)\n"}},
      {"NSTextAttachmentZKT",
       "NSTextAttachmentZKT\n",
       {"Properties (3)", "Methods (2)", "Constants (1)", "    NSAttachmentCharacter = &hFFFC\n", "Shared methods (1)"}},
      {"NSFileWrapperZKT", "NSFileWrapperZKT\n", {"Properties (12)", "Methods (11)", "Constants (4)", "Shared methods (5)"}},
      {"NSShadowZKT", "NSShadowZKT\n", {"Properties (4)", "Methods (3)"}},
      {"Dictionary", "Dictionary\n", {"    Count As Integer   ' read-only\n"}},
  };
  const std::string all = run("classes").output;
  for (const Row& row : rows) {
    const Outcome outcome = run(std::string("classes ") + row.name);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.output.starts_with(row.heading)) << outcome.output;
    for (const char* content : row.contents) {
      EXPECT_NE(outcome.output.find(content), std::string::npos) << row.name << " lacks " << content;
    }
    const bool ofPlugin = std::string(row.name) != "Dictionary";
    EXPECT_EQ(all.find(outcome.output) != std::string::npos, ofPlugin) << row.name;
  }
  EXPECT_EQ(run("classes NSNothingZKT").output, "styledtext: NSNothingZKT: there is no such class\n");
  EXPECT_EQ(run("classes NSNothingZKT").status, 1);
}

TEST_F(CommandLine, MarkdownHasAHeadingForEachClassAndFencesThatClose) {
  const std::string document = run("classes --markdown").output;
  EXPECT_NE(
      document.find("## NSMutableAttributedStringZKT\n\nA subclass of `NSAttributedStringZKT`.\n\n### Methods\n\n```\n"),
      std::string::npos);
  size_t fences = 0;
  for (size_t at = document.find("```"); at != std::string::npos; at = document.find("```", at + 3)) ++fences;
  EXPECT_GT(fences, 20U);
  EXPECT_EQ(fences % 2, 0U);
}

}  // namespace
