// Clusters of glyphs, and the operands of text operators.
#include "standin/layout/glyph_text.hpp"

#include <cmath>

#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout {
namespace {

// One glyph for the cluster, standing on the baseline, and never used for another text.
bool tellsItsText(GlyphRun& run, const Cluster& cluster, std::u16string_view units) {
  Face& face = *run.use.face;
  const Glyph& glyph = run.glyphs[cluster.firstGlyph];
  if (cluster.endGlyph == cluster.firstGlyph + 1) {
    return face.use(glyph.id, units.substr(cluster.start, cluster.end - cluster.start)) && glyph.offsetY == 0 &&
           glyph.advance != 0;
  }
  for (size_t index = cluster.firstGlyph; index < cluster.endGlyph; ++index) face.use(run.glyphs[index].id, u"");
  return false;
}

// Moves against what the face itself says of advances are numbers between strings, in thousandths, leftwards.
std::string operandOf(const GlyphRun& run) {
  const Face& face = *run.use.face;
  std::string shown;
  int pending = 0;
  for (const Glyph& glyph : run.glyphs) {
    pending += glyph.offsetX;
    if (pending != 0) {
      shown += ')';
      pdf::appendNumber(shown, -pending * 1000.0 / face.unitsPerEm());
      shown += '(';
    }
    pdf::appendCode(shown, glyph.id);
    pending = glyph.advance - face.advance(glyph.id) - glyph.offsetX;
  }
  if (pending == 0) return shown;
  shown += ')';
  pdf::appendNumber(shown, -pending * 1000.0 / face.unitsPerEm());
  return shown += '(';
}

}  // namespace

void forEachCluster(const GlyphRun& run, const std::function<void(const Cluster&)>& visit) {
  const std::vector<Glyph>& glyphs = run.glyphs;
  const bool isReversed = glyphs.size() > 1 && glyphs.front().unit > glyphs.back().unit;
  for (size_t first = 0, previousStart = run.end; first < glyphs.size();) {
    size_t end = first + 1;
    while (end < glyphs.size() && glyphs[end].unit == glyphs[first].unit) ++end;
    const uint32_t start = glyphs[first].unit;
    const uint32_t next = isReversed            ? static_cast<uint32_t>(previousStart)
                          : end < glyphs.size() ? glyphs[end].unit
                                                : run.end;
    visit({first, end, start, next});
    previousStart = start;
    first = end;
  }
}

void noteTexts(GlyphRun& run, std::u16string_view units) {
  bool isTold = !run.use.face->isEmpty() && !run.use.face->isPictorial();
  forEachCluster(run, [&](const Cluster& cluster) { isTold = tellsItsText(run, cluster, units) && isTold; });
  if (isTold) return void(run.shown = operandOf(run));
  run.text = units.substr(run.start, run.end - run.start);
}

}  // namespace standin::layout
