// Styles resolved.
#include "standin/layout/look.hpp"

#include <algorithm>
#include <cmath>

#include "standin/text/font_faces.hpp"

namespace standin::layout {
namespace {

// The platform's font for text that names none.
const text::Font& usualFont() {
  static const text::Font font = *text::fontNamed("Helvetica", 12);
  return font;
}

// Nonsense becomes something that can be laid out.
double sane(double value, double least, double most, double otherwise) {
  return std::isfinite(value) ? std::clamp(value, least, most) : otherwise;
}

// Shares of the font's size: how much smaller raised text is, and how far each level moves it.
constexpr double raisedSize = 2.0 / 3, levelUp = 0.36, levelDown = 0.14, mostLevels = 8;

double riseOf(const text::Style& style, double size) {
  const double levels = sane(style.superscript, -mostLevels, mostLevels, 0);
  return levels * size * (levels > 0 ? levelUp : levelDown) + sane(style.baselineOffset, -1e4, 1e4, 0);
}

}  // namespace

const FontChoice& Looks::choice(const text::Font& font, int ligatures) {
  const auto [entry, isNew] = byFont_.try_emplace({font.family, font.traits, font.weight, ligatures});
  if (isNew) {
    choices_.push_back({static_cast<uint32_t>(choices_.size()), font, faces_.forFont(font), ligatures});
    entry->second = &choices_.back();
  }
  return *entry->second;
}

Look Looks::make(const text::Style& style) {
  const text::Font& font = style.font ? *style.font : usualFont();
  const double size = sane(font.size, 0.1, 4000, 12);
  Look look{&style, nullptr, size, riseOf(style, size), sane(style.kern, -1000, 1000, 0), 1, 0};
  // Letters that are spaced are not joined.
  look.choice = &choice(font, look.kern != 0 ? 0 : std::clamp(style.ligature.value_or(1), 0, 2));
  if (style.superscript != 0) look.size *= raisedSize;
  look.expansion = std::exp(sane(style.expansion, -3, 3, 0));
  look.slant = sane(style.obliqueness, -4, 4, 0);
  return look;
}

const Look& Looks::of(const text::Style& style) {
  const auto found = looks_.find(&style);
  return found != looks_.end() ? found->second : looks_.emplace(&style, make(style)).first->second;
}

}  // namespace standin::layout
