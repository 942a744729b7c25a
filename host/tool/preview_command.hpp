// The command `preview`: a picture of a page.
#pragma once

#include <string>

namespace tool {

struct PreviewOptions {
  std::string path, output, from;
  int page = 1;
  double resolution = 96;  // pixels an inch
};

int previewDocument(const PreviewOptions& options);

}  // namespace tool
