// What each modifier does, and what that is in points.
#include "standin/formats/doc/character_properties.hpp"

#include <algorithm>
#include <iterator>

#include "standin/formats/colors.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::doc {
namespace {

struct ToggleRow {
  Property property;
  Toggle toggle;
};
constexpr ToggleRow toggleRows[] = {
    {Property::bold, boldToggle},
    {Property::italic, italicToggle},
    {Property::strikethrough, strikethroughToggle},
    {Property::outline, outlineToggle},
    {Property::shadow, shadowToggle},
    {Property::hidden, hiddenToggle},
    {Property::complexBold, complexBoldToggle},
    {Property::complexItalic, complexItalicToggle},
};

const ToggleRow* toggleOf(Property property) {
  const auto* row = std::find_if(std::begin(toggleRows), std::end(toggleRows),
                                 [&](const ToggleRow& each) { return each.property == property; });
  return row != std::end(toggleRows) ? row : nullptr;
}

bool toggled(uint8_t operand, bool ofStyle) {
  constexpr uint8_t asStyle = 0x80, contraryToStyle = 0x81;
  return operand == asStyle ? ofStyle : operand == contraryToStyle ? !ofStyle : operand != 0;
}

uint32_t packed(const text::Color& color) {
  const auto byte = [&](size_t index) { return static_cast<uint32_t>(color.components[index] * 255 + 0.5); };
  return byte(0) | byte(1) << 8 | byte(2) << 16;
}

uint32_t colorNumbered(int index) {
  const auto color = highlightNumbered(index);
  return color ? packed(*color) : automaticColor;
}

std::optional<text::Color> unpacked(uint32_t color) {
  if (color >= automaticColor) return std::nullopt;
  return colorOf(static_cast<uint8_t>(color), static_cast<uint8_t>(color >> 8), static_cast<uint8_t>(color >> 16));
}

// Of the patterns, the one without the foreground is common, and the one of nothing else.
constexpr uint16_t clearPattern = 0, solidPattern = 1;

uint32_t shadingOf97(uint16_t shading) {
  const int pattern = shading >> 10;
  return pattern == clearPattern   ? colorNumbered(shading >> 5 & 0x1F)
         : pattern == solidPattern ? colorNumbered(shading & 0x1F)
                                   : automaticColor;
}

uint32_t shadingOf(Bytes operand) {
  const uint16_t pattern = operand.read16(8);
  return pattern == clearPattern ? operand.read32(4) : pattern == solidPattern ? operand.read32(0) : automaticColor;
}

// Everything but what the characters are: as the style has it.
void makePlain(CharacterProperties& properties, const CharacterProperties& style) {
  const CharacterProperties old = properties;
  properties = style;
  properties.isSpecial = old.isSpecial;
  properties.isFieldData = old.isFieldData;
  properties.hasSymbol = old.hasSymbol;
  properties.symbolFont = old.symbolFont;
  properties.symbol = old.symbol;
  properties.hasPicture = old.hasPicture;
  properties.pictureLocation = old.pictureLocation;
}

void setSymbol(CharacterProperties& properties, Bytes operand) {
  constexpr char16_t privateUse = 0xF000;
  properties.hasSymbol = true;
  properties.symbolFont = operand.read16(0);
  properties.symbol = operand.size() < 4 ? static_cast<char16_t>(privateUse | operand.read8(2)) : operand.read16(2);
}

// A place of 0 points is not said; a position of 128 neither.
void setSizeAndPosition(CharacterProperties& properties, Bytes operand) {
  constexpr uint8_t unsaidPosition = 128;
  if (operand.read8(0) != 0) properties.size = operand.read8(0);
  if (operand.read8(2) != unsaidPosition) properties.position = operand.number<int8_t>(2);
}

bool applyFont(CharacterProperties& properties, Property property, uint16_t font) {
  const auto set = [&](Script script) { properties.fonts[static_cast<size_t>(script)] = font; };
  switch (property) {
    case Property::defaultFont:
      for (const Script script : {Script::ascii, Script::eastAsian, Script::other}) set(script);
      return true;
    case Property::font:
      set(Script::ascii);
      return true;
    case Property::eastAsianFont:
      set(Script::eastAsian);
      return true;
    case Property::otherFont:
      set(Script::other);
      return true;
    case Property::complexFont:
      set(Script::complex);
      return true;
    default:
      return false;
  }
}

bool applyColor(CharacterProperties& properties, Property property, Bytes operand) {
  switch (property) {
    case Property::colorIndex:
      properties.color = colorNumbered(operand.read8(0));
      return true;
    case Property::color:
      properties.color = operand.read32(0);
      return true;
    case Property::underlineColor:
      properties.underlineColor = operand.read32(0);
      return true;
    case Property::highlight:
      properties.highlight = operand.read8(0);
      return true;
    case Property::shading97:
      properties.background = shadingOf97(operand.read16(0));
      return true;
    case Property::shading:
      properties.background = shadingOf(operand);
      return true;
    default:
      return false;
  }
}

bool applySize(CharacterProperties& properties, Property property, Bytes operand) {
  switch (property) {
    case Property::size:
      properties.size = operand.read16(0);
      return true;
    case Property::complexSize:
      properties.complexSize = operand.read16(0);
      return true;
    case Property::sizeAndPosition:
      setSizeAndPosition(properties, operand);
      return true;
    case Property::spacing:
      properties.spacing = operand.number<int16_t>(0);
      return true;
    case Property::position:
      properties.position = operand.number<int16_t>(0);
      return true;
    case Property::widthScale:
      properties.widthScale = std::clamp<uint16_t>(operand.read16(0), 1, 600);
      return true;
    default:
      return false;
  }
}

void applyRest(CharacterProperties& properties, const Modifier& modifier) {
  switch (modifier.property) {
    case Property::underline:
      properties.underline = modifier.operand.read8(0);
      break;
    case Property::superscript:
      properties.superscript = modifier.operand.read8(0);
      break;
    case Property::doubleStrikethrough:
      properties.doubleStrikethrough = modifier.isOn();
      break;
    case Property::deleted:
      properties.deleted = modifier.isOn();
      break;
    case Property::isRightToLeft:
    case Property::isComplex:
      properties.isComplex = modifier.isOn();
      break;
    case Property::isSpecial:
      properties.isSpecial = modifier.isOn();
      break;
    case Property::isFieldData:
      properties.isFieldData = modifier.isOn();
      break;
    case Property::symbol:
      setSymbol(properties, modifier.operand);
      break;
    case Property::pictureLocation:
      properties.hasPicture = properties.isSpecial = true;
      properties.pictureLocation = modifier.operand.read32(0);
      break;
    default:
      break;
  }
}

int underlineStyle(uint8_t kind) {
  const auto* row =
      std::find_if(std::begin(underlines), std::end(underlines), [&](const auto& each) { return each.kind == kind; });
  return row != std::end(underlines) ? row->style : 1;
}

constexpr int singleLine = 1, doubleLine = 9;
constexpr double outlineStroke = 3;  // per cent of the size

}  // namespace

