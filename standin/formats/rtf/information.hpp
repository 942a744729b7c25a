// What a document says of itself, in RTF.
#pragma once

#include <string>

#include "standin/formats/document.hpp"

namespace standin::formats::rtf {

// The information group and the words for page, view and tabs; nothing for what is not set.
void appendInformation(std::string& out, const DocumentInformation& information);

}  // namespace standin::formats::rtf
