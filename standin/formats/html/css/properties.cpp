// The table of properties, and what holds for all: "inherit" and "initial".
#include "standin/formats/html/css/properties.hpp"

#include "standin/formats/html/css/appliers.hpp"

namespace standin::formats::html::css {
namespace {

using C = ComputedStyle;

constexpr Keyword<Display> displays[] = {
    {"none", Display::none},
    {"inline", Display::inline_},
    {"inline-block", Display::inline_},
    {"inline-table", Display::inline_},
    {"inline-flex", Display::inline_},
    {"inline-grid", Display::inline_},
    {"contents", Display::inline_},
    {"ruby", Display::inline_},
    {"block", Display::block},
    {"flow-root", Display::block},
    {"table", Display::block},
    {"table-row", Display::block},
    {"table-caption", Display::block},
    {"table-row-group", Display::block},
    {"table-header-group", Display::block},
    {"table-footer-group", Display::block},
    {"table-cell", Display::cell},
    {"list-item", Display::listItem},
    {"flex", Display::flex},
    {"-webkit-box", Display::flex},
    {"grid", Display::flex},
    {"table-column", Display::none},
    {"table-column-group", Display::none},
};
constexpr Keyword<WhiteSpace> whiteSpaces[] = {{"normal", WhiteSpace::normal},          {"nowrap", WhiteSpace::normal},
                                               {"pre", WhiteSpace::preserved},          {"pre-wrap", WhiteSpace::preserved},
                                               {"break-spaces", WhiteSpace::preserved}, {"pre-line", WhiteSpace::lines}};
constexpr Keyword<TextTransform> transforms[] = {{"none", TextTransform::none},
                                                 {"uppercase", TextTransform::uppercase},
                                                 {"lowercase", TextTransform::lowercase},
                                                 {"capitalize", TextTransform::capitalize}};
constexpr Keyword<text::WritingDirection> directions[] = {{"ltr", text::WritingDirection::leftToRight},
                                                          {"rtl", text::WritingDirection::rightToLeft}};
constexpr Keyword<bool> visibilities[] = {{"visible", true}, {"hidden", false}, {"collapse", false}};
constexpr Keyword<bool> hyphenations[] = {{"auto", true}, {"manual", false}, {"none", false}};
constexpr Keyword<BreakMode> breaks[] = {{"auto", BreakMode::automatic}, {"avoid", BreakMode::automatic},
                                         {"always", BreakMode::page},    {"page", BreakMode::page},
                                         {"left", BreakMode::page},      {"right", BreakMode::page}};

template <auto box, size_t side>
void applySide(C& style, std::string_view value, const Surroundings& surroundings) {
  (style.*box)[side] = lengthOrZero(value, style, surroundings);
}

template <auto member>
void applyExtent(C& style, std::string_view value, const Surroundings& surroundings) {
  const auto length = lengthOf(value, fontSizes(style, surroundings));
  style.*member = length && *length > 0 && *length < 10'000 ? length : std::nullopt;
}

template <auto... members>
void copy(C& to, const C& from) {
  ((to.*members = from.*members), ...);
}
template <auto box, size_t side>
void copySide(C& to, const C& from) {
  (to.*box)[side] = (from.*box)[side];
}

struct PropertyRow {
  std::string_view name;
  Applier* apply;
  void (*copy)(ComputedStyle& to, const ComputedStyle& from);
  bool isInherited = false;
  bool setsFontSize = false;
};

// Sorted by name.
constexpr PropertyRow rows[] = {
    {"background", applyBackground, copy<&C::background>},
    {"background-color", applyBackground, copy<&C::background>},
    {"break-after", applyKeyword<&C::breakAfter, breaks>, copy<&C::breakAfter>},
    {"break-before", applyKeyword<&C::breakBefore, breaks>, copy<&C::breakBefore>},
    {"color", applyColor, copy<&C::color>, true},
    {"direction", applyKeyword<&C::direction, directions>, copy<&C::direction>, true},
    {"display", applyKeyword<&C::display, displays>, copy<&C::display>},
    {"font", applyFont, copy<&C::family, &C::fontSize, &C::weight, &C::italic, &C::smallCaps>, true, true},
    {"font-family", applyFontFamily, copy<&C::family>, true},
    {"font-size", applyFontSize, copy<&C::fontSize>, true, true},
    {"font-style", applyFontStyle, copy<&C::italic>, true},
    {"font-variant", applyFontVariant, copy<&C::smallCaps>, true},
    {"font-variant-caps", applyFontVariant, copy<&C::smallCaps>, true},
    {"font-variant-ligatures", applyLigatures, copy<&C::ligature>, true},
    {"font-weight", applyFontWeight, copy<&C::weight>, true},
    {"height", applyExtent<&C::height>, copy<&C::height>},
    {"hyphens", applyKeyword<&C::hyphenates, hyphenations>, copy<&C::hyphenates>, true},
    {"letter-spacing", applyLetterSpacing, copy<&C::letterSpacing>, true},
    {"line-height", applyLineHeight, copy<&C::lineHeight, &C::lineHeightMultiple>, true},
    {"list-style", applyListStyle, copy<&C::markerFormat, &C::bullet>, true},
    {"list-style-type", applyListStyle, copy<&C::markerFormat, &C::bullet>, true},
    {"margin", applyMargin, copy<&C::margins>},
    {"margin-block-end", applySide<&C::margins, bottom>, copySide<&C::margins, bottom>},
    {"margin-block-start", applySide<&C::margins, top>, copySide<&C::margins, top>},
    {"margin-bottom", applySide<&C::margins, bottom>, copySide<&C::margins, bottom>},
    {"margin-inline-end", applySide<&C::margins, right>, copySide<&C::margins, right>},
    {"margin-inline-start", applySide<&C::margins, left>, copySide<&C::margins, left>},
    {"margin-left", applySide<&C::margins, left>, copySide<&C::margins, left>},
    {"margin-right", applySide<&C::margins, right>, copySide<&C::margins, right>},
    {"margin-top", applySide<&C::margins, top>, copySide<&C::margins, top>},
    {"padding", applyPadding, copy<&C::paddings>},
    {"padding-bottom", applySide<&C::paddings, bottom>, copySide<&C::paddings, bottom>},
    {"padding-inline-end", applySide<&C::paddings, right>, copySide<&C::paddings, right>},
    {"padding-inline-start", applySide<&C::paddings, left>, copySide<&C::paddings, left>},
    {"padding-left", applySide<&C::paddings, left>, copySide<&C::paddings, left>},
    {"padding-right", applySide<&C::paddings, right>, copySide<&C::paddings, right>},
    {"padding-top", applySide<&C::paddings, top>, copySide<&C::paddings, top>},
    {"page-break-after", applyKeyword<&C::breakAfter, breaks>, copy<&C::breakAfter>},
    {"page-break-before", applyKeyword<&C::breakBefore, breaks>, copy<&C::breakBefore>},
    {"tab-size", applyTabSize, copy<&C::tabInterval>, true},
    {"tab-stops", applyTabStops, copy<&C::tabs>, true},
    {"text-align", applyTextAlign, copy<&C::alignment>, true},
    {"text-decoration", applyDecoration, copy<&C::drawsUnder, &C::drawsThrough, &C::drawnStyle, &C::drawnColor>},
    {"text-decoration-color", applyDecorationColor, copy<&C::drawnColor>},
    {"text-decoration-line", applyDecorationLine, copy<&C::drawsUnder, &C::drawsThrough>},
    {"text-decoration-style", applyDecorationStyle, copy<&C::drawnStyle>},
    {"text-indent", applyTextIndent, copy<&C::textIndent>, true},
    {"text-shadow", applyTextShadow, copy<&C::shadow>, true},
    {"text-transform", applyKeyword<&C::transform, transforms>, copy<&C::transform>, true},
    {"vertical-align", applyVerticalAlign, copy<&C::superscript, &C::baselineOffset>},
    {"visibility", applyKeyword<&C::visible, visibilities>, copy<&C::visible>, true},
    {"white-space", applyKeyword<&C::whiteSpace, whiteSpaces>, copy<&C::whiteSpace>, true},
    {"width", applyExtent<&C::width>, copy<&C::width>},
};
static_assert(std::is_sorted(std::begin(rows), std::end(rows),
                             [](const PropertyRow& a, const PropertyRow& b) { return a.name < b.name; }));

}  // namespace

Property propertyNamed(std::string_view name) {
  const std::string wanted = asciiLowercase(name);
  const auto row = std::lower_bound(std::begin(rows), std::end(rows), wanted,
                                    [](const PropertyRow& entry, std::string_view key) { return entry.name < key; });
  return row != std::end(rows) && row->name == wanted ? static_cast<Property>(row - std::begin(rows)) : unknownProperty;
}

bool setsFontSize(Property property) { return rows[property].setsFontSize; }

void apply(Property property, std::string_view value, ComputedStyle& style, const Surroundings& surroundings) {
  static const ComputedStyle initial;
  const PropertyRow& row = rows[property];
  const bool isUnset = equalIgnoringCase(value, "unset") || equalIgnoringCase(value, "revert");
  if (equalIgnoringCase(value, "inherit") || (isUnset && row.isInherited)) {
    row.copy(style, surroundings.parent);
  } else if (isUnset || equalIgnoringCase(value, "initial")) {
    row.copy(style, initial);
  } else {
    row.apply(style, value, surroundings);
  }
}

ComputedStyle inheritedFrom(const ComputedStyle& parent) {
  static const ComputedStyle initial;
  ComputedStyle style = parent;
  if (parent.isPage) style.background = std::nullopt;
  style.display = initial.display;
  style.margins = initial.margins;
  style.paddings = initial.paddings;
  style.width = style.height = std::nullopt;
  style.breakBefore = style.breakAfter = BreakMode::automatic;
  style.drawsUnder = style.drawsThrough = style.isPage = false;
  style.drawnStyle = initial.drawnStyle;
  style.drawnColor = std::nullopt;
  style.hasDefaultMargin = true;
  return style;
}

void drawLines(ComputedStyle& style) {
  if (style.drawsUnder) style.underline = {style.drawnStyle, style.drawnColor};
  if (style.drawsThrough) style.strikethrough = {style.drawnStyle, style.drawnColor};
}

}  // namespace standin::formats::html::css
