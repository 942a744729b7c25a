// Checks a page class by class.
#include "host/tool/reference_check.hpp"

#include <algorithm>
#include <cctype>
#include <set>

#include "host/runtime/runtime.hpp"
#include "host/tool/class_members.hpp"

namespace tool {
namespace {

// Members of every class of a page, by declaration.
std::set<std::string> commonMembers(const PageProse& page) {
  std::set<std::string> declarations;
  for (const ClassProse& type : page.classes) {
    if (type.name != kEveryClass) continue;
    for (const GroupProse& group : type.groups) {
      for (const MemberProse& member : group.members) declarations.insert(member.declaration);
    }
  }
  return declarations;
}

bool isPartOfWord(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

// Whether the programs use the name, in any capitals. A constructor is used by its class's name.
bool areUsing(const std::string& programs, const std::string& name) {
  const std::string text = host::lowerCase(programs), word = host::lowerCase(name);
  for (size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
    const bool startsWord = at == 0 || !isPartOfWord(text[at - 1]);
    const size_t end = at + word.size();
    if (startsWord && (end == text.size() || !isPartOfWord(text[end]))) return true;
  }
  return false;
}

class ClassCheck {
 public:
  ClassCheck(const PageProse& page, const ClassProse& prose) : page_(page), prose_(prose) {
    if (prose.name == kEveryClass) return;
    const host::HostClass* type = host::Runtime::shared().findClass(prose.name);
    if (type == nullptr) fail(prose.line, "There is no class " + prose.name + ".");
    sections_ = membersOf(*type);
  }

  void run() {
    if (prose_.text.find_first_not_of('\n') == std::string::npos) fail(prose_.line, "Nothing is said of this class.");
    for (const GroupProse& group : prose_.groups) {
      for (const MemberProse& member : group.members) check(group, member);
    }
    if (prose_.name != kEveryClass) findMissing();
  }

 private:
  [[noreturn]] void fail(int line, const std::string& message) const { throw ProseError(page_.file, line, message); }

  void check(const GroupProse& group, const MemberProse& member) {
    if (!seen_.insert(member.declaration).second) fail(member.line, "This member is there twice.");
    if (member.text.empty()) fail(member.line, "Nothing is said of this member.");
    if ((member.errors + group.errors).empty()) fail(member.line, "It is not said what goes wrong.");
    if (prose_.name == kEveryClass) return;
    const Member* found = findMember(sections_, member.declaration);
    if (found == nullptr) fail(member.line, prose_.name + " has no such member.");
    if (found->hasNumbers && (member.units + group.units).empty()) {
      fail(member.line, "It is not said what the numbers count.");
    }
    const std::string& used = found->name == "Constructor" ? "New " + prose_.name : found->name;
    if (!areUsing(group.programs, used)) fail(member.line, "No program of the group uses this member.");
  }

  void findMissing() const {
    const std::set<std::string> common = commonMembers(page_);
    for (const MemberSection& section : sections_) {
      for (const Member& member : section.members) {
        if (seen_.contains(member.declaration) || common.contains(member.declaration)) continue;
        fail(prose_.line, prose_.name + " has a member that nothing is said of: " + member.declaration);
      }
    }
  }

  const PageProse& page_;
  const ClassProse& prose_;
  std::vector<MemberSection> sections_;
  std::set<std::string> seen_;
};

bool isDocumented(const std::vector<PageProse>& pages, const std::string& className) {
  return std::any_of(pages.begin(), pages.end(), [&](const PageProse& page) {
    return std::any_of(page.classes.begin(), page.classes.end(),
                       [&](const ClassProse& type) { return type.name == className; });
  });
}

std::set<std::string> allCommonMembers(const std::vector<PageProse>& pages) {
  std::set<std::string> declarations;
  for (const PageProse& page : pages) declarations.merge(commonMembers(page));
  return declarations;
}

}  // namespace

void checkProse(const PageProse& page) {
  for (const ClassProse& type : page.classes) ClassCheck(page, type).run();
}

std::vector<const host::HostClass*> classesWithoutProse(const std::vector<PageProse>& pages) {
  const std::set<std::string> common = allCommonMembers(pages);
  std::vector<const host::HostClass*> plain;
  for (const host::HostClass* type : pluginClasses()) {
    if (isDocumented(pages, type->name())) continue;
    for (const MemberSection& section : membersOf(*type)) {
      for (const Member& member : section.members) {
        if (!common.contains(member.declaration)) {
          throw std::runtime_error(type->name() + " has a member that nothing is said of: " + member.declaration);
        }
      }
    }
    plain.push_back(type);
  }
  return plain;
}

}  // namespace tool
