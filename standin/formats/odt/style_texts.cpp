// Properties of styles, as rows.
#include "standin/formats/odt/style_texts.hpp"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "standin/formats/colors.hpp"
#include "standin/formats/fonts.hpp"
#include "standin/formats/odt/properties.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/xml.hpp"

namespace standin::formats::odt {
namespace {

using text::Style;

// The same for western text and for the other kinds of script.
void appendForScripts(std::string& out, std::string_view western, std::string_view others, std::string_view value) {
  appendAttribute(out, western, value);
  for (const char* script : {"-asian", "-complex"}) appendAttribute(out, std::string(others) + script, value);
}

void appendFont(std::string& out, const Style& style) {
  const text::Font& font = fontOf(style);
  appendForScripts(out, "style:font-name", "style:font-name", nameOf(font));
  appendForScripts(out, "fo:font-size", "style:font-size", textOf(font.size) + "pt");
}

std::string shareText(double share) { return textOf(share * 100, 4) + "%"; }

// Levels beyond the first as shares of the font's size, a third a level.
void appendPosition(std::string& out, const Style& style) {
  std::string value = shareText(style.baselineOffset / std::max(fontOf(style).size, 0.5)) + " 100%";
  if (style.superscript != 0) value = shareText(std::round(style.superscript * 100 / 3.0) / 100) + " 58%";
  if (style.superscript == 1) value = "super 58%";
  if (style.superscript == -1) value = "sub 58%";
  appendAttribute(out, "style:text-position", value);
}

// The default shadow needs no colour.
void appendShadow(std::string& out, const Style& style) {
  const text::Shadow& shadow = *style.shadow;
  const bool isDefault = shadow.color->alpha < 0.5;
  std::string value = isDefault ? "" : colorText(*shadow.color) + " ";
  value += textOf(shadow.offsetX) + "pt " + textOf(-shadow.offsetY) + "pt";
  if (shadow.blurRadius > 0) value += " " + textOf(shadow.blurRadius) + "pt";
  appendAttribute(out, "fo:text-shadow", value);
}

// The low byte of a line is 1, 2 for a thick one or 9 for two; its top bit keeps it to words.
void appendLine(std::string& out, const std::string& prefix, int line) {
  appendAttribute(out, prefix + "-style", line != 0 ? linePatternName(line) : "none");
  if ((line & 0xFF) == 9) appendAttribute(out, prefix + "-type", "double");
  if ((line & 0xFF) == 2) appendAttribute(out, prefix + "-width", "bold");
  if ((line & 0x8000) != 0) appendAttribute(out, prefix + "-mode", "skip-white-space");
}

struct PropertyRow {
  bool (*isUsed)(const Style&);
  void (*append)(std::string&, const Style&);
  std::string_view neutral;  // what says that a style does not have the property
};
constexpr PropertyRow propertyRows[] = {
    {[](const Style&) { return true; }, appendFont, ""},
    {[](const Style& style) { return fontOf(style).bold(); },
     [](std::string& out, const Style&) { appendForScripts(out, "fo:font-weight", "style:font-weight", "bold"); },
     R"( fo:font-weight="normal" style:font-weight-asian="normal" style:font-weight-complex="normal")"},
    {[](const Style& style) { return fontOf(style).italic(); },
     [](std::string& out, const Style&) { appendForScripts(out, "fo:font-style", "style:font-style", "italic"); },
     R"( fo:font-style="normal" style:font-style-asian="normal" style:font-style-complex="normal")"},
    {[](const Style& style) { return style.foreground.has_value(); },
     [](std::string& out, const Style& style) { appendAttribute(out, "fo:color", colorText(*style.foreground)); },
     R"( style:use-window-font-color="true")"},
    {[](const Style& style) { return style.background.has_value(); },
     [](std::string& out, const Style& style) { appendAttribute(out, "fo:background-color", colorText(*style.background)); },
     R"( fo:background-color="transparent")"},
    {[](const Style& style) { return style.underline != 0; },
     [](std::string& out, const Style& style) { appendLine(out, "style:text-underline", style.underline); },
     R"( style:text-underline-style="none")"},
    {[](const Style& style) { return style.underlineColor.has_value(); },
     [](std::string& out, const Style& style) {
       appendAttribute(out, "style:text-underline-color", colorText(*style.underlineColor));
     },
     R"( style:text-underline-color="font-color")"},
    {[](const Style& style) { return style.strikethrough != 0; },
     [](std::string& out, const Style& style) { appendLine(out, "style:text-line-through", style.strikethrough); },
     R"( style:text-line-through-style="none")"},
    {[](const Style& style) { return style.strikethroughColor.has_value(); },
     [](std::string& out, const Style& style) {
       appendAttribute(out, "style:text-line-through-color", colorText(*style.strikethroughColor));
     },
     R"( style:text-line-through-color="font-color")"},
    {[](const Style& style) { return style.superscript != 0 || style.baselineOffset != 0; }, appendPosition,
     R"( style:text-position="0% 100%")"},
    {[](const Style& style) { return style.kern != 0; },
     [](std::string& out, const Style& style) { appendLength(out, "fo:letter-spacing", style.kern); },
     R"( fo:letter-spacing="normal")"},
    {[](const Style& style) { return style.expansion != 0; },
     [](std::string& out, const Style& style) { appendAttribute(out, "style:text-scale", shareText(1 + style.expansion)); },
     R"( style:text-scale="100%")"},
    {[](const Style& style) { return style.strokeWidth > 0; },
     [](std::string& out, const Style&) { appendAttribute(out, "style:text-outline", "true"); },
     R"( style:text-outline="false")"},
    {[](const Style& style) { return style.shadow && style.shadow->color; }, appendShadow, R"( fo:text-shadow="none")"},
};

void appendLineHeight(std::string& out, const text::Paragraph& paragraph) {
  const double least = paragraph.minimumLineHeight, most = paragraph.maximumLineHeight;
  const bool isFixed = most > 0 && least == most, isMultiple = paragraph.lineHeightMultiple > 0;
  if (isMultiple) appendAttribute(out, "fo:line-height", shareText(paragraph.lineHeightMultiple));
  if (isFixed && !isMultiple) {
    appendLength(out, "fo:line-height", most);
  } else if (least > 0) {
    appendLength(out, "style:line-height-at-least", least);
  }
  if (paragraph.lineSpacing > 0) appendLength(out, "style:line-spacing", paragraph.lineSpacing);
}

// Positions count from the left indent.
void appendTabs(std::string& out, const text::Paragraph& paragraph) {
  out += "<style:tab-stops>";
  for (const text::TabStop& tab : *paragraph.tabs) {
    out += "<style:tab-stop";
    appendLength(out, "style:position", tab.position - paragraph.headIndent);
    if (tab.kind != text::TabKind::left) appendAttribute(out, "style:type", tabKindName(tab.kind));
    if (tab.kind == text::TabKind::decimal) appendAttribute(out, "style:char", ".");
    out += "/>";
  }
  out += "</style:tab-stops>";
}

void appendUnlessZero(std::string& out, std::string_view name, double points) {
  if (points != 0) appendLength(out, name, points);
}

}  // namespace

void appendAttribute(std::string& out, std::string_view name, std::string_view value) {
  ((out += ' ') += name) += "=\"";
  xml::appendEscapedUTF8(out, value);
  out += '"';
}

void appendLength(std::string& out, std::string_view name, double points) {
  appendAttribute(out, name, textOf(points) + "pt");
}

std::string colorText(const text::Color& color) { return "#" + hexOf(color); }

StyleTexts::StyleTexts(const StyledRuns& styled) {
  static_assert(std::size(propertyRows) <= mostProperties);
  std::unordered_set<const Style*> seen;
  used_.set(0);
  if (styled.runs.empty()) fonts_.insert(nameOf(fontOf({})));
  for (const StyledRun& run : styled.runs) {
    if (!seen.insert(run.style).second) continue;
    fonts_.insert(nameOf(fontOf(*run.style)));
    for (size_t row = 0; row < std::size(propertyRows); ++row) {
      if (propertyRows[row].isUsed(*run.style)) used_.set(row);
    }
  }
}

std::string StyleTexts::text(const Style& style) const {
  std::string out = "<style:text-properties";
  for (size_t row = 0; row < std::size(propertyRows); ++row) {
    if (!used_[row]) continue;
    if (propertyRows[row].isUsed(style)) {
      propertyRows[row].append(out, style);
    } else {
      out += propertyRows[row].neutral;
    }
  }
  return out += "/>";
}

std::string StyleTexts::paragraph(const text::Paragraph& paragraph, bool breaksBefore, bool breaksAfter) {
  std::string out = "<style:paragraph-properties";
  const bool isMirrored = paragraph.direction == text::WritingDirection::rightToLeft;
  if (const auto name = alignmentName(paragraph.alignment); !name.empty()) {
    appendAttribute(out, "fo:text-align", name);
  } else if (isMirrored) {
    appendAttribute(out, "fo:text-align", "end");  // programs take none for left
  }
  if (paragraph.direction != text::WritingDirection::natural) {
    appendAttribute(out, "style:writing-mode", isMirrored ? "rl-tb" : "lr-tb");
  }
  appendUnlessZero(out, "fo:margin-left", paragraph.headIndent);
  appendUnlessZero(out, "fo:margin-right", std::max(0.0, -paragraph.tailIndent));
  appendUnlessZero(out, "fo:text-indent", paragraph.firstLineIndent - paragraph.headIndent);
  appendUnlessZero(out, "fo:margin-top", paragraph.spacingBefore);
  appendUnlessZero(out, "fo:margin-bottom", paragraph.spacingAfter);
  appendLineHeight(out, paragraph);
  appendUnlessZero(out, "style:tab-stop-distance", paragraph.defaultTabInterval);
  if (breaksBefore) appendAttribute(out, "fo:break-before", "page");
  if (breaksAfter) appendAttribute(out, "fo:break-after", "page");
  out += '>';
  if (paragraph.tabs) appendTabs(out, paragraph);
  return out += "</style:paragraph-properties>";
}

std::string StyleTexts::fontDeclarations() const {
  std::string out = "<office:font-face-decls>";
  for (const std::string& font : fonts_) {
    out += "<style:font-face";
    appendAttribute(out, "style:name", font);
    appendAttribute(out, "svg:font-family", "'" + font + "'");
    out += "/>";
  }
  return out += "</office:font-face-decls>";
}

}  // namespace standin::formats::odt
