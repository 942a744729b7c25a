// Declarations, one function a property.
#include "standin/formats/html/css_text.hpp"

#include <unicode/utf8.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

#include "standin/formats/colors.hpp"
#include "standin/formats/fonts.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::html {
namespace {

std::string lengthText(double points) { return textOf(points) + "pt"; }

std::string colorText(const text::Color& color) {
  if (color.alpha >= 1) return "#" + hexOf(color);
  std::string text = "rgba(";
  for (const uint8_t byte : bytesOf(color)) text += std::to_string(byte) + ", ";
  return text + textOf(std::max(color.alpha, 0.0)) + ")";
}

bool isNameByte(char byte) { return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '-' || byte == '_'; }

// Neither the sheet's encoding nor the quotes of an attribute around it matter to what is escaped.
void appendEscaped(std::string& out, std::string_view name) {
  for (int32_t at = 0; at < static_cast<int32_t>(name.size());) {
    const auto start = static_cast<size_t>(at);
    UChar32 character;
    U8_NEXT_OR_FFFD(reinterpret_cast<const uint8_t*>(name.data()), at, static_cast<int32_t>(name.size()), character);
    if (character < 0x80 && (isNameByte(name[start]) || name[start] == ' ' || name[start] == '.')) {
      out += name[start];
    } else {
      char hexadecimal[16];
      std::snprintf(hexadecimal, sizeof hexadecimal, "\\%X ", static_cast<unsigned>(character));
      out += hexadecimal;
    }
  }
}

std::string familyText(std::string_view name) {
  const bool isIdentifier = !name.empty() && std::isalpha(static_cast<unsigned char>(name.front())) != 0 &&
                            std::all_of(name.begin(), name.end(), isNameByte);
  if (isIdentifier) return std::string(name);
  std::string text = "'";
  appendEscaped(text, name);
  return text + "'";
}

// The family, behind the face where that is what finds the font again.
std::string familiesText(const text::Font& font) {
  const std::string name = nameOf(font), family = familyText(font.family);
  return name == font.family ? family : familyText(name) + ", " + family;
}

// CSS's weights of the platform's, of faces that are not bold.
std::string weightText(int weight) {
  constexpr const char* weights[] = {"100 ", "100 ", "200 ", "300 ", "", "", "500 ", "600 ", "600 "};
  return weight >= 0 && weight < static_cast<int>(std::size(weights)) ? weights[weight] : "";
}

const char* alignmentText(text::Alignment alignment) {
  constexpr const char* texts[] = {"left", "right", "center", "justify", ""};
  return texts[static_cast<size_t>(alignment)];
}

// Nothing for a line of the font's own height. CSS has one height, which is the least and the most.
std::string lineHeightText(const text::Paragraph& paragraph) {
  if (paragraph.lineHeightMultiple > 0) return textOf(paragraph.lineHeightMultiple);
  const double height = paragraph.maximumLineHeight > 0 ? paragraph.maximumLineHeight : paragraph.minimumLineHeight;
  return height > 0 ? lengthText(height) : "";
}

std::string lineStyleText(int style) {
  constexpr int pattern = 0x700, lineMask = 0xFF, doubled = 9;
  if ((style & lineMask) == doubled) return " double";
  if ((style & pattern) == 0) return "";
  return (style & pattern) == 0x100 ? " dotted" : " dashed";
}

Lines lineOf(int style, const std::optional<text::Color>& color) { return {.style = style, .color = color}; }

void addShadow(std::string& out, const text::Shadow& shadow) {
  if (!shadow.color) return;
  addDeclaration(out, "text-shadow: " + lengthText(shadow.offsetX) + " " + lengthText(-shadow.offsetY) + " " +
                          lengthText(shadow.blurRadius) + " " + colorText(*shadow.color));
}

}  // namespace

void addDeclaration(std::string& declarations, std::string_view declaration) {
  if (declaration.empty()) return;
  if (!declarations.empty()) declarations += "; ";
  declarations += declaration;
}

