// Lines filled greedily, as the platform does.
#include "standin/layout/filler.hpp"

#include <algorithm>

#include "standin/layout/pen.hpp"

namespace standin::layout {
namespace {

bool isTab(const Piece& piece) { return piece.kind == PieceKind::tab; }

}  // namespace

void Filler::begin(const Stretch& stretch, const text::Paragraph& paragraph, bool isRightToLeft) {
  stretch_ = &stretch;
  paragraph_ = &paragraph;
  next_ = 0;
  cutter_.cut(stretch, isRightToLeft, pieces_);
}

std::u16string_view Filler::units(const Piece& piece) const {
  return std::u16string_view(stretch_->units).substr(piece.start - stretch_->start, piece.length);
}

void Filler::rewind(FilledLine& line, size_t count) {
  next_ -= line.pieces.size() - count;
  line.pieces.resize(count);
}

// Divides the piece that does not fit any more; the line takes its first part.
void Filler::breakPiece(FilledLine& line) {
  Piece& piece = pieces_[next_];
  if (piece.word == nullptr) {
    if (line.pieces.empty()) line.pieces.push_back(pieces_[next_++]);
    return;
  }
  const double room = (limit_ - reached_ + widthTolerance) / (piece.look->size * piece.look->expansion);
  const std::u16string_view text = units(piece);
  uint32_t count = unitsThatFit(*piece.word, text, room, piece.look->kern / piece.look->size);
  if (count == 0 && line.pieces.empty()) count = firstCharacter(*piece.word, text);
  if (count == 0) return;
  if (count == text.size()) return line.pieces.push_back(pieces_[next_++]);
  line.pieces.push_back(cutter_.head(piece, count));
  piece = cutter_.tail(piece, piece.length - count);
}

// A line that ends with a soft hyphen has to have room for the hyphen.
bool Filler::leavesRoom(const Piece& piece) {
  return piece.kind != PieceKind::softHyphen || reached_ + cutter_.replacement(u"-", piece).width <= limit_ + widthTolerance;
}

void Filler::breakLine(FilledLine& line) {
  line.isBroken = true;
  if (keepsOneLine()) return truncate(line);
  if (paragraph_->lineBreakMode == breakingWords || breakable_ == 0) return breakPiece(line);
  rewind(line, breakable_);
  Piece& last = line.pieces.back();
  if (last.kind == PieceKind::softHyphen) last = cutter_.replacement(u"-", last);
}

void Filler::fill(const LineBounds& bounds, FilledLine& line) {
  line = {std::move(line.pieces)};
  line.pieces.clear();
  indent_ = bounds.indent;
  limit_ = std::max(bounds.limit, indent_ + 1);
  breakable_ = 0;
  isElided_ = false;
  Pen pen(*paragraph_, indent_);
  for (reached_ = indent_; next_ < pieces_.size();) {
    line.pieces.push_back(pieces_[next_]);
    pen.add(line.pieces, line.pieces.size() - 1, units(pieces_[next_]));
    const Piece& piece = line.pieces.back();
    if (!isWhite(piece.kind) && pen.position() > limit_ + widthTolerance) {
      line.pieces.pop_back();
      breakLine(line);
      break;
    }
    ++next_;
    reached_ = pen.position();
    if (piece.canBreakAfter && leavesRoom(piece)) breakable_ = line.pieces.size();
    if (piece.kind == PieceKind::lineBreak) break;
  }
  finish(line);
}

void Filler::settleTabs(std::vector<Piece>& pieces, size_t first, size_t end) {
  if (std::none_of(pieces.begin() + static_cast<long>(first), pieces.begin() + static_cast<long>(end), isTab)) return;
  Pen pen(*paragraph_, indent_);
  for (size_t index = first; index < end; ++index) pen.add(pieces, index, units(pieces[index]));
  pen.finish(pieces);
}

void Filler::finish(FilledLine& line) {
  if (!isElided_) settleTabs(line.pieces, 0, line.pieces.size());
  measure(line);
}

void Filler::measure(FilledLine& line) {
  std::vector<Piece>& pieces = line.pieces;
  line.width = line.whiteWidth = 0;
  auto last = pieces.end();
  for (; last != pieces.begin() && isWhite((last - 1)->kind); --last) line.whiteWidth += (last - 1)->width;
  for (auto piece = pieces.begin(); piece != last; ++piece) line.width += piece->width;
}

}  // namespace standin::layout
