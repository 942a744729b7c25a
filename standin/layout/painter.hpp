// Draws lines: what lies below the text, the text, and what lies over it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "standin/layout/column.hpp"
#include "standin/layout/pdf/content.hpp"

namespace standin::layout {

// A link and the rectangle that it covers, as lines are placed.
struct LinkArea {
  int action;  // the object that leads to its target
  double left, bottom, right, top;
};

// Where a line lies on the page: its left edge and its baseline, with what it reaches. Upwards is positive.
struct LinePlace {
  double x, baseline, top, bottom;
};

class Painter {
 public:
  Painter(pdf::Resources& resources, Column& column) : content_(resources), resources_(resources), column_(column) {}

  // The left upper corner of the line's box.
  void paint(const Line& line, double x, double top);
  // What was painted since the last clear.
  const pdf::Content& content() const { return content_; }
  const std::vector<LinkArea>& links() const { return links_; }
  void clear();

 private:
  using Pieces = std::span<const Piece>;

  void paintBackgrounds(Pieces pieces, const LinePlace& place);
  void paintShadows(Pieces pieces, const LinePlace& place);
  // A color takes the place of all others.
  void paintLines(Pieces pieces, const LinePlace& place, const text::Color* color = nullptr);
  void paintLine(Pieces pieces, const LinePlace& place, int style, double offset, double thickness,
                 const text::Color& color);
  void paintAttachments(Pieces pieces, const LinePlace& place);
  void paintIcon(const text::Attachment& attachment, double x, double bottom, const Box& box);
  void noteLinks(Pieces pieces, const LinePlace& place);

  pdf::Content content_;
  pdf::Resources& resources_;
  Column& column_;
  std::vector<LinkArea> links_;
};

}  // namespace standin::layout
