// Properties by their elements.
#include "standin/formats/odt/information.hpp"

#include <algorithm>

#include "standin/formats/calendar_times.hpp"
#include "standin/formats/utf8.hpp"
#include "standin/text/ascii.hpp"

namespace standin::formats::odt {
// Each keyword has an element of its own.
void InformationReader::add(std::u16string& property) const {
  if (property.size() > mostInProperty) return;
  if (!property.empty() && !value_.empty()) property += u", ";
  property += unitsOf(value_);
}

void InformationReader::startElement(const xml::Element& element) {
  if (element.name == name::userDefined) userDefined_ = element.value(name::userDefinedName);
  value_.clear();
}

void InformationReader::endElement(xml::NameNumber name) {
  for (const TextRow& row : textRows) {
    if (row.element == name) add(properties_.*row.member);
  }
  for (const TimeRow& row : timeRows) {
    if (row.element == name) properties_.*row.member = calendarTimeOf(value_);
  }
  for (const UserDefinedRow& row : userDefinedRows) {
    if (name == name::userDefined && text::equalIgnoringCase(row.name, userDefined_))
      properties_.*row.member = unitsOf(value_);
  }
  value_.clear();
}

}  // namespace standin::formats::odt
