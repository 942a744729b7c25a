// The numbers of paragraphs in documents of versions 6 and 95, which say of each paragraph how it is numbered.
#pragma once

#include <array>
#include <string>

#include "standin/formats/doc/paragraph_properties.hpp"
#include "standin/formats/list_markers.hpp"

namespace standin::formats::doc {

class OldNumbering {
 public:
  // To be asked for every paragraph in turn: one without a number ends a row of numbers. Empty where there is none.
  std::u16string nextMarker(const ParagraphProperties& paragraph);

 private:
  ListCounters counters_;
  std::array<ListLevel, listLevels> levels_;
};

}  // namespace standin::formats::doc
