// Writes styled text as RTF (Rich Text Format 1.9 control words, as Word, TextEdit and LibreOffice read them).
#pragma once

#include <string>

#include "standin/formats/document.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::formats::rtf {

// The document, ASCII throughout. Fonts go by family name, with bold and italic as switches, or by the name of a
// face that these do not reach; colours lose their alpha, except a shadow's.
std::string write(const StyledRuns& styled, const DocumentInformation& information = {});

}  // namespace standin::formats::rtf
