// The properties of a document: title, author and the others.
#pragma once

#include <array>

#include "standin/formats/document.hpp"
#include "standin/formats/word_xml/names.hpp"

namespace standin::formats::word_xml {

struct TextProperty {
  Name name;
  std::string_view element, elementOf2003;
  std::u16string Properties::*member;
};
inline constexpr std::array textProperties = {
    TextProperty{Name::title, "dc:title", "o:Title", &Properties::title},
    TextProperty{Name::subject, "dc:subject", "o:Subject", &Properties::subject},
    TextProperty{Name::author, "dc:creator", "o:Author", &Properties::author},
    TextProperty{Name::keywords, "cp:keywords", "o:Keywords", &Properties::keywords},
    TextProperty{Name::comment, "dc:description", "o:Description", &Properties::comment},
    TextProperty{Name::editor, "cp:lastModifiedBy", "o:LastAuthor", &Properties::editor},
    TextProperty{Name::category, "cp:category", "o:Category", &Properties::category},
    TextProperty{Name::manager, "ep:Manager", "o:Manager", &Properties::manager},
    TextProperty{Name::company, "ep:Company", "o:Company", &Properties::company}};

// The name of the property of the document's own that holds what the formats have no property for.
inline constexpr std::string_view copyrightName = "Copyright";

// For the parts of properties, all of them.
class InformationHandler final : public xml::Handler {
 public:
  explicit InformationHandler(Properties& properties) : properties_(properties) {}
  void startElement(const xml::Element& element) override;
  void endElement(xml::NameNumber name) override;
  void characters(std::string_view text) override {
    if (text_.size() < mostInProperty) text_ += text;
  }

 private:
  static constexpr size_t mostInProperty = 100'000;  // bytes; a few thousand more where they come at once

  Properties& properties_;
  bool inCustom_ = false, isCopyright_ = false;
  std::string text_;
};

}  // namespace standin::formats::word_xml
