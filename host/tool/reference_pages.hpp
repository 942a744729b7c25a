// The pages of the reference: what the records declare, with what people say of it.
#pragma once

#include <map>
#include <string>

namespace tool {

// The pages by file name, made of every file of prose in the folder, and "README.md", which lists them. Throws ProseError
// when a class or a member has no prose, prose has no member, or something that every member says is missing.
std::map<std::string, std::string> referencePages(const std::string& proseFolder);

}  // namespace tool
