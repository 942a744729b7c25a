// Which stretch of the document stream has which character or paragraph properties, as its pages say.
#pragma once

#include <vector>

#include "standin/formats/doc/source.hpp"

namespace standin::formats::doc {

struct PropertyRun {
  uint32_t begin, end;  // places in the document stream
  Bytes modifiers;
  uint16_t style = 0;  // of paragraphs
};

// In the order of their places, without overlaps.
using PropertyRuns = std::vector<PropertyRun>;

PropertyRuns characterRunsOf(const Source& source);
PropertyRuns paragraphRunsOf(const Source& source);

// The run that the place is in, or else the first one behind it, or the end.
PropertyRuns::const_iterator findRun(const PropertyRuns& runs, size_t place);

}  // namespace standin::formats::doc
