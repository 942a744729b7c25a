// Drawing operators.
#include "standin/layout/pdf/content.hpp"

#include <algorithm>
#include <cmath>

#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout::pdf {

void Content::clear() {
  out_.clear();
  state_ = State();
}

void Content::operands(std::initializer_list<double> values) {
  for (const double value : values) {
    appendNumber(out_, value);
    out_ += ' ';
  }
}

const Content::InkOperators Content::filling = {&State::fill, "g\n", "rg\n", "k\n", "ca"};
const Content::InkOperators Content::stroking = {&State::stroke, "G\n", "RG\n", "K\n", "CA"};

void Content::setColor(const text::Color& color, const InkOperators& operators) {
  Ink& ink = state_.*operators.ink;
  if (color.alpha != ink.alpha && std::isfinite(color.alpha)) {
    ink.alpha = color.alpha;
    out_ += '/' + resources_.opacityName(operators.opacity, color.alpha) + " gs\n";
  }
  if (color == ink.color) return;
  ink.color = color;
  const bool isGray = color.space == text::ColorSpace::calibratedWhite || color.space == text::ColorSpace::deviceWhite;
  const bool isCMYK = color.space == text::ColorSpace::deviceCMYK;
  for (size_t index = 0; index < (isGray ? 1u : isCMYK ? 4u : 3u); ++index) {
    appendFineNumber(out_, std::clamp(color.components[index], 0.0, 1.0));
    out_ += ' ';
  }
  out_ += isGray ? operators.gray : isCMYK ? operators.cmyk : operators.rgb;
}

void Content::setLineWidth(double width) {
  if (width == state_.lineWidth) return;
  state_.lineWidth = width;
  operands({width});
  out_ += "w\n";
}

void Content::fillRectangle(double x, double y, double width, double height) {
  operands({x, y, width, height});
  out_ += "re f\n";
}

void Content::strokeLine(double x, double end, double y, double thickness, std::string_view dashes) {
  setLineWidth(thickness);
  if (!dashes.empty()) (out_ += '[').append(dashes) += "]0 d\n";
  operands({x, y});
  out_ += "m ";
  operands({end, y});
  out_ += "l S\n";
  if (!dashes.empty()) out_ += "[]0 d\n";
}

void Content::drawImage(std::string_view name, double x, double y, double width, double height) {
  out_ += "q ";
  operands({width, 0, 0, height, x, y});
  (out_ += "cm /").append(name) += " Do Q\n";
}

void Content::drawPath(std::string_view operators, double x, double y, double scale) {
  out_ += "q ";
  operands({scale, 0, 0, scale, x, y});
  (out_ += "cm\n").append(operators) += "Q\n";
}

void Content::beginText() { out_ += "BT\n"; }
void Content::endText() { out_ += "ET\n"; }

void Content::setFont(std::string_view name, double size) {
  if (name == state_.font && size == state_.fontSize) return;
  state_.font = name;
  state_.fontSize = size;
  (out_ += '/').append(name) += ' ';
  operands({size});
  out_ += "Tf\n";
}

void Content::setSpacing(double points) {
  if (points == state_.spacing) return;
  state_.spacing = points;
  operands({points});
  out_ += "Tc\n";
}

void Content::setExpansion(double factor) {
  if (factor == state_.expansion) return;
  state_.expansion = factor;
  operands({factor * 100});
  out_ += "Tz\n";
}

void Content::setRendering(int mode, double lineWidth) {
  if (mode != 0) setLineWidth(lineWidth);
  if (mode == state_.rendering) return;
  state_.rendering = mode;
  appendInteger(out_, mode);
  out_ += " Tr\n";
}

void Content::moveTo(double x, double y, double slant) {
  out_ += "1 0 ";
  appendFineNumber(out_, slant);
  out_ += " 1 ";
  operands({x, y});
  out_ += "Tm\n";
}

void Content::leave(double thousandths) {
  out_ += ')';
  appendNumber(out_, -thousandths);
  out_ += '(';
}

void Content::beginShowing() { out_ += "[("; }
void Content::endShowing() { out_ += ")]TJ\n"; }

void Content::beginActualText(std::u16string_view text) {
  out_ += "/Span<</ActualText<FEFF";
  for (const char16_t unit : text) appendHex(out_, unit);
  out_ += ">>>BDC\n";
}

}  // namespace standin::layout::pdf
