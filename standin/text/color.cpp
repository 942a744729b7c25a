// Conversion between colour spaces.
#include <algorithm>

#include "standin/text/style.hpp"

namespace standin::text {
namespace {

using Components = std::array<double, 4>;

bool isWhite(ColorSpace space) { return space == ColorSpace::calibratedWhite || space == ColorSpace::deviceWhite; }
bool isCMYK(ColorSpace space) { return space == ColorSpace::deviceCMYK; }

Components rgbOf(const Color& color) {
  const auto& [first, second, third, fourth] = color.components;
  if (isWhite(color.space)) return {first, first, first, 0};
  if (isCMYK(color.space)) return {(1 - first) * (1 - fourth), (1 - second) * (1 - fourth), (1 - third) * (1 - fourth), 0};
  return color.components;
}

// Luminance weights of the NTSC primaries, as the platform's grey conversion has them.
Components whiteOf(const Components& rgb) { return {0.299 * rgb[0] + 0.587 * rgb[1] + 0.114 * rgb[2], 0, 0, 0}; }

Components cmykOf(const Components& rgb) {
  const double black = 1 - std::max({rgb[0], rgb[1], rgb[2]});
  if (black >= 1) return {0, 0, 0, 1};
  const auto ink = [black](double component) { return (1 - component - black) / (1 - black); };
  return {ink(rgb[0]), ink(rgb[1]), ink(rgb[2]), black};
}

}  // namespace

Color convert(const Color& color, ColorSpace space) {
  Color converted{space, color.components, color.alpha};
  if (isWhite(space) && !isWhite(color.space)) {
    converted.components = whiteOf(rgbOf(color));
  } else if (isCMYK(space) && !isCMYK(color.space)) {
    converted.components = cmykOf(rgbOf(color));
  } else if (!isWhite(space) && !isCMYK(space)) {
    converted.components = rgbOf(color);
  }
  return converted;
}

}  // namespace standin::text
