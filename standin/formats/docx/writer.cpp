// The parts of the document, with its links and pictures beside it.
#include "standin/formats/docx/writer.hpp"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "standin/formats/colors.hpp"
#include "standin/formats/docx/parts_writer.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/word_xml/body_writer.hpp"
#include "standin/formats/word_xml/definitions_writer.hpp"
#include "standin/formats/xml.hpp"

namespace standin::formats::docx {
namespace {

using namespace word_xml;

constexpr std::string_view wordNamespace = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr std::string_view drawingNamespace = "http://schemas.openxmlformats.org/drawingml/2006/main";
constexpr std::string_view pictureNamespace = "http://schemas.openxmlformats.org/drawingml/2006/picture";

// Addresses that other programs refuse as the target of a relationship are written into a field.
bool isPlainAddress(std::u16string_view target) {
  return std::all_of(target.begin(), target.end(), [](char16_t unit) {
    constexpr std::u16string_view refused = u"\"<>\\^`{|}";
    return unit > u' ' && refused.find(unit) == refused.npos;
  });
}

class LatestEdition final : public Edition {
 public:
  explicit LatestEdition(PartsWriter& parts) : parts_(parts) {
    for (const char* part : {"styles", "settings", "fontTable"}) addRelationship(part, std::string(part) + ".xml");
  }

  std::string spelled(std::string_view name) const override {
    return std::string(name == "on" ? "1" : name == "off" ? "0" : name);
  }

  bool hasHyphenElements() const override { return true; }

  void openLink(std::string& out, const text::Link& target) override {
    const auto [entry, isNew] = links_.try_emplace(target);
    if (isNew) entry->second = linkTo(target);
    isField_ = entry->second.isField;
    out += entry->second.opening;
  }

  void closeLink(std::string& out) override {
    out += isField_ ? "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>" : "</w:hyperlink>";
  }

  void appendPicture(std::string& out, const text::Attachment& picture, int number, double width, double height) override {
    const std::string id = idOfPicture(picture),
                      name = "\"" + std::to_string(number) + "\" name=\"Picture " + std::to_string(number) + "\"";
    const std::string size = "cx=\"" + std::to_string(wholeParts(width, emusPerPoint, 1e9)) + "\" cy=\"" +
                             std::to_string(wholeParts(height, emusPerPoint, 1e9)) + "\"/>";
    out += "<w:drawing><wp:inline distT=\"0\" distB=\"0\" distL=\"0\" distR=\"0\"><wp:extent " + size +
           "<wp:docPr id=" + name + "/><a:graphic xmlns:a=\"";
    (((out += drawingNamespace) += "\"><a:graphicData uri=\"") += pictureNamespace) += "\"><pic:pic xmlns:pic=\"";
    (out += pictureNamespace) +=
        "\"><pic:nvPicPr><pic:cNvPr id=" + name + "/><pic:cNvPicPr/></pic:nvPicPr><pic:blipFill><a:blip r:embed=\"" + id +
        "\"/><a:stretch><a:fillRect/></a:stretch></pic:blipFill><pic:spPr><a:xfrm><a:off x=\"0\" y=\"0\"/><a:ext " + size +
        "</a:xfrm><a:prstGeom prst=\"rect\"><a:avLst/></a:prstGeom></pic:spPr></pic:pic></a:graphicData></a:graphic>"
        "</wp:inline></w:drawing>";
  }

  std::string relationships() const { return relationshipsPart(relationships_); }

 private:
  struct WrittenLink {
    std::string opening;
    bool isField = false;
  };

  // What opens a link is written at every place, so that a long address, which no program follows, is none of it.
  WrittenLink linkTo(std::u16string_view target) {
    constexpr size_t longestInPlace = 2'083;
    const bool isLong = target.size() > longestInPlace;
    if (!isLong && !isPlainAddress(target)) return {fieldOpening(target), true};
    std::string escaped;
    xml::appendEscaped(escaped, target);
    if (!isLong && target.starts_with(u'#')) return {"<w:hyperlink w:anchor=\"" + escaped.substr(1) + "\">"};
    return {"<w:hyperlink r:id=\"" + addRelationship("hyperlink", escaped, true) + "\">"};
  }

