// styledtext convert IN… -o OUT | --to FORMAT --into FOLDER
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tool {

struct ConvertOptions {
  std::vector<std::string> inputs;
  std::string from;    // "": each document's own
  std::string output;  // one file; its name says the format when `to` does not
  std::string to;
  std::string folder;
  size_t jobs = 1;  // how many documents are converted at a time
};

// Documents that cannot be converted are reported, in the order of the inputs, and the others converted.
int convertDocuments(const ConvertOptions& options);

}  // namespace tool
