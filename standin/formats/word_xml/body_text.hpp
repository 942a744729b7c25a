// The text of a document as it is read: paragraphs, the markers of list items, links and hidden text.
#pragma once

#include "standin/formats/word_xml/fields.hpp"
#include "standin/formats/word_xml/style_palette.hpp"

namespace standin::formats::word_xml {

class BodyText {
 public:
  // The definitions outlive the text; items of their lists are counted.
  explicit BodyText(Definitions& definitions) : definitions_(definitions), palette_(definitions, builder_) {}

  // A paragraph lasts until its end; its properties come before its runs, and it has none until then.
  void startParagraph();
  void setParagraphProperties(const PropertyCollector& properties);
  void endParagraph();
  // Of the text that follows.
  void setRunProperties(const PropertyRecord& properties);

  void startTable() { tableStyles_.emplace_back(); }
  void endTable();
  void setTableStyle(std::string_view style);

  void openLink(std::u16string target);
  void closeLink();
  Fields fields;

  void append(std::string_view text);
  void append(char16_t unit);
  // In the link around it, if it says none of its own.
  void append(const std::shared_ptr<const text::Attachment>& attachment, std::string_view link);

  size_t size() const { return builder_.text().size(); }
  // Bytes that it takes at most, also while it grows, without the looks of its text: those are taken from the allowance.
  size_t cost() const { return builder_.textCost() + palette_.cost() + openBytes_; }
  // The whole; the last paragraph has no end.
  Document finish();

 private:
  const ParagraphLook& look();
  bool isShown();
  std::u16string_view link() const;
  uint32_t styleOfRun(Script script, std::u16string_view link);
  void beginText(Script script);

  Definitions& definitions_;
  DocumentBuilder builder_;
  StylePalette palette_;
  const ParagraphLook* look_ = nullptr;
  const RunLook* run_ = nullptr;
  bool hasBegun_ = false;  // something of the paragraph is in the text
  const RunLook* lastRun_ = nullptr;
  Script lastScript_ = Script::western;
  std::vector<std::string> tableStyles_;
  std::vector<std::u16string> links_;
  size_t openBytes_ = 0;  // of the two
};

}  // namespace standin::formats::word_xml
