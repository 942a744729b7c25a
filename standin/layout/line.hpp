// A line of the column, ready to be drawn, and who takes the lines.
#pragma once

#include <string>
#include <vector>

#include "standin/layout/piece.hpp"

namespace standin::layout {

// Lengths are points.
struct Line {
  std::vector<Piece> pieces;        // from left to right, with their places
  double spaceBefore = 0;           // above the line
  double height = 0, baseline = 0;  // from its top
  double spaceAfter = 0;            // below it
  bool isRightToLeft = false;       // its white space at the end is at the left
  bool endsPage = false;
  int headingLevel = 0;  // of the heading that begins with the line; 0: none does
  std::u16string heading{};
};

class LineTaker {
 public:
  virtual ~LineTaker() = default;
  // False when no more lines are wanted. The line is valid during the call.
  virtual bool take(const Line& line) = 0;
};

}  // namespace standin::layout
