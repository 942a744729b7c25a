// The part that holds the text, read.
#pragma once

#include "standin/formats/word_xml/body_text.hpp"
#include "standin/formats/word_xml/drawings.hpp"
#include "standin/formats/word_xml/page.hpp"

namespace standin::formats::word_xml {

class BodyHandler final : public xml::Handler {
 public:
  // Both outlive the handler. Nil resources: pictures come within the text, and links have their addresses beside them.
  BodyHandler(Definitions& definitions, Resources* resources)
      : definitions_(definitions), resources_(resources), text_(definitions), drawings_(resources, definitions.allowance) {}

  void startElement(const xml::Element& element) override;
  void endElement(xml::NameNumber name) override;
  void characters(std::string_view text) override;
  bool isFull() const override;

  Document finish();

 private:
  // Of mc:AlternateContent.
  struct Alternatives {
    size_t start;  // of their text
    bool hasChosen = false;
  };

  void startProperties(const xml::Element& element);
  void startStructure(const xml::Element& element);
  void startInline(const xml::Element& element);
  void startDocumentElement(const xml::Element& element);
  void endProperties(Name name);
  void endInline(Name name);
  void capture(const xml::Element& element);
  void endCapture(Name name);
  void appendCaptured(bool isEnd);
  void openLink(const xml::Element& element);
  void appendBreak(const xml::Element& element);
  void appendSymbol(const xml::Element& element);
  void choose(const xml::Element& element);
  void skip() { skipped_ = 1; }

  Definitions& definitions_;
  Resources* resources_;
  BodyText text_;
  Drawings drawings_;
  PropertyCollector collector_;
  std::vector<Alternatives> alternatives_;
  Page page_;
  int skipped_ = 0;  // open elements whose content does not count
  bool isCapturing_ = false, preservesSpace_ = false, textPreservesSpace_ = false;
  bool isText_ = false;     // what is captured
  bool isAtStart_ = false;  // none of it is in the text yet
  std::string captured_, dataName_;
  size_t enough_ = 0;  // bytes of captured text that are put into the text before its end
};

}  // namespace standin::formats::word_xml
