// The parts of a package.
#include "standin/formats/odt/writer.hpp"

#include "standin/formats/calendar_times.hpp"
#include "standin/formats/fonts.hpp"
#include "standin/formats/odt/body_writer.hpp"
#include "standin/formats/odt/information.hpp"
#include "standin/formats/units.hpp"
#include "standin/formats/utf8.hpp"
#include "standin/formats/xml.hpp"
#include "standin/formats/zip.hpp"

namespace standin::formats::odt {
namespace {

constexpr const char* mediaType = "application/vnd.oasis.opendocument.text";

// The root element with the namespaces of every part.
std::string opening(std::string_view root) {
  constexpr std::pair<const char*, const char*> spaces[] = {
      {"office", "urn:oasis:names:tc:opendocument:xmlns:office:1.0"},
      {"style", "urn:oasis:names:tc:opendocument:xmlns:style:1.0"},
      {"text", "urn:oasis:names:tc:opendocument:xmlns:text:1.0"},
      {"draw", "urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"},
      {"fo", "urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"},
      {"svg", "urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"},
      {"meta", "urn:oasis:names:tc:opendocument:xmlns:meta:1.0"},
      {"dc", "http://purl.org/dc/elements/1.1/"},
      {"xlink", "http://www.w3.org/1999/xlink"}};
  std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<" + std::string(root);
  for (const auto& [prefix, uri] : spaces) appendAttribute(out, std::string("xmlns:") + prefix, uri);
  return out += " office:version=\"1.2\">\n";
}

std::string closing(std::string_view root) { return "</" + std::string(root) + ">\n"; }

void appendElement(std::string& out, std::string_view name, std::string_view text) {
  ((out += '<') += name) += '>';
  xml::appendEscapedUTF8(out, text);
  ((out += "</") += name) += ">\n";
}

std::string content(const StyleTexts& texts, const BodyWriter& body, const std::string& paragraphs) {
  std::string out = opening("office:document-content");
  out.reserve(paragraphs.size() + (size_t{1} << 16));
  out += texts.fontDeclarations() + "\n" + body.automaticStyles();
  ((out += "<office:body><office:text>\n") += paragraphs) += "</office:text></office:body>\n";
  return out += closing("office:document-content");
}

struct PageRow {
  std::string_view attribute;
  std::optional<double> PageSetup::*member;
};
constexpr PageRow pageRows[] = {{"fo:page-width", &PageSetup::paperWidth},  {"fo:page-height", &PageSetup::paperHeight},
                                {"fo:margin-left", &PageSetup::leftMargin}, {"fo:margin-right", &PageSetup::rightMargin},
                                {"fo:margin-top", &PageSetup::topMargin},   {"fo:margin-bottom", &PageSetup::bottomMargin}};

std::string pageLayout(const DocumentInformation& information) {
  std::string out = R"(<style:page-layout style:name="Page"><style:page-layout-properties)";
  for (const PageRow& row : pageRows) {
    if (const auto& length = information.page.*row.member) appendLength(out, row.attribute, *length);
  }
  const bool isWide = information.page.paperWidth.value_or(0) > information.page.paperHeight.value_or(0);
  appendAttribute(out, "style:print-orientation", isWide ? "landscape" : "portrait");
  if (information.background) appendAttribute(out, "fo:background-color", colorText(*information.background));
  return out += "/></style:page-layout>\n";
}

// The look of what has no style of its own: that of the text's beginning, in its font alone.
std::string defaultStyle(const StyledRuns& styled, const DocumentInformation& information) {
  std::string out = R"(<style:default-style style:family="paragraph"><style:paragraph-properties)";
  if (information.defaultTabInterval) appendLength(out, "style:tab-stop-distance", *information.defaultTabInterval);
  const text::Font font = styled.runs.empty() ? fontOf({}) : fontOf(*styled.runs.front().style);
  out += "/><style:text-properties";
  appendAttribute(out, "style:font-name", nameOf(font));
  appendLength(out, "fo:font-size", font.size);
  return out += "/></style:default-style>\n";
}

std::string commonStyles(bool hasLinks) {
  constexpr int levels = 10;
  std::string out = R"(<style:style style:name="Standard" style:family="paragraph" style:class="text"/>)";
  for (int level = 1; level <= levels; ++level) {
    const std::string number = std::to_string(level);
    out += "\n<style:style";
    appendAttribute(out, "style:name", "Heading_20_" + number);
    appendAttribute(out, "style:display-name", "Heading " + number);
    appendAttribute(out, "style:default-outline-level", number);
    out += R"( style:family="paragraph" style:parent-style-name="Standard" style:class="text"/>)";
  }
  if (hasLinks) out += "\n<style:style style:name=\"Link\" style:family=\"text\"/>";
  return out + "\n";
}

std::string styles(const StyledRuns& styled, const DocumentInformation& information, const StyleTexts& texts,
                   bool hasLinks) {
  return opening("office:document-styles") + texts.fontDeclarations() + "\n<office:styles>\n" +
         defaultStyle(styled, information) + commonStyles(hasLinks) + "</office:styles>\n<office:automatic-styles>\n" +
         pageLayout(information) + "</office:automatic-styles>\n<office:master-styles>" +
         R"(<style:master-page style:name="Standard" style:page-layout-name="Page"/>)" + "</office:master-styles>\n" +
         closing("office:document-styles");
}

std::string meta(const Properties& properties) {
  std::string out = opening("office:document-meta") + "<office:meta>\n";
  for (const TextRow& row : textRows) {
    const std::u16string& text = properties.*row.member;
    if (!text.empty()) appendElement(out, row.qualified, utf8Of(text));
  }
  for (const TimeRow& row : timeRows) {
    if (const auto& time = properties.*row.member) appendElement(out, row.qualified, textOf(*time));
  }
  for (const UserDefinedRow& row : userDefinedRows) {
    const std::u16string& text = properties.*row.member;
    if (text.empty()) continue;
    out += "<meta:user-defined";
    appendAttribute(out, "meta:name", row.name);
    out += '>';
    xml::appendEscapedUTF8(out, utf8Of(text));
    out += "</meta:user-defined>\n";
  }
  return out + "</office:meta>\n" + closing("office:document-meta");
}

void appendManifestRow(std::string& out, std::string_view path, std::string_view type) {
  out += "<manifest:file-entry";
  appendAttribute(out, "manifest:full-path", path);
  appendAttribute(out, "manifest:media-type", type);
  out += "/>\n";
}

std::string manifest(const std::vector<PackagedPicture>& pictures) {
  std::string out =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<manifest:manifest "
      "xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\" manifest:version=\"1.2\">\n";
  appendManifestRow(out, "/", mediaType);
  for (const char* part : {"content.xml", "styles.xml", "meta.xml"}) appendManifestRow(out, part, "text/xml");
  for (const PackagedPicture& picture : pictures) {
    appendManifestRow(out, picture.name, "image/" + std::string(picture.type));
  }
  return out + "</manifest:manifest>\n";
}

}  // namespace

// The type comes first and as it is, so that it can be read in the package's own bytes.
std::optional<std::string> write(const StyledRuns& styled, const DocumentInformation& information) {
  const StyleTexts texts(styled);
  BodyWriter body(styled, texts);
  const std::string paragraphs = body.write();
  std::vector<zip::Entry> entries;
  entries.push_back({"mimetype", mediaType, false});
  entries.push_back({"content.xml", content(texts, body, paragraphs)});
  entries.push_back({"styles.xml", styles(styled, information, texts, body.hasLinks())});
  entries.push_back({"meta.xml", meta(information.properties)});
  for (const PackagedPicture& picture : body.pictures()) {
    entries.push_back({picture.name, std::string(picture.bytes.begin(), picture.bytes.end()), false});
  }
  entries.push_back({"META-INF/manifest.xml", manifest(body.pictures())});
  return zip::write(entries);
}

}  // namespace standin::formats::odt
