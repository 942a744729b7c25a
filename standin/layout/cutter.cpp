// Text as words, spaces, tabs and attachments, each in one look and one direction.
#include "standin/layout/cutter.hpp"

#include <unicode/unistr.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <cmath>

#include "standin/text/font_faces.hpp"

namespace standin::layout {
namespace {

// Longer words are shaped in parts, so that breaking them takes time in proportion to their length.
constexpr uint32_t longestWord = 256;

// Nothing for what is not shown at all.
std::optional<PieceKind> kindOfOther(char16_t unit) {
  switch (unit) {
    case u'\t':
      return PieceKind::tab;
    case u'\u00AD':
      return PieceKind::softHyphen;
    case text::attachmentCharacter:
      return PieceKind::attachment;
    default:
      break;
  }
  if (endsLine(unit)) return PieceKind::lineBreak;
  if (isSpace(unit)) return PieceKind::space;
  if (unit < 0x20 || unit == 0x7F) return std::nullopt;
  return PieceKind::word;
}

// Most text is printable ASCII.
std::optional<PieceKind> kindOf(char16_t unit) {
  return unit > 0x20 && unit < 0x7F ? std::optional(PieceKind::word) : kindOfOther(unit);
}

// Names longer than this are cut.
constexpr size_t longestName = 24;

}  // namespace

const text::Font& iconNameFont() {
  static const text::Font font = *text::fontNamed("Helvetica", iconNameSize);
  return font;
}

std::u16string iconName(const text::Attachment& attachment) {
  const icu::UnicodeString name = icu::UnicodeString::fromUTF8(attachment.fileName);
  std::u16string units(name.getBuffer(), static_cast<size_t>(name.length()));
  return units.size() <= longestName ? units : std::u16string(beginningOf(units, longestName - 1)) + u'\u2026';
}

std::u16string_view Cutter::units(uint32_t from, uint32_t end) const {
  return std::u16string_view(stretch_->units).substr(from, end - from);
}

const Look& Cutter::lookAt(uint32_t at) {
  while (run_ + 1 < stretch_->runs.size() && stretch_->runs[run_].end <= stretch_->start + at) ++run_, look_ = nullptr;
  if (look_ == nullptr) look_ = &looks_.of(*stretch_->runs[run_].style);
  return *look_;
}

// How far look and direction stay the same.
uint32_t Cutter::stop(uint32_t at, uint32_t end) {
  lookAt(at);
  end = std::min(end, stretch_->runs[run_].end - stretch_->start);
  if (levels_->empty()) return end;
  uint32_t same = at + 1;
  while (same < end && (*levels_)[same] == (*levels_)[at]) ++same;
  return same;
}

void Cutter::add(PieceKind kind, uint32_t from, uint32_t end, bool canBreakAfter) {
  const Look& look = lookAt(from);
  Piece piece{nullptr, &look, stretch_->start + from, end - from, 0, 0, kind};
  piece.level = levels_->empty() ? uint8_t{0} : (*levels_)[from];
  piece.canBreakAfter = canBreakAfter;
  if (kind == PieceKind::word || kind == PieceKind::space) {
    shape(piece);
  }
  if (kind == PieceKind::attachment) addAttachment(piece);
  pieces_->push_back(piece);
}

void Cutter::shape(Piece& piece) {
  const uint32_t from = piece.start - stretch_->start, end = from + piece.length;
  const std::u16string_view text = units(from, end);
  const bool canJoin = text.front() >= firstJoining || text.back() >= firstJoining;
  const Joins joins = canJoin ? joinsAround(stretch_->units, from, end) : Joins{};
  piece.word = &shaper_.word(text, *piece.look->choice, (piece.level & 1) != 0, joins);
  piece.width = widthOf(*piece.word, *piece.look);
}

void Cutter::addAttachment(Piece& piece) {
  const auto& attachment = piece.look->style->attachment;
  const uint32_t start = piece.start - stretch_->start;
  if (!pieces_->empty()) pieces_->back().canBreakAfter = canBreakAt(start);
  piece.canBreakAfter = canBreakAt(start + piece.length);
  if (attachment == nullptr) return;
  const Word& name = shaper_.word(iconName(*attachment), looks_.choice(iconNameFont(), 1), false);
  const FaceMeasures& face = piece.look->choice->use.face->measures();
  const double below = std::ceil(face.descent * piece.look->size) + std::ceil(face.leading * piece.look->size);
  piece.width = boxes_.of(*attachment, name.width * iconNameSize, below + std::max(piece.look->rise, 0.0)).width;
}

// Told by the characters on both sides, of which one is an attachment.
bool Cutter::canBreakAt(uint32_t at) {
  const auto size = static_cast<uint32_t>(stretch_->units.size());
  const uint32_t from = at - std::min(at, 2u);
  const std::vector<uint32_t>& breaks = breaks_.in(units(from, std::min(at + 2, size)));
  return at == size || std::find(breaks.begin(), breaks.end(), at - from) != breaks.end();
}

void Cutter::cutWord(uint32_t from, uint32_t end) {
  const std::vector<uint32_t>& breaks = breaks_.in(units(from, end));
  auto next = breaks.begin();
  for (uint32_t at = from; at < end;) {
    const uint32_t wordEnd = next != breaks.end() ? from + *next : end;
    uint32_t last = std::min(stop(at, wordEnd), at + longestWord);
    if (last < wordEnd && last > at + 1 && U16_IS_TRAIL(stretch_->units[last])) --last;
    const bool isBreak = last == wordEnd && wordEnd != end;
    add(PieceKind::word, at, last, isBreak);
    if (isBreak) ++next;
    at = last;
  }
}

uint32_t Cutter::cutOther(uint32_t at, PieceKind kind) {
  uint32_t end = at + 1;
  if (kind == PieceKind::space) {
    const uint32_t last = stop(at, std::min(static_cast<uint32_t>(stretch_->units.size()), at + longestWord));
    while (end < last && isSpace(stretch_->units[end])) ++end;
  }
  add(kind, at, end, true);
  return end;
}

void Cutter::cut(const Stretch& stretch, bool isRightToLeft, std::vector<Piece>& pieces) {
  stretch_ = &stretch;
  pieces_ = &pieces;
  levels_ = &directions_.levels(stretch.units, isRightToLeft);
  run_ = 0;
  look_ = nullptr;
  pieces.clear();
  const auto size = static_cast<uint32_t>(stretch.units.size());
  for (uint32_t at = 0; at < size && !stretch.runs.empty();) {
    const auto kind = kindOf(stretch.units[at]);
    if (kind && *kind != PieceKind::word) {
      at = cutOther(at, *kind);
      continue;
    }
    uint32_t end = at + (kind ? 0 : 1);
    while (kind && end < size && kindOf(stretch.units[end]) == kind) ++end;
    if (kind) cutWord(at, end);
    at = end;
  }
}

Piece Cutter::replacement(std::u16string_view shown, const Piece& place) {
  Piece piece = place;
  piece.kind = PieceKind::word;
  piece.word = &shaper_.word(shown, *place.look->choice, (place.level & 1) != 0);
  piece.width = widthOf(*piece.word, *place.look);
  return piece;
}

Piece Cutter::head(Piece piece, uint32_t length) {
  piece.length = length;
  shape(piece);
  return piece;
}

Piece Cutter::tail(Piece piece, uint32_t length) {
  piece.start += piece.length - length;
  piece.length = length;
  shape(piece);
  return piece;
}

}  // namespace standin::layout
