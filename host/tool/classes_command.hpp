// styledtext classes [NAME] [--markdown | --json] [--prose FOLDER --into FOLDER]
#pragma once

#include <string>

namespace tool {

struct ClassesOptions {
  std::string className;  // empty: every class of the plug-ins
  bool markdown = false;
  bool json = false;
  std::string prose;   // the folder of texts from which the pages of the reference are made
  std::string folder;  // where these pages go
};

int listClasses(const ClassesOptions& options);

}  // namespace tool
