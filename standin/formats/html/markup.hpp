// The tags in which paragraphs and runs stand, each made once.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "standin/formats/html/character_writer.hpp"
#include "standin/formats/html/css_text.hpp"
#include "standin/formats/html/style_classes.hpp"
#include "standin/formats/html/vocabulary.hpp"

namespace standin::formats::html {

// What is known of a style: the number of its font's text, equal for equal ones, and its tags once they are made.
struct StyleMarkup {
  const text::Style* style;
  uint32_t number, font;
  std::array<std::optional<Tags>, 2> tags{};  // by whether they say the font
};

class Markup {
 public:
  // Both must outlive the markup.
  Markup(const Vocabulary& vocabulary, StyleClasses& classes);

  // Styles are known by their addresses.
  StyleMarkup& of(const text::Style* style);
  // All fonts have numbers below this one.
  size_t fontCount() const { return fonts_.size(); }

  // Of the next paragraph; `first` says how it is laid out.
  const Tags& paragraph(const StyleMarkup& first, uint32_t font);
  // A run of a paragraph in the font.
  const Tags& run(StyleMarkup& style, uint32_t font);
  // Around spaces that are to be kept.
  Tags spaces();
  // The attributes of links beside their target.
  std::string linkAttributes();

 private:
  Tags makeParagraph(const text::Paragraph& paragraph, std::string_view font, double upperMargin);
  Tags makeRun(const text::Style& style, bool saysFont);
  void addCarrier(Tags& tags, const std::string& declarations);
  void addLines(Tags& tags, const text::Style& style, std::string& declarations);
  void addScripts(Tags& tags, int superscript, std::string& declarations);

  const Vocabulary& vocabulary_;
  StyleClasses& classes_;
  const std::string_view carrier_;  // the element that carries what runs look like; empty for none
  const FontElements elements_;
  std::unordered_map<const text::Style*, StyleMarkup> styles_;
  std::unordered_map<std::string, uint32_t> fonts_;
  std::vector<std::string> fontTexts_;                                 // by number
  std::map<std::tuple<uint32_t, uint32_t, double>, Tags> paragraphs_;  // by the numbers of style and font, and upper margin
  double lastSpacing_ = 0;                                             // below the last paragraph
};

}  // namespace standin::formats::html
