// The properties of sections and of the document.
#pragma once

#include <string>

#include "standin/formats/document.hpp"

namespace standin::formats::doc {

// Between the margins, in points; letter paper and the format's own margins where nothing is said.
double textWidth(const PageSetup& page);

// The only section's properties as the document stream has them, and the table that says where they are.
std::string sectionProperties(const PageSetup& page);
std::string sectionTable(size_t textLength, size_t place);

// The interval between tabs is the document's, or else the one of this paragraph.
std::string documentProperties(const DocumentInformation& information, const text::Paragraph& paragraph);

}  // namespace standin::formats::doc
