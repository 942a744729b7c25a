// Cuts stretches of text into pieces.
#pragma once

#include <vector>

#include "standin/layout/attachment_boxes.hpp"
#include "standin/layout/directions.hpp"
#include "standin/layout/line_breaks.hpp"
#include "standin/layout/piece.hpp"
#include "standin/layout/stretch.hpp"

namespace standin::layout {

class Cutter {
 public:
  Cutter(Looks& looks, Shaper& shaper, AttachmentBoxes& boxes) : looks_(looks), shaper_(shaper), boxes_(boxes) {}

  // Replaces the pieces by the stretch's, in the order of the text.
  void cut(const Stretch& stretch, bool isRightToLeft, std::vector<Piece>& pieces);
  // A piece that shows this text in place of what the text has there.
  Piece replacement(std::u16string_view shown, const Piece& place);
  // The first or last units of a piece of the stretch that was cut last.
  Piece head(Piece piece, uint32_t length);
  Piece tail(Piece piece, uint32_t length);

 private:
  uint32_t stop(uint32_t at, uint32_t end);
  const Look& lookAt(uint32_t at);
  void cutWord(uint32_t from, uint32_t end);
  uint32_t cutOther(uint32_t at, PieceKind kind);
  void add(PieceKind kind, uint32_t from, uint32_t end, bool canBreakAfter);
  void shape(Piece& piece);
  void addAttachment(Piece& piece);
  bool canBreakAt(uint32_t at);
  std::u16string_view units(uint32_t from, uint32_t end) const;

  Looks& looks_;
  Shaper& shaper_;
  AttachmentBoxes& boxes_;
  LineBreaks breaks_;
  Directions directions_;
  const Stretch* stretch_ = nullptr;
  const std::vector<uint8_t>* levels_ = nullptr;
  std::vector<Piece>* pieces_ = nullptr;
  size_t run_ = 0;
  const Look* look_ = nullptr;
};

// The font of the names below attachments.
const text::Font& iconNameFont();
std::u16string iconName(const text::Attachment& attachment);

}  // namespace standin::layout
