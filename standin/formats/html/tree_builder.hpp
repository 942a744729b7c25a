// Makes the tree of a document from its tags: elements that end by themselves, ends without starts, formatting that goes on
// over blocks, all as browsers take them.
#pragma once

#include "standin/formats/html/tokenizer.hpp"

namespace standin::formats::html {

class TreeBuilder {
 public:
  explicit TreeBuilder(Tree& tree);
  void build();

 private:
  void takeText(std::string_view characters);
  void takeStart(const Token& token);
  void takeEnd(const Token& token);
  void takeHeadElement(const Token& token);
  void startInBody(const Token& token);
  void takeContentOf(const Token& token);
  void endBefore(Tag starting);
  void openUnwritten(Tag tag, std::string_view name);
  void endListItem(Tag starting);
  void enterTablePart(Tag starting);
  void endBlock(Tag tag, std::string_view name);
  void endInline(std::string_view name);

  // Positions in the stack of open elements; 0, the root's, for none.
  size_t find(Tag tag, int boundaryTraits, Tag boundary = Tag::unknown) const;
  void endParagraph();
  // The element at the position and all in it end.
  void popThrough(size_t position);
  Tag current() const { return tree_.nodes_[open_.back()].tag; }

  NodeIndex newElement(const Token& token);
  NodeIndex cloneOf(NodeIndex element);
  void append(NodeIndex parent, NodeIndex child);
  void unlink(NodeIndex child);
  void open(NodeIndex element);
  void mergeAttributes(NodeIndex element, const Token& token);
  bool isFull() const { return tree_.nodes_.size() >= nodeLimit_; }

  // Formatting elements that go on, over the ends of blocks; noNode stands where a cell or an object began.
  void startFormatting(const Token& token);
  void endFormatting(Tag tag, std::string_view name);
  bool endFormattingOnce(Tag tag, std::string_view name);
  void moveOutOfFormatting(size_t position, size_t block);
  NodeIndex wrapFollowing(size_t position, size_t block);
  void resumeFormatting();
  void dropThirdLike(NodeIndex element);
  bool areAlike(NodeIndex left, NodeIndex right) const;
  size_t formattingPlace(Tag tag) const;
  size_t formattingPlace(NodeIndex element) const;
  size_t openPosition(NodeIndex element) const;

  Tree& tree_;
  Tokenizer tokenizer_;
  std::vector<NodeIndex> open_, formatting_;
  // Copies of formatting elements are made no more than the document could write down.
  const size_t nodeLimit_;
  bool inBody_ = false, dropsLineFeed_ = false;
  const bool isXML_;
};

}  // namespace standin::formats::html
