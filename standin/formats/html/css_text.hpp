// What styles look like as CSS: declarations, each of the form "color: #ff0000", with "; " between.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "standin/formats/document.hpp"
#include "standin/text/style.hpp"

namespace standin::formats::html {

// What the elements of a document say of fonts by being there, so that the declarations need not.
struct FontElements {
  bool bold, italic;
};

// The value of the shorthand property.
std::string fontText(const text::Style& style, FontElements elements);

// With an upper margin of its own: those of neighbours overlap, where the spaces of paragraphs add up.
std::string paragraphDeclarations(const text::Paragraph& paragraph, std::string_view font, double upperMargin);

// Where the run differs from its paragraph, whose font it is in unless `saysFont`. Lines are declared apart; so are
// superscripts.
std::string runDeclarations(const text::Style& style, FontElements elements, bool saysFont);
std::string verticalAlign(int superscript);

// One element draws lines of one kind and colour.
struct Lines {
  bool under = false, through = false;
  int style = 0;  // the platform's
  std::optional<text::Color> color;

  bool isPlain() const { return style == 1 && !color; }
};
Lines underlineOf(const text::Style& style);
Lines strikethroughOf(const text::Style& style);
// Both when one element can draw them, otherwise nothing.
std::optional<Lines> together(const Lines& under, const Lines& through);
// Empty for no line.
std::string lineDeclarations(const Lines& lines);

// "@page" contents; empty when the document says nothing of its paper.
std::string pageDeclarations(const PageSetup& page);
std::string sizeDeclarations(double width, double height);
std::string backgroundDeclaration(const text::Color& color);

// Puts "; " between; either may be empty.
void addDeclaration(std::string& declarations, std::string_view declaration);

}  // namespace standin::formats::html
