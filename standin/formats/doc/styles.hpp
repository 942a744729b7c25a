// The style sheet of a document that is read.
#pragma once

#include <vector>

#include "standin/formats/doc/source.hpp"
#include "standin/formats/formatting.hpp"

namespace standin::formats::doc {

// The lists of modifiers that make a style, those of its ancestors first.
struct StyleModifiers {
  std::vector<Bytes> paragraph, characters;
};
void overlay(StyleModifiers& under, const StyleModifiers& over);

class Styles {
 public:
  explicit Styles(const Source& source);

  // Nothing in it for a number that no style has.
  const StyleModifiers& modifiersOf(uint16_t style) const { return sheet_.resolve(style); }
  // 1 to 9 for the built-in heading styles, 0 for others.
  int headerLevelOf(uint16_t style) const { return style < headerLevels_.size() ? headerLevels_[style] : 0; }

  uint16_t defaultFonts[4] = {};  // by script

 private:
  void addStyle(uint16_t number, Bytes description, size_t baseSize);

  bool isOld_;
  StyleSheet<uint16_t, StyleModifiers> sheet_;
  std::vector<uint8_t> headerLevels_;
};

}  // namespace standin::formats::doc
