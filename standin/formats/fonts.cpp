// Names chosen by what they are read back as.
#include "standin/formats/fonts.hpp"

#include "standin/text/font_faces.hpp"

namespace standin::formats {

const text::Font& fontOf(const text::Style& style) {
  static const text::Font standard{"Helvetica", "Helvetica"};
  return style.font ? *style.font : standard;
}

std::string nameOf(const text::Font& font) {
  const uint64_t switches = font.traits & (text::boldTrait | text::italicTrait);
  if (text::fontMeant(font.family, switches, font.size) == font) return font.family;
  return text::fontMeant(font.name, switches, font.size) == font ? font.name : font.family;
}

}  // namespace standin::formats
