// Matching, from the last compound of a selector to the first.
#include "standin/formats/html/css/selector.hpp"

#include "standin/formats/html/ascii.hpp"

namespace standin::formats::html::css {
namespace {

using Part = SelectorPart;

bool hasWord(std::string_view words, std::string_view wanted) {
  bool found = false;
  forEachWord(words, [&](std::string_view word) { found |= word == wanted; });
  return found;
}

class Matcher {
 public:
  Matcher(const Selector& selector, const Tree& tree, uint64_t& steps) : selector_(selector), tree_(tree), steps_(steps) {}

  // An element that no ancestor helps to match has none further up that would.
  enum Outcome { matched, failed, failedForAncestorsToo };

  // Of the parts before `end`.
  Outcome match(size_t end, NodeIndex element) {
    while (end > 0 && !selector_[end - 1].isCombinator()) {
      if (!spend() || holds(selector_[end - 1], element) == selector_[end - 1].negated) return failed;
      --end;
    }
    return end == 0 ? matched : matchBefore(selector_[end - 1].kind, end - 1, element);
  }

 private:
  bool spend() { return steps_ > 0 && steps_-- > 0; }

  Outcome matchBefore(Part::Kind combinator, size_t end, NodeIndex element) {
    const bool goesUp = combinator == Part::child || combinator == Part::descendant;
    const bool goesOn = combinator == Part::descendant || combinator == Part::sibling;
    const auto next = [&](NodeIndex from) { return goesUp ? tree_[from].parent : previousElement(from); };
    for (NodeIndex other = next(element); other != noNode && spend(); other = next(other)) {
      const Outcome outcome = match(end, other);
      if (outcome != failed || !goesOn) return outcome;
    }
    return combinator == Part::descendant ? failedForAncestorsToo : failed;
  }

  NodeIndex previousElement(NodeIndex element) const {
    do {
      element = tree_[element].previous;
    } while (element != noNode && tree_[element].isText);
    return element;
  }
  NodeIndex nextElement(NodeIndex element) const {
    do {
      element = tree_[element].next;
    } while (element != noNode && tree_[element].isText);
    return element;
  }

  bool holds(const Part& part, NodeIndex element) {
    const Node& node = tree_[element];
    switch (part.kind) {
      case Part::type:
        return part.tag != Tag::unknown ? node.tag == part.tag : node.text == part.name;
      case Part::id:
        return tree_.attribute(element, AttributeName::id) == part.name;
      case Part::className:
        return hasWord(tree_.attribute(element, AttributeName::class_).value_or(""), part.name);
      case Part::isLink:
        return node.tag == Tag::a && tree_.attribute(element, AttributeName::href).has_value();
      case Part::isRoot:
        return element == tree_.html();
      case Part::isEmpty:
        return node.firstChild == noNode;
      case Part::nthChild:
        return isNth(part, place(element, false, &Matcher::previousElement));
      case Part::nthLastChild:
        return isNth(part, place(element, false, &Matcher::nextElement));
      case Part::nthOfType:
        return isNth(part, place(element, true, &Matcher::previousElement));
      case Part::nthLastOfType:
        return isNth(part, place(element, true, &Matcher::nextElement));
      case Part::onlyChild:
        return previousElement(element) == noNode && nextElement(element) == noNode;
      default:
        return part.kind == Part::anything || holdsOfAttribute(part, tree_.attribute(element, part.name));
    }
  }

  static bool holdsOfAttribute(const Part& part, const std::optional<std::string_view>& value) {
    if (!value) return false;
    const bool isSaid = !part.value.empty();
    switch (part.kind) {
      case Part::attributeEquals:
        return *value == part.value;
      case Part::attributeHasWord:
        return hasWord(*value, part.value);
      case Part::attributeStartsWithWord:
        return *value == part.value || value->starts_with(part.value + "-");
      case Part::attributeStartsWith:
        return isSaid && value->starts_with(part.value);
      case Part::attributeEndsWith:
        return isSaid && value->ends_with(part.value);
      case Part::attributeContains:
        return isSaid && value->find(part.value) != std::string_view::npos;
      default:
        return true;
    }
  }

  // From 1, among the elements that `next` goes over.
  int place(NodeIndex element, bool ofType, NodeIndex (Matcher::*next)(NodeIndex) const) {
    int count = 1;
    for (NodeIndex other = (this->*next)(element); other != noNode && spend(); other = (this->*next)(other)) {
      count += !ofType || tree_[other].text == tree_[element].text ? 1 : 0;
    }
    return count;
  }

  static bool isNth(const Part& part, int place) {
    const int beyond = place - part.offset;
    return part.step == 0 ? beyond == 0 : beyond % part.step == 0 && beyond / part.step >= 0;
  }

  const Selector& selector_;
  const Tree& tree_;
  uint64_t& steps_;
};

}  // namespace

bool matches(const Selector& selector, const Tree& tree, NodeIndex element, uint64_t& steps) {
  return Matcher(selector, tree, steps).match(selector.size(), element) == Matcher::matched;
}

}  // namespace standin::formats::html::css
