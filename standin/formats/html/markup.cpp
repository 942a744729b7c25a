// Elements by what a style has, with classes for the rest.
#include "standin/formats/html/markup.hpp"

#include <algorithm>
#include <cstdlib>

namespace standin::formats::html {
namespace {

constexpr int mostScriptLevels = 8;

void addElement(Tags& tags, std::string_view element, const std::string& attributes = "") {
  (((tags.open += '<') += element) += attributes) += '>';
  tags.close = "</" + std::string(element) + ">" + tags.close;
}

}  // namespace

Markup::Markup(const Vocabulary& vocabulary, StyleClasses& classes)
    : vocabulary_(vocabulary),
      classes_(classes),
      carrier_(vocabulary.firstOf({"span", "font"})),
      elements_{vocabulary.has("b"), vocabulary.has("i")} {}

StyleMarkup& Markup::of(const text::Style* style) {
  const auto [known, isNew] = styles_.try_emplace(style);
  if (isNew) {
    std::string text = fontText(*style, elements_);
    const auto font = fonts_.emplace(text, static_cast<uint32_t>(fonts_.size()));
    if (font.second) fontTexts_.push_back(std::move(text));
    known->second = {style, static_cast<uint32_t>(styles_.size()), font.first->second};
  }
  return known->second;
}

const Tags& Markup::paragraph(const StyleMarkup& first, uint32_t font) {
  const text::Paragraph& paragraph = first.style->paragraph;
  const double upperMargin = paragraph.spacingBefore > 0 ? paragraph.spacingBefore + lastSpacing_ : 0;
  lastSpacing_ = paragraph.spacingAfter;
  const auto [known, isNew] = paragraphs_.try_emplace({first.number, font, upperMargin});
  if (isNew) known->second = makeParagraph(paragraph, fontTexts_[font], upperMargin);
  return known->second;
}

const Tags& Markup::run(StyleMarkup& style, uint32_t font) {
  const bool saysFont = style.font != font || style.style->superscript != 0;
  std::optional<Tags>& tags = style.tags[saysFont];
  if (!tags) tags = makeRun(*style.style, saysFont);
  return *tags;
}

Tags Markup::makeParagraph(const text::Paragraph& paragraph, std::string_view font, double upperMargin) {
  const std::string heading = "h" + std::to_string(std::clamp(paragraph.headerLevel, 1, 6));
  const std::string_view element =
      paragraph.headerLevel > 0 ? vocabulary_.firstOf({heading, "p", "div"}) : vocabulary_.firstOf({"p", "div"});
  Tags tags;
  if (element.empty()) {
    if (vocabulary_.has("br")) tags.close = "<br" + std::string(vocabulary_.voidEnd());
    return tags;
  }
  std::string declarations = paragraphDeclarations(paragraph, font, upperMargin);
  if (carrier_.empty()) addDeclaration(declarations, "white-space: pre-wrap");
  std::string attributes = classes_.attribute(element, 'p', declarations);
  if (paragraph.direction == text::WritingDirection::rightToLeft) attributes += " dir=\"rtl\"";
  if (paragraph.direction == text::WritingDirection::leftToRight) attributes += " dir=\"ltr\"";
  addElement(tags, element, attributes);
  return tags;
}

// Outside in: lines that need an element of their own, scripts, what the carrier declares, bold and italic.
Tags Markup::makeRun(const text::Style& style, bool saysFont) {
  Tags tags;
  std::string declarations;
  addLines(tags, style, declarations);
  addScripts(tags, style.superscript, declarations);
  addDeclaration(declarations, runDeclarations(style, elements_, saysFont));
  addCarrier(tags, declarations);
  if (style.font && style.font->bold() && elements_.bold) addElement(tags, "b");
  if (style.font && style.font->italic() && elements_.italic) addElement(tags, "i");
  return tags;
}

void Markup::addCarrier(Tags& tags, const std::string& declarations) {
  if (carrier_.empty() || declarations.empty()) return;
  addElement(tags, carrier_, classes_.attribute("", 's', declarations));
}

// Lines of two looks are two elements. The elements of presentation draw plain lines where they may be used.
void Markup::addLines(Tags& tags, const text::Style& style, std::string& declarations) {
  const std::string_view under = vocabulary_.firstOf({"u"}), through = vocabulary_.firstOf({"s", "strike"});
  Lines underline = underlineOf(style), strikethrough = strikethroughOf(style);
  if (underline.under && underline.isPlain() && !under.empty()) {
    addElement(tags, under);
    underline = {};
  }
  if (strikethrough.through && strikethrough.isPlain() && !through.empty()) {
    addElement(tags, through);
    strikethrough = {};
  }
  if (const auto both = together(underline, strikethrough)) return addDeclaration(declarations, lineDeclarations(*both));
  addCarrier(tags, lineDeclarations(underline));
  addDeclaration(declarations, lineDeclarations(strikethrough));
}

// An element for each level.
void Markup::addScripts(Tags& tags, int superscript, std::string& declarations) {
  if (superscript == 0) return;
  const std::string_view element = vocabulary_.firstOf({superscript > 0 ? "sup" : "sub"});
  if (element.empty()) return addDeclaration(declarations, verticalAlign(superscript));
  for (int level = std::min(std::abs(superscript), mostScriptLevels); level > 0; --level) addElement(tags, element);
}

Tags Markup::spaces() {
  Tags tags;
  if (!carrier_.empty()) addElement(tags, carrier_, classes_.ruled(".tab-span", "white-space: pre-wrap"));
  return tags;
}

// A link looks like what its runs say, which may be nothing.
std::string Markup::linkAttributes() { return classes_.ruled("a", "color: inherit; text-decoration: none"); }

}  // namespace standin::formats::html
