// Word XML documents of the edition of 2003 written.
#pragma once

#include <optional>
#include <string>

#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::formats::wordml {

// Attachments that hold no picture are left out.
std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information);

}  // namespace standin::formats::wordml
