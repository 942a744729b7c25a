// styledtext inspect FILE [--json]
#pragma once

#include <string>

namespace tool {

struct InspectOptions {
  std::string path;
  std::string from;  // "": the document's own format
  bool json = false;
};

int inspectDocument(const InspectOptions& options);

}  // namespace tool
