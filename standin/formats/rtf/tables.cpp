// Collecting and writing the font and colour tables.
#include "standin/formats/rtf/tables.hpp"

#include <algorithm>
#include <set>

#include "standin/formats/rtf/characters.hpp"

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

void Tables::addFont(const text::Font& font) {
  const std::string name = nameOf(font);
  if (fonts_.emplace(name, fontOrder_.size()).second) fontOrder_.push_back(name);
}

void Tables::addColor(const text::Color& color) {
  const ColorBytes bytes = bytesOf(color);
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
