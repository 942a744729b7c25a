// Lays styled text out as one column of lines.
#pragma once

#include "standin/layout/filler.hpp"
#include "standin/layout/line.hpp"

namespace standin::layout {

class Column {
 public:
  // The width is that of lines without indents; no attachment and no line is made higher than `mostHeight`.
  Column(const formats::StyledRuns& styled, Faces& faces, double width, double mostHeight, PictureTest isPicture);

  // Gives the lines, one after another; text without characters has none. Holds no more than a stretch of text at a time.
  // The fonts and words stay known for another time.
  void layOut(LineTaker& taker);

  Looks& looks() { return looks_; }
  Shaper& shaper() { return shaper_; }
  AttachmentBoxes& boxes() { return boxes_; }

 private:
  bool layOutParagraph(LineTaker& taker);
  bool giveLine(LineTaker& taker, bool isFirst, bool isLast);
  bool giveLinesOfStretch(LineTaker& taker, bool& isFirst, uint32_t& from);
  bool endsParagraphAt(uint32_t from) const { return stretch_.endsParagraph && from == stretch_.end(); }
  LineBounds bounds(bool isFirst) const;
  void place(FilledLine& filled, const LineBounds& bounds);
  bool justify(double missing);
  uint32_t endOfLine();
  void addEndOfLine(uint32_t end);
  double heightOf(double natural) const;
  void measure();
  void measurePiece(const Piece& piece, double& ascent, double& descent, double& leading);
  void nameHeading();

  const double width_, mostHeight_;
  Looks looks_;
  Shaper shaper_;
  AttachmentBoxes boxes_;
  Cutter cutter_;
  Filler filler_;
  StretchReader reader_;
  Stretch stretch_;
  const text::Paragraph* paragraph_ = nullptr;
  bool isRightToLeft_ = false;
  FilledLine filled_;
  Line line_;
};

}  // namespace standin::layout
