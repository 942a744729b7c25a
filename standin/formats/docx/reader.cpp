// The parts in the order in which they are needed, found through their relationships.
#include "standin/formats/docx/reader.hpp"

#include "standin/formats/docx/package.hpp"
#include "standin/formats/word_xml/body_handler.hpp"
#include "standin/formats/word_xml/information.hpp"

namespace standin::formats::docx {
namespace {

using namespace word_xml;

class PackageResources final : public Resources {
 public:
  PackageResources(Package& package, const Relationships& relationships)
      : package_(package), relationships_(relationships) {}

  std::string linkTarget(std::string_view id) override {
    const Relationship* found = relationships_.find(id);
    return found != nullptr ? found->target : std::string();
  }
  std::optional<std::string> picture(std::string_view id, size_t most) override {
    const Relationship* found = relationships_.find(id);
    return found != nullptr && found->type == "image" ? package_.bytes(found->target, most) : std::nullopt;
  }

 private:
  Package& package_;
  const Relationships& relationships_;
};

// A part that is missing or damaged says what it can.
void parsePart(Package& package, const Relationships& relationships, std::string_view type, xml::Handler& handler) {
  if (const Relationship* found = relationships.ofType(type)) package.parse(found->target, handler);
}

void readDefinitions(Package& package, const Relationships& relationships, Definitions& definitions) {
  ThemeHandler theme(definitions.theme);
  parsePart(package, relationships, "theme", theme);
  NumberingHandler numbering(definitions.numbering, definitions.allowance);
  parsePart(package, relationships, "numbering", numbering);
  StylesHandler styles(definitions.styles, definitions.numbering, definitions.theme, definitions.allowance);
  parsePart(package, relationships, "styles", styles);
  SettingsHandler settings(definitions.settings);
  parsePart(package, relationships, "settings", settings);
}

void readProperties(Package& package, const Relationships& relationships, Properties& properties) {
  InformationHandler handler(properties);
  for (const char* type : {"core-properties", "extended-properties", "custom-properties"}) {
    parsePart(package, relationships, type, handler);
  }
}

}  // namespace

std::optional<Document> read(std::span<const uint8_t> bytes) {
  const std::unique_ptr<Package> package = openPackage(bytes);
  if (package == nullptr) return std::nullopt;
  Definitions definitions(bytes.size());
  const Relationships packageRelationships(*package, {}, definitions.allowance);
  const Relationship* main = packageRelationships.ofType("officeDocument");
  const std::string part = main != nullptr ? main->target : "word/document.xml";
  const Relationships relationships(*package, part, definitions.allowance);
  readDefinitions(*package, relationships, definitions);
  PackageResources resources(*package, relationships);
  BodyHandler body(definitions, &resources);
  if (!package->parse(part, body)) return std::nullopt;
  Document document = body.finish();
  readProperties(*package, packageRelationships, document.properties);
  return document;
}

}  // namespace standin::formats::docx
