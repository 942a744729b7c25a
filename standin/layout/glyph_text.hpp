// Which text the glyphs of a run stand for, so that the text can be taken out of the pages again.
#pragma once

#include <functional>
#include <string_view>

#include "standin/layout/word.hpp"

namespace standin::layout {

// Glyphs that stand for the same text together.
struct Cluster {
  size_t firstGlyph, endGlyph;
  uint32_t start, end;  // units of the word
};

void forEachCluster(const GlyphRun& run, const std::function<void(const Cluster&)>& visit);

// Notes in the face what each glyph stands for, and fills in what is shown when the glyphs tell the text by themselves.
void noteTexts(GlyphRun& run, std::u16string_view units);

}  // namespace standin::layout
