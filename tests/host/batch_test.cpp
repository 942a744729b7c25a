// Many documents, bad ones among them, standard streams, and what is left when a conversion fails.
#include "tests/host/command_support.hpp"

namespace command_test {
namespace {

class Batch : public CommandTest {};

TEST_F(Batch, AThousandDocumentsWithTwentyBrokenOnes) {
  constexpr const char* kinds[][2] = {
      {"txt", "text"}, {"rtf", "{\\rtf1 \\b bold}"}, {"html", "<p>a <b>b</b></p>"}, {"tags", "<b>x</b>"}};
  constexpr size_t each = 250, broken = 20;
  fs::create_directory(folder_ / "in");
  for (const auto& [extension, content] : kinds) {
    for (size_t index = 100; index < 100 + each; ++index) {
      const bool isBroken = extension == std::string("rtf") && index < 100 + broken;
      write("in/" + std::string(extension) + std::to_string(index) + "." + extension, isBroken ? "{\\oops" : content);
    }
  }
  std::string expected;
  for (const char* options : {"--to odt --into one", "--to docx --into two --jobs 2"}) {
    const Outcome outcome = styledtext("convert in/* " + std::string(options));
    EXPECT_EQ(outcome.status, 1);
    for (size_t index = 100; index < 100 + broken; ++index) {
      EXPECT_NE(outcome.output.find("styledtext: in/rtf" + std::to_string(index) + ".rtf: "), std::string::npos);
    }
    EXPECT_EQ(std::count(outcome.output.begin(), outcome.output.end(), '\n'), broken) << outcome.output;
    if (expected.empty()) expected = outcome.output;
    EXPECT_EQ(outcome.output, expected) << "in the order of the documents";
  }
  for (const char* folder : {"one", "two"}) {
    const std::string names = listing(folder);
    EXPECT_EQ(std::count(names.begin(), names.end(), ' '), 4 * each - broken);
    EXPECT_EQ(names.find("rtf119"), std::string::npos);
    EXPECT_EQ(names.find(".styledtext"), std::string::npos);
  }
}

// A process that writes a file of more than a few blocks is ended by the system.
TEST_F(Batch, ADocumentThatEndsItsProcessIsAnErrorAndLeavesNothing) {
  write("small.txt", "small");
  write("large.txt", std::string(100'000, 'x'));
  write("last.txt", "last");
  fs::create_directory(folder_ / "out");
  write("out/large.rtf", "what was there");
  for (const char* jobs : {"1", "3"}) {
    const Outcome outcome = inFolder(
        "ulimit -f 16; styledtext convert small.txt large.txt last.txt --to rtf --into out --jobs " + std::string(jobs));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(
        outcome.output,
        "styledtext: large.txt: the process that worked on it was ended (File size limit exceeded); please report this "
        "with the document\n");
    EXPECT_EQ(listing("out"), "large.rtf last.rtf small.rtf ");
    EXPECT_EQ(read("out/large.rtf"), "what was there");
  }
}

TEST_F(Batch, AnInterruptedConversionLeavesNothing) {
  const Outcome outcome = inFolder(
      "mkfifo endless; sleep 60 > endless & holder=$!; mkdir out; '" + command() +
      "' convert endless --from txt --to rtf --into out & "
      "converting=$!; until [ -n \"$(ls -A out)\" ]; do sleep 0.05; done; kill -TERM $converting; wait $converting; "
      "status=$?; kill $holder; exit $status");
  EXPECT_EQ(outcome.status, 128 + 15) << outcome.output;
  EXPECT_EQ(listing("out"), "");
}

TEST_F(Batch, StandardStreams) {
  write("a.html", "<html><p>one <b>two</b></p></html>");
  struct Row {
    const char *line, *output;
    int status;
  };
  constexpr Row rows[] = {
      {"styledtext convert - --to txt -o - < a.html", "one two", 0},
      {"styledtext convert - --from txt --to txt -o - < a.html", "<html><p>one <b>two</b></p></html>", 0},
      {"styledtext convert - --to txt --into out < a.html && cat out/document.txt", "one two", 0},
      {"styledtext convert a.html -o - ", "styledtext: convert: the name after -o does not say the format; use --to\n", 2},
      {"printf x | styledtext inspect -",
       "Length 1\n  DocumentType: NSPlainText\n  CharacterEncoding: 4\n0+1 \"x\"\n  NSFont: fontName Helvetica, pointSize "
       "12\n",
       0},
      {"echo '{\\oops' | styledtext inspect - --from rtf 2>&1 | cut -c -30", "styledtext: standard input: it\n", 0},
      {"styledtext preview - -o - < a.html | head -c 4 | tail -c 3", "PNG", 0},
      {"styledtext convert a.html --to rtfd -o -",
       "styledtext: a.html: a document that is a folder cannot be written to a stream\n", 1},
      {"styledtext convert a.html --to txt -o /dev/full", "styledtext: a.html: /dev/full: No space left on device\n", 1},
      {"echo 'Print 6 * 7' | styledtext run -", "42\n", 0},
      {"echo 'Print (' | styledtext run -",
       "styledtext: standard input:1:8: An expression belongs here, not the end of the line\n", 1},
      {"styledtext inspect - <&-", "styledtext: standard input: Bad file descriptor\n", 1},
  };
  for (const Row& row : rows) {
    const Outcome outcome = inFolder("TMPDIR=. ; export TMPDIR; " + std::string(row.line));
    EXPECT_EQ(outcome.output, row.output) << row.line;
    EXPECT_EQ(outcome.status, row.status) << row.line;
  }
  EXPECT_EQ(listing(), "a.html out ") << "copies of the streams are removed";
}

TEST_F(Batch, WhatIsReplacedIsKeptUntilItsSuccessorIsComplete) {
  write("a.txt", "new");
  write("target.rtf", "old");
  fs::permissions(folder_ / "target.rtf", fs::perms(0640));
  fs::create_symlink("target.rtf", folder_ / "link.rtf");
  fs::create_directory(folder_ / "things");
  write("things/mine", "mine");
  ASSERT_EQ(styledtext("convert a.txt -o link.rtf").status, 0);
  EXPECT_TRUE(fs::is_symlink(folder_ / "link.rtf"));
  EXPECT_TRUE(read("target.rtf").starts_with("{\\rtf1"));
  EXPECT_EQ(fs::status(folder_ / "target.rtf").permissions(), fs::perms(0640));
  ASSERT_EQ(styledtext("convert a.txt -o a.rtfd").status, 0);
  write("a.rtfd/old.png", "of the old one");
  ASSERT_EQ(styledtext("convert target.rtf -o a.rtfd").status, 0);
  EXPECT_EQ(listing("a.rtfd"), "TXT.rtf ");
  const Outcome refused = styledtext("convert a.txt --to rtfd -o things");
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.output.find("things is a folder with other things in it"), std::string::npos) << refused.output;
  EXPECT_EQ(read("things/mine"), "mine");
  EXPECT_EQ(listing(), "a.rtfd a.txt link.rtf target.rtf things ");
}

TEST_F(Batch, WhyADocumentCannotBeReadIsTold) {
  struct Row {
    const char *name, *content, *options, *told;
  };
  constexpr Row rows[] = {
      {"a.rtf", "junk", "",
       "The document cannot be read as rtf; it may be damaged, or of another format than it seems, which --from can name"},
      {"a.docx", "PK\3\4junk", "", "The document cannot be read as docx; "},
      {"b.rtf", "{\\rtf1 x}", "--from doc", "it is no doc document, but can be read as rtf"},
      {"c.txt", "plain", "--from odt", "it is no odt document, but can be read as txt"},
  };
  for (const Row& row : rows) {
    write(row.name, row.content);
    const Outcome outcome = styledtext("convert " + std::string(row.name) + " -o out.html " + row.options);
    EXPECT_TRUE(outcome.output.starts_with("styledtext: " + std::string(row.name) + ": " + row.told)) << outcome.output;
    EXPECT_EQ(outcome.status, 1);
  }
}

}  // namespace
}  // namespace command_test
