// Fonts whose glyphs are pictures, such as emoji.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "standin/layout/face.hpp"
#include "standin/layout/pdf/file.hpp"

namespace standin::layout::pdf {

// Glyphs are numbered as they are first used; a font of the document takes 255 of them.
class PictorialFonts {
 public:
  explicit PictorialFonts(File& file) : file_(file) {}

  struct Place {
    std::string fontName;
    uint8_t code;
  };
  Place place(const Face& face, uint32_t glyph, std::u16string_view text);
  // Writes the fonts; answers their entries in the list of fonts.
  std::string finish();

 private:
  struct Glyph {
    const Face* face;
    uint32_t glyph;
    std::u16string text;
  };

  std::string writeFont(size_t first, size_t end);
  // Answers the object of what draws the glyph, after adding its image to the list.
  int writeGlyph(const Glyph& glyph, std::string& images);

  File& file_;
  std::vector<Glyph> glyphs_;
  std::map<std::pair<const Face*, uint32_t>, size_t> numbers_;
};

}  // namespace standin::layout::pdf
