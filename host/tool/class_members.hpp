// The members of a class, as its record declares them.
#pragma once

#include <string>
#include <vector>

#include "host/runtime/class.hpp"

namespace tool {

struct Member {
  std::string declaration;
  std::string name;
  bool isReadOnly = false;  // of properties
  bool hasNumbers = false;  // takes or gives numbers, ranges or sizes
  bool isShared = false;
};

struct MemberSection {
  const char* title;
  std::vector<Member> members;
};

// The sections in which classes are listed, empty ones left out.
std::vector<MemberSection> membersOf(const host::HostClass& type);

const Member* findMember(const std::vector<MemberSection>& sections, const std::string& declaration);

// Every class that a plug-in has registered, in that order.
std::vector<const host::HostClass*> pluginClasses();

}  // namespace tool
