// Attributes of text, as rows.
#include <algorithm>
#include <cmath>

#include "standin/formats/colors.hpp"
#include "standin/formats/odt/names.hpp"
#include "standin/formats/odt/properties.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::odt {
namespace {

using Color = std::optional<text::Color>;

// "150%" as 1.5.
std::optional<double> shareOf(std::string_view text) {
  std::string_view rest;
  const auto number = numberOf(text, &rest);
  if (!number || rest != "%") return std::nullopt;
  return *number / 100;
}

// What is beyond is nonsense.
constexpr double mostPoints = 10'000, mostScale = 100;

void takeName(FontProperties& font, std::string_view value) {
  if (!value.empty()) font.name = familyOf(value);
}

void takeSize(FontProperties& font, std::string_view value) {
  if (const auto scale = shareOf(value)) {
    font.scale = std::clamp(*scale, 0.01, mostScale);
  } else if (const auto size = pointsOf(value); size && *size > 0) {
    font.size = std::min(*size, mostPoints);
  }
}

void takeChange(FontProperties& font, std::string_view value) {
  if (const auto change = pointsOf(value)) font.change = std::clamp(*change, -mostPoints, mostPoints);
}

void takeWeight(FontProperties& font, std::string_view value) {
  const auto number = numberOf(value);
  font.bold = number ? *number >= 600 : value == "bold";
}

void takeItalic(FontProperties& font, std::string_view value) { font.italic = value == "italic" || value == "oblique"; }

struct FontRow {
  name::Number attribute;
  Script script;
  void (*take)(FontProperties&, std::string_view);
};
constexpr FontRow fontRows[] = {
    {name::fontFamily, Script::western, takeName},        {name::fontFamilyAsian, Script::asian, takeName},
    {name::fontFamilyComplex, Script::complex, takeName}, {name::fontSize, Script::western, takeSize},
    {name::fontSizeAsian, Script::asian, takeSize},       {name::fontSizeComplex, Script::complex, takeSize},
    {name::fontSizeChange, Script::western, takeChange},  {name::fontWeight, Script::western, takeWeight},
    {name::fontWeightAsian, Script::asian, takeWeight},   {name::fontWeightComplex, Script::complex, takeWeight},
    {name::fontStyle, Script::western, takeItalic},       {name::fontStyleAsian, Script::asian, takeItalic},
    {name::fontStyleComplex, Script::complex, takeItalic}};

// Declared fonts, which hold against families that are named beside them.
constexpr std::pair<name::Number, Script> declaredFontRows[] = {
    {name::fontName, Script::western}, {name::fontNameAsian, Script::asian}, {name::fontNameComplex, Script::complex}};

FontProperties& fontOf(TextProperties& properties, Script script) { return properties.fonts[static_cast<size_t>(script)]; }

void takePosition(TextProperties& properties, std::string_view value) {
  const size_t space = std::min(value.find(' '), value.size());
  const std::string_view place = value.substr(0, space);
  const double height = shareOf(value.substr(std::min(space + 1, value.size()))).value_or(1);
  const double raise = std::clamp(shareOf(place).value_or(0), -mostScale, mostScale);
  properties.raise = height < 1 ? 0 : raise;
  properties.text.superscript = place == "super" ? 1 : place == "sub" ? -1 : 0;
  // Programs that write shares put a level at a third of the font's size.
  if (height < 1 && raise != 0) {
    const int levels = std::max(1, static_cast<int>(std::lround(std::abs(raise) * 3)));
    properties.text.superscript = raise > 0 ? levels : -levels;
  }
}

// "none", or a colour, the distances to the right and below, and the radius of blur, each of which may be missing.
void takeShadow(TextProperties& properties, std::string_view value) {
  text::Shadow shadow{1, -1, 0, text::Color{text::ColorSpace::deviceRGB, {}, 1.0 / 3}};
  std::vector<double> lengths;
  while (!value.empty()) {
    const size_t space = std::min(value.find(' '), value.size());
    const std::string_view part = value.substr(0, space);
    if (const auto length = pointsOf(part)) lengths.push_back(std::clamp(*length, -mostPoints, mostPoints));
    if (const Color color = colorNamed(part)) shadow.color = color;
    if (part == "none") return void(properties.shadow.emplace());
    value.remove_prefix(std::min(space + 1, value.size()));
  }
  if (lengths.size() > 1) {
    shadow.offsetX = lengths[0];
    shadow.offsetY = -lengths[1];
  }
  if (lengths.size() > 2) shadow.blurRadius = lengths[2];
  properties.shadow = shadow;
}

struct TextRow {
  name::Number attribute;
  void (*take)(TextProperties&, std::string_view);
};
constexpr TextRow textRows[] = {
    {name::color, [](TextProperties& to, std::string_view value) { to.text.foreground = colorNamed(value); }},
    {name::background, [](TextProperties& to, std::string_view value) { to.text.background = colorNamed(value); }},
    {name::textPosition, takePosition},
    {name::letterSpacing, [](TextProperties& to, std::string_view value) { to.text.kern = pointsOf(value).value_or(0); }},
    {name::textShadow, takeShadow},
    {name::textScale,
     [](TextProperties& to, std::string_view value) {
       to.text.expansion = std::clamp(shareOf(value).value_or(1), 0.01, mostScale) - 1;
     }},
    // The platform's outlined text.
    {name::textOutline, [](TextProperties& to, std::string_view value) { to.text.strokeWidth = value == "true" ? 3 : 0; }},
    {name::throughColor, [](TextProperties& to, std::string_view value) { to.strikethroughColor = colorNamed(value); }},
    {name::underlineColor, [](TextProperties& to, std::string_view value) { to.text.underlineColor = colorNamed(value); }},
};

constexpr int single = 1, thick = 2, twofold = 9, byWord = 0x8000;

struct LinePattern {
  std::string_view style;
  int pattern;
};
constexpr LinePattern linePatterns[] = {{"solid", 0},          {"dotted", 0x100},   {"dash", 0x200},
                                        {"long-dash", 0x200},  {"dot-dash", 0x300}, {"dot-dot-dash", 0x400},
                                        {"bold-dotted", 0x100}};

// The platform's number of a line of this style ("solid"), type ("double"), width ("bold") and mode.
int lineOf(std::string_view style, std::string_view type, std::string_view width, std::string_view mode) {
  if (style == "none" || type == "none") return 0;
  const auto found = std::find_if(std::begin(linePatterns), std::end(linePatterns),
                                  [&](const LinePattern& row) { return row.style == style; });
  const int pattern = found != std::end(linePatterns) ? found->pattern : 0;
  const bool isThick = width == "bold" || width == "thick";
  return (type == "double" ? twofold : isThick ? thick : single) | pattern | (mode == "skip-white-space" ? byWord : 0);
}

void takeLines(TextProperties& properties, const xml::Element& element) {
  if (const auto style = element.find(name::underlineStyle)) {
    properties.text.underline = lineOf(*style, element.value(name::underlineType), element.value(name::underlineWidth),
                                       element.value(name::underlineMode));
  } else if (const auto old = element.find(name::oldUnderline)) {
    properties.text.underline = lineOf(*old, *old, *old, {});
  }
  if (const auto style = element.find(name::throughStyle)) {
    properties.text.strikethrough = lineOf(*style, element.value(name::throughType), {}, element.value(name::throughMode));
  } else if (const auto old = element.find(name::crossingOut)) {
    properties.text.strikethrough = lineOf(*old, *old == "double-line" ? "double" : "", {}, {});
  }
}

double changedSize(double size, const FontProperties& font) {
  return std::clamp(size * font.scale.value_or(1) + font.change.value_or(0), 0.5, mostPoints);
}

// What is relative stays so until a size is beneath it.
void overlay(FontProperties& under, const FontProperties& over) {
  formats::overlay(under, over);
  if (over.size) under.scale = under.change = std::nullopt;
  if (!over.scale && !over.change) return;
  if (under.size) {
    under.size = changedSize(*under.size, over);
  } else {
    under.scale = std::min(under.scale.value_or(1) * over.scale.value_or(1), mostScale);
    under.change = over.change;
  }
}

}  // namespace

