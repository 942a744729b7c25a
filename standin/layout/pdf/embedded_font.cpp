// Subsets by HarfBuzz, with the glyphs' own numbers as codes.
#include "standin/layout/pdf/embedded_font.hpp"

#include <hb-ot.h>
#include <hb-subset.h>

#include <algorithm>
#include <cctype>
#include <memory>

#include "standin/layout/pdf/syntax.hpp"
#include "standin/layout/pdf/unicode_map.hpp"

namespace standin::layout::pdf {
namespace {

struct Destroy {
  void operator()(hb_face_t* face) const { hb_face_destroy(face); }
  void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
  void operator()(hb_subset_input_t* input) const { hb_subset_input_destroy(input); }
};
using SubsetFace = std::unique_ptr<hb_face_t, Destroy>;
using Blob = std::unique_ptr<hb_blob_t, Destroy>;

constexpr hb_tag_t outlinesTag = HB_TAG('C', 'F', 'F', ' ');
// What shapes text is not needed any more, nor are other names and variations.
constexpr hb_tag_t droppedTables[] = {HB_TAG('G', 'S', 'U', 'B'), HB_TAG('G', 'P', 'O', 'S'), HB_TAG('G', 'D', 'E', 'F'),
                                      HB_TAG('c', 'm', 'a', 'p'), HB_TAG('n', 'a', 'm', 'e'), HB_TAG('f', 'v', 'a', 'r'),
                                      HB_TAG('g', 'v', 'a', 'r'), HB_TAG('a', 'v', 'a', 'r'), HB_TAG('H', 'V', 'A', 'R'),
                                      HB_TAG('D', 'S', 'I', 'G'), HB_TAG('k', 'e', 'r', 'n'), HB_TAG('V', 'O', 'R', 'G'),
                                      HB_TAG('v', 'h', 'e', 'a'), HB_TAG('v', 'm', 't', 'x')};

// Nil when the face cannot be cut.
SubsetFace subsetOf(const Face& face) {
  const std::unique_ptr<hb_subset_input_t, Destroy> input(hb_subset_input_create_or_fail());
  if (input == nullptr) return nullptr;
  hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_RETAIN_GIDS | HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
  for (const auto& [glyph, text] : face.usedGlyphs()) hb_set_add(hb_subset_input_glyph_set(input.get()), glyph);
  hb_set_t* dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
  for (const hb_tag_t tag : droppedTables) hb_set_add(dropped, tag);
  return SubsetFace(hb_subset_or_fail(hb_font_get_face(face.font()), input.get()));
}

std::string_view bytesOf(hb_blob_t* blob) {
  unsigned size = 0;
  const char* bytes = hb_blob_get_data(blob, &size);
  return {bytes, size};
}

// "AAAAAB+NimbusSans-Regular"
std::string nameOf(const Face& face, int number) {
  char name[128];
  unsigned size = sizeof name;
  hb_ot_name_get_utf8(hb_font_get_face(face.font()), HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size, name);
  std::string tag;
  for (int place = 0; place < 6; ++place, number /= 26) tag.insert(tag.begin(), static_cast<char>('A' + number % 26));
  tag += '+';
  const auto isPlain = [](char letter) { return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '-'; };
  std::copy_if(name, name + size, std::back_inserter(tag), isPlain);
  return tag;
}

double thousandths(const Face& face, double units) { return units * 1000 / face.unitsPerEm(); }

// The advances of the glyphs that are used: "12[500 278]14[556]".
std::string widthsOf(const Face& face) {
  std::string widths;
  uint32_t next = UINT32_MAX;
  for (const auto& [glyph, text] : face.usedGlyphs()) {
    if (glyph != next)
      (widths += next == UINT32_MAX ? "" : "]") += std::to_string(glyph) + '[';
    else
      widths += ' ';
    appendNumber(widths, thousandths(face, face.advance(glyph)));
    next = glyph + 1;
  }
  return widths.empty() ? widths : widths + ']';
}

std::string descriptorOf(const Face& face, const std::string& name, const std::string& fontFile) {
  const FaceMeasures& measures = face.measures();
  const int ascent = static_cast<int>(measures.ascent * 1000), descent = static_cast<int>(-measures.descent * 1000);
  return "<</Type/FontDescriptor/FontName/" + name + "/Flags 4/FontBBox[-1000 " + std::to_string(descent) + " 2000 " +
         std::to_string(ascent) + "]/ItalicAngle 0/Ascent " + std::to_string(ascent) + "/Descent " +
         std::to_string(descent) + "/CapHeight " + std::to_string(ascent) + "/StemV 80" + fontFile + ">>";
}

// The font program; answers the entry that names it.
std::string writeProgram(File& file, hb_face_t* subset, bool hasCompactOutlines) {
  const int object = file.reserve();
  const Blob blob(hasCompactOutlines ? hb_face_reference_table(subset, outlinesTag) : hb_face_reference_blob(subset));
  const std::string_view bytes = bytesOf(blob.get());
  if (hasCompactOutlines) {
    file.putStream(object, "/Subtype/CIDFontType0C", bytes);
    return "/FontFile3 " + reference(object);
  }
  file.putStream(object, "/Length1 " + std::to_string(bytes.size()), bytes);
  return "/FontFile2 " + reference(object);
}

bool hasCompactOutlines(const Face& face) {
  const Blob table(hb_face_reference_table(hb_font_get_face(face.font()), outlinesTag));
  return hb_blob_get_length(table.get()) > 0;
}

}  // namespace

void writeFont(File& file, int object, const Face& face, int number) {
  const std::string name = nameOf(face, number);
  const bool isCompact = hasCompactOutlines(face);
  const SubsetFace subset = subsetOf(face);
  const std::string program =
      writeProgram(file, subset != nullptr ? subset.get() : hb_font_get_face(face.font()), isCompact);
  const int descendant = file.reserve(), descriptor = file.reserve(), map = file.reserve();
  file.put(descriptor, descriptorOf(face, name, program));
  file.put(descendant, "<</Type/Font/Subtype/" + std::string(isCompact ? "CIDFontType0" : "CIDFontType2") + "/BaseFont/" +
                           name + "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor " +
                           reference(descriptor) + "/DW 1000/W[" + widthsOf(face) + ']' +
                           (isCompact ? "" : "/CIDToGIDMap/Identity") + ">>");
  file.putStream(map, "", unicodeMap(face.usedGlyphs(), true));
  file.put(object, "<</Type/Font/Subtype/Type0/BaseFont/" + name + "/Encoding/Identity-H/DescendantFonts[" +
                       reference(descendant) + "]/ToUnicode " + reference(map) + ">>");
}

}  // namespace standin::layout::pdf
