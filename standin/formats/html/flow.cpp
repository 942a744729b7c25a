// What elements do when they begin and end.
#include "standin/formats/html/flow.hpp"

#include <algorithm>

#include "standin/formats/html/ascii.hpp"
#include "standin/formats/html/lists.hpp"
#include "standin/formats/html/paragraph_builder.hpp"
#include "standin/formats/utf8.hpp"

namespace standin::formats::html {
namespace {

constexpr std::string_view zeroWidthSpace = "\u200B", openingQuote = "\u201C", closingQuote = "\u201D";
constexpr std::string_view noBreakSpace = "\u00A0";
constexpr char16_t lineSeparator = 0x2028;
// Spaces that writers put in the place of others, so that they do not collapse.
constexpr std::string_view convertedSpaceClass = "Apple-converted-space";

bool isBlock(css::Display display) { return display != css::Display::inline_ && display != css::Display::none; }

class Flow {
 public:
  Flow(const Tree& tree, ElementStyles& styles, Resources& resources, double sizeFactor)
      : tree_(tree), styles_(styles), resources_(resources), paragraphs_(styles, sizeFactor), lists_(tree) {}

  Document run() {
    NodeIndex node = tree_.html();
    frames_.push_back({noNode, ElementStyles::outermost, {}, 0, 0, false});  // around the root
    while (true) {
      NodeIndex next = enter(node) ? tree_[node].firstChild : noNode;
      if (next == noNode) next = leaveUpToNext(node);
      if (next == noNode) break;
      node = next;
    }
    Document document = paragraphs_.finish();
    document.background = background_;
    return document;
  }

 private:
  // An element that is open.
  struct Frame {
    NodeIndex element;
    ElementStyles::Index style;
    Box outer;  // to go back to
    ParagraphBuilder::Link outerLink;
    size_t paragraphsBefore;
    bool isBlock;
  };

  // The node behind this one and what ends with it; none at the document's end.
  NodeIndex leaveUpToNext(NodeIndex node) {
    while (true) {
      if (frames_.back().element == node) leave();
      if (frames_.size() == 1) return noNode;
      if (tree_[node].next != noNode) return tree_[node].next;
      node = tree_[node].parent;
    }
  }

  // True when the content of the node is to be shown.
  bool enter(NodeIndex node) {
    if (tree_[node].isText) {
      addText(node);
      return false;
    }
    const Frame& around = frames_.back();
    const ElementStyles::Index style = styles_.styleOf(node, around.style);
    const css::ComputedStyle& look = styles_[style];
    if (look.display == css::Display::none || enterWithoutContent(node, style)) return false;
    const bool inFlex = styles_[around.style].display == css::Display::flex;
    frames_.push_back({node, style, box_, link_, paragraphs_.paragraphCount(), isBlock(look.display) || inFlex});
    if (look.isPage && look.background) background_ = look.background;
    if (frames_.back().isBlock) openBlock(node, style);
    open(node, style);
    return true;
  }

  void addText(NodeIndex node) {
    const ElementStyles::Index style = frames_.back().style;
    const css::ComputedStyle& look = styles_[style];
    if (!look.visible) return;
    if (tree_.attribute(frames_.back().element, AttributeName::class_) == convertedSpaceClass) {
      addConvertedSpaces(tree_[node].text, style);
    } else {
      paragraphs_.addText(tree_[node].text, style, look.whiteSpace);
    }
  }

  void addConvertedSpaces(std::string_view text, ElementStyles::Index style) {
    std::string spaces;
    while (!text.empty()) {
      const size_t end = std::min(text.find(noBreakSpace), text.size());
      spaces += text.substr(0, end);
      if (end < text.size()) spaces += ' ';
      text.remove_prefix(std::min(end + noBreakSpace.size(), text.size()));
    }
    paragraphs_.addText(spaces, style, css::WhiteSpace::preserved);
  }

