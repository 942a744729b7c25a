// Lists the members of classes, as their records declare them.
#include "host/tool/classes_command.hpp"

#include <algorithm>
#include <iostream>
#include <vector>

#include "host/runtime/runtime.hpp"
#include "host/tool/messages.hpp"
#include "host/tool/plugins.hpp"

namespace tool {
namespace {

struct Section {
  const char* title;
  std::vector<std::string> lines;
};

std::string describe(const host::Property& property) {
  const std::string text = property.name + " As " + host::describe(property.type);
  return property.isReadOnly() ? text + "   ' read-only" : text;
}

template <class Members>
std::vector<std::string> declarations(const Members& members) {
  std::vector<std::string> lines;
  for (const auto& member : members) lines.push_back(member.text);
  return lines;
}

std::vector<Section> sectionsOf(const host::HostClass& type) {
  Section properties{"Properties", {}};
  for (const host::Property& property : type.properties()) properties.lines.push_back(describe(property));
  return {properties,
          {"Methods", declarations(type.methods())},
          {"Constants", declarations(type.constants())},
          {"Shared methods", declarations(type.sharedMethods())}};
}

void printPlain(const host::HostClass& type) {
  std::cout << type.name();
  if (type.superclass() != nullptr) std::cout << " (a " << type.superclass()->name() << ")";
  std::cout << '\n';
  for (const Section& section : sectionsOf(type)) {
    if (section.lines.empty()) continue;
    std::cout << "  " << section.title << " (" << section.lines.size() << ")\n";
    for (const std::string& line : section.lines) std::cout << "    " << line << '\n';
  }
}

void printMarkdown(const host::HostClass& type) {
  std::cout << "## " << type.name() << "\n\n";
  if (type.superclass() != nullptr) std::cout << "A subclass of `" << type.superclass()->name() << "`.\n\n";
  for (const Section& section : sectionsOf(type)) {
    if (section.lines.empty()) continue;
    std::cout << "### " << section.title << "\n\n```\n";
    for (const std::string& line : section.lines) std::cout << line << '\n';
    std::cout << "```\n\n";
  }
}

std::vector<const host::HostClass*> wantedClasses(const std::string& className) {
  const host::Runtime& runtime = host::Runtime::shared();
  if (!className.empty()) return {runtime.findClass(className)};
  std::vector<const host::HostClass*> found;
  for (const auto& type : runtime.classes()) {
    if (type->record() != nullptr) found.push_back(type.get());
  }
  return found;
}

}  // namespace

int listClasses(const std::string& className, bool markdown) {
  if (!loadPlugins()) return Failed;
  const std::vector<const host::HostClass*> wanted = wantedClasses(className);
  if (wanted.front() == nullptr) {
    report(className, "there is no such class");
    return Failed;
  }
  for (const host::HostClass* type : wanted) {
    if (!markdown && type != wanted.front()) std::cout << '\n';
    markdown ? printMarkdown(*type) : printPlain(*type);
  }
  return Succeeded;
}

}  // namespace tool
