// The font and colour tables of an RTF document.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "standin/formats/colors.hpp"
#include "standin/formats/fonts.hpp"
#include "standin/formats/styled_runs.hpp"

namespace standin::formats::rtf {

// Collects what the runs use, in the order of first use. Index 0 of the colours is the reader's own default colour.
class Tables {
 public:
  explicit Tables(const std::vector<StyledRun>& runs);

  size_t fontIndex(const text::Font& font) const { return fonts_.at(nameOf(font)); }
  size_t colorIndex(const text::Color& color) const { return colors_.at(bytesOf(color)); }
  void write(std::string& out) const;

 private:
  void addFont(const text::Font& font);
  void addColor(const text::Color& color);

  std::map<std::string, size_t> fonts_;
  std::map<ColorBytes, size_t> colors_;
  std::vector<std::string> fontOrder_;
  std::vector<ColorBytes> colorOrder_;
};

}  // namespace standin::formats::rtf
