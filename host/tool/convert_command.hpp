// styledtext convert IN… -o OUT | --to FORMAT --into FOLDER
#pragma once

#include <string>
#include <vector>

namespace tool {

struct ConvertOptions {
  std::vector<std::string> inputs;
  std::string from;    // "": each document's own
  std::string output;  // one file; its name says the format when `to` does not
  std::string to;
  std::string folder;
};

// Documents that cannot be converted are reported, and the others converted.
int convertDocuments(const ConvertOptions& options);

}  // namespace tool
