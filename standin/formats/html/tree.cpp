// Walking and asking the tree.
#include "standin/formats/html/tree.hpp"

namespace standin::formats::html {

std::optional<std::string_view> Tree::valueOf(NodeIndex element, AttributeName name) const {
  for (const Attribute& attribute : attributesOf(element)) {
    if (attribute.known == name) return attribute.value;
  }
  return std::nullopt;
}

std::optional<std::string_view> Tree::attribute(NodeIndex element, std::string_view name) const {
  for (const Attribute& attribute : attributesOf(element)) {
    if (attribute.name == name) return attribute.value;
  }
  return std::nullopt;
}

std::string Tree::textOf(NodeIndex element) const {
  std::string text;
  const NodeIndex end = following(element);
  for (NodeIndex index = element; index != end; index = nextInDocument(index)) {
    if (nodes_[index].isText) text += nodes_[index].text;
  }
  return text;
}

NodeIndex Tree::nextInDocument(NodeIndex index) const {
  return nodes_[index].firstChild != noNode ? nodes_[index].firstChild : following(index);
}

NodeIndex Tree::following(NodeIndex index) const {
  while (index != noNode && nodes_[index].next == noNode) index = nodes_[index].parent;
  return nodes_[index].next;
}

}  // namespace standin::formats::html
