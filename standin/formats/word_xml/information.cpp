// The properties read.
#include "standin/formats/word_xml/information.hpp"

#include "standin/formats/calendar_times.hpp"
#include "standin/formats/utf8.hpp"

namespace standin::formats::word_xml {

// In the edition of 2003 the element's name is the property's.
void InformationHandler::startElement(const xml::Element& element) {
  text_.clear();
  const Name name = nameOf(element);
  if (name == Name::customProperties) inCustom_ = true;
  if (name == Name::customProperty) isCopyright_ = valueOf(element, Name::customPropertyName) == copyrightName;
  if (inCustom_ && element.local == copyrightName) isCopyright_ = true;
}

void InformationHandler::endElement(xml::NameNumber number) {
  const Name name = nameOf(number);
  for (const TextProperty& property : textProperties) {
    if (property.name == name) properties_.*property.member = unitsOf(text_);
  }
  if (name == Name::created) properties_.created = calendarTimeOf(text_);
  if (name == Name::modified) properties_.modified = calendarTimeOf(text_);
  if (name == Name::customProperties) inCustom_ = false;
  if (isCopyright_ && !text_.empty()) properties_.copyright = unitsOf(text_);
  if (isCopyright_ && !text_.empty()) isCopyright_ = false;
  text_.clear();
}

}  // namespace standin::formats::word_xml
