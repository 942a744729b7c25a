// The properties of paragraphs in a document that is read, and what modifiers do to them.
#pragma once

#include "standin/formats/doc/modifier_list.hpp"
#include "standin/formats/formatting.hpp"

namespace standin::formats::doc {

struct ParagraphProperties {
  ParagraphFormatting formatting;  // `list` is the number of the list's override, 0: none
  uint16_t style = 0;
  bool isRowEnd = false;          // the mark behind the cells of a row
  bool leadingAlignment = false;  // left and right mean the leading and the trailing side
  Bytes oldNumbering;             // of versions 6 and 95
  uint8_t oldNumberingLevel = 0;  // 1 to 9 an outline's, 10 a number, 11 a bullet
};

void apply(ParagraphProperties& properties, const Modifier& modifier);

text::Paragraph paragraphOf(const ParagraphProperties& properties);

}  // namespace standin::formats::doc
