// Writes styled text as a Word 97 binary document, as every later version and other office programs read it.
#pragma once

#include <optional>
#include <string>

#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::formats::doc {

// Nothing when the document is larger than the format can hold, about a gigabyte. Colours lose their alpha; control
// characters that are marks in the format are left out.
std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information = {});

}  // namespace standin::formats::doc
