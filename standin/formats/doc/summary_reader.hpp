// Reads what a document says of itself.
#pragma once

#include "standin/formats/doc/source.hpp"
#include "standin/formats/document.hpp"

namespace standin::formats::doc {

// From the property sets; what they lack or is damaged stays unset.
Properties propertiesOf(const Source& source);

}  // namespace standin::formats::doc
