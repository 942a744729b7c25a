// The fonts, images and opacities that the pages of a document share, by the names that their content uses.
#pragma once

#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "standin/layout/face.hpp"
#include "standin/layout/pdf/file.hpp"
#include "standin/layout/pdf/images.hpp"
#include "standin/layout/pdf/pictorial_font.hpp"
#include "standin/text/attachment.hpp"
#include "standin/text/link.hpp"

namespace standin::layout::pdf {

class Resources {
 public:
  explicit Resources(File& file);

  // The object that pages name.
  int object() const { return object_; }
  // "F3": the name of a face whose codes are its glyphs.
  const std::string& fontName(const Face& face);
  // Where a glyph that is a picture is found: the name of a font, and a code in it.
  PictorialFonts::Place pictorialGlyph(const Face& face, uint32_t glyph, std::u16string_view text);
  // The name of the picture, which is written the first time that its bytes are met; empty when it cannot be shown.
  const std::string& imageName(const text::Attachment& attachment);
  // The key says whether what is filled (ca) or what is stroked (CA) gets the opacity.
  std::string opacityName(const std::string& key, double alpha);

  // The object of the action that leads to the target, which is written the first time.
  int linkAction(const text::Link& target);

  // Writes the fonts with the glyphs that are used, and the list of everything.
  void finish();

 private:
  struct Font {
    std::string name;
    int object;
  };

  File& file_;
  const int object_;
  std::map<const Face*, Font> fonts_;
  std::vector<const Face*> fontOrder_;
  PictorialFonts pictorial_;
  Images images_;
  std::map<const uint8_t*, std::string> imageNames_;  // by where the bytes are
  std::string imageEntries_;
  std::unordered_map<text::Link, int, text::LinkHash> linkActions_;
  std::set<std::pair<std::string, int>> opacities_;  // keys with per cents
};

}  // namespace standin::layout::pdf
