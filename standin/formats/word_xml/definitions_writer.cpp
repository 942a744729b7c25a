// Styles, fonts and settings written.
#include "standin/formats/word_xml/definitions_writer.hpp"

#include "standin/formats/units.hpp"
#include "standin/formats/word_xml/property_writer.hpp"
#include "standin/formats/xml.hpp"

namespace standin::formats::word_xml {

void appendElement(std::string& out, std::string_view name, std::u16string_view text) {
  if (text.empty()) return;
  ((out += '<') += name) += '>';
  xml::appendEscaped(out, text);
  ((out += "</") += name) += '>';
}

std::string styleElements(const Edition& edition) {
  std::string out = "<w:style w:type=\"paragraph\" w:default=\"" + edition.spelled("on") +
                    "\" w:styleId=\"Normal\"><w:name w:val=\"Normal\"/></w:style>";
  for (int level = 1; level <= 9; ++level) {
    const std::string number = std::to_string(level);
    out += "<w:style w:type=\"paragraph\" w:styleId=\"" + headingStyle(level) + "\"><w:name w:val=\"heading " + number +
           "\"/><w:basedOn w:val=\"Normal\"/><w:next w:val=\"Normal\"/><w:pPr><w:outlineLvl w:val=\"" +
           std::to_string(level - 1) + "\"/></w:pPr></w:style>";
  }
  return out;
}

std::string fontElements(const std::set<std::string>& fonts) {
  std::string out;
  for (const std::string& font : fonts) out += "<w:font w:name=\"" + font + "\"/>";
  return out;
}

std::string settingElements(const Edition& edition, const DocumentInformation& information) {
  const std::string on = edition.spelled("on");
  std::string out;
  if (information.viewMode) {
    out += *information.viewMode == 1 ? "<w:view w:val=\"print\"/>" : "<w:view w:val=\"normal\"/>";
  }
  if (information.viewZoom) out += "<w:zoom w:percent=\"" + std::to_string(*information.viewZoom) + "\"/>";
  if (information.background) out += "<w:displayBackgroundShape/>";
  if (information.readOnly.value_or(0) > 0) {
    out += "<w:documentProtection w:edit=\"" + edition.spelled("readOnly") + "\" w:enforcement=\"" + on + "\"/>";
  }
  if (information.defaultTabInterval) {
    const long twips = wholeParts(*information.defaultTabInterval, twipsPerPoint);
    out += "<w:defaultTabStop w:val=\"" + std::to_string(twips) + "\"/>";
  }
  if (information.hyphenationFactor.value_or(0) > 0) out += "<w:autoHyphenation/>";
  return out;
}

}  // namespace standin::formats::word_xml
