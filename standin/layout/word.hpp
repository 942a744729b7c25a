// A stretch of text that lines do not divide, shaped: its glyphs and how far they reach, for any size.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "standin/layout/faces.hpp"

namespace standin::layout {

// Lengths are units of the face.
struct Glyph {
  uint32_t id;
  uint32_t unit;  // where in the word the text begins that it stands for
  int advance, offsetX, offsetY;
};

// Glyphs of one face, from left to right.
struct GlyphRun {
  FaceUse use;
  std::vector<Glyph> glyphs;
  uint32_t start, end;  // the units of the word
  // What goes between the parentheses of a text operator's array; empty when the glyphs must be placed one by one, and then
  // the text that the run stands for is here as well.
  std::string shown{};
  std::u16string text{};
};

struct Word {
  std::vector<GlyphRun> runs;  // from left to right
  double width = 0;            // shares of the size, as the measures are
  double ascent = 0, descent = 0, leading = 0;
  uint32_t spacedGlyphs = 0;  // those that letter spacing follows: all but the marks
  bool isRightToLeft = false;
};

// The longest start of the word, in whole characters with their marks, that is not wider. `units` is the word's text,
// `spacing` follows each spaced glyph. Answers the number of units; 0 when not even the first character fits.
uint32_t unitsThatFit(const Word& word, std::u16string_view units, double width, double spacing);
// The same for the longest end of the word.
uint32_t unitsThatFitAtEnd(const Word& word, std::u16string_view units, double width, double spacing);
// The units of the first character with its marks.
uint32_t firstCharacter(const Word& word, std::u16string_view units);

}  // namespace standin::layout
