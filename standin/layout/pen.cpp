// Tab stops of each kind.
#include "standin/layout/pen.hpp"

#include <algorithm>
#include <cmath>

namespace standin::layout {
namespace {

// The platform's row of tabs, for paragraphs that have none of their own; also the distance of those behind the last one.
constexpr double usualInterval = 28;
constexpr int usualTabs = 12;
// A tab at less than this distance counts as passed.
constexpr double nearness = 0.01;

double nextMultiple(double position, double interval) {
  return (std::floor((position + nearness) / interval) + 1) * interval;
}

// Where the number's decimal mark stands: its last point or comma, unless that parts thousands, as one does that is there
// twice or is a comma before three digits. The text's length when there is none.
size_t decimalMark(std::u16string_view units) {
  const size_t digit = units.find_last_of(u"0123456789");
  const size_t mark = digit == units.npos ? units.npos : units.find_last_of(u".,", digit + 1);
  if (mark == units.npos) return units.size();
  const bool partsThousands = units.find(units[mark]) != mark || (units[mark] == u',' && digit == mark + 3);
  return partsThousands ? units.size() : mark;
}

// The width of the piece before its decimal mark; its whole width when it has none.
double widthBeforeMark(const Piece& piece, std::u16string_view units, bool& hasMark) {
  const size_t mark = decimalMark(units);
  hasMark = piece.word != nullptr && mark < units.size();
  if (!hasMark) return piece.width;
  double width = 0;
  for (const GlyphRun& run : piece.word->runs) {
    for (const Glyph& glyph : run.glyphs) width += glyph.unit < mark ? glyph.advance / run.use.face->unitsPerEm() : 0;
  }
  return width * piece.look->size * piece.look->expansion;
}

}  // namespace

text::TabStop tabAfter(const text::Paragraph& paragraph, double position) {
  if (paragraph.tabs) {
    const text::TabStop* best = nullptr;
    for (const text::TabStop& tab : *paragraph.tabs) {
      if (tab.position > position + nearness && (best == nullptr || tab.position < best->position)) best = &tab;
    }
    if (best != nullptr) return *best;
  } else if (position + nearness < usualTabs * usualInterval) {
    return {nextMultiple(position, usualInterval)};
  }
  const double interval = paragraph.defaultTabInterval;
  return {nextMultiple(position, std::isfinite(interval) && interval >= 1 ? interval : usualInterval)};
}

double Pen::reach() const {
  switch (stop_.kind) {
    case text::TabKind::right:
      return std::max(openedAt_ + textWidth_, stop_.position);
    case text::TabKind::center:
      return std::max(openedAt_ + textWidth_, stop_.position + textWidth_ / 2);
    default:
      return std::max(openedAt_, stop_.position - widthBeforeMark_) + textWidth_;
  }
}

void Pen::openTab(std::vector<Piece>& line, size_t index) {
  stop_ = tabAfter(*paragraph_, position_);
  if (stop_.kind == text::TabKind::left) {
    line[index].width = stop_.position - position_;
    position_ = stop_.position;
    return;
  }
  isOpen_ = true;
  hasMark_ = false;
  openIndex_ = index;
  openedAt_ = position_;
  textWidth_ = widthBeforeMark_ = 0;
}

void Pen::finish(std::vector<Piece>& line) {
  if (isOpen_) line[openIndex_].width = position_ - openedAt_ - textWidth_;
  isOpen_ = false;
}

void Pen::add(std::vector<Piece>& line, size_t index, std::u16string_view units) {
  const Piece& piece = line[index];
  if (piece.kind == PieceKind::tab) {
    finish(line);
    return openTab(line, index);
  }
  if (!isOpen_) return void(position_ += piece.width);
  if (!hasMark_) widthBeforeMark_ += widthBeforeMark(piece, units, hasMark_);
  textWidth_ += piece.width;
  position_ = reach();
}

}  // namespace standin::layout
