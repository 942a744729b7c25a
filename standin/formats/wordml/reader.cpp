// One file: each part below the root goes to the handler that knows it.
#include "standin/formats/wordml/reader.hpp"

#include "standin/formats/docx/reader.hpp"
#include "standin/formats/word_xml/body_handler.hpp"
#include "standin/formats/word_xml/information.hpp"

namespace standin::formats::wordml {
namespace {

using namespace word_xml;

// The fonts of text that names none.
class FontsHandler final : public xml::Handler {
 public:
  explicit FontsHandler(Definitions& definitions) : definitions_(definitions) {}

  void startElement(const xml::Element& element) override {
    if (nameOf(element) != Name::defaultFonts) return;
    PropertyRecord fonts;
    fonts.add({static_cast<xml::NameNumber>(Name::runFonts), {}, element.attributes});
    formats::overlay(definitions_.styles.defaultRun, runFormattingOf(fonts, definitions_.theme));
  }
  void endElement(xml::NameNumber) override {}
  void characters(std::string_view) override {}

 private:
  Definitions& definitions_;
};

class DocumentHandler final : public xml::Handler {
 public:
  explicit DocumentHandler(size_t documentBytes) : definitions_(documentBytes) {}

  void startElement(const xml::Element& element) override {
    const int depth = depth_++;
    if (depth == 0) isDocument = element.local == "wordDocument";
    if (depth == 1) part_ = &handlerOf(nameOf(element));
    part_->startElement(element);
  }
  void endElement(xml::NameNumber name) override {
    part_->endElement(name);
    if (--depth_ == 1) part_ = &body_;
  }
  void characters(std::string_view text) override { part_->characters(text); }
  bool isFull() const override { return body_.isFull(); }

  Document finish() {
    Document document = body_.finish();
    document.properties = properties_;
    return document;
  }

  bool isDocument = false;

 private:
  xml::Handler& handlerOf(Name part) {
    switch (part) {
      case Name::properties:
      case Name::customProperties:
        return information_;
      case Name::fonts:
        return fonts_;
      case Name::lists:
        return numbering_;
      case Name::styles:
        return styles_;
      case Name::documentSettings:
        return settings_;
      default:
        return body_;
    }
  }

  Definitions definitions_;
  Properties properties_;
  InformationHandler information_{properties_};
  FontsHandler fonts_{definitions_};
  NumberingHandler numbering_{definitions_.numbering, definitions_.allowance};
  StylesHandler styles_{definitions_.styles, definitions_.numbering, definitions_.theme, definitions_.allowance};
  SettingsHandler settings_{definitions_.settings};
  BodyHandler body_{definitions_, nullptr};
  xml::Handler* part_ = &body_;
  int depth_ = 0;
};

}  // namespace

std::optional<Document> read(std::span<const uint8_t> bytes) {
  DocumentHandler handler(bytes.size());
  const bool isWhole = xml::parse(bytes, nameTable(), handler);
  if (!handler.isDocument) return docx::read(bytes);
  if (!isWhole) return std::nullopt;
  return handler.finish();
}

}  // namespace standin::formats::wordml