void overlay(TextProperties& under, const TextProperties& over) {
  formats::overlay(under.text, over.text);
  formats::overlay(under, over);
  for (size_t script = 0; script < scriptCount; ++script) overlay(under.fonts[script], over.fonts[script]);
}

std::string familyOf(std::string_view list) {
  constexpr std::string_view around = " \t\r\n'\"";
  const std::string_view first = list.substr(0, list.find(','));
  const size_t start = first.find_first_not_of(around);
  if (start == first.npos) return {};
  return std::string(first.substr(start, first.find_last_not_of(around) + 1 - start));
}

void takeTextProperties(TextProperties& properties, const xml::Element& element, const FontFaces& faces) {
  for (const xml::Attribute& attribute : element.attributes) {
    for (const FontRow& row : fontRows) {
      if (row.attribute == attribute.name) row.take(fontOf(properties, row.script), attribute.value);
    }
    for (const TextRow& row : textRows) {
      if (row.attribute == attribute.name) row.take(properties, attribute.value);
    }
  }
  for (const auto& [attribute, script] : declaredFontRows) {
    const std::string declared(element.value(attribute));
    const auto face = faces.find(declared);
    if (!declared.empty()) fontOf(properties, script).name = face != faces.end() ? face->second : declared;
  }
  if (element.value(name::windowFontColor) == "true") properties.text.foreground.emplace();
  takeLines(properties, element);
}

std::string_view linePatternName(int line) {
  const auto found = std::find_if(std::begin(linePatterns), std::end(linePatterns),
                                  [&](const LinePattern& row) { return row.pattern == (line & 0x700); });
  return found != std::end(linePatterns) ? found->style : linePatterns[0].style;
}

text::Style styleOf(const TextProperties& properties, Script script) {
  CharacterFormatting formatting = properties.text;
  const FontProperties& font = properties.fonts[static_cast<size_t>(script)];
  formatting.font = font.name;
  formatting.size = font.size.value_or(changedSize(12, font));
  formatting.bold = font.bold;
  formatting.italic = font.italic;
  text::Style style = formats::styleOf(formatting);
  constexpr double partsOfPoint = 100;  // finer than shares of the size are written
  style.baselineOffset = std::round(properties.raise.value_or(0) * style.font->size * partsOfPoint) / partsOfPoint;
  style.shadow = properties.shadow.value_or(std::nullopt);
  style.strikethroughColor = properties.strikethroughColor.value_or(std::nullopt);
  return style;
}

}  // namespace standin::formats::odt
