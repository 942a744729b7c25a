// Types, relationships and properties.
#include "standin/formats/docx/parts_writer.hpp"

#include "standin/formats/calendar_times.hpp"
#include "standin/formats/word_xml/definitions_writer.hpp"
#include "standin/formats/word_xml/information.hpp"

namespace standin::formats::docx {
namespace {

using word_xml::appendElement;

constexpr std::string_view officeType = "application/vnd.openxmlformats-officedocument.";
constexpr std::string_view officeRelationship = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
constexpr std::string_view coreRelationship =
    "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties";

// In Office's own part lie the properties that are not the package's.
bool isOffices(const word_xml::TextProperty& property) { return property.element.starts_with("ep:"); }

std::string coreProperties(const Properties& properties) {
  std::string out(xmlDeclaration);
  out +=
      "<cp:coreProperties xmlns:cp=\"http://schemas.openxmlformats.org/package/2006/metadata/core-properties\" "
      "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:dcterms=\"http://purl.org/dc/terms/\" "
      "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">";
  for (const auto& property : word_xml::textProperties) {
    if (!isOffices(property)) appendElement(out, property.element, properties.*property.member);
  }
  const auto addTime = [&](const std::string& name, const std::optional<CalendarTime>& time) {
    if (time) out += "<" + name + " xsi:type=\"dcterms:W3CDTF\">" + textOf(*time) + "Z</" + name + ">";
  };
  addTime("dcterms:created", properties.created);
  addTime("dcterms:modified", properties.modified);
  return out += "</cp:coreProperties>";
}

std::string officeProperties(const Properties& properties) {
  std::string out(xmlDeclaration);
  out += "<ep:Properties xmlns:ep=\"http://schemas.openxmlformats.org/officeDocument/2006/extended-properties\">";
  for (const auto& property : word_xml::textProperties) {
    if (isOffices(property)) appendElement(out, property.element, properties.*property.member);
  }
  return out += "</ep:Properties>";
}

// The document's own properties have this set in common, and count from 2.
std::string customProperties(const Properties& properties) {
  std::string out(xmlDeclaration);
  out +=
      "<Properties xmlns=\"http://schemas.openxmlformats.org/officeDocument/2006/custom-properties\" "
      "xmlns:vt=\"http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes\">"
      "<property fmtid=\"{D5CDD505-2E9C-101B-9397-08002B2CF9AE}\" pid=\"2\" name=\"";
  (out += word_xml::copyrightName) += "\">";
  appendElement(out, "vt:lpwstr", properties.copyright);
  return out += "</property></Properties>";
}

std::string relationship(std::string_view id, std::string_view type, std::string_view target) {
  std::string out = "<Relationship Id=\"";
  ((((out += id) += "\" Type=\"") += type) += "\" Target=\"") += target;
  return out += '"';
}

}  // namespace

void PartsWriter::add(std::string name, std::string_view type, std::string contents) {
  (types_ += "<Override PartName=\"/" + name + "\" ContentType=\"") += type;
  types_ += "\"/>";
  entries_.push_back({std::move(name), std::move(contents)});
}

void PartsWriter::addOffice(std::string name, std::string_view type, std::string contents) {
  add(std::move(name), std::string(officeType) += type, std::move(contents));
}

void PartsWriter::addByExtension(std::string name, std::string contents, bool isCompressed) {
  entries_.push_back({std::move(name), std::move(contents), isCompressed});
}

std::vector<zip::Entry> PartsWriter::finish() {
  std::string contents(xmlDeclaration);
  contents +=
      "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
      "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
      "<Default Extension=\"xml\" ContentType=\"application/xml\"/>";
  constexpr struct {
    std::string_view extension, type;
  } pictures[] = {{"png", "png"}, {"jpg", "jpeg"}, {"gif", "gif"}, {"tiff", "tiff"}, {"bmp", "bmp"}};
  for (const auto& picture : pictures) {
    ((contents += "<Default Extension=\"") += picture.extension) += "\" ContentType=\"image/";
    (contents += picture.type) += "\"/>";
  }
  contents += types_ + "</Types>";
  entries_.insert(entries_.begin(), {"[Content_Types].xml", std::move(contents)});
  return std::move(entries_);
}

std::string relationshipElement(std::string_view id, std::string_view type, std::string_view target, bool isExternal) {
  return relationship(id, std::string(officeRelationship) += type, target) +
         (isExternal ? " TargetMode=\"External\"/>" : "/>");
}

std::string relationshipsPart(std::string_view elements) {
  std::string out(xmlDeclaration);
  out += "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
  return (out += elements) += "</Relationships>";
}

void addProperties(PartsWriter& parts, const Properties& properties) {
  std::string relationships = relationshipElement("rId1", "officeDocument", "word/document.xml") +
                              relationship("rId2", coreRelationship, "docProps/core.xml") + "/>" +
                              relationshipElement("rId3", "extended-properties", "docProps/app.xml");
  parts.add("docProps/core.xml", "application/vnd.openxmlformats-package.core-properties+xml", coreProperties(properties));
  parts.addOffice("docProps/app.xml", "extended-properties+xml", officeProperties(properties));
  if (!properties.copyright.empty()) {
    parts.addOffice("docProps/custom.xml", "custom-properties+xml", customProperties(properties));
    relationships += relationshipElement("rId4", "custom-properties", "docProps/custom.xml");
  }
  parts.addByExtension("_rels/.rels", relationshipsPart(relationships));
}

}  // namespace standin::formats::docx