void apply(CharacterProperties& properties, const Modifier& modifier, const CharacterProperties& style) {
  if (const ToggleRow* row = toggleOf(modifier.property)) {
    const bool on = toggled(modifier.operand.read8(0), style.has(row->toggle));
    properties.toggles = static_cast<uint16_t>(on ? properties.toggles | row->toggle : properties.toggles & ~row->toggle);
    return;
  }
  if (modifier.property == Property::plain) return makePlain(properties, style);
  if (applyFont(properties, modifier.property, modifier.operand.read16(0))) return;
  if (applyColor(properties, modifier.property, modifier.operand)) return;
  if (!applySize(properties, modifier.property, modifier.operand)) applyRest(properties, modifier);
}

CharacterFormatting formattingOf(const CharacterProperties& properties, bool asComplex) {
  CharacterFormatting formatting;
  formatting.size = (asComplex ? properties.complexSize : properties.size) / halfPointsPerPoint;
  formatting.bold = properties.has(asComplex ? complexBoldToggle : boldToggle);
  formatting.italic = properties.has(asComplex ? complexItalicToggle : italicToggle);
  formatting.underline = underlineStyle(properties.underline);
  formatting.strikethrough = properties.doubleStrikethrough        ? doubleLine
                             : properties.has(strikethroughToggle) ? singleLine
                                                                   : 0;
  formatting.superscript = properties.superscript == 1 ? 1 : properties.superscript == 2 ? -1 : 0;
  formatting.baselineOffset = properties.position / halfPointsPerPoint;
  formatting.kern = properties.spacing / twipsPerPoint;
  formatting.expansion = (properties.widthScale - 100) / 100.0;
  formatting.foreground = unpacked(properties.color);
  formatting.underlineColor = unpacked(properties.underlineColor);
  const auto highlight = highlightNumbered(properties.highlight);
  formatting.background = highlight ? highlight : unpacked(properties.background);
  formatting.shadow = properties.has(shadowToggle);
  if (properties.has(outlineToggle)) formatting.strokeWidth = outlineStroke;
  return formatting;
}

}  // namespace standin::formats::doc
