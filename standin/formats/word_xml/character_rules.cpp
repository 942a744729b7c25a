// What each element of a w:rPr says.
#include <array>

#include "standin/formats/colors.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/word_xml/formatting.hpp"
#include "standin/formats/word_xml/values.hpp"
#include "standin/formats/word_xml/vocabulary.hpp"

namespace standin::formats::word_xml {
namespace {

using ColorSetting = std::optional<std::optional<text::Color>>;

// A colour that is written down counts; one of the theme is looked up where there is none or "auto".
ColorSetting colorSettingOf(const xml::Element& element, Name attribute, const Theme& theme, Name themeAttribute) {
  const auto written = colorNamed(valueOf(element, attribute));
  if (written) return written;
  const std::string_view name = valueOf(element, themeAttribute);
  if (!name.empty()) return theme.color(name, valueOf(element, Name::themeTint), valueOf(element, Name::themeShade));
  return find(element, attribute) ? ColorSetting(std::optional<text::Color>()) : std::nullopt;
}

// Some programs write a list of fonts: the first is meant.
void setFont(std::optional<std::string>& font, std::string_view name) {
  name = name.substr(0, name.find(';'));
  if (!name.empty()) font = name;
}

void setThemeFont(std::optional<std::string>& font, const xml::Element& element, Name themeAttribute, Name attribute,
                  const Theme& theme) {
  const std::string_view named = theme.font(valueOf(element, themeAttribute));
  setFont(font, !named.empty() ? named : valueOf(element, attribute));
}

void setFonts(RunFormatting& run, const xml::Element& element, const Theme& theme) {
  setThemeFont(run.font, element, Name::highAnsiTheme, Name::highAnsiFont, theme);
  setThemeFont(run.font, element, Name::asciiTheme, Name::asciiFont, theme);
  setThemeFont(run.eastAsianFont, element, Name::eastAsianTheme, Name::eastAsianFont, theme);
  setThemeFont(run.complexFont, element, Name::complexTheme, Name::complexFont, theme);
}

template <auto member>
void setSwitch(RunFormatting& run, const xml::Element& element, const Theme&) {
  run.*member = isOn(element);
}

template <auto member, int partsPerPoint>
void setLength(RunFormatting& run, const xml::Element& element, const Theme&) {
  if (const auto points = pointsOf(element, Name::value, partsPerPoint)) run.*member = points;
}

void setUnderline(RunFormatting& run, const xml::Element& element, const Theme& theme) {
  run.underline = underlineNamed(valueOf(element));
  if (const auto color = colorSettingOf(element, Name::color, theme, Name::themeColor)) run.underlineColor = color;
}

// One kind of line that is off leaves the other.
template <int line>
void setStrike(RunFormatting& run, const xml::Element& element, const Theme&) {
  if (isOn(element)) run.strikethrough = line;
  if (!isOn(element) && run.strikethrough.value_or(line) == line) run.strikethrough = 0;
}

void setColor(RunFormatting& run, const xml::Element& element, const Theme& theme) {
  if (const auto color = colorSettingOf(element, Name::value, theme, Name::themeColor)) run.foreground = color;
}

// A solid pattern covers what it is on.
void setShading(RunFormatting& run, const xml::Element& element, const Theme& theme) {
  const bool isSolid = valueOf(element) == "solid";
  const auto color = isSolid ? colorSettingOf(element, Name::color, theme, Name::themeColor)
                             : colorSettingOf(element, Name::fill, theme, Name::fillTheme);
  if (color) run.background = color;
}

void setHighlight(RunFormatting& run, const xml::Element& element, const Theme&) {
  run.highlight = highlightOf(valueOf(element));
}

void setVerticalAlignment(RunFormatting& run, const xml::Element& element, const Theme&) {
  run.superscript = valueOf(element) == "superscript" ? 1 : valueOf(element) == "subscript" ? -1 : 0;
}

void setScale(RunFormatting& run, const xml::Element& element, const Theme&) {
  if (const auto percent = wholeNumberOf(valueOf(element))) run.expansion = *percent / 100.0 - 1;
}

void setOutline(RunFormatting& run, const xml::Element& element, const Theme&) {
  run.strokeWidth = isOn(element) ? outlineWidth : 0;
}

void setComplexScript(RunFormatting& run, const xml::Element& element, const Theme&) { run.isComplex = isOn(element); }

void setLigatures(RunFormatting& run, const xml::Element& element, const Theme&) {
  const std::string_view kinds = valueOf(element, Name::ligaturesValue);
  run.ligature = kinds == "none" ? 0 : kinds == "all" ? 2 : 1;
}

using Rule = void (*)(RunFormatting&, const xml::Element&, const Theme&);
struct RuleRow {
  Name element;
  Rule rule;
};
constexpr RuleRow ruleRows[] = {
    {Name::runFonts, setFonts},
    {Name::bold, setSwitch<&RunFormatting::bold>},
    {Name::boldComplex, setSwitch<&RunFormatting::complexBold>},
    {Name::italic, setSwitch<&RunFormatting::italic>},
    {Name::italicComplex, setSwitch<&RunFormatting::complexItalic>},
    {Name::vanish, setSwitch<&RunFormatting::hidden>},
    {Name::shadow, setSwitch<&RunFormatting::shadow>},
    {Name::size, setLength<&RunFormatting::size, 2>},
    {Name::sizeComplex, setLength<&RunFormatting::complexSize, 2>},
    {Name::position, setLength<&RunFormatting::baselineOffset, 2>},
    {Name::spacing, setLength<&RunFormatting::kern, 20>},
    {Name::underline, setUnderline},
    {Name::strike, setStrike<1>},
    {Name::doubleStrike, setStrike<9>},
    {Name::color, setColor},
    {Name::shading, setShading},
    {Name::highlight, setHighlight},
    {Name::verticalAlignment, setVerticalAlignment},
    {Name::width, setScale},
    {Name::outline, setOutline},
    {Name::complexFont, setComplexScript},
    {Name::rightToLeft, setComplexScript},
    {Name::ligatures, setLigatures},
};

constexpr auto rulesByName = [] {
  std::array<Rule, static_cast<size_t>(Name::count)> rules{};
  for (const RuleRow& row : ruleRows) rules[static_cast<size_t>(row.element)] = row.rule;
  return rules;
}();

}  // namespace

RunFormatting runFormattingOf(const PropertyRecord& record, const Theme& theme) {
  RunFormatting run;
  record.forEach([&](const xml::Element& element) {
    if (const Rule rule = rulesByName[static_cast<size_t>(element.name)]) rule(run, element, theme);
  });
  return run;
}

}  // namespace standin::formats::word_xml
