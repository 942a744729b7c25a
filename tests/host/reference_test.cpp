// The class reference: pages made of records and prose, and what is wrong with prose that does not fit.
#include "tests/host/command_support.hpp"

namespace command_test {
namespace {

const fs::path proseFolder = fs::path(STYLEDTEXT_SOURCE_FOLDER) / "docs/reference/prose";

class Reference : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    if (IsSkipped()) return;
    fs::copy(proseFolder, folder_ / "prose");
    prose_ = read("prose/NSShadowZKT.md");
  }
  Outcome make() const { return styledtext("classes --prose prose --into pages"); }
  // The prose of the shadow with the first such text replaced by another.
  void change(const std::string& text, const std::string& replacement) const {
    std::string changed = prose_;
    const size_t at = changed.find(text);
    ASSERT_NE(at, std::string::npos) << text;
    write("prose/NSShadowZKT.md", changed.replace(at, text.size(), replacement));
  }

  std::string prose_;
};

TEST_F(Reference, HasAPageForEachFileOfProseAndAListOfThem) {
  const Outcome made = make();
  ASSERT_EQ(made.status, 0) << made.output;
  size_t pages = 0;
  for ([[maybe_unused]] const auto& page : fs::directory_iterator(folder_ / "pages")) ++pages;
  EXPECT_EQ(pages, 7U);
  EXPECT_NE(read("pages/README.md").find("- [NSShadowZKT](NSShadowZKT.md): The shadow of text"), std::string::npos);
  const std::string page = read("pages/NSAttributedStringZKT.md");
  EXPECT_NE(page.find("**Shared methods** (109)"), std::string::npos);
  EXPECT_NE(page.find("- **`Length As Integer`** (read-only)\n\n  How long the text is.\n\n  *Units:* UTF-16 units.\n"),
            std::string::npos);
}

TEST_F(Reference, SaysWhereProseAndRecordsDiffer) {
  struct Row {
    const char *text, *replacement, *message;
  };
  const Row rows[] = {
      {"# NSShadowZKT", "# NSShade", "NSShadowZKT.md:1: There is no class NSShade."},
      {"- `set`", "- `unset`", "NSShadowZKT has no such member."},
      {"- `set`", "- `Constructor`", "This member is there twice."},
      {"- `shadowColor As NSColorZKT`\n", "", "NSShadowZKT has a member that nothing is said of: shadowColor As NSColorZKT"},
      {"  How blurred the shadow is; 0 leaves it sharp.\n", "", "Nothing is said of this member."},
      {"  Errors: none.\n", "", "It is not said what goes wrong."},
      {"Units: points", "Sizes: points", "It is not said what the numbers count."},
      {"shadow.set\n", "' nothing\n", "No program of the group uses this member."},
      {"- `set`", "- `set", "A declaration stands between ` and ` on a line of its own."},
      {"# NSShadowZKT", "## NSShadowZKT", "NSShadowZKT.md:1: This belongs to no class"},
  };
  for (const Row& row : rows) {
    change(row.text, row.replacement);
    const Outcome outcome = make();
    EXPECT_EQ(outcome.status, 1) << row.message;
    EXPECT_NE(outcome.output.find(row.message), std::string::npos) << outcome.output;
  }
  fs::remove(folder_ / "prose/NSShadowZKT.md");
  EXPECT_NE(make().output.find("NSShadowZKT has a member that nothing is said of"), std::string::npos);
}

TEST_F(Reference, ListsClassesAsJSON) {
  const Outcome listed = styledtext("classes NSShadowZKT --json");
  EXPECT_EQ(listed.status, 0);
  EXPECT_TRUE(listed.output.starts_with(R"([{"name": "NSShadowZKT", "properties": [{"declaration": "Handle As Integer"})"))
      << listed.output;
  EXPECT_NE(styledtext("classes NSErrorZKT --json").output.find(R"({"declaration": "code As Integer", "readOnly": true})"),
            std::string::npos);
}

}  // namespace
}  // namespace command_test
