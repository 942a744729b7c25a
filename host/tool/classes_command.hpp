// styledtext classes [NAME] [--markdown]
#pragma once

#include <string>

namespace tool {

// Of one class, or of every class of the plug-ins when there is no name.
int listClasses(const std::string& className, bool markdown);

}  // namespace tool
