// Pages of properties: which stretch of the text has which, and the table that finds the page.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace standin::formats::doc {

// Text up to a character, from the end of the stretch before it, and the index of its format.
struct Stretch {
  uint32_t end;
  uint32_t format;
};

// Where the text stands in the document stream.
struct TextPlace {
  size_t start, bytesInCharacter;

  uint32_t of(uint32_t character) const { return static_cast<uint32_t>(start + character * bytesInCharacter); }
};

struct Formatting {
  std::vector<Stretch> stretches;    // without gaps, at least one; of paragraphs, one each
  std::vector<std::string> formats;  // modifiers; of paragraphs, with the number of the style before them
};

// Appends the pages to the document, whose size is a multiple of a page's, and gives the table of the pages.
std::string appendCharacterPages(std::string& document, const Formatting& formatting, TextPlace place);
std::string appendParagraphPages(std::string& document, const Formatting& formatting, TextPlace place);

}  // namespace standin::formats::doc
