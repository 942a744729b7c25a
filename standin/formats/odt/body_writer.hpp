// Writes the text of a document, and collects the styles and pictures in it.
#pragma once

#include <unordered_map>
#include <unordered_set>

#include "standin/formats/odt/style_texts.hpp"
#include "standin/formats/pictures/sizes.hpp"

namespace standin::formats::odt {

struct PackagedPicture {
  std::string name;       // in the package
  std::string_view type;  // "png"
  std::span<const uint8_t> bytes;
};

// U+000C at the start of a paragraph or at its end breaks the page there; elsewhere it ends the paragraph besides.
class BodyWriter {
 public:
  BodyWriter(const StyledRuns& styled, const StyleTexts& texts);

  // The paragraphs; what the other functions give is known afterwards.
  std::string write();

  std::string automaticStyles() const;
  const std::vector<PackagedPicture>& pictures() const { return pictures_; }
  bool hasLinks() const { return hasLinks_; }

 private:
  // A paragraph's characters, without its end.
  struct Paragraph {
    size_t from, to;
    size_t next;  // where the next one starts; beyond the text behind the last one
    bool breaksBefore, breaksAfter;
  };
  // Automatic styles of a family, one for each text that describes one.
  class StyleList {
   public:
    StyleList(std::string_view family, char letter) : family_(family), letter_(letter) {}
    // Its number, from 1. The description is what follows the family in the style's element.
    size_t add(const std::string& description);
    void append(std::string& out) const;

   private:
    std::string_view family_;
    char letter_;  // names are it and the number
    std::unordered_map<std::string, size_t> numbers_;
    std::vector<const std::string*> order_;
  };
  struct ParagraphKey {
    const text::Style *first, *last;
    bool breaksBefore, breaksAfter;
    bool operator==(const ParagraphKey&) const = default;
  };
  struct ParagraphKeyHash {
    size_t operator()(const ParagraphKey& key) const;
  };

  Paragraph paragraphAt(size_t from) const;
  void moveTo(size_t position);
  const text::Style& styleAt(size_t position);
  void writeParagraph(const Paragraph& paragraph);
  void writeLink(const text::Style& style);
  // An address is written wherever its link is, in every paragraph: thousands of megabytes of it would be of no use.
  bool takesLink(const text::Link& link);
  void writeUnits(const Paragraph& paragraph, const text::Style& style, size_t from, size_t to);
  bool isPlainSpace(const Paragraph& paragraph, size_t at) const;
  size_t writeSpaces(const Paragraph& paragraph, size_t from, size_t to);
  void writePicture(const text::Attachment& attachment);
  const PackagedPicture* packaged(const text::Attachment& attachment);
  size_t textNumber(const text::Style& style);
  size_t paragraphNumber(const ParagraphKey& key);

  const StyledRuns& styled_;
  const StyleTexts& texts_;
  const size_t size_;
  std::u16string units_;  // with a paragraph's end behind them
  std::string out_;
  size_t run_ = 0, runEnd_ = 0;  // the run that holds the position, and its end
  std::unordered_map<const text::Style*, size_t> textNumbers_;
  std::unordered_map<ParagraphKey, size_t, ParagraphKeyHash> paragraphNumbers_;
  StyleList textStyles_{"text", 'T'}, paragraphStyles_{"paragraph", 'P'};
  std::unordered_map<const uint8_t*, size_t> pictureIndices_;  // by the address of the bytes
  std::vector<PackagedPicture> pictures_;
  pictures::KnownSizes sizes_;
  const text::Link* link_ = nullptr;  // that is open
  bool hasLinks_ = false;
  static constexpr size_t mostRepeatedUnits = size_t{1} << 24;
  std::unordered_set<text::Link, text::LinkHash> links_;
  size_t repeatedUnits_ = 0;  // of addresses that had been written before
};

}  // namespace standin::formats::odt
