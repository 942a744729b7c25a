// Reads the prose line by line.
#include "host/tool/reference_prose.hpp"

#include <optional>
#include <sstream>

#include "host/tool/files.hpp"

namespace tool {
namespace {

// What follows the mark at the line's start; nothing when the line has no such mark.
std::optional<std::string> after(const std::string& mark, const std::string& line) {
  if (!line.starts_with(mark)) return std::nullopt;
  return line.substr(mark.size());
}

std::string withoutIndent(const std::string& line) {
  const size_t first = line.find_first_not_of(' ');
  return first == std::string::npos ? "" : line.substr(first);
}

void appendLine(std::string& text, const std::string& line) {
  if (!text.empty()) text += '\n';
  text += line;
}

class ProseReader {
 public:
  explicit ProseReader(const std::string& file) : page_{file, "", {}} {}

  PageProse read() {
    std::istringstream lines(contentsOf(page_.file));
    std::string line;
    while (std::getline(lines, line)) {
      ++number_;
      inProgram_ ? takeProgramLine(line) : takeLine(line);
    }
    if (inProgram_) fail("This program is not closed.");
    return std::move(page_);
  }

 private:
  [[noreturn]] void fail(const std::string& message) const { throw ProseError(page_.file, number_, message); }

  void takeLine(const std::string& line) {
    if (const auto title = after("title: ", line)) {
      page_.title = *title;
    } else if (const auto name = after("# ", line)) {
      page_.classes.push_back({*name, "", number_, {}});
    } else if (const auto heading = after("## ", line)) {
      addGroup(*heading);
    } else if (const auto declaration = after("- `", line)) {
      addMember(*declaration);
    } else if (line.starts_with("```")) {
      group().programs += line + '\n';
      inProgram_ = true;
    } else {
      takeText(line);
    }
  }

  void takeProgramLine(const std::string& line) {
    group().programs += line + '\n';
    inProgram_ = line != "```";
  }

  // Indented text is about the member above it, other text about the group, or about the class before its first group.
  void takeText(const std::string& line) {
    const std::string text = withoutIndent(line);
    if (text.empty() && (page_.classes.empty() || current().groups.empty())) return takeClassText("");
    if (text.empty()) return endParagraph();
    if (line.starts_with("  ")) return takeStatement(member(), text);
    if (current().groups.empty()) return takeClassText(text);
    takeStatement(group(), text);
  }

  void takeClassText(const std::string& text) {
    if (!page_.classes.empty()) appendLine(current().text, text);
  }

  // A line goes on with what the one before it said, until a paragraph ends.
  void takeStatement(Statement& statement, const std::string& text) {
    std::string* const before = field_ != nullptr && statement_ == &statement ? field_ : &statement.text;
    std::string line = text;
    field_ = before;
    for (const auto& [mark, field] : {std::pair("Units: ", &Statement::units), std::pair("Errors: ", &Statement::errors)}) {
      if (const auto said = after(mark, text)) {
        field_ = &(statement.*field);
        line = *said;
      }
    }
    statement_ = &statement;
    appendLine(*field_, line);
  }

  void endParagraph() { field_ = nullptr; }

  void addGroup(const std::string& title) {
    endParagraph();
    GroupProse added;
    added.title = title;
    added.line = number_;
    current().groups.push_back(std::move(added));
  }

  void addMember(const std::string& rest) {
    if (!rest.ends_with('`')) fail("A declaration stands between ` and ` on a line of its own.");
    endParagraph();
    MemberProse added;
    added.declaration = rest.substr(0, rest.size() - 1);
    added.line = number_;
    group().members.push_back(std::move(added));
  }

  ClassProse& current() {
    if (page_.classes.empty()) fail("This belongs to no class: a line with \"# \" and its name comes first.");
    return page_.classes.back();
  }

  GroupProse& group() {
    if (current().groups.empty()) addGroup("");
    return current().groups.back();
  }

  MemberProse& member() {
    if (group().members.empty()) fail("Indented text belongs to a member, and none stands above it.");
    return group().members.back();
  }

  PageProse page_;
  int number_ = 0;
  bool inProgram_ = false;
  const Statement* statement_ = nullptr;
  std::string* field_ = nullptr;
};

}  // namespace

PageProse readProse(const std::string& file) { return ProseReader(file).read(); }

}  // namespace tool
