// Faces, opened and measured by HarfBuzz.
#include "standin/layout/face.hpp"

#include <hb-ot.h>

#include <algorithm>

namespace standin::layout {
namespace {

hb_font_t* open(const std::string& path, unsigned index) {
  hb_blob_t* blob = hb_blob_create_from_file(path.c_str());
  hb_face_t* face = hb_face_create(blob, index);
  hb_font_t* font = hb_font_create(face);
  hb_face_destroy(face);
  hb_blob_destroy(blob);
  return font;
}

// A measure that the face does not tell stays as it is.
void read(hb_font_t* font, hb_ot_metrics_tag_t tag, double unitsPerEm, double& measure) {
  hb_position_t position = 0;
  if (hb_ot_metrics_get_position(font, tag, &position) && position != 0) measure = position / unitsPerEm;
}

FaceMeasures measuresOf(hb_font_t* font, double unitsPerEm) {
  FaceMeasures measures;
  hb_font_extents_t extents;
  if (hb_font_get_h_extents(font, &extents) && extents.ascender > extents.descender) {
    measures.ascent = extents.ascender / unitsPerEm;
    measures.descent = -extents.descender / unitsPerEm;
    measures.leading = extents.line_gap / unitsPerEm;
  }
  read(font, HB_OT_METRICS_TAG_UNDERLINE_OFFSET, unitsPerEm, measures.underlinePosition);
  read(font, HB_OT_METRICS_TAG_UNDERLINE_SIZE, unitsPerEm, measures.underlineThickness);
  read(font, HB_OT_METRICS_TAG_STRIKEOUT_OFFSET, unitsPerEm, measures.strikeoutPosition);
  read(font, HB_OT_METRICS_TAG_STRIKEOUT_SIZE, unitsPerEm, measures.strikeoutThickness);
  return measures;
}

bool hasTable(hb_font_t* font, hb_tag_t tag) {
  hb_blob_t* table = hb_face_reference_table(hb_font_get_face(font), tag);
  const bool isThere = hb_blob_get_length(table) > 0;
  hb_blob_destroy(table);
  return isThere;
}

// Of the kinds that can be embedded.
bool hasOutlines(hb_font_t* font) {
  return hasTable(font, HB_TAG('g', 'l', 'y', 'f')) || hasTable(font, HB_TAG('C', 'F', 'F', ' '));
}

}  // namespace

Face::Face(const std::string& path, unsigned index)
    : font_(open(path, index)),
      unitsPerEm_(hb_face_get_upem(hb_font_get_face(font_.get()))),
      isPictorial_(hb_ot_color_has_png(hb_font_get_face(font_.get())) != 0),
      isEmpty_(!isPictorial_ && !hasOutlines(font_.get())),
      measures_(measuresOf(font_.get(), unitsPerEm_)) {}

bool Face::has(char32_t character) const {
  hb_codepoint_t glyph = 0;
  return !isEmpty_ && hb_font_get_nominal_glyph(font_.get(), character, &glyph) != 0;
}

bool Face::hasAll(std::u32string_view characters) const {
  return std::all_of(characters.begin(), characters.end(), [this](char32_t character) { return has(character); });
}

bool Face::use(uint32_t glyph, std::u16string_view text) {
  std::u16string& known = used_[glyph];
  if (known.empty()) known = text;
  return known == text;
}

}  // namespace standin::layout
