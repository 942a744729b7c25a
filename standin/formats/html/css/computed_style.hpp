// What an element looks like once the rules, and what it inherits, are settled.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "standin/formats/list_markers.hpp"
#include "standin/text/style.hpp"

namespace standin::formats::html::css {

enum class Display : uint8_t { none, inline_, block, listItem, flex, cell };
enum class WhiteSpace : uint8_t { normal, preserved, lines };  // lines: line feeds are kept, spaces are not
enum class TextTransform : uint8_t { none, uppercase, lowercase, capitalize };
enum class BreakMode : uint8_t { automatic, page };
enum Side : size_t { top, right, bottom, left };

// A line drawn along the text.
struct TextLine {
  int style = 0;  // the platform's; 0: none
  std::optional<text::Color> color;
};

struct ComputedStyle {
  // Inherited.
  std::string family = "Times";
  double fontSize = 12;  // points, like all lengths
  int weight = 400;      // 100 to 900
  bool italic = false, smallCaps = false, visible = true, hyphenates = false;
  std::optional<text::Color> color;
  std::optional<text::Shadow> shadow;
  std::optional<int> ligature;
  double letterSpacing = 0, textIndent = 0, tabInterval = 0;
  double lineHeight = 0, lineHeightMultiple = 0;  // 0: the font's own
  TextTransform transform = TextTransform::none;
  WhiteSpace whiteSpace = WhiteSpace::normal;
  text::Alignment alignment = text::Alignment::natural;
  text::WritingDirection direction = text::WritingDirection::natural;
  NumberFormat markerFormat = NumberFormat::bullet;
  std::u16string bullet = u"\u2022";
  std::optional<std::vector<text::TabStop>> tabs;
  // Of the element and those around it together.
  std::optional<text::Color> background;
  TextLine underline, strikethrough;
  int superscript = 0;
  double baselineOffset = 0;

  // The element's own.
  Display display = Display::inline_;
  std::array<double, 4> margins{}, paddings{};
  std::optional<double> width, height;
  BreakMode breakBefore = BreakMode::automatic, breakAfter = BreakMode::automatic;
  bool drawsUnder = false, drawsThrough = false;
  int drawnStyle = 1;
  std::optional<text::Color> drawnColor;
  bool isPage = false;           // its background is the page's, not the text's
  bool hasDefaultMargin = true;  // above: no sheet of the document set it
};

// What an element in this one begins with.
ComputedStyle inheritedFrom(const ComputedStyle& parent);

// The lines that the element draws join those around it.
void drawLines(ComputedStyle& style);

}  // namespace standin::formats::html::css
