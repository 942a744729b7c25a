// Reads records as sections of declarations.
#include "host/tool/class_members.hpp"

#include <algorithm>

#include "host/runtime/runtime.hpp"

namespace tool {
namespace {

// Types whose values are numbers with units.
constexpr std::string_view kNumericTypes[] = {"Integer", "UInt64", "Int32", "UInt32", "Double", "NSRangeZKT", "NSSizeZKT"};

bool isNumeric(const host::Type& type) {
  const std::string name = host::describe(type);
  return std::find(std::begin(kNumericTypes), std::end(kNumericTypes), name) != std::end(kNumericTypes);
}

Member memberOf(const host::Property& property) {
  return {property.name + " As " + host::describe(property.type), property.name, property.isReadOnly(),
          isNumeric(property.type)};
}

Member memberOf(const host::Method& method) {
  const auto& declaration = method.declaration;
  const bool hasNumbers = (declaration.result && isNumeric(*declaration.result)) ||
                          std::any_of(declaration.parameters.begin(), declaration.parameters.end(),
                                      [](const auto& parameter) { return isNumeric(parameter.type); });
  return {method.text, declaration.name, false, hasNumbers, method.shared};
}

Member memberOf(const host::Constant& constant) { return {constant.text, constant.name}; }

template <class Declared>
void addSection(std::vector<MemberSection>& sections, const char* title, const Declared& declared) {
  if (declared.empty()) return;
  MemberSection section{title, {}};
  for (const auto& member : declared) section.members.push_back(memberOf(member));
  sections.push_back(std::move(section));
}

}  // namespace

std::vector<MemberSection> membersOf(const host::HostClass& type) {
  std::vector<MemberSection> sections;
  addSection(sections, "Properties", type.properties());
  addSection(sections, "Methods", type.methods());
  addSection(sections, "Constants", type.constants());
  addSection(sections, "Shared methods", type.sharedMethods());
  return sections;
}

const Member* findMember(const std::vector<MemberSection>& sections, const std::string& declaration) {
  for (const MemberSection& section : sections) {
    for (const Member& member : section.members) {
      if (member.declaration == declaration) return &member;
    }
  }
  return nullptr;
}

std::vector<const host::HostClass*> pluginClasses() {
  std::vector<const host::HostClass*> found;
  for (const auto& type : host::Runtime::shared().classes()) {
    if (type->record() != nullptr) found.push_back(type.get());
  }
  return found;
}

}  // namespace tool
