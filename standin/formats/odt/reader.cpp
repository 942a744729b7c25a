// The parts of a document handed to the readers of what is in them.
#include "standin/formats/odt/reader.hpp"

#include <algorithm>

#include "standin/formats/odt/body.hpp"
#include "standin/formats/odt/information.hpp"
#include "standin/formats/odt/style_reader.hpp"
#include "standin/formats/zip.hpp"

namespace standin::formats::odt {
namespace {

std::span<const uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const uint8_t*>(text.data()), text.size()};
}

// Every part is a root with sections inside.
class PartReader final : public xml::Handler {
 public:
  PartReader(Library& library, Body& body, Properties& properties)
      : library_(library), styles_(library), body_(body), information_(properties) {}

  void startElement(const xml::Element& element) override {
    ++depth_;
    if (depth_ == 1) hasText_ = element.name == name::document || element.name == name::documentContent;
    if (depth_ == 2) enter(element.name);
    if (depth_ <= 2) return;
    if (section_ == name::body) return body_.startElement(element);
    if (section_ == name::meta) return information_.startElement(element);
    if (section_ == name::settings) return startSetting(element);
    styles_.startElement(element);
  }

  void endElement(xml::NameNumber name) override {
    if (depth_-- <= 2) return;
    if (section_ == name::body) return body_.endElement(name);
    if (section_ == name::meta) return information_.endElement(name);
    isTabSetting_ = false;
    styles_.endElement(name);
  }

  void characters(std::string_view text) override {
    if (depth_ <= 2) return;
    if (section_ == name::body) return body_.characters(text);
    if (section_ == name::meta) return information_.characters(text);
    if (isTabSetting_) library_.tabsFollowIndent = text != "false";
  }

 private:
  void enter(xml::NameNumber section) {
    section_ = section;
    styles_.enter(section, hasText_);
  }
  void startSetting(const xml::Element& element) {
    isTabSetting_ = element.name == name::configItem && element.value(name::configName) == "TabsRelativeToIndent";
  }

  Library& library_;
  StyleReader styles_;
  Body& body_;
  InformationReader information_;
  xml::NameNumber section_ = xml::unknownName;
  int depth_ = 0;
  bool hasText_ = false, isTabSetting_ = false;
};

// A document's XML: one part, or those of a package in the order in which they build on one another.
struct Parts {
  std::vector<std::string> before;
  std::string_view content;
  PartSource pictures;
};

bool isBlank(std::u16string_view text) { return text.find_first_not_of(u" \t\n\f\u00A0\u2028") == text.npos; }

std::optional<Document> readParts(const Parts& parts, Body::Options options, bool& hasTextBoxes) {
  Library library;
  Properties properties;
  Body body(library, parts.pictures, options);
  for (const std::string& part : parts.before) {
    PartReader reader(library, body, properties);
    xml::parse(bytesOf(part), nameTable(), reader);  // what is damaged here costs no text
  }
  PartReader reader(library, body, properties);
  if (!xml::parse(bytesOf(parts.content), nameTable(), reader) || !body.isText()) return std::nullopt;
  hasTextBoxes = body.hasTextBoxes();
  Document document = body.take();
  document.properties = std::move(properties);
  if (document.properties.author.empty()) document.properties.author = document.properties.editor;
  library.describe(document, body.firstMasterPage());
  return document;
}

std::optional<Document> readParts(const Parts& parts, size_t size) {
  // About what a byte of a document may cost by the reader's bound on memory.
  constexpr size_t waysAtLeast = 10'000, bytesInWay = 32;
  Body::Options options{false, waysAtLeast + size / bytesInWay};
  bool hasTextBoxes = false;
  auto document = readParts(parts, options, hasTextBoxes);
  if (!document || !hasTextBoxes || !isBlank(document->text)) return document;
  options.showsTextBoxes = true;
  return readParts(parts, options, hasTextBoxes);
}

bool hasEncryptedParts(zip::Archive& archive) {
  const auto manifest = archive.read("META-INF/manifest.xml");
  return manifest && manifest->find("encryption-data") != manifest->npos;
}

std::optional<Document> readPackage(zip::Archive& archive, size_t size) {
  if (hasEncryptedParts(archive)) return std::nullopt;
  Parts parts;
  for (const char* name : {"meta.xml", "settings.xml", "styles.xml"}) {
    if (auto part = archive.read(name)) parts.before.push_back(*std::move(part));
  }
  const auto content = archive.read("content.xml");
  if (!content) return std::nullopt;
  parts.content = *content;
  parts.pictures = [&](const std::string& name) { return archive.read(name); };
  return readParts(parts, size);
}

}  // namespace

std::optional<Document> read(std::span<const uint8_t> bytes) {
  if (auto archive = zip::Archive::open(bytes)) return readPackage(*archive, bytes.size());
  Parts parts;
  parts.content = {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  parts.pictures = [](const std::string&) { return std::optional<std::string>(); };
  return readParts(parts, bytes.size());
}

bool isEncrypted(std::span<const uint8_t> bytes) {
  auto archive = zip::Archive::open(bytes);
  return archive && hasEncryptedParts(*archive);
}

}  // namespace standin::formats::odt
