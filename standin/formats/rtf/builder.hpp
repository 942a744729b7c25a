// Collects the text that the reader meets, run by run, and makes the styles of the document.
#pragma once

#include <map>
#include <vector>

#include "standin/formats/code_pages.hpp"
#include "standin/formats/document_builder.hpp"
#include "standin/formats/memory_allowance.hpp"
#include "standin/formats/rtf/state.hpp"

namespace standin::formats::rtf {

struct FontEntry {
  std::string name;
  int codePage = 0;  // 0: the document's
};

class Builder {
 public:
  // Of more styles than the memory allows for a document of so many bytes no more are made: what follows looks like the
  // text before, and its pictures are left out.
  explicit Builder(size_t documentBytes) : allowance_(documentBytes) {}

  // Bytes wait until the format changes, because a character can have several.
  void addBytes(std::string_view bytes, const CharacterFormat& format, int codePage);
  void addUnit(char16_t unit, const CharacterFormat& format);
  // Ends the paragraph with the unit; the formatting in force holds for all of it.
  void endParagraph(char16_t unit, const CharacterFormat& format, const ParagraphFormat& paragraph);
  void flush();
  // The index of the link to the target, one for all links to it.
  int linkTo(const text::Link& target);

  DocumentInformation& information() { return result_.document; }
  // Ends the last paragraph, which has no end of its own, and hands the document over.
  Document finish(const ParagraphFormat& last);

  std::map<int, FontEntry> fonts;
  std::vector<text::Color> colors;  // index 0 is the reader's default
  std::vector<std::shared_ptr<const text::Attachment>> attachments;

 private:
  struct PendingRun {
    CharacterFormat format;
    uint32_t length;
  };

  void addLength(size_t units, const CharacterFormat& format);
  void closeRuns(const ParagraphFormat& paragraph);
  bool isFull() const { return allowance_.isSpent(12); }
  // Nothing when it is a new one, and there is no memory for it.
  std::optional<uint32_t> indexOf(const ParagraphFormat& paragraph);
  uint32_t styleFor(const CharacterFormat& format, const ParagraphFormat& paragraph, std::optional<uint32_t> index);
  text::Style makeStyle(const CharacterFormat& format, const ParagraphFormat& paragraph) const;
  text::Shadow shadowOf(const ShadowFormat& format) const;
  std::optional<text::Color> color(int index) const;

  DocumentBuilder result_;
  MemoryAllowance allowance_;  // taken by styles and what leads to them
  Decoder decoder_;
  std::vector<text::Link> links_;
  std::unordered_map<text::Link, int, text::LinkHash> linkIndices_;
  std::string bytes_;
  CharacterFormat bytesFormat_;
  int bytesCodePage_ = 0;
  std::vector<PendingRun> paragraphRuns_;
  std::map<ParagraphFormat, uint32_t> paragraphs_;
  std::map<std::pair<uint32_t, CharacterFormat>, uint32_t> styleIndices_;
  uint32_t lastStyle_ = 0;  // of text
};

}  // namespace standin::formats::rtf
