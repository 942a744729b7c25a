// Properties of characters and lines.
#include "standin/formats/html/css/appliers.hpp"

namespace standin::formats::html::css {
namespace {

enum Drawn { drawsNothing, drawsUnder, drawsThrough };
constexpr Keyword<Drawn> lineNames[] = {{"none", drawsNothing},
                                        {"underline", drawsUnder},
                                        {"line-through", drawsThrough},
                                        {"overline", drawsNothing},
                                        {"blink", drawsNothing}};

// The platform's line styles.
constexpr int single = 1, thick = 2, doubled = 9, dotted = 0x101, dashed = 0x201;
constexpr Keyword<int> lineStyles[] = {
    {"solid", single}, {"double", doubled}, {"dotted", dotted}, {"dashed", dashed}, {"wavy", single}};

constexpr Keyword<int> verticalSteps[] = {{"super", 1}, {"sub", -1}};
constexpr size_t mostTabs = 64;
constexpr Keyword<text::TabKind> tabKinds[] = {{"left", text::TabKind::left},
                                               {"right", text::TabKind::right},
                                               {"center", text::TabKind::center},
                                               {"decimal", text::TabKind::decimal}};
constexpr Keyword<text::Alignment> alignments[] = {
    {"left", text::Alignment::left},
    {"right", text::Alignment::right},
    {"center", text::Alignment::center},
    {"middle", text::Alignment::center},
    {"justify", text::Alignment::justified},
    {"start", text::Alignment::natural},
    {"-webkit-center", text::Alignment::center},
    {"-webkit-left", text::Alignment::left},
    {"-webkit-right", text::Alignment::right},
    {"-webkit-auto", text::Alignment::natural},
};

void addLine(ComputedStyle& style, Drawn drawn) {
  style.drawsUnder |= drawn == drawsUnder;
  style.drawsThrough |= drawn == drawsThrough;
}

}  // namespace

void applyColor(ComputedStyle& style, std::string_view value, const Surroundings&) {
  if (const auto color = colorOf(value)) style.color = color;
}

// Of the shorthand too: the word that is a colour. What is transparent shows what is around it.
void applyBackground(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  std::optional<text::Color> found;
  for (const std::string_view word : wordsOf(value)) {
    if (const auto color = colorOf(word)) found = color;
  }
  style.background = found || surroundings.parent.isPage ? found : surroundings.parent.background;
}

void applyDecorationLine(ComputedStyle& style, std::string_view value, const Surroundings&) {
  style.drawsUnder = style.drawsThrough = false;
  for (const std::string_view word : wordsOf(value)) {
    if (const auto drawn = keywordIn(lineNames, word)) addLine(style, *drawn);
  }
}

void applyDecorationStyle(ComputedStyle& style, std::string_view value, const Surroundings&) {
  if (const auto line = keywordIn(lineStyles, value)) style.drawnStyle = *line;
}

void applyDecorationColor(ComputedStyle& style, std::string_view value, const Surroundings&) {
  style.drawnColor = colorOf(value);
}

void applyDecoration(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  style.drawsUnder = style.drawsThrough = false;
  style.drawnStyle = single;
  style.drawnColor = std::nullopt;
  for (const std::string_view word : wordsOf(value)) {
    if (const auto drawn = keywordIn(lineNames, word)) {
      addLine(style, *drawn);
    } else if (const auto line = keywordIn(lineStyles, word)) {
      style.drawnStyle = *line;
    } else if (const auto thickness = lengthOf(word, fontSizes(style, surroundings))) {
      if (*thickness >= 2 && style.drawnStyle == single) style.drawnStyle = thick;
    } else if (const auto color = colorOf(word)) {
      style.drawnColor = color;
    }
  }
}

// The first shadow, whose lengths go right, down and around.
void applyTextShadow(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  style.shadow = std::nullopt;
  text::Shadow shadow;
  double lengths[3] = {};
  size_t count = 0;
  for (const std::string_view word : wordsOf(partsOf(value, ',').front())) {
    if (const auto length = lengthOf(word, fontSizes(style, surroundings))) {
      if (count < std::size(lengths)) lengths[count++] = *length;
    } else if (const auto color = colorOf(word)) {
      shadow.color = color;
    }
  }
  if (count < 2) return;
  shadow.offsetX = lengths[0];
  shadow.offsetY = -lengths[1];
  shadow.blurRadius = std::max(lengths[2], 0.0);
  if (!shadow.color) shadow.color = style.color.value_or(text::Color{text::ColorSpace::deviceRGB, {}, 1});
  style.shadow = shadow;
}

void applyLetterSpacing(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  style.letterSpacing = lengthOrZero(value, style, surroundings);
}

void applyVerticalAlign(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  style.superscript = surroundings.parent.superscript + keywordIn(verticalSteps, value).value_or(0);
  const double raised = percentageOf(value).value_or(0) * style.fontSize + lengthOrZero(value, style, surroundings);
  style.baselineOffset = surroundings.parent.baselineOffset + raised;
}

void applyTextIndent(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  style.textIndent = lengthOrZero(value.substr(0, value.find(' ')), style, surroundings);
}

// A plain number and a percentage are multiples of the font's own height; a length is the height of every line.
void applyLineHeight(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  const auto multiple = percentageOf(value).has_value() ? percentageOf(value) : plainNumberOf(value);
  const auto length = multiple ? std::nullopt : lengthOf(value, fontSizes(style, surroundings));
  if (!multiple && !length && !equalIgnoringCase(value, "normal")) return;
  style.lineHeightMultiple = std::clamp(multiple.value_or(0), 0.0, 100.0);
  style.lineHeight = std::clamp(length.value_or(0), 0.0, 10'000.0);
}

void applyTabSize(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  style.tabInterval = std::max(0.0, lengthOrZero(value, style, surroundings));
}

// "left 36pt right 200pt"; a kind holds for the stop behind it.
void applyTabStops(ComputedStyle& style, std::string_view value, const Surroundings& surroundings) {
  std::vector<text::TabStop> stops;
  text::TabKind kind = text::TabKind::left;
  for (const std::string_view word : wordsOf(value)) {
    if (stops.size() == mostTabs) break;
    if (const auto position = lengthOf(word, fontSizes(style, surroundings))) {
      stops.push_back({*position, kind});
      kind = text::TabKind::left;
    } else {
      kind = keywordIn(tabKinds, word).value_or(kind);
    }
  }
  std::sort(stops.begin(), stops.end());
  style.tabs = std::move(stops);
}

void applyTextAlign(ComputedStyle& style, std::string_view value, const Surroundings&) {
  if (equalIgnoringCase(value, "end")) {
    const bool toLeft = style.direction == text::WritingDirection::rightToLeft;
    style.alignment = toLeft ? text::Alignment::left : text::Alignment::right;
  } else if (const auto alignment = keywordIn(alignments, value)) {
    style.alignment = *alignment;
  }
}

}  // namespace standin::formats::html::css
