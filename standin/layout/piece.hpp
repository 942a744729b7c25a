// The pieces that lines are filled with: words, spaces, tabs and attachments, each in one look.
#pragma once

#include <cstdint>
#include <optional>

#include "standin/layout/look.hpp"

namespace standin::layout {

enum class PieceKind : uint8_t { word, space, tab, softHyphen, attachment, lineBreak };

struct Piece {
  const Word* word;  // nil for tabs, attachments and line breaks
  const Look* look;
  uint32_t start, length;  // units of the text
  double width;            // points; of tabs, once they are placed
  double x = 0;            // from the left edge of the line, once it is placed
  PieceKind kind;
  uint8_t level = 0;           // of bidirectional embedding; odd ones run to the left
  bool canBreakAfter = false;  // a line may begin behind it
};

// What hangs over the end of a line instead of filling it.
inline bool isWhite(PieceKind kind) { return kind == PieceKind::space || kind == PieceKind::lineBreak; }

inline double widthOf(const Word& word, const Look& look) {
  return (word.width * look.size + word.spacedGlyphs * look.kern) * look.expansion;
}

}  // namespace standin::layout
