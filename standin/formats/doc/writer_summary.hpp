// What a document says of itself, as the property sets beside its text.
#pragma once

#include <string>

#include "standin/formats/document.hpp"

namespace standin::formats::doc {

std::string summary(const Properties& properties);
// The company and what belongs to it.
std::string documentSummary(const Properties& properties);

}  // namespace standin::formats::doc
