// What the pages of the reference say of classes and their members, read from the files that people write.
//
// A file is Markdown, of this shape. Texts may be several lines; a group may stand without its heading and without text.
//
//   title: The page's title, where it is of several classes
//   # NameOfAClass, or "# *" for members that every class of the page has
//   Text about the class.
//   ## Title of a group of members
//   Text about the group.
//   - `declaration, as the record has it`
//     What the member does.
//     Units: what its numbers count.
//     Errors: what goes wrong, and what happens then.
//   Units: for all members of the group that do not say.
//   Errors: the same.
//   ```vb
//   a program that uses every member of the group
//   ```
//   ```text
//   what it prints
//   ```
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace tool {

// What a member, or every member of a group, is said to do.
struct Statement {
  std::string text, units, errors;
};

struct MemberProse : Statement {
  std::string declaration;
  int line = 0;
};

struct GroupProse : Statement {
  std::string title;  // empty for members that stand under no heading
  int line = 0;
  std::vector<MemberProse> members;
  std::string programs;  // the fenced blocks as they stand
};

struct ClassProse {
  std::string name;
  std::string text;
  int line = 0;
  std::vector<GroupProse> groups;
};

inline constexpr const char* kEveryClass = "*";

struct PageProse {
  std::string file;
  std::string title;  // empty for a page of one class
  std::vector<ClassProse> classes;
};

// Something to be put right in the prose: "file:line: message".
struct ProseError : std::runtime_error {
  ProseError(const std::string& file, int line, const std::string& message)
      : runtime_error(file + ":" + std::to_string(line) + ": " + message) {}
};

// Throws ProseError for a file of another shape, DocumentError for one that cannot be read.
PageProse readProse(const std::string& file);

}  // namespace tool
