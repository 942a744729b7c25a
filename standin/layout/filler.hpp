// Fills one line after another with pieces.
#pragma once

#include <vector>

#include "standin/layout/cutter.hpp"

namespace standin::layout {

// Where a line lies, in points from the edge of the column at which lines begin.
struct LineBounds {
  double indent, limit;
};

// The platform's numbers; 0 breaks between words. Clipping and what follows it keep a paragraph in one line.
enum LineBreakMode { breakingWords = 1, clipping, truncatingHead, truncatingTail, truncatingMiddle };

// Rounding of widths must not break a line.
inline constexpr double widthTolerance = 0.01;

struct FilledLine {
  std::vector<Piece> pieces;  // in the order of the text, the white space at the end included
  double width = 0;           // without the white space at the end
  double whiteWidth = 0;      // of that
  bool isBroken = false;      // the text goes on in the next line
};

class Filler {
 public:
  explicit Filler(Cutter& cutter) : cutter_(cutter) {}

  // Begins with the pieces of a stretch, which have to stay while its lines are filled.
  void begin(const Stretch& stretch, const text::Paragraph& paragraph, bool isRightToLeft);
  bool isAtEnd() const { return next_ == pieces_.size(); }
  // The paragraph has one line up to each line break; what does not fit is not shown.
  bool keepsOneLine() const;
  // Such a line shows its end, too, when it is cut short.
  bool showsEnd() const;
  // At least one piece goes into the line, however narrow it is.
  void fill(const LineBounds& bounds, FilledLine& line);
  // Adds the end of the line that was filled last, which its own stretch did not have. This stretch has it, before `end`.
  void addEnd(const Stretch& stretch, bool isRightToLeft, uint32_t end, FilledLine& line);
  // Of the piece that comes next.
  uint32_t position() const { return pieces_[next_].start; }

 private:
  bool leavesRoom(const Piece& piece);
  void breakLine(FilledLine& line);
  void breakPiece(FilledLine& line);
  void truncate(FilledLine& line);
  void elide(FilledLine& line, size_t end);
  void keep(FilledLine& line, double limit);
  void addEnd(FilledLine& line, size_t end);
  void settleTabs(std::vector<Piece>& pieces, size_t first, size_t end);
  size_t endOfLine() const;
  void finish(FilledLine& line);
  void measure(FilledLine& line);
  void rewind(FilledLine& line, size_t count);
  std::u16string_view units(const Piece& piece) const;

  Cutter& cutter_;
  const Stretch* stretch_ = nullptr;
  const text::Paragraph* paragraph_ = nullptr;
  std::vector<Piece> pieces_;
  size_t next_ = 0;
  // Of the line being filled.
  double indent_ = 0, limit_ = 0, reached_ = 0;
  bool isElided_ = false;  // an ellipsis stands for a part of it
  size_t breakable_ = 0;   // the pieces up to the last place where it may end
};

}  // namespace standin::layout
