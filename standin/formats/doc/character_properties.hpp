// The properties of characters in a document that is read, and what modifiers do to them.
#pragma once

#include <cstdint>

#include "standin/formats/doc/modifier_list.hpp"
#include "standin/formats/formatting.hpp"

namespace standin::formats::doc {

// Properties that a style and what is above it can both turn on, as bits.
enum Toggle : uint16_t {
  boldToggle = 1 << 0,
  italicToggle = 1 << 1,
  strikethroughToggle = 1 << 2,
  outlineToggle = 1 << 3,
  shadowToggle = 1 << 4,
  hiddenToggle = 1 << 5,
  complexBoldToggle = 1 << 6,
  complexItalicToggle = 1 << 7,
};

// What scripts a document has fonts of their own for.
enum class Script : uint8_t { ascii, eastAsian, other, complex };

inline constexpr uint32_t automaticColor = 0xFF000000;

struct CharacterProperties {
  uint16_t fonts[4] = {};     // by script; numbers of the font table
  uint16_t size = 20;         // half points
  uint16_t complexSize = 20;  // half points, of complex scripts
  int16_t spacing = 0;        // twips
  int16_t position = 0;       // half points up
  uint16_t widthScale = 100;  // per cent
  uint16_t toggles = 0;
  uint8_t underline = 0, superscript = 0;
  uint8_t highlight = 0;  // one of sixteen colours from 1
  uint32_t color = automaticColor, underlineColor = automaticColor, background = automaticColor;  // red lowest
  bool doubleStrikethrough = false, deleted = false, isComplex = false;
  bool isSpecial = false, isFieldData = false;
  bool hasSymbol = false, hasPicture = false;
  uint16_t symbolFont = 0;
  char16_t symbol = 0;
  uint32_t pictureLocation = 0;  // in the data stream
  uint16_t style = noStyle;

  bool has(Toggle toggle) const { return (toggles & toggle) != 0; }
  // Not to be seen.
  bool isLeftOut() const { return deleted || has(hiddenToggle); }
  bool variesByScript() const { return fonts[0] != fonts[1] || fonts[0] != fonts[2]; }
};

// `style` has the values that toggles go by.
void apply(CharacterProperties& properties, const Modifier& modifier, const CharacterProperties& style);

// The same in points; the font is the caller's to add.
CharacterFormatting formattingOf(const CharacterProperties& properties, bool asComplex);

}  // namespace standin::formats::doc
