// What styles say of text and paragraphs.
#pragma once

#include <array>
#include <unordered_map>

#include "standin/formats/formatting.hpp"
#include "standin/formats/scripts.hpp"
#include "standin/formats/xml.hpp"

namespace standin::formats::odt {

inline constexpr size_t scriptCount = 3;

struct FontProperties {
  std::optional<std::string> name{};
  std::optional<double> size{};    // points
  std::optional<double> scale{};   // of the size beneath
  std::optional<double> change{};  // points to be added to the size beneath
  std::optional<bool> bold{}, italic{};

  static constexpr auto members() {
    using F = FontProperties;
    return std::tuple(&F::name, &F::size, &F::bold, &F::italic);
  }
};

// The members of `text` that fonts have for themselves are left empty.
struct TextProperties {
  CharacterFormatting text{};
  std::array<FontProperties, scriptCount> fonts{};
  std::optional<std::optional<text::Shadow>> shadow{};
  std::optional<std::optional<text::Color>> strikethroughColor{};
  std::optional<double> raise{};  // share of the font's size

  static constexpr auto members() {
    using T = TextProperties;
    return std::tuple(&T::shadow, &T::strikethroughColor, &T::raise);
  }
};

struct ParagraphProperties {
  ParagraphFormatting paragraph{};
  std::optional<bool> alignsByDirection{};  // right and left are said as the ends of the line
  std::optional<bool> breaksBefore{}, breaksAfter{};
  std::optional<bool> indentsItself{};  // whatever the list says that the paragraph is in

  static constexpr auto members() {
    using P = ParagraphProperties;
    return std::tuple(&P::alignsByDirection, &P::breaksBefore, &P::breaksAfter, &P::indentsItself);
  }
};

struct StyleProperties {
  TextProperties text{};
  ParagraphProperties paragraph{};
  std::optional<std::string> listStyle{};
  std::optional<std::string> masterPage{};  // a paragraph with it starts a page; not inherited
};

// What `over` says replaces what `under` says; sizes may be relative to those beneath.
void overlay(TextProperties& under, const TextProperties& over);
void overlay(StyleProperties& under, const StyleProperties& over);

// The families of declared fonts, by the names that styles use.
using FontFaces = std::unordered_map<std::string, std::string>;
// The first family of a list in CSS's notation.
std::string familyOf(std::string_view list);

// Each adds what the attributes of its element say.
void takeTextProperties(TextProperties& properties, const xml::Element& element, const FontFaces& faces);
void takeParagraphProperties(ParagraphProperties& properties, const xml::Element& element);
void takeTabStop(ParagraphProperties& properties, const xml::Element& element);

// The names of the platform's values in attributes; empty for what has no name.
std::string_view linePatternName(int line);
std::string_view alignmentName(text::Alignment alignment);
std::string_view tabKindName(text::TabKind kind);

// The character part of a style, in text of the script.
text::Style styleOf(const TextProperties& properties, Script script);
// Positions of tab stops count from the left indent when `tabsFollowIndent`.
text::Paragraph paragraphOf(const ParagraphProperties& properties, bool tabsFollowIndent);

}  // namespace standin::formats::odt
