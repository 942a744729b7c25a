// Makes paragraphs of the texts, breaks and pictures that come one after the other: white space collapses, and so do the
// margins between blocks.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "standin/formats/document_builder.hpp"
#include "standin/formats/html/element_styles.hpp"

namespace standin::formats::html {

// The block that paragraphs stand in.
struct Box {
  ElementStyles::Index style = ElementStyles::outermost;
  double left = 0, right = 0;  // indents, in points
  int headerLevel = 0;
  auto operator<=>(const Box&) const = default;
};

class ParagraphBuilder {
 public:
  // The number of a link's target; 0: none.
  using Link = uint32_t;

  // Sizes of fonts are multiplied by the factor.
  ParagraphBuilder(const ElementStyles& styles, double sizeFactor) : styles_(styles), sizeFactor_(sizeFactor) {}

  // Blocks begin and end, with the space around them. Text between them is in paragraphs of its own.
  void openBlock(const Box& box, double above, bool isSaid);
  void closeBlock(const Box& outer, double below);
  void endParagraph();
  void breakPage() { breaksPage_ = true; }

  void addText(std::string_view text, ElementStyles::Index style, css::WhiteSpace whiteSpace);
  // A line separator, or a line feed, which ends a paragraph between whose parts there is no space.
  void addBreak(char16_t unit, ElementStyles::Index style);
  void addPicture(std::shared_ptr<const text::Attachment> picture, ElementStyles::Index style);
  // A paragraph, whether anything is in it or not.
  void addEmptyParagraph();
  // Put before the next paragraph's text, or on its own where the item has none.
  void setMarker(std::u16string text, ElementStyles::Index style);
  void flushMarker() {
    if (!marker_.empty()) addEmptyParagraph();
  }
  void setLink(Link link) { link_ = link; }
  Link linkTo(const text::Link& target);

  size_t paragraphCount() const { return paragraphCount_; }
  // The last paragraph has no end of its own.
  Document finish();

 private:
  struct Run {
    uint32_t length;
    ElementStyles::Index style;
    Link link;
    uint32_t picture;  // counted from 1
    bool operator==(const Run&) const = default;
  };
  struct RunHash {
    size_t operator()(const Run& run) const;
  };
  // What lines of several paragraphs differ by: the first and the last have space around.
  struct Layout {
    Box box;
    double before = 0, after = 0;
    bool hasMarker = false;
    auto operator<=>(const Layout&) const = default;
  };

  void begin();
  void closeLine(double after, bool isLast);
  void flushBreaks();
  void prepareContent();
  void extend(size_t units, ElementStyles::Index style, uint32_t picture = 0);
  void append(std::string_view text, ElementStyles::Index style);
  void addPreserved(std::string_view text, ElementStyles::Index style);
  void addCollapsed(std::string_view text, ElementStyles::Index style, bool keepsLines);
  void transform(size_t start, const css::ComputedStyle& style);

  uint32_t styleFor(Run run, uint32_t paragraph);
  uint32_t paragraphFor(const Layout& layout);
  text::Paragraph makeParagraph(const Layout& layout) const;
  const text::Style& characterStyle(ElementStyles::Index style);

  const ElementStyles& styles_;
  const double sizeFactor_;
  DocumentBuilder builder_;

  // The paragraph at hand, or the last one, whose space below is not known yet.
  std::u16string text_;
  std::vector<Run> runs_;
  Layout layout_;
  bool isOpen_ = false, isEmpty_ = true;
  size_t paragraphCount_ = 0;

  Box box_;
  double above_ = 0, saidAbove_ = 0, below_ = 0;  // since the last paragraph
  bool breaksPage_ = false;
  std::u16string marker_;
  ElementStyles::Index markerStyle_ = 0;
  Link link_ = 0;

  // A space or breaks that show only with more behind them.
  std::optional<Run> space_;
  std::u16string breaks_;
  ElementStyles::Index breakStyle_ = 0, emptyLineStyle_ = 0;

  std::vector<text::Link> links_;
  std::unordered_map<text::Link, Link, text::LinkHash> linkNumbers_;
  std::vector<std::shared_ptr<const text::Attachment>> pictures_;
  std::map<Layout, uint32_t> paragraphNumbers_;
  std::vector<text::Paragraph> paragraphs_;
  std::unordered_map<Run, uint32_t, RunHash> styleNumbers_;  // by run, its length the number of the paragraph
  std::unordered_map<ElementStyles::Index, text::Style> characterStyles_;
};

}  // namespace standin::formats::html
