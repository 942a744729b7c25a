// Writes styled text as a web archive: the HTML document, and its pictures as files beside it.
#pragma once

#include <optional>
#include <string>

#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::formats::webarchive {

// Nothing where the HTML writer gives nothing, and for 2 GB and more.
std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information);

}  // namespace standin::formats::webarchive
