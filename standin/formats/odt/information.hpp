// Reads what a document says of itself.
#pragma once

#include "standin/formats/document.hpp"
#include "standin/formats/odt/names.hpp"

namespace standin::formats::odt {

// Takes the elements inside a document's own description.
class InformationReader {
 public:
  explicit InformationReader(Properties& properties) : properties_(properties) {}

  void startElement(const xml::Element& element);
  void endElement(xml::NameNumber name);
  void characters(std::string_view text) {
    if (value_.size() < mostInProperty) value_ += text;
  }

 private:
  static constexpr size_t mostInProperty = 100'000;  // bytes; a few thousand more where they come at once

  void add(std::u16string& property) const;

  Properties& properties_;
  std::string value_, userDefined_;
};

struct TextRow {
  name::Number element;
  std::string_view qualified;  // as it is written
  std::u16string Properties::*member;
};
inline constexpr TextRow textRows[] = {{name::title, "dc:title", &Properties::title},
                                       {name::subject, "dc:subject", &Properties::subject},
                                       {name::description, "dc:description", &Properties::comment},
                                       {name::initialCreator, "meta:initial-creator", &Properties::author},
                                       {name::creator, "dc:creator", &Properties::editor},
                                       {name::keyword, "meta:keyword", &Properties::keywords}};

struct TimeRow {
  name::Number element;
  std::string_view qualified;
  std::optional<CalendarTime> Properties::*member;
};
inline constexpr TimeRow timeRows[] = {{name::creationDate, "meta:creation-date", &Properties::created},
                                       {name::date, "dc:date", &Properties::modified}};

// Properties that the format has no elements for.
struct UserDefinedRow {
  std::string_view name;
  std::u16string Properties::*member;
};
inline constexpr UserDefinedRow userDefinedRows[] = {{"Company", &Properties::company},
                                                     {"Manager", &Properties::manager},
                                                     {"Category", &Properties::category},
                                                     {"Copyright", &Properties::copyright}};

}  // namespace standin::formats::odt
