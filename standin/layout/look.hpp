// How the characters of a run look: its style with the fonts found and everything measured in points.
#pragma once

#include <deque>
#include <map>
#include <tuple>
#include <unordered_map>

#include "standin/layout/shaper.hpp"

namespace standin::layout {

struct Look {
  const text::Style* style;
  const FontChoice* choice;
  double size;       // of the glyphs: raised text is smaller than its font
  double rise;       // of the baseline
  double kern;       // after each character
  double expansion;  // the factor by which glyphs are wide
  double slant;      // to the right, by unit of height
};

// The looks of one document, each made once.
class Looks {
 public:
  explicit Looks(Faces& faces) : faces_(faces) {}
  // Valid while the style and this are.
  const Look& of(const text::Style& style);
  // A font that the document itself does not name.
  const FontChoice& choice(const text::Font& font, int ligatures);

 private:
  Look make(const text::Style& style);

  Faces& faces_;
  std::unordered_map<const text::Style*, Look> looks_;
  std::deque<FontChoice> choices_;
  std::map<std::tuple<std::string, uint64_t, int, int>, const FontChoice*> byFont_;
};

}  // namespace standin::layout