  static std::string fieldOpening(std::u16string_view target) {
    std::string out =
        "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText xml:space=\"preserve\"> HYPERLINK \"";
    std::u16string quoted;
    for (const char16_t unit : target) unit == u'"' ? quoted += u"%22" : quoted += unit;
    xml::appendEscaped(out, quoted);
    out += "\" </w:instrText></w:r><w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>";
    return out;
  }

  std::string addRelationship(std::string_view type, std::string_view target, bool isExternal = false) {
    std::string id = "rId" + std::to_string(++ids_);
    relationships_ += relationshipElement(id, type, target, isExternal);
    return id;
  }

  // Attachments that share their bytes share the part.
  std::string idOfPicture(const text::Attachment& picture) {
    std::string& id = pictures_[picture.contents.data()];
    if (!id.empty()) return id;
    const std::string name = "media/image" + std::to_string(pictures_.size()) + "." +
                             std::string(pictures::extensionOf(pictures::formatOf(picture.contents)));
    parts_.addByExtension("word/" + name, std::string(picture.contents.begin(), picture.contents.end()), false);
    return id = addRelationship("image", name);
  }

  PartsWriter& parts_;
  std::string relationships_;
  std::unordered_map<text::Link, WrittenLink, text::LinkHash> links_;
  std::map<const uint8_t*, std::string> pictures_;  // ids by where the bytes are
  int ids_ = 0;
  bool isField_ = false;
};

std::string root(std::string_view name, std::string_view contents) {
  std::string out(xmlDeclaration);
  ((((out += "<w:") += name) += " xmlns:w=\"") += wordNamespace) += "\">";
  (((out += contents) += "</w:") += name) += '>';
  return out;
}

// What stands before the paragraphs in the main part, and behind them.
std::string documentHead(const DocumentInformation& information) {
  std::string out(xmlDeclaration);
  ((out += "<w:document xmlns:w=\"") += wordNamespace) +=
      "\" xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" "
      "xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\" "
      "xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\" "
      "xmlns:w14=\"http://schemas.microsoft.com/office/word/2010/wordml\" mc:Ignorable=\"w14\">";
  if (information.background) out += "<w:background w:color=\"" + hexOf(*information.background) + "\"/>";
  return out += "<w:body>";
}

std::string documentTail(const DocumentInformation& information) {
  return sectionProperties(information.page) + "</w:body></w:document>";
}

// Without the mode, Word lays the document out as its oldest edition would.
std::string settings(const Edition& edition, const DocumentInformation& information) {
  return settingElements(edition, information) +
         "<w:compat><w:compatSetting w:name=\"compatibilityMode\" w:uri=\"http://schemas.microsoft.com/office/word\" "
         "w:val=\"15\"/></w:compat>";
}

}  // namespace

std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information) {
  PartsWriter parts;
  addProperties(parts, information.properties);
  LatestEdition edition(parts);
  BodyWriter body(styled, edition, textWidthOf(information.page));
  std::string document = documentHead(information);
  body.write(document);
  document += documentTail(information);
  parts.addOffice("word/document.xml", "wordprocessingml.document.main+xml", std::move(document));
  parts.addOffice("word/styles.xml", "wordprocessingml.styles+xml", root("styles", styleElements(edition)));
  parts.addOffice("word/settings.xml", "wordprocessingml.settings+xml", root("settings", settings(edition, information)));
  parts.addOffice("word/fontTable.xml", "wordprocessingml.fontTable+xml", root("fonts", fontElements(body.fonts())));
  parts.addByExtension("word/_rels/document.xml.rels", edition.relationships());
  return zip::write(parts.finish());
}

}  // namespace standin::formats::docx
