// One face of an installed font: its glyphs and measures, and which of its glyphs a document uses for which text.
#pragma once

#include <hb.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace standin::layout {

// Shares of the size, upwards from the baseline except for the descent, which counts downwards.
struct FaceMeasures {
  double ascent = 0.75, descent = 0.25, leading = 0.15;
  double underlinePosition = -0.1, underlineThickness = 0.05, strikeoutPosition = 0.3, strikeoutThickness = 0.05;
};

class Face {
 public:
  // The face number `index` of the file. A file that is no font, or of a kind that cannot be embedded, makes a face without
  // glyphs.
  Face(const std::string& path, unsigned index);

  hb_font_t* font() const { return font_.get(); }
  double unitsPerEm() const { return unitsPerEm_; }
  const FaceMeasures& measures() const { return measures_; }
  // It has no glyphs.
  bool isEmpty() const { return isEmpty_; }
  // Its glyphs are pictures.
  bool isPictorial() const { return isPictorial_; }
  bool has(char32_t character) const;
  bool hasAll(std::u32string_view characters) const;
  // In units of the face.
  int advance(uint32_t glyph) const { return hb_font_get_glyph_h_advance(font_.get(), glyph); }

  // Notes that the glyph is used, for the text if it stands for one alone. False when it already stands for another.
  bool use(uint32_t glyph, std::u16string_view text);
  const std::map<uint32_t, std::u16string>& usedGlyphs() const { return used_; }

 private:
  struct Destroy {
    void operator()(hb_font_t* font) const { hb_font_destroy(font); }
  };

  std::unique_ptr<hb_font_t, Destroy> font_;
  double unitsPerEm_;
  bool isPictorial_, isEmpty_;
  FaceMeasures measures_;
  std::map<uint32_t, std::u16string> used_;
};

}  // namespace standin::layout