  // True for elements that stand for something themselves.
  bool enterWithoutContent(NodeIndex node, ElementStyles::Index style) {
    const css::ComputedStyle& look = styles_[style];
    switch (tree_[node].tag) {
      case Tag::br:
        paragraphs_.addBreak(lineSeparator, frames_.back().style);
        return true;
      case Tag::wbr:
        paragraphs_.addText(zeroWidthSpace, style, css::WhiteSpace::preserved);
        return true;
      case Tag::img:
        addPicture(node, style);
        return true;
      case Tag::hr:
        paragraphs_.openBlock({style, box_.left, box_.right, 0}, look.margins[css::top], !look.hasDefaultMargin);
        paragraphs_.addEmptyParagraph();
        paragraphs_.closeBlock(box_, look.margins[css::bottom]);
        return true;
      default:
        return false;
    }
  }

  void addPicture(NodeIndex node, ElementStyles::Index style) {
    const css::ComputedStyle& look = styles_[style];
    const auto source = tree_.attribute(node, AttributeName::src);
    if (!source || !look.visible) return;
    auto picture = resources_.picture(*source, look.width.value_or(0), look.height.value_or(0));
    if (picture != nullptr) paragraphs_.addPicture(std::move(picture), style);
  }

  void openBlock(NodeIndex node, ElementStyles::Index style) {
    const css::ComputedStyle& look = styles_[style];
    Box box{style, box_.left, box_.right, headingLevel(tree_[node].tag)};
    if (box.headerLevel == 0) box.headerLevel = box_.headerLevel;
    double above = 0;
    if (!look.isPage) {
      box.left += look.margins[css::left] + look.paddings[css::left];
      box.right += look.margins[css::right] + look.paddings[css::right];
      above = std::max(0.0, look.margins[css::top] + look.paddings[css::top]);
    }
    paragraphs_.openBlock(box, above, !look.hasDefaultMargin);
    if (look.breakBefore == css::BreakMode::page) paragraphs_.breakPage();
    box_ = box;
  }

  void open(NodeIndex node, ElementStyles::Index style) {
    const Tag tag = tree_[node].tag;
    if (Lists::isList(tag)) lists_.open(node);
    if (styles_[style].display == css::Display::listItem)
      paragraphs_.setMarker(lists_.markerOf(node, styles_[style]), style);
    if (tag == Tag::q) paragraphs_.addText(openingQuote, style, css::WhiteSpace::preserved);
    if (tag != Tag::a) return;
    if (const auto target = tree_.attribute(node, AttributeName::href)) {
      link_ = trimmed(*target).empty() ? 0 : paragraphs_.linkTo(unitsOf(resources_.resolve(*target)));
      paragraphs_.setLink(link_);
    }
  }

  void leave() {
    const Frame frame = frames_.back();
    const css::ComputedStyle& look = styles_[frame.style];
    const Tag tag = tree_[frame.element].tag;
    if (tag == Tag::q) paragraphs_.addText(closingQuote, frame.style, css::WhiteSpace::preserved);
    if (Lists::isList(tag)) lists_.close();
    if (look.display == css::Display::listItem) paragraphs_.flushMarker();
    if (frame.isBlock) closeBlock(frame, look);
    link_ = frame.outerLink;
    paragraphs_.setLink(link_);
    frames_.pop_back();
  }

  // A cell is a paragraph at least.
  void closeBlock(const Frame& frame, const css::ComputedStyle& look) {
    const bool isCell = tree_[frame.element].tag == Tag::td || tree_[frame.element].tag == Tag::th;
    if (isCell) paragraphs_.endParagraph();
    if (isCell && paragraphs_.paragraphCount() == frame.paragraphsBefore) paragraphs_.addEmptyParagraph();
    const double below = look.isPage ? 0 : std::max(0.0, look.margins[css::bottom] + look.paddings[css::bottom]);
    paragraphs_.closeBlock(frame.outer, below);
    if (look.breakAfter == css::BreakMode::page) paragraphs_.breakPage();
    box_ = frame.outer;
  }

  const Tree& tree_;
  ElementStyles& styles_;
  Resources& resources_;
  ParagraphBuilder paragraphs_;
  Lists lists_;
  std::vector<Frame> frames_;
  Box box_;
  ParagraphBuilder::Link link_ = 0;
  std::optional<text::Color> background_;
};

}  // namespace

Document flow(const Tree& tree, ElementStyles& styles, Resources& resources, double textSizeMultiplier) {
  return Flow(tree, styles, resources, textSizeMultiplier).run();
}

}  // namespace standin::formats::html
