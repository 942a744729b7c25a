// The computed style of every element, each distinct one made once.
#pragma once

#include <deque>
#include <string>
#include <unordered_map>

#include "standin/formats/html/css/rule_finder.hpp"

namespace standin::formats::html {

class ElementStyles {
 public:
  // The number of a style.
  using Index = uint32_t;

  // The sheet is the document's own. All must outlive the styles.
  ElementStyles(const Tree& tree, const css::StyleSheet& sheet, css::ComputedStyle root);

  // Around the root element.
  static constexpr Index outermost = 0;

  // To be asked in the order of the document: of the children of each element that is shown.
  Index styleOf(NodeIndex element, Index parent);
  const css::ComputedStyle& operator[](Index style) const { return styles_[style]; }

 private:
  struct Hint {
    css::Property property;
    std::string value;
  };

  void collect(NodeIndex element);
  bool findDeclarations();
  Index plainStyle(NodeIndex element, Index parent);
  Index make(NodeIndex element, Index parent);
  css::ComputedStyle compute(NodeIndex element, Index parent) const;
  template <class Use>
  void forEachDeclaration(Use use) const;
  void makeKey(Index parent);

  const Tree& tree_;
  const css::StyleSheet& sheet_;
  std::deque<css::ComputedStyle> styles_;
  std::unordered_map<std::string, Index> indices_;
  Work work_;  // that may still be spent on the document's own rules
  css::RuleFinder defaultFinder_, finder_;

  // Of the element at hand.
  css::Steps defaultSteps_, steps_;             // that hold of it
  std::vector<uint32_t> defaultRules_, rules_;  // that end in these, where its style must be made
  std::vector<Hint> hints_;
  std::vector<css::Declaration> inlined_;
  std::string_view styleAttribute_;
  std::string key_;
};

}  // namespace standin::formats::html
