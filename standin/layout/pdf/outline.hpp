// The headings of a document, as readers show them beside its pages.
#pragma once

#include <string>
#include <vector>

#include "standin/layout/pdf/file.hpp"

namespace standin::layout::pdf {

struct Heading {
  int level;  // from 1
  std::u16string title;
  int page;    // object
  double top;  // points from the bottom of the page
};

// Writes the outline and answers its object; 0 when there are no headings. A heading stands below the last one before it of
// a lower level.
int writeOutline(File& file, const std::vector<Heading>& headings);

}  // namespace standin::layout::pdf
