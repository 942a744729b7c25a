// OpenDocument text written.
#pragma once

#include <optional>
#include <string>

#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::formats::odt {

// The package; nothing when memory is short. Attachments that are no pictures are left out.
std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information);

}  // namespace standin::formats::odt
