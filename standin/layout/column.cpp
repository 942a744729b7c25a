// Paragraphs as lines: indents, alignment, heights and spacing.
#include "standin/layout/column.hpp"

#include <algorithm>
#include <cmath>

namespace standin::layout {
namespace {

constexpr double mostLength = 1e5;

// A length that a paragraph says, in bounds.
double length(double value) { return std::isfinite(value) ? std::clamp(value, 0.0, mostLength) : 0; }

// The paragraph says something: nothing is said by zero.
bool isLength(double value) { return std::isfinite(value) && value > 0; }

// The platform measures lines in whole points.
double rounded(double share, double size) { return std::round(share * size); }

bool isSpaceBetweenWords(const Piece& piece) { return piece.kind == PieceKind::space; }
bool isGap(const Piece& piece) { return piece.kind == PieceKind::word && piece.canBreakAfter; }

// A heading's title is cut to so many units.
constexpr size_t longestHeading = 200;

}  // namespace

Column::Column(const formats::StyledRuns& styled, Faces& faces, double width, double mostHeight, PictureTest isPicture)
    : width_(std::max(width, 1.0)),
      mostHeight_(std::max(mostHeight, 1.0)),
      looks_(faces),
      shaper_(faces),
      boxes_(width_, mostHeight_, std::move(isPicture)),
      cutter_(looks_, shaper_, boxes_),
      filler_(cutter_),
      reader_(styled) {}

void Column::layOut(LineTaker& taker) {
  for (uint32_t position = 0; position < reader_.size(); position = stretch_.next) {
    reader_.read(position, stretch_);
    if (!layOutParagraph(taker)) return;
  }
}

bool Column::layOutParagraph(LineTaker& taker) {
  const text::Style& style = stretch_.runs.empty() ? *stretch_.last : *stretch_.runs.front().style;
  paragraph_ = &style.paragraph;
  isRightToLeft_ = paragraph_->direction == text::WritingDirection::natural
                       ? Directions::beginsRightToLeft(stretch_.units)
                       : paragraph_->direction == text::WritingDirection::rightToLeft;
  nameHeading();
  for (bool isFirst = true;;) {
    uint32_t from = stretch_.end();
    if (!giveLinesOfStretch(taker, isFirst, from)) return false;
    if (endsParagraphAt(from)) return true;
    reader_.read(from, stretch_);
  }
}

// The last line of a stretch that does not end the paragraph is left to the next stretch, which begins where the line does.
// A line that is cut short may end in a later one, which is then read.
bool Column::giveLinesOfStretch(LineTaker& taker, bool& isFirst, uint32_t& from) {
  shaper_.forget();
  filler_.begin(stretch_, *paragraph_, isRightToLeft_);
  for (bool isStart = true; !filler_.isAtEnd() || (isStart && isFirst); isStart = false) {
    const uint32_t start = filler_.isAtEnd() ? stretch_.end() : filler_.position();
    filler_.fill(bounds(isFirst), filled_);
    const bool isIncomplete = filler_.isAtEnd() && !stretch_.endsParagraph;
    if (isIncomplete && !isStart) return from = start, true;
    if (isIncomplete && filler_.keepsOneLine()) addEndOfLine(from = endOfLine());
    if (!giveLine(taker, isFirst, filler_.isAtEnd() && endsParagraphAt(from))) return false;
    isFirst = false;
  }
  return true;
}

// Behind the line break that the line being cut short ends with, or where the paragraph ends.
uint32_t Column::endOfLine() {
  const auto lineBreak = [&] { return std::find_if(stretch_.units.begin(), stretch_.units.end(), endsLine); };
  while (lineBreak() == stretch_.units.end() && !stretch_.endsParagraph) reader_.read(stretch_.end(), stretch_);
  const auto found = lineBreak();
  if (found == stretch_.units.end()) return stretch_.end();
  return stretch_.start + static_cast<uint32_t>(found - stretch_.units.begin()) + 1;
}

// A line that reaches beyond its stretch may show its end all the same.
void Column::addEndOfLine(uint32_t end) {
  if (!filled_.isBroken || !filler_.showsEnd()) return;
  reader_.read(end - std::min(end, StretchReader::mostUnits / 2), stretch_);
  filler_.addEnd(stretch_, isRightToLeft_, end, filled_);
}

// However long the indents are, they leave some room.
LineBounds Column::bounds(bool isFirst) const {
  const double indent = std::min(length(isFirst ? paragraph_->firstLineIndent : paragraph_->headIndent), width_ - 1);
  const double tail = std::isfinite(paragraph_->tailIndent) ? paragraph_->tailIndent : 0;
  return {indent, std::max(indent + 1, std::min(tail > 0 ? tail : width_ + tail, width_))};
}

bool Column::giveLine(LineTaker& taker, bool isFirst, bool isLast) {
  place(filled_, bounds(isFirst));
  measure();
  line_.spaceBefore = isFirst ? length(paragraph_->spacingBefore) : 0;
  line_.spaceAfter = length(paragraph_->lineSpacing) + (isLast ? length(paragraph_->spacingAfter) : 0);
  line_.isRightToLeft = isRightToLeft_;
  line_.endsPage = isLast && stretch_.endsPage;
  line_.headingLevel = isFirst ? paragraph_->headerLevel : 0;
  return taker.take(line_);
}

// A stretched line is filled by widening its spaces or, when it has none, the gaps between its characters; what stands
// before its last tab stays where it is. False when nothing can be widened.
bool Column::justify(double missing) {
  std::vector<Piece>& pieces = line_.pieces;
  const auto isTab = [](const Piece& piece) { return piece.kind == PieceKind::tab; };
  const auto first = std::find_if(pieces.rbegin(), pieces.rend(), isTab).base();
  const auto end = std::find_if_not(pieces.rbegin(), std::make_reverse_iterator(first), [](const Piece& piece) {
                     return isWhite(piece.kind);
                   }).base();
  if (end - first < 2) return false;
  for (const auto grows : {isSpaceBetweenWords, isGap}) {
    const auto count = [&](const Piece& piece) { return piece.kind == PieceKind::space ? piece.length : 1; };
    double total = 0;
    for (auto piece = first; piece != end - 1; ++piece) total += grows(*piece) ? count(*piece) : 0;
    if (total == 0) continue;
    for (auto piece = first; piece != end - 1; ++piece) {
      if (grows(*piece)) piece->width += missing * count(*piece) / total;
    }
    return true;
  }
  return false;
}

void Column::place(FilledLine& filled, const LineBounds& bounds) {
  std::swap(line_.pieces, filled.pieces);
  const double missing = std::max(bounds.limit - bounds.indent - filled.width, 0.0);
  auto alignment = paragraph_->alignment;
  const bool isStretched =
      alignment == text::Alignment::justified && filled.isBroken && !filler_.keepsOneLine() && justify(missing);
  if (alignment == text::Alignment::justified || alignment == text::Alignment::natural) {
    alignment = isRightToLeft_ ? text::Alignment::right : text::Alignment::left;
  }
  orderVisually(line_.pieces, isRightToLeft_);
  const double begin = isRightToLeft_ ? width_ - bounds.limit : bounds.indent;
  double x = begin;
  if (!isStretched && alignment == text::Alignment::right) x += missing;
  if (!isStretched && alignment == text::Alignment::center) x += missing / 2;
  if (isRightToLeft_) x -= filled.whiteWidth;
  for (Piece& piece : line_.pieces) {
    piece.x = x;
    x += piece.width;
  }
}

void Column::measurePiece(const Piece& piece, double& ascent, double& descent, double& leading) {
  const Look& look = *piece.look;
  const FaceMeasures& face = look.choice->use.face->measures();
  const bool hasWord = piece.word != nullptr && !piece.word->runs.empty();
  ascent = std::max(ascent, rounded(hasWord ? piece.word->ascent : face.ascent, look.size) + std::round(look.rise));
  descent = std::max(descent, rounded(hasWord ? piece.word->descent : face.descent, look.size) - std::round(look.rise));
  leading = std::max(leading, rounded(hasWord ? piece.word->leading : face.leading, look.size));
  const auto& attachment = look.style->attachment;
  if (piece.kind != PieceKind::attachment || attachment == nullptr) return;
  ascent = std::max(ascent, boxes_.of(*attachment, 0, 0).height + look.rise);
}

// The height that the paragraph makes of a line's natural one: no paragraph makes it higher than a page.
double Column::heightOf(double natural) const {
  double height = natural;
  if (isLength(paragraph_->lineHeightMultiple)) height *= paragraph_->lineHeightMultiple;
  height = std::max(height, length(paragraph_->minimumLineHeight));
  if (isLength(paragraph_->maximumLineHeight)) height = std::min(height, paragraph_->maximumLineHeight);
  return std::min(height, std::max(natural, mostHeight_));
}

void Column::measure() {
  double ascent = 0, descent = 0, leading = 0;
  for (const Piece& piece : line_.pieces) measurePiece(piece, ascent, descent, leading);
  if (line_.pieces.empty()) {
    const Look& look = looks_.of(*stretch_.last);
    measurePiece({nullptr, &look, 0, 0, 0, 0, PieceKind::lineBreak}, ascent, descent, leading);
  }
  line_.height = heightOf(ascent + descent + leading);
  line_.baseline = line_.height - descent - leading;
}

void Column::nameHeading() {
  line_.heading.clear();
  if (paragraph_->headerLevel > 0) line_.heading = beginningOf(stretch_.units, longestHeading);
}

}  // namespace standin::layout
