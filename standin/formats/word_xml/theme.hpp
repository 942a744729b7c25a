// The colours and fonts that documents name by what they are for.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "standin/formats/word_xml/names.hpp"
#include "standin/text/style.hpp"

namespace standin::formats::word_xml {

struct Theme {
  std::map<std::string, text::Color, std::less<>> colors;  // by their names in the scheme: "dk1", "accent2"
  std::map<std::string, std::string, std::less<>> fonts;   // by theme font: "majorAscii", "minorEastAsia"

  // By the name that documents use: "text1", "accent2", made lighter or darker by bytes in hexadecimal that may be empty.
  std::optional<text::Color> color(std::string_view name, std::string_view tint, std::string_view shade) const;
  // "minorHAnsi"; empty when the theme has no such font.
  std::string_view font(std::string_view name) const;
};

class ThemeHandler final : public xml::Handler {
 public:
  explicit ThemeHandler(Theme& theme) : theme_(theme) {}
  void startElement(const xml::Element& element) override;
  void endElement(xml::NameNumber name) override;
  void characters(std::string_view) override {}

 private:
  void takeTypeface(std::string_view script, const xml::Element& element);

  Theme& theme_;
  bool inColors_ = false;
  std::string entry_;        // of the scheme of colours
  std::string_view series_;  // "major" or "minor" within its fonts
};

}  // namespace standin::formats::word_xml
