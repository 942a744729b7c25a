// Lines that are kept in one although they do not fit: cut at the edge, or with an ellipsis for what is left out.
#include <algorithm>
#include <numeric>

#include "standin/layout/filler.hpp"

namespace standin::layout {
namespace {

// How much of the room the beginning of a line gets that is cut short.
double headShare(int mode) { return mode == truncatingHead ? 0 : mode == truncatingMiddle ? 0.5 : 1; }

double widthOf(const std::vector<Piece>& pieces) {
  return std::accumulate(pieces.begin(), pieces.end(), 0.0,
                         [](double width, const Piece& piece) { return width + piece.width; });
}

}  // namespace

bool Filler::keepsOneLine() const { return paragraph_->lineBreakMode >= clipping; }
bool Filler::showsEnd() const { return keepsOneLine() && headShare(paragraph_->lineBreakMode) < 1; }

// The line break that ends the line being filled, or where the pieces end.
size_t Filler::endOfLine() const {
  const auto found = std::find_if(pieces_.begin() + static_cast<long>(next_), pieces_.end(),
                                  [](const Piece& piece) { return piece.kind == PieceKind::lineBreak; });
  return static_cast<size_t>(found - pieces_.begin());
}

void Filler::truncate(FilledLine& line) {
  const size_t end = endOfLine();
  paragraph_->lineBreakMode == clipping ? breakPiece(line) : elide(line, end);
  next_ = std::min(end + 1, pieces_.size());
}

// Gives back what does not fit any more.
void Filler::keep(FilledLine& line, double limit) {
  reached_ = indent_ + widthOf(line.pieces);
  limit_ = limit;
  size_t count = line.pieces.size();
  while (count > 0 && reached_ > limit_ + widthTolerance) reached_ -= line.pieces[--count].width;
  rewind(line, count);
}

// An ellipsis stands for what there is no room for, in the look of the first that it stands for. Tabs keep the widths that
// they would have in the whole line.
void Filler::elide(FilledLine& line, size_t end) {
  isElided_ = true;
  const size_t first = next_ - line.pieces.size();
  settleTabs(pieces_, first, end);
  std::copy(pieces_.begin() + static_cast<long>(first), pieces_.begin() + static_cast<long>(next_), line.pieces.begin());
  const double share = headShare(paragraph_->lineBreakMode), limit = limit_;
  keep(line, indent_ + share * (limit - indent_));
  const Piece ellipsis = cutter_.replacement(u"\u2026", pieces_[next_]);
  keep(line, indent_ + share * (limit - indent_ - ellipsis.width));
  if (share > 0) breakPiece(line);
  line.pieces.push_back(ellipsis);
  limit_ = limit;
  if (showsEnd() && (end < pieces_.size() || stretch_->endsParagraph)) addEnd(line, end);
}

// As much from before the end as the line has room for.
void Filler::addEnd(FilledLine& line, size_t end) {
  while (end > next_ && isWhite(pieces_[end - 1].kind)) --end;
  double room = limit_ - indent_ - widthOf(line.pieces) + widthTolerance;
  size_t first = end;
  while (first > next_ && pieces_[first - 1].width <= room) room -= pieces_[--first].width;
  if (first > next_ && pieces_[first - 1].word != nullptr) {
    const Piece& piece = pieces_[first - 1];
    const std::u16string_view text = units(piece);
    const uint32_t count = unitsThatFitAtEnd(*piece.word, text, room / (piece.look->size * piece.look->expansion),
                                             piece.look->kern / piece.look->size);
    if (count > 0) line.pieces.push_back(cutter_.tail(piece, count));
  }
  line.pieces.insert(line.pieces.end(), pieces_.begin() + static_cast<long>(first),
                     pieces_.begin() + static_cast<long>(end));
}

void Filler::addEnd(const Stretch& stretch, bool isRightToLeft, uint32_t end, FilledLine& line) {
  begin(stretch, *paragraph_, isRightToLeft);
  const auto last = std::find_if(pieces_.begin(), pieces_.end(), [&](const Piece& piece) { return piece.start >= end; });
  settleTabs(pieces_, 0, static_cast<size_t>(last - pieces_.begin()));
  addEnd(line, static_cast<size_t>(last - pieces_.begin()));
  next_ = pieces_.size();
  measure(line);
}

}  // namespace standin::layout