std::string fontText(const text::Style& style, FontElements elements) {
  const text::Font& font = fontOf(style);
  std::string text;
  if (font.italic() && !elements.italic) text += "italic ";
  text += !font.bold() ? weightText(font.weight) : elements.bold ? "" : "bold ";
  return text + lengthText(font.size) + " " + familiesText(font);
}

std::string paragraphDeclarations(const text::Paragraph& paragraph, std::string_view font, double upperMargin) {
  std::string out = "margin: " + lengthText(upperMargin) + " " + lengthText(std::max(-paragraph.tailIndent, 0.0)) + " " +
                    lengthText(paragraph.spacingAfter) + " " + lengthText(paragraph.headIndent);
  if (const double indent = paragraph.firstLineIndent - paragraph.headIndent; indent != 0)
    addDeclaration(out, "text-indent: " + lengthText(indent));
  if (const std::string alignment = alignmentText(paragraph.alignment); !alignment.empty())
    addDeclaration(out, "text-align: " + alignment);
  addDeclaration(out, "font: " + std::string(font));
  if (const std::string height = lineHeightText(paragraph); !height.empty()) addDeclaration(out, "line-height: " + height);
  if (paragraph.defaultTabInterval > 0) addDeclaration(out, "tab-size: " + lengthText(paragraph.defaultTabInterval));
  if (paragraph.hyphenationFactor > 0) addDeclaration(out, "hyphens: auto");
  return out;
}

std::string runDeclarations(const text::Style& style, FontElements elements, bool saysFont) {
  std::string out;
  if (saysFont) addDeclaration(out, "font: " + fontText(style, elements));
  if (style.foreground) addDeclaration(out, "color: " + colorText(*style.foreground));
  if (style.background) addDeclaration(out, backgroundDeclaration(*style.background));
  if (style.kern != 0) addDeclaration(out, "letter-spacing: " + lengthText(style.kern));
  if (style.baselineOffset != 0 && style.superscript == 0)
    addDeclaration(out, "vertical-align: " + lengthText(style.baselineOffset));
  if (style.ligature == 0) addDeclaration(out, "font-variant-ligatures: none");
  if (style.shadow) addShadow(out, *style.shadow);
  return out;
}

std::string verticalAlign(int superscript) {
  return superscript == 0 ? "" : superscript > 0 ? "vertical-align: super" : "vertical-align: sub";
}

Lines underlineOf(const text::Style& style) {
  Lines lines = lineOf(style.underline, style.underlineColor);
  lines.under = style.underline != 0;
  return lines;
}

Lines strikethroughOf(const text::Style& style) {
  Lines lines = lineOf(style.strikethrough, style.strikethroughColor);
  lines.through = style.strikethrough != 0;
  return lines;
}

std::optional<Lines> together(const Lines& under, const Lines& through) {
  if (!under.under) return through;
  if (through.through && (under.style != through.style || under.color != through.color)) return std::nullopt;
  Lines both = under;
  both.through = through.through;
  return both;
}

std::string lineDeclarations(const Lines& lines) {
  if (!lines.under && !lines.through) return "";
  std::string text = "text-decoration:";
  if (lines.under) text += " underline";
  if (lines.through) text += " line-through";
  text += lineStyleText(lines.style);
  return lines.color ? text + " " + colorText(*lines.color) : text;
}

std::string pageDeclarations(const PageSetup& page) {
  const struct {
    const char* property;
    const std::optional<double>& length;
  } margins[] = {{"margin-top: ", page.topMargin},
                 {"margin-right: ", page.rightMargin},
                 {"margin-bottom: ", page.bottomMargin},
                 {"margin-left: ", page.leftMargin}};
  std::string out;
  if (page.paperWidth && page.paperHeight)
    addDeclaration(out, "size: " + lengthText(*page.paperWidth) + " " + lengthText(*page.paperHeight));
  for (const auto& [property, length] : margins) {
    if (length) addDeclaration(out, property + lengthText(*length));
  }
  return out;
}

std::string sizeDeclarations(double width, double height) {
  return "width: " + lengthText(width) + "; height: " + lengthText(height);
}

std::string backgroundDeclaration(const text::Color& color) { return "background-color: " + colorText(color); }

}  // namespace standin::formats::html
