// The walk, and the steps that hold of an element because others hold of those around.
#include "standin/formats/html/css/rule_finder.hpp"

#include <algorithm>

#include "standin/formats/html/ascii.hpp"

namespace standin::formats::html::css {
namespace {

// That hold of one element and that others go on from: as many as there are open elements are kept at a time.
constexpr size_t mostHolding = 4096;

bool contains(const Steps& sorted, uint32_t step) { return std::binary_search(sorted.begin(), sorted.end(), step); }

void sortOnce(Steps& steps, size_t from) {
  if (steps.size() < from + 2) return;
  const auto first = steps.begin() + static_cast<ptrdiff_t>(from);
  std::sort(first, steps.end());
  steps.erase(std::unique(first, steps.end()), steps.end());
}

void mergeInto(Steps& sorted, const Steps& more) {
  const auto middle = static_cast<ptrdiff_t>(sorted.size());
  for (const uint32_t step : more) {
    if (!std::binary_search(sorted.begin(), sorted.begin() + middle, step)) sorted.push_back(step);
  }
  std::inplace_merge(sorted.begin(), sorted.begin() + middle, sorted.end());
}

}  // namespace

RuleFinder::RuleFinder(const StyleSheet& sheet, const Tree& tree)
    : sheet_(sheet), tree_(tree), open_(1), holdsAround_(sheet.steps().size()) {}

void RuleFinder::find(NodeIndex element, Work& work, Steps& found) {
  const size_t before = found.size();
  element_ = element;
  work_ = &work;
  found_ = &found;
  if (sheet_.dependsOnOthers()) {
    moveInto(tree_[element].parent);
    count(element);
  }
  tryFoundBy(element);
  sortOnce(found, before);
  if (sheet_.dependsOnOthers()) finishElement();
}

void RuleFinder::moveInto(NodeIndex parent) {
  while (depth_ > 0 && siblings().parent != parent && siblings().parent != tree_[parent].parent) close();
  if (siblings().parent != parent) open(parent);
}

void RuleFinder::open(NodeIndex parent) {
  for (const uint32_t step : siblings().last) ++holdsAround_[step];
  if (++depth_ == open_.size()) open_.emplace_back();
  siblings().parent = parent;
}

void RuleFinder::close() {
  Siblings& closing = siblings();
  closing.last.clear();
  closing.earlier.clear();
  closing.count.elements = 0;
  closing.count.ofType.clear();
  closing.all.reset();
  --depth_;
  for (const uint32_t step : siblings().last) --holdsAround_[step];
}

void RuleFinder::count(NodeIndex element) {
  SiblingCount& count = siblings().count;
  ++count.elements;
  if (sheet_.countsTypes()) ++count.ofType[tree_[element].text];
}

// The element becomes the last of its siblings.
void RuleFinder::finishElement() {
  sortOnce(holding_, 0);
  siblings().last.swap(holding_);
  holding_.clear();
  Steps& last = siblings().last;
  const auto goesOn = [this](uint32_t step) { return sheet_.steps()[step].goesOnToSiblings; };
  if (std::none_of(last.begin(), last.end(), goesOn)) return;
  Steps kept;
  std::copy_if(last.begin(), last.end(), std::back_inserter(kept), goesOn);
  mergeInto(siblings().earlier, kept);
}

void RuleFinder::tryFoundBy(NodeIndex element) {
  const StepIndex& index = sheet_.index();
  const Node& node = tree_[element];
  findClasses();
  tryEach(index.others);
  tryEach(index.byTag[static_cast<size_t>(node.tag)]);
  if (node.tag == Tag::unknown) tryNamed(index.byUnknownTag, node.text);
  if (node.attributeCount == 0) return;
  for (const uint32_t number : classes_) tryEach(index.byClass[number]);
  if (!index.byId.empty()) tryNamed(index.byId, tree_.attribute(element, AttributeName::id).value_or(""));
  if (index.byAttribute.empty()) return;
  for (const Attribute& attribute : tree_.attributesOf(element)) tryNamed(index.byAttribute, attribute.name);
}

void RuleFinder::findClasses() {
  const StepIndex::Numbers& numbers = sheet_.index().classNumbers;
  classes_.clear();
  if (numbers.empty()) return;
  const std::string_view words = tree_.attribute(element_, AttributeName::class_).value_or("");
  if (words.empty() || !spend(words.size())) return;
  forEachWord(words, [&](std::string_view word) {
    const auto known = numbers.find(word);
    if (known != numbers.end()) classes_.push_back(known->second);
  });
  sortOnce(classes_, 0);
}

void RuleFinder::tryNamed(const StepIndex::ByName& steps, std::string_view name) {
  if (!spend(name.size())) return;
  if (const auto found = steps.find(name); found != steps.end()) tryEach(found->second);
}

void RuleFinder::tryEach(const Steps& steps) {
  for (const uint32_t number : steps) {
    if (!spend(1)) return;
    const SelectorStep& step = sheet_.steps()[number];
    const auto isMet = [this](const SelectorPart& part) { return holds(part) != part.negated && spend(1); };
    if (!comesFrom(step) || !std::all_of(step.conditions.begin(), step.conditions.end(), isMet)) continue;
    if (!step.rules.empty()) found_->push_back(number);
    if (step.goesOn && holding_.size() < mostHolding) holding_.push_back(number);
  }
}

bool RuleFinder::comesFrom(const SelectorStep& step) {
  if (step.before == SelectorStep::none) return true;
  switch (step.combinator) {
    case SelectorPart::descendant:
      return holdsAround_[step.before] > 0;
    case SelectorPart::child:
      return depth_ > 0 && contains(open_[depth_ - 1].last, step.before);
    case SelectorPart::adjacent:
      return contains(siblings().last, step.before);
    default:
      return contains(siblings().earlier, step.before);
  }
}

bool RuleFinder::holds(const SelectorPart& part) {
  const Node& node = tree_[element_];
  switch (part.kind) {
    case SelectorPart::anything:
      return true;
    case SelectorPart::type:
      return part.tag != Tag::unknown ? node.tag == part.tag : node.text == part.name;
    case SelectorPart::id:
      return spend(part.name.size()) && tree_.attribute(element_, AttributeName::id) == part.name;
    case SelectorPart::className:
      return contains(classes_, part.number);
    case SelectorPart::isLink:
      return node.tag == Tag::a && tree_.attribute(element_, AttributeName::href).has_value();
    case SelectorPart::isRoot:
      return element_ == tree_.html();
    case SelectorPart::isEmpty:
      return node.firstChild == noNode;
    default:
      return part.isOfAttribute() ? holdsOfAttribute(part) : holdsOfPlace(part);
  }
}

}  // namespace standin::formats::html::css
