// Lists the members of classes, as their records declare them.
#include "host/tool/classes_command.hpp"

#include <filesystem>
#include <iostream>
#include <vector>

#include "host/runtime/runtime.hpp"
#include "host/tool/class_members.hpp"
#include "host/tool/description.hpp"
#include "host/tool/documents.hpp"
#include "host/tool/files.hpp"
#include "host/tool/messages.hpp"
#include "host/tool/plugins.hpp"
#include "host/tool/reference_pages.hpp"

namespace tool {
namespace {

using Classes = std::vector<const host::HostClass*>;

void printPlain(const Classes& classes) {
  for (const host::HostClass* type : classes) {
    if (type != classes.front()) std::cout << '\n';
    std::cout << type->name();
    if (type->superclass() != nullptr) std::cout << " (a " << type->superclass()->name() << ")";
    std::cout << '\n';
    for (const MemberSection& section : membersOf(*type)) {
      std::cout << "  " << section.title << " (" << section.members.size() << ")\n";
      for (const Member& member : section.members) {
        std::cout << "    " << member.declaration << (member.isReadOnly ? "   ' read-only" : "") << '\n';
      }
    }
  }
}

void printMarkdown(const Classes& classes) {
  for (const host::HostClass* type : classes) {
    std::cout << "## " << type->name() << "\n\n";
    if (type->superclass() != nullptr) std::cout << "A subclass of `" << type->superclass()->name() << "`.\n\n";
    for (const MemberSection& section : membersOf(*type)) {
      std::cout << "### " << section.title << "\n\n```\n";
      for (const Member& member : section.members) {
        std::cout << member.declaration << (member.isReadOnly ? "   ' read-only" : "") << '\n';
      }
      std::cout << "```\n\n";
    }
  }
}

Description describeMember(const Member& member) {
  Fields fields{{"declaration", {member.declaration}}};
  if (member.isReadOnly) fields.push_back({"readOnly", {true}});
  return {fields};
}

Description describeClass(const host::HostClass& type) {
  Fields fields{{"name", {type.name()}}};
  if (type.superclass() != nullptr) fields.push_back({"superclass", {type.superclass()->name()}});
  for (const MemberSection& section : membersOf(type)) {
    Items members;
    for (const Member& member : section.members) members.push_back(describeMember(member));
    fields.push_back({host::lowerCase(section.title), {members}});
  }
  return {fields};
}

void printJson(const Classes& classes) {
  Items items;
  for (const host::HostClass* type : classes) items.push_back(describeClass(*type));
  std::cout << asJson({items}) << '\n';
}

int writeReference(const ClassesOptions& options) {
  try {
    std::filesystem::create_directories(options.folder);
    for (const auto& [name, page] : referencePages(options.prose)) {
      writeBytes((std::filesystem::path(options.folder) / name).string(), page);
    }
    return Succeeded;
  } catch (const DocumentError& error) {
    report(options.folder, error.message);
  } catch (const std::exception& error) {
    report(options.prose, error.what());
  }
  return Failed;
}

}  // namespace

int listClasses(const ClassesOptions& options) {
  if (!loadPlugins()) return Failed;
  if (!options.prose.empty()) return writeReference(options);
  Classes wanted = pluginClasses();
  if (!options.className.empty()) wanted = {host::Runtime::shared().findClass(options.className)};
  if (wanted.front() == nullptr) {
    report(options.className, "there is no such class");
    return Failed;
  }
  const auto print = options.json ? printJson : options.markdown ? printMarkdown : printPlain;
  print(wanted);
  return finishOutput();
}

}  // namespace tool
