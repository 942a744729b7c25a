// Draws the glyphs of a line.
#pragma once

#include <span>

#include "standin/layout/line.hpp"
#include "standin/layout/pdf/content.hpp"

namespace standin::layout {

// The colour that text is drawn in.
text::Color foregroundOf(const text::Style& style);

class TextPainter {
 public:
  TextPainter(pdf::Content& content, pdf::Resources& resources) : content_(content), resources_(resources) {}

  // Pieces stand from left to right, their places being relative to x. A color takes the place of all others,
  // and leaves out what is a picture.
  void paint(std::span<const Piece> pieces, double x, double baseline, const text::Color* color = nullptr);

 private:
  void paintPiece(const Piece& piece, double x, double baseline);
  void showRun(const GlyphRun& run, const Look& look, double x, double baseline);
  void placeRun(const GlyphRun& run, const Look& look, double x, double baseline);
  void placeGlyph(const GlyphRun& run, const Glyph& glyph, std::u16string_view text, double x, double baseline);
  void setLook(const Look& look, const FaceUse& use);
  void setPen(const Look& look, const FaceUse& use);
  void stopShowing();

  pdf::Content& content_;
  pdf::Resources& resources_;
  const text::Color* color_ = nullptr;
  const Look* look_ = nullptr;  // of what is being shown
  FaceUse use_;
  bool isShowing_ = false;
};

}  // namespace standin::layout
