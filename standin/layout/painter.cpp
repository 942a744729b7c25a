// Lines drawn.
#include "standin/layout/painter.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "standin/layout/pdf/syntax.hpp"
#include "standin/layout/text_painter.hpp"

namespace standin::layout {
namespace {

using Pieces = std::span<const Piece>;

// The platform's line styles: a line in the low byte, a pattern and the switch for words alone above it.
enum LineStyle { lineMask = 0xFF, thickLine = 2, doubleLine = 9, patternMask = 0x700, byWord = 0x8000 };

// Patterns by their number, in lengths of strokes and gaps as multiples of the thickness.
constexpr std::initializer_list<double> patterns[] = {{}, {1, 2}, {4, 2}, {4, 2, 1, 2}, {4, 2, 1, 2, 1, 2}};

std::string dashesOf(int style, double thickness) {
  const auto number = static_cast<size_t>((style & patternMask) >> 8);
  std::string dashes;
  if (number >= std::size(patterns)) return dashes;
  for (const double length : patterns[number]) {
    pdf::appendNumber(dashes, length * thickness);
    dashes += ' ';
  }
  return dashes;
}

// Calls visit with each group of neighbours that are alike.
template <class Alike, class Visit>
void forEachGroup(Pieces pieces, Alike&& alike, Visit&& visit) {
  for (size_t first = 0; first < pieces.size();) {
    size_t end = first + 1;
    while (end < pieces.size() && alike(pieces[first], pieces[end])) ++end;
    visit(pieces.subspan(first, end - first));
    first = end;
  }
}

bool haveOneLook(const Piece& left, const Piece& right) { return left.look == right.look; }
bool haveOneLookAndKind(const Piece& left, const Piece& right) {
  return left.look == right.look && isWhite(left.kind) == isWhite(right.kind);
}
bool haveOneLink(const Piece& left, const Piece& right) {
  return left.look == right.look || left.look->style->link == right.look->style->link;
}

double leftOf(Pieces pieces) { return pieces.front().x; }
double rightOf(Pieces pieces) { return pieces.back().x + pieces.back().width; }
const text::Style& styleOf(Pieces pieces) { return *pieces.front().look->style; }

// Without the white space that hangs over the end of the line.
Pieces trimmed(const Line& line) {
  Pieces pieces(line.pieces);
  if (line.isRightToLeft) {
    while (!pieces.empty() && isWhite(pieces.front().kind)) pieces = pieces.subspan(1);
  } else {
    while (!pieces.empty() && isWhite(pieces.back().kind)) pieces = pieces.first(pieces.size() - 1);
  }
  return pieces;
}

// A sheet of paper with a folded corner, 32 points high and wide.
constexpr const char* iconPath =
    "0.95 g 0.45 G 1 w 6 1 m 6 31 l 20 31 l 26 25 l 26 1 l h B 20 31 m 20 25 l 26 25 l S\n"
    "10 20 m 22 20 l 10 15 m 22 15 l 10 10 m 22 10 l S\n";

const text::Style& iconNameStyle() {
  static const text::Style style = [] {
    text::Style made;
    made.font = iconNameFont();
    return made;
  }();
  return style;
}

// A blurred shadow is drawn so many times around its place, each time as faint as adds up to its opacity.
constexpr int blurSteps = 8;

}  // namespace

void Painter::clear() {
  content_.clear();
  links_.clear();
}

void Painter::paint(const Line& line, double x, double top) {
  const LinePlace place{x, top - line.baseline, top, top - line.height};
  const Pieces pieces = trimmed(line);
  paintBackgrounds(pieces, place);
  paintShadows(pieces, place);
  TextPainter(content_, resources_).paint(line.pieces, x, place.baseline);
  paintLines(pieces, place);
  paintAttachments(pieces, place);
  noteLinks(pieces, place);
}

void Painter::paintBackgrounds(Pieces pieces, const LinePlace& place) {
  forEachGroup(pieces, haveOneLook, [&](Pieces group) {
    const auto& color = styleOf(group).background;
    if (!color) return;
    content_.setFill(*color);
    content_.fillRectangle(place.x + leftOf(group), place.bottom, rightOf(group) - leftOf(group), place.top - place.bottom);
  });
}

// Shadows are no text to those who take the text out of the page.
void Painter::paintShadows(Pieces pieces, const LinePlace& place) {
  forEachGroup(pieces, haveOneLook, [&](Pieces group) {
    const auto& shadow = styleOf(group).shadow;
    if (!shadow || !shadow->color) return;
    TextPainter painter(content_, resources_);
    text::Color color = *shadow->color;
    const double radius = std::clamp(shadow->blurRadius, 0.0, 100.0) / 2;
    const int steps = radius > 0.25 ? blurSteps : 0;
    color.alpha /= 1 + steps / 2.0;
    content_.beginActualText(u"");
    for (int step = 0; step <= steps; ++step) {
      const double angle = 2 * std::numbers::pi * step / blurSteps, away = step == 0 ? 0 : radius;
      const LinePlace moved{place.x + shadow->offsetX + away * std::cos(angle),
                            place.baseline + shadow->offsetY + away * std::sin(angle), place.top, place.bottom};
      painter.paint(group, moved.x, moved.baseline, &color);
      paintLines(group, moved, &color);
    }
    content_.endActualText();
  });
}

void Painter::paintLines(Pieces pieces, const LinePlace& place, const text::Color* only) {
  forEachGroup(pieces, haveOneLookAndKind, [&](Pieces group) {
    const text::Style& style = styleOf(group);
    const bool isLink = !style.link.empty() && style.underline == 0;
    const int underline = isLink ? 1 : style.underline;
    if (underline == 0 && style.strikethrough == 0) return;
    const Look& look = *group.front().look;
    const FaceMeasures& face = look.choice->use.face->measures();
    const auto colorOf = [&](const std::optional<text::Color>& own) {
      return only != nullptr ? *only : own.value_or(foregroundOf(style));
    };
    paintLine(group, place, underline, face.underlinePosition * look.size + look.rise, face.underlineThickness * look.size,
              colorOf(style.underlineColor));
    paintLine(group, place, style.strikethrough, face.strikeoutPosition * look.size + look.rise,
              face.strikeoutThickness * look.size, colorOf(style.strikethroughColor));
  });
}

void Painter::paintLine(Pieces pieces, const LinePlace& place, int style, double offset, double thickness,
                        const text::Color& color) {
  if (style == 0 || ((style & byWord) != 0 && isWhite(pieces.front().kind))) return;
  const double left = place.x + leftOf(pieces), right = place.x + rightOf(pieces), y = place.baseline + offset;
  const double width = (style & lineMask) == thickLine ? thickness * 2 : thickness;
  const std::string dashes = dashesOf(style, width);
  content_.setStroke(color);
  content_.strokeLine(left, right, y, width, dashes);
  if ((style & lineMask) == doubleLine) content_.strokeLine(left, right, y - 2 * thickness, width, dashes);
}

void Painter::paintAttachments(Pieces pieces, const LinePlace& place) {
  for (const Piece& piece : pieces) {
    const auto& attachment = piece.look->style->attachment;
    if (piece.kind != PieceKind::attachment || attachment == nullptr) continue;
    const Box box = column_.boxes().of(*attachment, 0, 0);
    const double x = place.x + piece.x, bottom = place.baseline + piece.look->rise;
    const std::string& image = resources_.imageName(*attachment);
    image.empty() ? paintIcon(*attachment, x, bottom, box) : content_.drawImage(image, x, bottom, box.width, box.height);
  }
}

void Painter::paintIcon(const text::Attachment& attachment, double x, double bottom, const Box& box) {
  const double scale = std::min(1.0, box.height / (iconSide + iconNameHeight));
  content_.drawPath(iconPath, x + (box.width - iconSide * scale) / 2, bottom + iconNameHeight * scale, scale);
  const Look& look = column_.looks().of(iconNameStyle());
  const Word& name = column_.shaper().word(iconName(attachment), *look.choice, false);
  Piece piece{&name, &look, 0, 0, widthOf(name, look), 0, PieceKind::word};
  TextPainter(content_, resources_)
      .paint({&piece, 1}, x + (box.width - piece.width) / 2, bottom + iconNameHeight - iconNameSize);
}

void Painter::noteLinks(Pieces pieces, const LinePlace& place) {
  forEachGroup(pieces, haveOneLink, [&](Pieces group) {
    const text::Link& link = styleOf(group).link;
    if (link.empty()) return;
    links_.push_back(
        {resources_.linkAction(link), place.x + leftOf(group), place.bottom, place.x + rightOf(group), place.top});
  });
}

}  // namespace standin::layout
