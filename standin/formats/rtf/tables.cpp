// Collecting and writing the font and colour tables.
#include "standin/formats/rtf/tables.hpp"

#include <algorithm>
#include <cmath>
#include <set>

#include "standin/formats/rtf/characters.hpp"
#include "standin/text/font_faces.hpp"

namespace standin::formats::rtf {

namespace {

constexpr std::array colorMembers = {&text::Style::foreground, &text::Style::background, &text::Style::underlineColor,
                                     &text::Style::strikethroughColor, &text::Style::strokeColor};

}  // namespace

Tables::Tables(const std::vector<StyledRun>& runs) {
  if (runs.empty()) addFont(fontOf({}));
  std::set<const text::Style*> seen;
  for (const StyledRun& run : runs) {
    if (!seen.insert(run.style).second) continue;
    addFont(fontOf(*run.style));
    for (const auto member : colorMembers) {
      if (const auto& color = run.style->*member) addColor(*color);
    }
    if (run.style->shadow && run.style->shadow->color) addColor(*run.style->shadow->color);
  }
}

const text::Font& Tables::fontOf(const text::Style& style) {
  static const text::Font standard{"Helvetica", "Helvetica"};
  return style.font ? *style.font : standard;
}

void Tables::addFont(const text::Font& font) {
  const std::string name = nameOf(font);
  if (fonts_.emplace(name, fontOrder_.size()).second) fontOrder_.push_back(name);
}

std::string Tables::nameOf(const text::Font& font) {
  const uint64_t switches = font.traits & (text::boldTrait | text::italicTrait);
  if (text::fontMeant(font.family, switches, font.size) == font) return font.family;
  return text::fontMeant(font.name, switches, font.size) == font ? font.name : font.family;
}

Tables::Bytes Tables::bytesOf(const text::Color& color) {
  const auto components = convert(color, text::ColorSpace::deviceRGB).components;
  const auto byte = [](double component) { return static_cast<uint8_t>(std::lrint(std::clamp(component, 0.0, 1.0) * 255)); };
  return {byte(components[0]), byte(components[1]), byte(components[2])};
}

void Tables::addColor(const text::Color& color) {
  const Bytes bytes = bytesOf(color);
  if (colors_.emplace(bytes, colorOrder_.size() + 1).second) colorOrder_.push_back(bytes);
}

void Tables::write(std::string& out) const {
  out += "{\\fonttbl";
  for (size_t index = 0; index < fontOrder_.size(); ++index) {
    out += "{\\f" + std::to_string(index) + "\\fnil\\fcharset0 ";
    appendCharacters(out, text::Text::latin1(fontOrder_[index]), 0, static_cast<uint32_t>(fontOrder_[index].size()));
    out += ";}";
  }
  out += "}\n{\\colortbl;";
  for (const auto& [red, green, blue] : colorOrder_) {
    out += "\\red" + std::to_string(red) + "\\green" + std::to_string(green) + "\\blue" + std::to_string(blue) + ";";
  }
  out += "}\n";
}

}  // namespace standin::formats::rtf
