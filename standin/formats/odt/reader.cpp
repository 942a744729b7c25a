// The parts of a document handed to the readers of what is in them.
#include "standin/formats/odt/reader.hpp"

#include <memory>
#include <utility>

#include "standin/formats/odt/body.hpp"
#include "standin/formats/odt/information.hpp"
#include "standin/formats/odt/style_reader.hpp"
#include "standin/formats/zip.hpp"

namespace standin::formats::odt {
namespace {

constexpr char content[] = "content.xml";

// Every part is a root with sections inside.
class PartReader final : public xml::Handler {
 public:
  PartReader(Library& library, Body& body, Properties& properties, MemoryAllowance& allowance)
      : library_(library), styles_(library, allowance), body_(body), information_(properties) {}

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
    if (std::exchange(isTabSetting_, false)) library_.tabsFollowIndent = setting_ != "false";
    styles_.endElement(name);
  }

  void characters(std::string_view text) override {
    if (depth_ <= 2) return;
    if (section_ == name::body) return body_.characters(text);
    if (section_ == name::meta) return information_.characters(text);
    constexpr size_t longEnough = 16;
    if (isTabSetting_ && setting_.size() < longEnough) setting_ += text;
  }

  bool isFull() const override { return body_.isFull(); }

 private:
  void enter(xml::NameNumber section) {
    section_ = section;
    styles_.enter(section, hasText_);
  }
  void startSetting(const xml::Element& element) {
    isTabSetting_ = element.name == name::configItem && element.value(name::configName) == "TabsRelativeToIndent";
    setting_.clear();
  }

  Library& library_;
  StyleReader styles_;
  Body& body_;
  InformationReader information_;
  xml::NameNumber section_ = xml::unknownName;
  int depth_ = 0;
  bool hasText_ = false, isTabSetting_ = false;
  std::string setting_;
};

// A document's XML: one part, or those of a package.
class Parts {
 public:
  virtual ~Parts() = default;
  // False when there is no such part, or it is damaged: what came before the fault was handed over.
  virtual bool parse(const char* name, xml::Handler& handler) = 0;
  virtual std::optional<std::string> picture(const std::string& name, size_t most) = 0;
};

class PackageParts final : public Parts {
 public:
  PackageParts(zip::Archive archive, size_t size)
      : archive_(std::move(archive)), mostAtOnce_((size_t{1} << 20) + 2 * size) {}

  bool parse(const char* name, xml::Handler& handler) override {
    auto reading = archive_.readInPieces(name);
    return reading && xml::parse({*std::move(reading), mostAtOnce_}, nameTable(), handler);
  }
  std::optional<std::string> picture(const std::string& name, size_t most) override { return archive_.read(name, most); }

 private:
  zip::Archive archive_;
  const size_t mostAtOnce_;  // bytes of a tag
};

class OnlyPart final : public Parts {
 public:
  explicit OnlyPart(std::span<const uint8_t> bytes) : bytes_(bytes) {}

  bool parse(const char* name, xml::Handler& handler) override {
    return name == content && xml::parse(bytes_, nameTable(), handler);
  }
  std::optional<std::string> picture(const std::string&, size_t) override { return std::nullopt; }

 private:
  std::span<const uint8_t> bytes_;
};

std::unique_ptr<Parts> partsOf(std::span<const uint8_t> bytes) {
  if (auto archive = zip::Archive::open(bytes)) return std::make_unique<PackageParts>(*std::move(archive), bytes.size());
  return std::make_unique<OnlyPart>(bytes);
}

bool isBlank(std::u16string_view text) { return text.find_first_not_of(u" \t\n\f\u00A0\u2028") == text.npos; }

std::optional<Document> readParts(std::span<const uint8_t> bytes, bool showsTextBoxes, bool& hasTextBoxes) {
  const std::unique_ptr<Parts> parts = partsOf(bytes);
  MemoryAllowance allowance(bytes.size());
  Library library;
  Properties properties;
  Body body(
      library, [&](const std::string& name, size_t most) { return parts->picture(name, most); }, allowance, showsTextBoxes);
  // In the order in which they build on one another; what is damaged before the last one costs no text.
  bool isWhole = false;
  for (const char* name : {"meta.xml", "settings.xml", "styles.xml", content}) {
    PartReader reader(library, body, properties, allowance);
    isWhole = parts->parse(name, reader);
  }
  if (!isWhole || !body.isText()) return std::nullopt;
  hasTextBoxes = body.hasTextBoxes();
  Document document = body.take();
  document.properties = std::move(properties);
  if (document.properties.author.empty()) document.properties.author = document.properties.editor;
  library.describe(document, body.firstMasterPage());
  return document;
}

bool hasEncryptedParts(zip::Archive& archive) {
  constexpr uint64_t longestManifest = uint64_t{16} << 20;  // of a hundred thousand parts
  const auto manifest = archive.read("META-INF/manifest.xml", longestManifest);
  return manifest && manifest->find("encryption-data") != manifest->npos;
}

}  // namespace

std::optional<Document> read(std::span<const uint8_t> bytes) {
  if (isEncrypted(bytes)) return std::nullopt;
  bool hasTextBoxes = false;
  auto document = readParts(bytes, false, hasTextBoxes);
  if (!document || !hasTextBoxes || !isBlank(document->text)) return document;
  document.reset();
  return readParts(bytes, true, hasTextBoxes);
}

bool isEncrypted(std::span<const uint8_t> bytes) {
  auto archive = zip::Archive::open(bytes);
  return archive && hasEncryptedParts(*archive);
}

}  // namespace standin::formats::odt
