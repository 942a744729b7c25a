// Fonts whose glyphs draw images.
#include "standin/layout/pdf/pictorial_font.hpp"

#include <hb-ot.h>

#include <algorithm>
#include <memory>
#include <span>

#include "standin/layout/pdf/images.hpp"
#include "standin/layout/pdf/syntax.hpp"
#include "standin/layout/pdf/unicode_map.hpp"

namespace standin::layout::pdf {
namespace {

// Code 0 stays free.
constexpr size_t glyphsInFont = 255;

std::string fontName(size_t number) { return "P" + std::to_string(number / glyphsInFont); }

void appendNumbers(std::string& out, std::initializer_list<double> values) {
  for (const double value : values) {
    appendNumber(out, value);
    out += ' ';
  }
}

// Readers measure a font of this kind by the width of its "m", which code 0 therefore has; nothing shows it.
constexpr int usualWidth = 500;

// What draws the glyph, in thousandths of the size; the image reaches as far as the face says.
std::string glyphOperators(const Face& face, uint32_t glyph, const std::string& image) {
  const double scale = 1000 / face.unitsPerEm();
  std::string out;
  appendNumbers(out, {face.advance(glyph) * scale, 0});
  out += "d0\n";
  hb_glyph_extents_t extents{};
  hb_font_get_glyph_extents(face.font(), glyph, &extents);
  if (image.empty()) return out;
  appendNumbers(out, {extents.width * scale, 0, 0, -extents.height * scale, extents.x_bearing * scale,
                      (extents.y_bearing + extents.height) * scale});
  return out += "cm /" + image + " Do\n";
}

}  // namespace

PictorialFonts::Place PictorialFonts::place(const Face& face, uint32_t glyph, std::u16string_view text) {
  const auto [entry, isNew] = numbers_.try_emplace({&face, glyph}, glyphs_.size());
  if (isNew) glyphs_.push_back({&face, glyph, std::u16string(text)});
  return {fontName(entry->second), static_cast<uint8_t>(entry->second % glyphsInFont + 1)};
}

int PictorialFonts::writeGlyph(const Glyph& glyph, std::string& images) {
  const std::unique_ptr<hb_blob_t, decltype(&hb_blob_destroy)> png(
      hb_ot_color_glyph_reference_png(glyph.face->font(), glyph.glyph), hb_blob_destroy);
  unsigned size = 0;
  const char* bytes = hb_blob_get_data(png.get(), &size);
  const int image = writeImage(file_, {reinterpret_cast<const uint8_t*>(bytes), size});
  const std::string name = "E" + std::to_string(image);
  if (image != 0) images += '/' + name + ' ' + reference(image);
  const int object = file_.reserve();
  file_.putStream(object, "", glyphOperators(*glyph.face, glyph.glyph, image != 0 ? name : ""));
  return object;
}

std::string PictorialFonts::writeFont(size_t first, size_t end) {
  std::string images, procedures, differences, widths;
  std::map<uint32_t, std::u16string> texts;
  double widest = 0;
  for (size_t index = first; index < end; ++index) {
    const Glyph& glyph = glyphs_[index];
    const std::string name = "/g" + std::to_string(index - first + 1);
    procedures += name + ' ' + reference(writeGlyph(glyph, images));
    differences += name;
    const double width = glyph.face->advance(glyph.glyph) * 1000 / glyph.face->unitsPerEm();
    widest = std::max(widest, width);
    appendNumbers(widths, {width});
    texts[static_cast<uint32_t>(index - first + 1)] = glyph.text;
  }
  const FaceMeasures& measures = glyphs_[first].face->measures();
  std::string box;
  appendNumbers(box, {0, -measures.descent * 1000, widest, measures.ascent * 1000});
  const int object = file_.reserve(), map = file_.reserve(), measure = file_.reserve();
  const std::string width = std::to_string(usualWidth);
  file_.putStream(map, "", unicodeMap(texts, false));
  file_.putStream(measure, "", width + " 0 d0\n");
  file_.put(object, "<</Type/Font/Subtype/Type3/FontBBox[" + box + "]/FontMatrix[.001 0 0 .001 0 0]/CharProcs<</m " +
                        reference(measure) + procedures + ">>/Encoding<</Type/Encoding/Differences[0/m" + differences +
                        "]>>/FirstChar 0/LastChar " + std::to_string(end - first) + "/Widths[" + width + ' ' + widths +
                        "]/Resources<</XObject<<" + images + ">>>>/ToUnicode " + reference(map) + ">>");
  return '/' + fontName(first) + ' ' + reference(object);
}

std::string PictorialFonts::finish() {
  std::string entries;
  for (size_t first = 0; first < glyphs_.size(); first += glyphsInFont) {
    entries += writeFont(first, std::min(first + glyphsInFont, glyphs_.size()));
  }
  return entries;
}

}  // namespace standin::layout::pdf
