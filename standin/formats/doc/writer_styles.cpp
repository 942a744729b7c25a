// The styles, each a description, a name, and lists of modifiers.
#include "standin/formats/doc/writer_styles.hpp"

#include "standin/formats/doc/modifiers.hpp"
#include "standin/formats/doc/writer_formats.hpp"

namespace standin::formats::doc {
namespace {

struct Style {
  uint16_t identifier;
  StyleKind kind;
  uint16_t base, next;
  std::string name, paragraph, characters;  // name and modifiers
};

void appendModifiers(std::string& out, const std::string& modifiers) {
  append16(out, modifiers.size());
  out += modifiers;
  pad(out, 2);
}

constexpr size_t descriptionSize = 10;

std::string descriptionOf(const Style& style, size_t size) {
  const uint16_t listCount = style.kind == paragraphStyle ? 2 : 1;
  std::string description;
  append16(description, style.identifier);
  append16(description, style.kind | style.base << 4);
  append16(description, listCount | style.next << 4);
  append16(description, size);
  description.resize(descriptionSize);
  return description;
}

void appendStyle(std::string& sheet, uint16_t number, const Style& style) {
  std::string contents;
  append16(contents, style.name.size());
  for (const char letter : style.name) append16(contents, letter);
  append16(contents, 0);
  if (style.kind == paragraphStyle) {
    std::string paragraph;
    append16(paragraph, number);
    appendModifiers(contents, paragraph + style.paragraph);
  }
  appendModifiers(contents, style.characters);
  const size_t size = descriptionSize + contents.size();
  append16(sheet, size);
  sheet += descriptionOf(style, size) + contents;
}

// Not bold or italic: text that is says so, other text says nothing.
Style normalStyleIn(const text::Font& font, FontTable& fonts) {
  text::Style style;
  style.font = font;
  style.font->traits = 0;
  return {0, paragraphStyle, noStyle, normalStyle, "Normal", {}, characterModifiers(style, fonts.indexOf(font))};
}

Style headingStyle(int level) {
  Modifiers paragraph;
  paragraph.add(Property::outlineLevel, level - 1);
  const auto number = static_cast<uint16_t>(level);
  return {number, paragraphStyle, normalStyle, normalStyle, "heading " + std::to_string(level), paragraph.bytes, {}};
}

Style defaultStyleOfCharacters() {
  return {defaultCharacterIdentifier, characterStyle, noStyle, defaultCharacterStyle, "Default Paragraph Font", {}, {}};
}

// Blue and underlined, as programs show links.
Style styleOfLinks() {
  constexpr uint16_t identifier = 85;
  constexpr int64_t blue = 0xFF0000;
  Modifiers characters;
  characters.add(Property::color, blue);
  characters.add(Property::underline, 1);
  return {identifier, characterStyle, defaultCharacterStyle, linkStyle, "Hyperlink", {}, characters.bytes};
}

std::string headOf(uint16_t styleCount, uint16_t font) {
  constexpr uint16_t headSize = 18, namesAreWritten = 1, builtInStyles = 91, fixedStyles = 15, namesVersion = 0;
  std::string head;
  for (const uint16_t number : {headSize, styleCount, uint16_t{descriptionSize}, namesAreWritten, builtInStyles, fixedStyles,
                                namesVersion, font, font, font}) {
    append16(head, number);
  }
  return head;
}

}  // namespace

std::string styleSheet(const text::Font& normal, FontTable& fonts) {
  std::string sheet = headOf(linkStyle + 1, fonts.indexOf(normal));
  appendStyle(sheet, normalStyle, normalStyleIn(normal, fonts));
  for (uint16_t level = firstHeadingStyle; level <= lastHeadingStyle; ++level)
    appendStyle(sheet, level, headingStyle(level));
  appendStyle(sheet, defaultCharacterStyle, defaultStyleOfCharacters());
  for (uint16_t number = defaultCharacterStyle + 1; number < linkStyle; ++number) append16(sheet, 0);
  appendStyle(sheet, linkStyle, styleOfLinks());
  return sheet;
}

}  // namespace standin::formats::doc
