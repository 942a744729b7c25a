// Where a word can be cut when there is no better place.
#include "standin/layout/word.hpp"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>

namespace standin::layout {
namespace {

// Joiners join what stands before them with what follows; marks, selectors and the like go with what stands before them.
bool isJoined(std::u16string_view units, uint32_t at) {
  if (at > 0 && units[at - 1] == u'\u200D') return true;
  UChar32 character;
  U16_GET(units.data(), 0, static_cast<int32_t>(at), static_cast<int32_t>(units.size()), character);
  return U16_IS_TRAIL(units[at]) || u_hasBinaryProperty(character, UCHAR_GRAPHEME_EXTEND) || character == 0x200D ||
         u_hasBinaryProperty(character, UCHAR_EMOJI_MODIFIER);
}

// By unit of the word: how far the glyphs reach that begin with it. Characters joined to others reach nowhere.
std::vector<double> advancesOf(const Word& word, std::u16string_view units, double spacing) {
  std::vector<double> advances(units.size(), 0.0);
  for (const GlyphRun& run : word.runs) {
    for (const Glyph& glyph : run.glyphs) {
      advances[glyph.unit] += glyph.advance / run.use.face->unitsPerEm() + (glyph.advance != 0 ? spacing : 0);
    }
  }
  return advances;
}

bool isPlaceToCut(std::u16string_view units, const std::vector<double>& advances, uint32_t at) {
  return advances[at] != 0 && !isJoined(units, at);
}

}  // namespace

uint32_t unitsThatFit(const Word& word, std::u16string_view units, double width, double spacing) {
  const std::vector<double> advances = advancesOf(word, units, spacing);
  uint32_t fitting = 0;
  double reached = 0;
  for (uint32_t at = 0; at < units.size(); ++at) {
    if (isPlaceToCut(units, advances, at)) fitting = at;
    reached += advances[at];
    if (reached > width) return fitting;
  }
  return static_cast<uint32_t>(units.size());
}

uint32_t unitsThatFitAtEnd(const Word& word, std::u16string_view units, double width, double spacing) {
  const std::vector<double> advances = advancesOf(word, units, spacing);
  uint32_t fitting = 0;
  double reached = 0;
  for (auto at = static_cast<uint32_t>(units.size()); at > 0 && reached <= width;) {
    reached += advances[--at];
    const bool isPlace = at == 0 || isPlaceToCut(units, advances, at);
    if (isPlace && reached <= width) fitting = static_cast<uint32_t>(units.size()) - at;
  }
  return fitting;
}

uint32_t firstCharacter(const Word& word, std::u16string_view units) {
  const std::vector<double> advances = advancesOf(word, units, 0);
  for (uint32_t at = 1; at < units.size(); ++at) {
    if (isPlaceToCut(units, advances, at)) return at;
  }
  return static_cast<uint32_t>(units.size());
}

}  // namespace standin::layout
