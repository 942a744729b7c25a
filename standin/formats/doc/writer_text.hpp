// Styled text as the document stream has it: characters, and the formats of their stretches.
#pragma once

#include <string>
#include <vector>

#include "standin/formats/doc/writer_fonts.hpp"
#include "standin/formats/doc/writer_pages.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::formats::doc {

// One of the three characters of a field, and the byte that tells more of it: the field's kind, or whether it has a result.
struct FieldMark {
  uint32_t character;
  uint8_t mark, detail;
};

struct WrittenText {
  std::u16string units;  // ends with the end of a paragraph, as every document does
  Formatting characters, paragraphs;
  std::vector<FieldMark> fields;
  std::string pictures;                 // the data stream
  const text::Style* mostly = nullptr;  // the style of the most characters; nil of an empty text
};

// `textWidth` in points is what a line has between the margins.
WrittenText writtenText(const StyledRuns& styled, FontTable& fonts, double textWidth);

}  // namespace standin::formats::doc
