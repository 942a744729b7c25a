// One file: properties, fonts, styles and settings in front of the text.
#include "standin/formats/wordml/writer.hpp"

#include <map>

#include "standin/formats/base64.hpp"
#include "standin/formats/calendar_times.hpp"
#include "standin/formats/colors.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/word_xml/body_writer.hpp"
#include "standin/formats/word_xml/definitions_writer.hpp"
#include "standin/formats/word_xml/information.hpp"
#include "standin/formats/xml.hpp"

namespace standin::formats::wordml {
namespace {

using namespace word_xml;

class EditionOf2003 final : public Edition {
 public:
  // "lineRule" is "line-rule", and the East was far.
  std::string spelled(std::string_view name) const override {
    if (name == "eastAsia") return "fareast";
    std::string result;
    for (const char letter : name) {
      const bool isCapital = letter >= 'A' && letter <= 'Z';
      if (isCapital) result += '-';
      result += isCapital ? static_cast<char>(letter + ('a' - 'A')) : letter;
    }
    return result;
  }

  // Other programs pass over the elements of this edition.
  bool hasHyphenElements() const override { return false; }

  void openLink(std::string& out, const text::Link& link) override {
    const std::u16string_view target = link;
    const size_t place = target.find(u'#');
    out += "<w:hlink";
    addAttribute(out, "w:dest", target.substr(0, place));
    if (place != target.npos) addAttribute(out, "w:bookmark", target.substr(place + 1));
    out += '>';
  }

  void closeLink(std::string& out) override { out += "</w:hlink>"; }

  void appendPicture(std::string& out, const text::Attachment& picture, int number, double width, double height) override {
    std::string& name = names_[picture.contents.data()];
    out += "<w:pict>";
    if (name.empty()) {
      name = "wordml://" + std::to_string(number) + "." +
             std::string(pictures::extensionOf(pictures::formatOf(picture.contents)));
      out += "<w:binData w:name=\"" + name + "\">" + base64Of(picture.contents, true) + "</w:binData>";
    }
    out += "<v:shape id=\"_x0000_i" + std::to_string(number) + "\" style=\"width:" + textOf(width) +
           "pt;height:" + textOf(height) + "pt\"><v:imagedata src=\"" + name + "\"/></v:shape></w:pict>";
  }

 private:
  static void addAttribute(std::string& out, std::string_view name, std::u16string_view value) {
    if (value.empty()) return;
    ((out += ' ') += name) += "=\"";
    xml::appendEscaped(out, value);
    out += '"';
  }

  std::map<const uint8_t*, std::string> names_;  // of pictures whose bytes are written, by where the bytes were
};

std::string propertyElements(const Properties& properties) {
  std::string out = "<o:DocumentProperties>";
  for (const TextProperty& property : textProperties) {
    appendElement(out, property.elementOf2003, properties.*property.member);
  }
  if (properties.created) out += "<o:Created>" + textOf(*properties.created) + "Z</o:Created>";
  if (properties.modified) out += "<o:LastSaved>" + textOf(*properties.modified) + "Z</o:LastSaved>";
  out += "</o:DocumentProperties>";
  if (properties.copyright.empty()) return out;
  const std::string name = "o:" + std::string(copyrightName);
  out += "<o:CustomDocumentProperties>";
  appendElement(out, name, properties.copyright);
  out.insert(out.rfind("<" + name + ">") + 1 + name.size(), " dt:dt=\"string\"");
  return out += "</o:CustomDocumentProperties>";
}

constexpr std::string_view opening =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<?mso-application progid=\"Word.Document\"?>\n"
    "<w:wordDocument xmlns:w=\"http://schemas.microsoft.com/office/word/2003/wordml\" "
    "xmlns:v=\"urn:schemas-microsoft-com:vml\" xmlns:o=\"urn:schemas-microsoft-com:office:office\" "
    "xmlns:dt=\"uuid:C2F41010-65B3-11d1-A29F-00AA00C14882\" "
    "xmlns:w14=\"http://schemas.microsoft.com/office/word/2010/wordml\" xml:space=\"preserve\">"
    "<w:ignoreSubtree w:val=\"http://schemas.microsoft.com/office/word/2010/wordml\"/>";

}  // namespace

std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information) {
  EditionOf2003 edition;
  BodyWriter body(styled, edition, textWidthOf(information.page));
  std::string paragraphs;
  body.write(paragraphs);
  std::string out(opening);
  out += propertyElements(information.properties);
  out += "<w:fonts>" + fontElements(body.fonts()) + "</w:fonts><w:styles>" + styleElements(edition) + "</w:styles>";
  if (information.background) {
    out += "<w:bgPict><w:background w:bgcolor=\"#" + hexOf(*information.background) + "\"/></w:bgPict>";
  }
  out += "<w:docPr>" + settingElements(edition, information) + "</w:docPr><w:body>";
  return out += paragraphs + sectionProperties(information.page) + "</w:body></w:wordDocument>";
}

}  // namespace standin::formats::wordml
