// Office Open XML text documents written.
#pragma once

#include <optional>
#include <string>

#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::formats::docx {

// Attachments that hold no picture are left out. Nothing when memory is short.
std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information);

}  // namespace standin::formats::docx
