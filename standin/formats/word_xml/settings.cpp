// The settings read.
#include "standin/formats/word_xml/settings.hpp"

#include "standin/formats/units.hpp"
#include "standin/formats/word_xml/values.hpp"

namespace standin::formats::word_xml {

void Settings::fill(DocumentInformation& information) const {
  information.defaultTabInterval = defaultTabInterval;
  information.hyphenationFactor = hyphenationFactor;
  information.viewMode = viewMode;
  information.viewZoom = viewZoom;
  information.readOnly = readOnly;
}

void SettingsHandler::startElement(const xml::Element& element) {
  switch (nameOf(element)) {
    case Name::defaultTabStop:
      settings_.defaultTabInterval = pointsOf(element, Name::value, twipsPerPoint);
      break;
    case Name::autoHyphenation:
      settings_.hyphenationFactor = isOn(element) ? 1 : 0;
      break;
    case Name::zoom:
      settings_.viewZoom = wholeNumberOf(valueOf(element, Name::percent));
      break;
    case Name::view:
      settings_.viewMode = valueOf(element) == "print" ? 1 : 0;
      break;
    case Name::documentProtection:
      if (isSameValue(valueOf(element, Name::edit), "readOnly") && find(element, Name::enforcement) &&
          isOn(element, Name::enforcement))
        settings_.readOnly = 1;
      break;
    case Name::displayBackground:
      settings_.showsBackground = isOn(element);
      break;
    default:
      break;
  }
}

}  // namespace standin::formats::word_xml
