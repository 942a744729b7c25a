// Bidirectional text by ICU, past a fast path for text that has none.
#include "standin/layout/directions.hpp"

#include <unicode/ubidi.h>

#include <algorithm>

#include "standin/formats/scripts.hpp"

namespace standin::layout {
namespace {

// Letters written to the left, and the controls of direction; surrogates may be of either.
bool canTurn(char16_t unit) {
  return unit >= 0x590 && (formats::isRightToLeft(unit) || unit == 0x200F || (unit >= 0x202A && unit <= 0x202E) ||
                           (unit >= 0x2066 && unit <= 0x2069) || (unit >= 0xD800 && unit < 0xE000));
}

}  // namespace

void Directions::Close::operator()(UBiDi* bidi) const { ubidi_close(bidi); }
Directions::Directions() : bidi_(ubidi_open()) {}
Directions::~Directions() = default;

bool Directions::beginsRightToLeft(std::u16string_view text) {
  return ubidi_getBaseDirection(text.data(), static_cast<int32_t>(text.size())) == UBIDI_RTL;
}

const std::vector<uint8_t>& Directions::levels(std::u16string_view text, bool isRightToLeft) {
  levels_.clear();
  if (text.empty() || (!isRightToLeft && std::none_of(text.begin(), text.end(), canTurn))) return levels_;
  UErrorCode status = U_ZERO_ERROR;
  ubidi_setPara(bidi_.get(), text.data(), static_cast<int32_t>(text.size()), isRightToLeft ? 1 : 0, nullptr, &status);
  const UBiDiLevel* levels = ubidi_getLevels(bidi_.get(), &status);
  if (U_SUCCESS(status) && levels != nullptr) levels_.assign(levels, levels + text.size());
  return levels_;
}

void orderVisually(std::vector<Piece>& line, bool isRightToLeft) {
  const uint8_t base = isRightToLeft ? 1 : 0;
  for (size_t index = line.size(); index > 0 && isWhite(line[index - 1].kind); --index) line[index - 1].level = base;
  const auto byLevel = [](const Piece& left, const Piece& right) { return left.level < right.level; };
  if (line.empty()) return;
  const uint8_t most = std::max_element(line.begin(), line.end(), byLevel)->level;
  for (uint8_t level = most; level > 0; --level) {
    const auto isDeep = [&](const Piece& piece) { return piece.level >= level; };
    for (auto from = line.begin(); (from = std::find_if(from, line.end(), isDeep)) != line.end();) {
      const auto end = std::find_if_not(from, line.end(), isDeep);
      std::reverse(from, end);
      from = end;
    }
  }
}

}  // namespace standin::layout
