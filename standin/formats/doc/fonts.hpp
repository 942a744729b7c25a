// The font table of a document that is read.
#pragma once

#include <string>
#include <vector>

#include "standin/formats/doc/source.hpp"

namespace standin::formats::doc {

class Fonts {
 public:
  explicit Fonts(const Source& source);

  // Empty for a number that no font has.
  const std::string& nameOf(uint16_t font) const;
  // Of text in the font that is bytes.
  int codePageOf(uint16_t font) const;

 private:
  struct Font {
    std::string name;
    int codePage;
  };

  void addFont(Bytes description, bool isOld);

  std::vector<Font> fonts_;
};

}  // namespace standin::formats::doc
