// What a run of styled text looks like, as plain values: the form in which document formats read and write attributes.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "standin/text/attachment.hpp"
#include "standin/text/link.hpp"

namespace standin::text {

// The platform's font traits, as bits.
enum FontTrait : uint64_t {
  italicTrait = 1 << 0,
  boldTrait = 1 << 1,
  unboldTrait = 1 << 2,
  nonStandardCharacterSetTrait = 1 << 3,
  narrowTrait = 1 << 4,
  expandedTrait = 1 << 5,
  condensedTrait = 1 << 6,
  smallCapsTrait = 1 << 7,
  posterTrait = 1 << 8,
  compressedTrait = 1 << 9,
  fixedPitchTrait = 1 << 10,
  unitalicTrait = 1 << 24,
};

struct Font {
  std::string family;
  std::string name;  // PostScript name of the face
  uint64_t traits = 0;
  int weight = 5;    // 0 to 15, 5 regular, 9 bold
  double size = 12;  // points

  bool operator==(const Font&) const = default;
  bool bold() const { return (traits & boldTrait) != 0; }
  bool italic() const { return (traits & italicTrait) != 0; }
};

enum class ColorSpace { calibratedRGB, deviceRGB, calibratedWhite, deviceWhite, deviceCMYK };

// Components from 0 to 1 in the order of the space's name, the unused ones 0.
struct Color {
  ColorSpace space = ColorSpace::calibratedRGB;
  std::array<double, 4> components{};
  double alpha = 1;

  bool operator==(const Color&) const = default;
};

// The same colour in another space. Calibrated and device spaces of a kind share their numbers.
Color convert(const Color& color, ColorSpace space);

enum class Alignment : uint8_t { left, right, center, justified, natural };  // the platform's numbers
enum class WritingDirection : int8_t { natural = -1, leftToRight, rightToLeft };
enum class TabKind : uint8_t { left, right, center, decimal };

struct TabStop {
  double position = 0;  // points from the left margin
  TabKind kind = TabKind::left;

  auto operator<=>(const TabStop&) const = default;
};

// The layout of a paragraph. Lengths are points; 0 is the platform's default of each.
struct Paragraph {
  Alignment alignment = Alignment::natural;
  WritingDirection direction = WritingDirection::natural;
  double firstLineIndent = 0, headIndent = 0;  // from the left margin
  double tailIndent = 0;                       // from the left margin, or from the right one when not positive
  double spacingBefore = 0, spacingAfter = 0;
  double lineSpacing = 0, minimumLineHeight = 0, maximumLineHeight = 0, lineHeightMultiple = 0;
  double defaultTabInterval = 0, hyphenationFactor = 0;
  int lineBreakMode = 0;                       // the platform's numbers; 0 breaks between words
  int headerLevel = 0;                         // 0: no heading
  std::optional<std::vector<TabStop>> tabs{};  // absent: the platform's row of left tabs

  auto operator<=>(const Paragraph&) const = default;
};

struct Shadow {
  double offsetX = 0, offsetY = 0;  // points to the right and up
  double blurRadius = 0;            // points
  std::optional<Color> color;       // absent: no shadow is drawn

  bool operator==(const Shadow&) const = default;
};

// Attributes that formats carry. An absent optional, a zero or an empty text is an attribute that is not set.
struct Style {
  std::optional<Font> font;
  std::optional<Color> foreground, background, underlineColor, strikethroughColor, strokeColor;
  int underline = 0;      // the platform's line style: 1 single, 2 thick, 9 double, pattern and by-word bits above
  int strikethrough = 0;  // the same
  int superscript = 0;    // levels up, or down when negative
  double baselineOffset = 0, kern = 0, expansion = 0, strokeWidth = 0, obliqueness = 0;
  std::optional<int> ligature;  // 0 none, 1 the usual ones, 2 all
  Link link;
  std::optional<Shadow> shadow;
  std::shared_ptr<const Attachment> attachment;
  Paragraph paragraph;

  bool operator==(const Style&) const = default;
};

}  // namespace standin::text
