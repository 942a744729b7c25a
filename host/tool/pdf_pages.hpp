// Documents as PDF, through the library's print operation.
#pragma once

#include <string>

#include "host/tool/documents.hpp"

namespace tool {

// The PDF of the document, on its own paper with its own margins. `pageDone` may be empty; it is called after each page with
// its number. Throws DocumentError.
std::string pdfOf(const StyledDocument& document, const PageDone& pageDone = {});

}  // namespace tool
