// The part of the pieces: lists of modifiers, then the table. A document without it is one piece.
#include "standin/formats/doc/pieces.hpp"

#include <algorithm>

#include "standin/formats/doc/modifier_list.hpp"

namespace standin::formats::doc {
namespace {

enum PartKind : uint8_t { listKind = 1, tableKind = 2 };
constexpr size_t descriptionSize = 8;
constexpr uint32_t narrow = 0x40000000;  // in the place of a piece: bytes of the Windows code page, at half the place

}  // namespace

Pieces::Pieces(const Source& source)
    : source_(source), remaining_(std::min(source.textLength, static_cast<uint32_t>(source.document.size()))) {
  for (Bytes rest = source.part(Part::pieces); !rest.empty();) {
    if (rest.read8(0) == tableKind) {
      readTable(rest.part(5, rest.read32(1)));
      return;
    }
    if (rest.read8(0) != listKind) break;
    lists_.push_back(rest.part(3, rest.read16(1)));
    rest = rest.part(size_t{3} + rest.read16(1));
  }
  addPiece({source.textBegin, remaining_, false, {}});
}

void Pieces::readTable(Bytes table) {
  const size_t count = table.size() < 4 ? 0 : (table.size() - 4) / (4 + descriptionSize);
  for (size_t index = 0; index < count && remaining_ > 0; ++index) {
    const uint32_t begin = table.read32(index * 4), end = table.read32(index * 4 + 4);
    if (begin >= end) continue;
    addPiece(pieceOf(table.part((count + 1) * 4 + index * descriptionSize, descriptionSize), end - begin));
  }
}

// As much of the piece as the stream has.
void Pieces::addPiece(Piece piece) {
  const size_t present = source_.document.part(piece.place).size() / piece.bytesInCharacter();
  piece.length = static_cast<uint32_t>(std::min<size_t>(std::min(piece.length, remaining_), present));
  if (piece.length > 0) pieces_.push_back(piece);
  remaining_ -= piece.length;
}

Piece Pieces::pieceOf(Bytes description, uint32_t length) {
  const uint32_t place = description.read32(2);
  const Bytes modifiers = modifiersOf(description.read16(6));
  if (source_.isOld) return {place, length, false, modifiers};
  if ((place & narrow) != 0) return {(place & ~narrow) / 2, length, false, modifiers};
  return {place, length, true, modifiers};
}

// An odd number is that of a list; an even one holds a property and its value.
Bytes Pieces::modifiersOf(uint16_t number) {
  if ((number & 1) != 0) return number / 2u < lists_.size() ? lists_[number / 2u] : Bytes();
  const auto property = static_cast<uint8_t>(number >> 1 & 0x7F), value = static_cast<uint8_t>(number >> 8);
  const auto known = static_cast<uint16_t>(propertyOfOldNumber(property));
  if (property == 0 || known == 0) return {};
  if (source_.isOld)
    return std::span<const uint8_t>(singles_.emplace_back(std::array<uint8_t, 3>{property, value})).first(2);
  return std::span<const uint8_t>(
      singles_.emplace_back(std::array<uint8_t, 3>{static_cast<uint8_t>(known), static_cast<uint8_t>(known >> 8), value}));
}

}  // namespace standin::formats::doc
