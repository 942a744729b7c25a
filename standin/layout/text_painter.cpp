// Text as text operators: as much as possible in one array, the rest glyph by glyph.
#include "standin/layout/text_painter.hpp"

#include <cmath>

#include "standin/layout/glyph_text.hpp"
#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout {
namespace {

// What imitates the faces that fonts lack: the slant of italics, and the share of the size that bold glyphs grow by.
constexpr double imitatedSlant = 0.2, imitatedThickness = 0.03;
// Less room than this between pieces is not worth an operand.
constexpr double smallestRoom = 0.005;

enum Rendering { filled, outlined, filledAndOutlined };

double slantOf(const Look& look, const FaceUse& use) { return look.slant + (use.slants ? imitatedSlant : 0); }

double widthOf(const GlyphRun& run, const Look& look) {
  double width = 0;
  for (const Glyph& glyph : run.glyphs) {
    width += glyph.advance / run.use.face->unitsPerEm() * look.size + (glyph.advance != 0 ? look.kern : 0);
  }
  return width * look.expansion;
}

// The glyph alone stands for the text of the cluster.
bool tellsText(const GlyphRun& run, const Cluster& cluster, std::u16string_view text) {
  const auto& used = run.use.face->usedGlyphs();
  const auto entry = used.find(run.glyphs[cluster.firstGlyph].id);
  return cluster.endGlyph == cluster.firstGlyph + 1 && entry != used.end() && entry->second == text;
}

}  // namespace

text::Color foregroundOf(const text::Style& style) {
  if (style.foreground) return *style.foreground;
  if (!style.link.empty()) return {text::ColorSpace::deviceRGB, {0, 0, 1}};
  return {text::ColorSpace::deviceWhite};
}

void TextPainter::setPen(const Look& look, const FaceUse& use) {
  const text::Style& style = *look.style;
  const text::Color fill = color_ != nullptr ? *color_ : foregroundOf(style);
  if (style.strokeWidth == 0 && !use.thickens) {
    content_.setRendering(filled, 0);
    return content_.setFill(fill);
  }
  const double share = style.strokeWidth != 0 ? std::abs(style.strokeWidth) / 100 : imitatedThickness;
  content_.setRendering(style.strokeWidth > 0 ? outlined : filledAndOutlined, share * look.size);
  content_.setFill(fill);
  content_.setStroke(color_ == nullptr && style.strokeWidth != 0 ? style.strokeColor.value_or(fill) : fill);
}

void TextPainter::setLook(const Look& look, const FaceUse& use) {
  setPen(look, use);
  content_.setFont(resources_.fontName(*use.face), look.size);
  content_.setExpansion(look.expansion);
}

void TextPainter::stopShowing() {
  if (isShowing_) content_.endShowing();
  isShowing_ = false;
}

void TextPainter::showRun(const GlyphRun& run, const Look& look, double x, double baseline) {
  if (!isShowing_ || look_ != &look || !(use_ == run.use)) {
    stopShowing();
    setLook(look, run.use);
    content_.setSpacing(look.kern);
    content_.moveTo(x, baseline, slantOf(look, run.use));
    content_.beginShowing();
    look_ = &look;
    use_ = run.use;
    isShowing_ = true;
  }
  content_.show(run.shown);
}

void TextPainter::placeGlyph(const GlyphRun& run, const Glyph& glyph, std::u16string_view text, double x, double baseline) {
  std::string code;
  if (run.use.face->isPictorial()) {
    const auto place = resources_.pictorialGlyph(*run.use.face, glyph.id, text);
    content_.setFont(place.fontName, look_->size);
    pdf::appendByte(code, place.code);
  } else {
    pdf::appendCode(code, glyph.id);
  }
  content_.moveTo(x, baseline, slantOf(*look_, run.use));
  content_.beginShowing();
  content_.show(code);
  content_.endShowing();
}

void TextPainter::placeRun(const GlyphRun& run, const Look& look, double x, double baseline) {
  stopShowing();
  look_ = &look;
  setPen(look, run.use);
  content_.setSpacing(0);
  content_.setExpansion(look.expansion);
  if (!run.use.face->isPictorial()) setLook(look, run.use);
  const double unit = look.size * look.expansion / run.use.face->unitsPerEm();
  forEachCluster(run, [&](const Cluster& cluster) {
    const std::u16string_view text =
        std::u16string_view(run.text).substr(cluster.start - run.start, cluster.end - cluster.start);
    const bool isTold = run.use.face->isPictorial() || tellsText(run, cluster, text);
    if (!isTold) content_.beginActualText(text);
    for (size_t index = cluster.firstGlyph; index < cluster.endGlyph; ++index) {
      const Glyph& glyph = run.glyphs[index];
      placeGlyph(run, glyph, text, x + glyph.offsetX * unit,
                 baseline + glyph.offsetY * look.size / run.use.face->unitsPerEm());
      x += glyph.advance * unit + (glyph.advance != 0 ? look.kern * look.expansion : 0);
    }
    if (!isTold) content_.endActualText();
  });
}

void TextPainter::paintPiece(const Piece& piece, double x, double baseline) {
  const Look& look = *piece.look;
  double at = x + piece.x;
  for (const GlyphRun& run : piece.word->runs) {
    if (color_ != nullptr && run.use.face->isPictorial()) {
      stopShowing();
    } else if (!run.use.face->isEmpty()) {
      run.shown.empty() ? placeRun(run, look, at, baseline + look.rise) : showRun(run, look, at, baseline + look.rise);
    }
    if (piece.word->runs.size() > 1) at += widthOf(run, look);
  }
  const double room = piece.width - layout::widthOf(*piece.word, look);
  if (isShowing_ && std::abs(room) > smallestRoom) content_.leave(room * 1000 / (look.size * look.expansion));
}

void TextPainter::paint(std::span<const Piece> pieces, double x, double baseline, const text::Color* color) {
  color_ = color;
  content_.beginText();
  for (const Piece& piece : pieces) {
    piece.word != nullptr ? paintPiece(piece, x, baseline) : stopShowing();
  }
  stopShowing();
  content_.endText();
}

}  // namespace standin::layout
