// The command line, from the outside: what it writes where, and its exit status.
#include "tests/host/command_support.hpp"

namespace command_test {
namespace {

class CommandLine : public CommandTest {
 protected:
  Outcome run(const std::string& arguments) const { return styledtext(arguments); }
  Outcome runProgram(const std::string& source, const std::string& options = "", const std::string& arguments = "") const {
    write("program.bas", source);
    return run("run " + options + " program.bas " + arguments);
  }
};

TEST_F(CommandLine, WrongUsageExitsWithTwo) {
  for (const char* arguments : {"", "run", "unknown", "classes --colour", "run --check"}) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2) << arguments;
    EXPECT_TRUE(outcome.output.starts_with("styledtext: ")) << arguments << ": " << outcome.output;
  }
  EXPECT_EQ(run("--help").status, 0);
}

TEST_F(CommandLine, HelpHasExamplesOfEveryCommandAndTheExitStatuses) {
  const std::string help = run("--help").output;
  for (const char* status : {"  0  ", "  1  ", "  2  ", "  3  "}) EXPECT_NE(help.find(status), std::string::npos) << status;
  for (const std::string name : {"run", "convert", "inspect", "preview", "classes", "completion"}) {
    EXPECT_NE(help.find("\n  " + name + " "), std::string::npos) << name;
    const Outcome own = run(name + " --help");
    EXPECT_EQ(own.status, 0);
    EXPECT_NE(own.output.find("Examples:\n"), std::string::npos) << own.output;
    EXPECT_NE(own.output.find("styledtext " + name), std::string::npos) << own.output;
  }
  EXPECT_EQ(run("--version").output.find("styledtext "), 0U);
  EXPECT_EQ(run("--version").status, 0);
}

TEST_F(CommandLine, BashCompletesCommandsOptionsAndFormats) {
  write("complete.bash", R"bash(
eval "$(styledtext completion)"
complete_line() {
  COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
  _styledtext
  echo "${COMPREPLY[*]}"
}
complete_line styledtext co
complete_line styledtext --v
complete_line styledtext convert a.rtf --t
complete_line styledtext convert a.rtf --to d
complete_line styledtext --log run --check
complete_line styledtext inspect a
)bash");
  const Outcome outcome = inFolder("bash complete.bash");
  EXPECT_EQ(outcome.output, "convert completion\n--version\n--to\ndoc docx\n--check --check-references\n\n");
}

TEST_F(CommandLine, StandardInputHasNoFilesBesideIt) {
  fs::create_directory(folder_ / "temporary");
  write("temporary/other.css", "p { text-align: right }");
  write("page.html", "<link rel=stylesheet href=other.css><p>text</p>");
  write("temporary/page.html", read("page.html"));
  EXPECT_NE(run("inspect temporary/page.html").output.find("alignment 1"), std::string::npos);
  EXPECT_EQ(inFolder("TMPDIR=temporary styledtext inspect - < page.html").output.find("alignment 1"), std::string::npos);
  EXPECT_EQ(listing("temporary"), "other.css page.html ");
}

TEST_F(CommandLine, ProgramsCatchThatMemoryRunsShort) {
  const std::string limited = "ulimit -v 400000; styledtext ";
  if (inFolder(limited + "--version").status != 0) GTEST_SKIP() << "built to take all addresses there are";
  const char* const programs[] = {
      "Dim t As New NSMutableAttributedStringZKT\nDim ok As Boolean = t.initWithString(\"abcdefghij\")\nTry\n"
      "For i As Integer = 1 To 40\nt.appendAttributedString(t)\nNext\n"
      "Catch e As NSExceptionZKT\nPrint e.name\nEnd Try\n",
      "Dim d As New Dictionary\nTry\nFor i As Integer = 1 To 100000000\nd.Value(i) = i\nNext\n"
      "Catch e As OutOfMemoryException\nd = Nil\nPrint \"NSMallocException\"\nEnd Try\n"};
  for (const char* program : programs) {
    write("program.bas", program);
    EXPECT_EQ(inFolder(limited + "run program.bas").output, "NSMallocException\n") << program;
  }
}

// Colours, the bar and pages are for people at a terminal.
TEST_F(CommandLine, ColoursAreForTerminals) {
  if (shell("command -v script").status != 0) GTEST_SKIP() << "script is not installed";
  const std::string line = "TERM=xterm script -qec \"'" + command() + "' run missing\" /dev/null";
  EXPECT_NE(inFolder(line).output.find("\033["), std::string::npos);
  EXPECT_EQ(inFolder("export NO_COLOR=1; " + line).output.find("\033["), std::string::npos);
  EXPECT_EQ(inFolder("export TERM=xterm; styledtext run missing").output.find("\033["), std::string::npos);
  for (const char* name : {"a", "b", "c", "d", "e"}) write(std::string(name) + ".txt", name);
  const std::string bar = "script -qec \"'" + command() + "' convert *.txt --to rtf --into out\" /dev/null";
  EXPECT_NE(inFolder(bar).output.find("] 5/5"), std::string::npos);
  EXPECT_EQ(run("convert *.txt --to rtf --into out").output, "");
}

TEST_F(CommandLine, ProgramsAreCheckedWithoutBeingRun) {
  const Outcome wrong = runProgram("Print 1\nPrint (\nDim t As New NSShadowZKT\nt.Blur", "--check");
  EXPECT_EQ(wrong.output,
            "program.bas:2:8: An expression belongs here, not the end of the line\n"
            "program.bas:4:3: NSShadowZKT has no member \"Blur\"\n");
  EXPECT_EQ(wrong.status, 1);
  const Outcome right = runProgram("Print 1\nRaise New IOException", "--check");
  EXPECT_EQ(right.output, "");
  EXPECT_EQ(right.status, 0);
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
}  // namespace command_test
