// The pieces that the text of a document is put together from.
#pragma once

#include <array>
#include <deque>
#include <vector>

#include "standin/formats/doc/source.hpp"

namespace standin::formats::doc {

struct Piece {
  size_t place;     // in the document stream
  uint32_t length;  // characters
  bool isWide;      // two bytes a character
  Bytes modifiers;  // of all of its text, over what the pages say

  size_t bytesInCharacter() const { return isWide ? 2 : 1; }
};

class Pieces {
 public:
  // Of the main text alone; together no more characters than the document stream has bytes.
  explicit Pieces(const Source& source);

  const std::vector<Piece>& all() const { return pieces_; }

 private:
  void readTable(Bytes table);
  void addPiece(Piece piece);
  Piece pieceOf(Bytes description, uint32_t length);
  Bytes modifiersOf(uint16_t number);

  const Source& source_;
  uint32_t remaining_;
  std::vector<Bytes> lists_;
  std::deque<std::array<uint8_t, 3>> singles_;  // modifiers that stand in the place of a list's number
  std::vector<Piece> pieces_;
};

}  // namespace standin::formats::doc
