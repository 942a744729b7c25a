// Merges records and prose into pages.
#include "host/tool/reference_pages.hpp"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "host/runtime/runtime.hpp"
#include "host/tool/class_members.hpp"
#include "host/tool/reference_check.hpp"

namespace tool {
namespace {

// The anchor that readers of Markdown give a heading.
std::string anchorOf(const std::string& heading) {
  std::string anchor;
  for (const char c : heading) {
    if (c == ' ' || c == '-') anchor += '-';
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) anchor += static_cast<char>(std::tolower(c));
  }
  return anchor;
}

std::string linked(const std::string& text, const std::string& target) { return "[" + text + "](" + target + ")"; }

std::string trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of('\n');
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of('\n') + 1 - first);
}

std::string firstSentence(const std::string& text) {
  std::string sentence = trimmed(text);
  sentence = sentence.substr(0, std::min(sentence.find(".\n"), sentence.find(". ")));
  std::replace(sentence.begin(), sentence.end(), '\n', ' ');
  return sentence.ends_with('.') ? sentence : sentence + ".";
}

std::string indented(std::string text, const std::string& indent) {
  for (size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1)) text.insert(at + 1, indent);
  return indent + text;
}

// The fields as paragraphs, each followed by an empty line.
std::string paragraphs(const Statement& statement, const std::string& indent) {
  std::string result;
  const auto add = [&](const char* label, const std::string& text) {
    if (!text.empty()) result += indented(label + text, indent) + "\n\n";
  };
  add("", statement.text);
  add("*Units:* ", statement.units);
  add("*Errors:* ", statement.errors);
  return result;
}

// A program and what it prints stand apart.
std::string blocks(std::string programs) {
  const std::string touching = "```\n```";
  for (size_t at = programs.find(touching); at != std::string::npos; at = programs.find(touching, at + 1)) {
    programs.insert(at + touching.find('\n'), "\n");
  }
  return programs.empty() ? "" : programs + '\n';
}

// One class on a page, its headings so many levels down.
class ClassWriter {
 public:
  ClassWriter(const ClassProse& prose, int level) : prose_(prose), level_(level) {
    if (prose.name == kEveryClass) return;
    type_ = host::Runtime::shared().findClass(prose.name);
    sections_ = membersOf(*type_);
  }

  std::string write(bool withIndex) {
    addHeading(1, type_ == nullptr ? "All of these classes" : prose_.name);
    if (type_ != nullptr && type_->superclass() != nullptr) {
      page_ += "A subclass of `" + type_->superclass()->name() + "`.\n\n";
    }
    page_ += trimmed(prose_.text) + "\n\n";
    if (withIndex) addIndex();
    for (const GroupProse& group : prose_.groups) addGroup(group);
    return page_;
  }

 private:
  void addHeading(int depth, const std::string& text) {
    page_ += std::string(static_cast<size_t>(level_ + depth), '#') + ' ' + text + "\n\n";
  }

  // The declarations in the records' order, each with the place that speaks of it.
  void addIndex() {
    for (const MemberSection& section : sections_) {
      page_ += "**" + std::string(section.title) + "** (" + std::to_string(section.members.size()) + ")\n\n";
      for (const Member& member : section.members) {
        page_ += "- " + linked("`" + member.declaration + "`", "#" + anchorOf(groupOf(member))) + '\n';
      }
      page_ += '\n';
    }
  }

  std::string groupOf(const Member& member) const {
    for (const GroupProse& group : prose_.groups) {
      for (const MemberProse& said : group.members) {
        if (said.declaration == member.declaration) return group.title;
      }
    }
    return prose_.name;
  }

  void addGroup(const GroupProse& group) {
    if (!group.title.empty()) addHeading(2, group.title);
    page_ += paragraphs({group.text, "", ""}, "");
    for (const MemberProse& member : group.members) {
      page_ += "- **`" + member.declaration + "`**" + markOf(member) + "\n\n" + paragraphs(member, "  ");
    }
    page_ += paragraphs({"", group.units, group.errors}, "") + blocks(group.programs);
  }

  const char* markOf(const MemberProse& prose) const {
    const Member* member = findMember(sections_, prose.declaration);
    if (member == nullptr) return "";
    return member->isReadOnly ? " (read-only)" : member->isShared ? " (shared)" : "";
  }

  const ClassProse& prose_;
  int level_;
  const host::HostClass* type_ = nullptr;
  std::vector<MemberSection> sections_;
  std::string page_;
};

std::string listOf(const std::vector<const host::HostClass*>& plainClasses) {
  std::string list = "## Classes without members of their own\n\n";
  for (const host::HostClass* type : plainClasses) {
    list += "- `" + type->name() + "`";
    if (type->superclass() != nullptr) list += ", a `" + type->superclass()->name() + "`";
    list += '\n';
  }
  return list;
}

// A page of several classes begins with a list of them, and ends with one of those that it has nothing to say of.
std::string pageOf(const PageProse& prose, const std::vector<const host::HostClass*>& plainClasses) {
  const bool ofSeveral = !prose.title.empty();
  std::string page = ofSeveral ? "# " + prose.title + "\n\n" : "";
  for (const ClassProse& type : prose.classes) {
    if (ofSeveral && type.name != kEveryClass) page += "- " + linked(type.name, "#" + anchorOf(type.name)) + '\n';
  }
  if (ofSeveral) page += '\n';
  for (const ClassProse& type : prose.classes) {
    page += ClassWriter(type, ofSeveral ? 1 : 0).write(!ofSeveral);
  }
  return ofSeveral ? page + listOf(plainClasses) : page;
}

std::string overviewOf(const std::vector<PageProse>& pages) {
  std::string overview =
      "# Class reference\n\nEvery member of every class, with what it does, what its numbers count, what goes wrong, and a\n"
      "program that uses it. The declarations are the records' own. These pages are made by `docs/reference.sh` from the\n"
      "records and from `prose/`; whoever changes a member changes its prose there.\n\n";
  for (const PageProse& page : pages) {
    const std::string file = std::filesystem::path(page.file).filename();
    overview += "- " + linked(page.title.empty() ? page.classes.front().name : page.title, file) + ": " +
                firstSentence(page.classes.front().text) + '\n';
  }
  return overview;
}

std::vector<PageProse> readPages(const std::string& folder) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  std::vector<PageProse> pages;
  for (const std::string& file : files) pages.push_back(readProse(file));
  return pages;
}

}  // namespace

std::map<std::string, std::string> referencePages(const std::string& proseFolder) {
  const std::vector<PageProse> pages = readPages(proseFolder);
  for (const PageProse& page : pages) checkProse(page);
  const auto plainClasses = classesWithoutProse(pages);
  std::map<std::string, std::string> made{{"README.md", overviewOf(pages)}};
  for (const PageProse& page : pages) made[std::filesystem::path(page.file).filename()] = pageOf(page, plainClasses);
  return made;
}

}  // namespace tool
