// The styles of a document, with what they inherit.
#pragma once

#include "standin/formats/word_xml/numbering.hpp"

namespace standin::formats::word_xml {

class Styles {
 public:
  // With nothing said, characters are in Times New Roman of 10 points.
  Styles();

  // What holds beneath all styles.
  RunFormatting defaultRun;
  ParagraphProperties defaultParagraph;
  // Of paragraphs that name no style, or one that there is not.
  std::string defaultParagraphStyle;

  // False, and nothing more, past the number of styles that a document can have.
  bool add(const std::string& id, std::optional<std::string> parent, ParagraphProperties paragraph, RunFormatting run);
  bool contains(const std::string& id) const { return ids_.contains(id); }
  // With what it inherits, the defaults left out; nothing said for an unknown style.
  const ParagraphProperties& paragraph(const std::string& id) const { return known(paragraphs_, id); }
  const RunFormatting& run(const std::string& id) const { return known(runs_, id); }

 private:
  // Sheets keep what they are asked for, and names that are none may be any number.
  template <class Formatting>
  const Formatting& known(const StyleSheet<std::string, Formatting>& sheet, const std::string& id) const {
    static const Formatting nothing{};
    return contains(id) ? sheet.resolve(id) : nothing;
  }

  std::set<std::string> ids_;
  StyleSheet<std::string, ParagraphProperties> paragraphs_;
  StyleSheet<std::string, RunFormatting> runs_;
};

class StylesHandler final : public xml::Handler {
 public:
  // All four outlive the handler; the lists are complete.
  StylesHandler(Styles& styles, const Numbering& numbering, const Theme& theme, MemoryAllowance& allowance)
      : styles_(styles), numbering_(numbering), theme_(theme), allowance_(allowance) {}
  void startElement(const xml::Element& element) override;
  void endElement(xml::NameNumber name) override;
  void characters(std::string_view) override {}
  bool isFull() const override { return allowance_.isHalfSpent(); }

 private:
  void startStyle(const xml::Element& element);
  void endStyle();
  void endFormatting(Name name);
  ParagraphProperties onItsList(ParagraphProperties own) const;

  Styles& styles_;
  const Numbering& numbering_;
  const Theme& theme_;
  MemoryAllowance& allowance_;
  PropertyCollector collector_;
  bool inDefaults_ = false, inStyle_ = false;
  int skipped_ = 0;  // open elements of a part that does not count
  std::string id_, name_;
  std::optional<std::string> parent_;
  ParagraphProperties paragraph_;
  RunFormatting run_;
};

}  // namespace standin::formats::word_xml
