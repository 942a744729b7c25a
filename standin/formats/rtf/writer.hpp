// Writes styled text as RTF (Rich Text Format 1.9 control words, as Word, TextEdit and LibreOffice read them).
#pragma once

#include <string>

#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::formats::rtf {

// The document, ASCII throughout. Fonts go by family name, with bold and italic as switches; colours lose their alpha.
std::string write(const StyledRuns& styled, const DocumentInformation& information = {});

}  // namespace standin::formats::rtf
