// How far a line reaches while it is being filled, tab stops included.
#pragma once

#include <vector>

#include "standin/layout/piece.hpp"

namespace standin::layout {

// Where the next tab leads from a position; positions are points from the margin where lines begin.
text::TabStop tabAfter(const text::Paragraph& paragraph, double position);

class Pen {
 public:
  Pen(const text::Paragraph& paragraph, double indent) : paragraph_(&paragraph), position_(indent) {}

  double position() const { return position_; }
  // Goes past the piece of the line, whose text is needed to find a decimal mark. Gives tabs their width: left ones at once,
  // others when the next tab or the end of the line is reached.
  void add(std::vector<Piece>& line, size_t index, std::u16string_view units);
  void finish(std::vector<Piece>& line);

 private:
  void openTab(std::vector<Piece>& line, size_t index);
  double reach() const;

  const text::Paragraph* paragraph_;
  double position_;
  // The tab that text is being aligned to, when it is not a left one.
  bool isOpen_ = false, hasMark_ = false;
  size_t openIndex_ = 0;
  text::TabStop stop_;
  double openedAt_ = 0, textWidth_ = 0, widthBeforeMark_ = 0;
};

}  // namespace standin::layout
