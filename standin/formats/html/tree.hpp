// The elements and texts of an HTML document, as a tree.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "standin/formats/html/elements.hpp"

namespace standin::formats::html {

struct Attribute {
  std::string_view name;  // in small letters
  std::string_view value;
  AttributeName known;
};

using NodeIndex = uint32_t;
inline constexpr NodeIndex noNode = 0;

// An element, or a text, which has no tag name.
struct Node {
  NodeIndex parent = noNode, firstChild = noNode, lastChild = noNode, previous = noNode, next = noNode;
  uint32_t firstAttribute = 0;
  uint16_t attributeCount = 0;
  Tag tag = Tag::unknown;
  bool isText = false;
  uint32_t knownAttributes = 0;  // a bit each, by name
  std::string_view text;         // the characters of a text, the name of an element in small letters

  bool isElement(Tag wanted) const { return tag == wanted && !isText; }
};

// Elements nested deeper than this stand beside those that they would be in.
inline constexpr size_t maximumDepth = 512;

// The node of index 0 is none; `html` is the root.
class Tree {
 public:
  // Parses the document's characters, in UTF-8, which the tree keeps: its texts are parts of them. Every sequence of
  // characters is a document. Time and memory grow with their number.
  explicit Tree(std::string source);
  Tree(const Tree&) = delete;

  const Node& operator[](NodeIndex index) const { return nodes_[index]; }
  size_t size() const { return nodes_.size(); }
  size_t sourceSize() const { return source_.size(); }  // in bytes
  NodeIndex html() const { return 1; }
  NodeIndex head() const { return 2; }
  NodeIndex body() const { return 3; }

  // Nothing when the element lacks it.
  std::optional<std::string_view> attribute(NodeIndex element, AttributeName name) const {
    return (nodes_[element].knownAttributes & bitOf(name)) != 0 ? valueOf(element, name) : std::nullopt;
  }
  std::optional<std::string_view> attribute(NodeIndex element, std::string_view name) const;
  std::span<const Attribute> attributesOf(NodeIndex element) const {
    return {attributes_.data() + nodes_[element].firstAttribute, nodes_[element].attributeCount};
  }
  // The texts in the element, one after the other.
  std::string textOf(NodeIndex element) const;
  // Calls `use` with each element, in the order of the document.
  template <class Use>
  void forEachElement(Use use) const {
    for (NodeIndex index = html(); index != noNode; index = nextInDocument(index)) {
      if (!nodes_[index].isText) use(index);
    }
  }

 private:
  friend class TreeBuilder;

  static uint32_t bitOf(AttributeName name) { return uint32_t{1} << static_cast<unsigned>(name); }
  std::optional<std::string_view> valueOf(NodeIndex element, AttributeName name) const;
  NodeIndex nextInDocument(NodeIndex index) const;
  // The node behind the whole of this one.
  NodeIndex following(NodeIndex index) const;

  std::string source_;
  std::vector<Node> nodes_;
  std::vector<Attribute> attributes_;  // those with known names first, in each element
};

}  // namespace standin::formats::html
