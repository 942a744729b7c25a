// Properties by their elements.
#include "standin/formats/odt/information.hpp"

#include <algorithm>

#include "standin/formats/calendar_times.hpp"
#include "standin/formats/utf8.hpp"

namespace standin::formats::odt {
namespace {

bool equalIgnoringCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return (a | 0x20) == (b | 0x20); });
}

// Each keyword has an element of its own.
void add(std::u16string& text, std::string_view value) {
  if (!text.empty() && !value.empty()) text += u", ";
  text += unitsOf(value);
}

}  // namespace

void InformationReader::startElement(const xml::Element& element) {
  if (element.name == name::userDefined) userDefined_ = element.value(name::userDefinedName);
  value_.clear();
}

void InformationReader::endElement(xml::NameNumber name) {
  for (const TextRow& row : textRows) {
    if (row.element == name) add(properties_.*row.member, value_);
  }
  for (const TimeRow& row : timeRows) {
    if (row.element == name) properties_.*row.member = calendarTimeOf(value_);
  }
  for (const UserDefinedRow& row : userDefinedRows) {
    if (name == name::userDefined && equalIgnoringCase(row.name, userDefined_)) properties_.*row.member = unitsOf(value_);
  }
  value_.clear();
}

}  // namespace standin::formats::odt
