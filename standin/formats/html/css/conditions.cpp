// Conditions on the attributes of an element and on its place among its siblings.
#include <cstring>

#include "standin/formats/html/ascii.hpp"
#include "standin/formats/html/css/rule_finder.hpp"

namespace standin::formats::html::css {
namespace {

using Part = SelectorPart;

bool hasWord(std::string_view words, std::string_view wanted) {
  bool found = false;
  forEachWord(words, [&](std::string_view word) { found |= word == wanted; });
  return found;
}

// In time that grows with both, unlike that of finding in views.
bool holdsText(std::string_view text, std::string_view wanted) {
  return memmem(text.data(), text.size(), wanted.data(), wanted.size()) != nullptr;
}

bool isNth(const Part& part, int place) {
  const int beyond = place - part.offset;
  return part.step == 0 ? beyond == 0 : beyond % part.step == 0 && beyond / part.step >= 0;
}

}  // namespace

bool RuleFinder::holdsOfAttribute(const Part& part) {
  if (!spend(tree_[element_].attributeCount)) return false;
  const auto value = tree_.attribute(element_, std::string_view(part.name));
  if (!value || !spend((value->size() + part.value.size()) / 4)) return false;
  const bool isSaid = !part.value.empty();
  switch (part.kind) {
    case Part::attributeEquals:
      return *value == part.value;
    case Part::attributeHasWord:
      return hasWord(*value, part.value);
    case Part::attributeStartsWithWord:
      return value->starts_with(part.value) && (value->size() == part.value.size() || (*value)[part.value.size()] == '-');
    case Part::attributeStartsWith:
      return isSaid && value->starts_with(part.value);
    case Part::attributeEndsWith:
      return isSaid && value->ends_with(part.value);
    case Part::attributeContains:
      return isSaid && holdsText(*value, part.value);
    default:
      return true;
  }
}

bool RuleFinder::holdsOfPlace(const Part& part) {
  const auto ofType = [this](const SiblingCount& count) { return count.ofType.find(tree_[element_].text)->second; };
  const SiblingCount& before = siblings().count;
  switch (part.kind) {
    case Part::nthChild:
      return isNth(part, before.elements);
    case Part::nthLastChild:
      return isNth(part, allSiblings().elements - before.elements + 1);
    case Part::nthOfType:
      return isNth(part, ofType(before));
    case Part::nthLastOfType:
      return isNth(part, ofType(allSiblings()) - ofType(before) + 1);
    default:
      return allSiblings().elements == 1;
  }
}

// Counted once for all of them.
const SiblingCount& RuleFinder::allSiblings() {
  std::optional<SiblingCount>& all = siblings().all;
  if (all) return *all;
  all.emplace();
  const NodeIndex parent = tree_[element_].parent;
  NodeIndex sibling = parent == noNode ? element_ : tree_[parent].firstChild;
  for (; sibling != noNode; sibling = tree_[sibling].next) {
    if (tree_[sibling].isText) continue;
    ++all->elements;
    if (sheet_.countsTypes()) ++all->ofType[tree_[sibling].text];
  }
  return *all;
}

}  // namespace standin::formats::html::css
