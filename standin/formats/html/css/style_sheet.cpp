// Selectors taken apart into steps, each found by the condition that tells the most.
#include "standin/formats/html/css/style_sheet.hpp"

#include <algorithm>

namespace standin::formats::html::css {
namespace {

using Part = SelectorPart;

void append(std::string& key, size_t number) { key.append(reinterpret_cast<const char*>(&number), sizeof number); }

void append(std::string& key, const std::string& text) {
  append(key, text.size());
  key += text;
}

// Equal for equal steps.
std::string keyOf(const SelectorStep& step) {
  std::string key;
  append(key, step.before);
  append(key, step.combinator);
  for (const Part& part : step.conditions) {
    append(key, size_t{part.kind} << 1 | static_cast<size_t>(part.negated));
    append(key, part.name);
    append(key, part.value);
    append(key, static_cast<size_t>(part.step));
    append(key, static_cast<size_t>(part.offset));
  }
  return key;
}

bool dependsOnPlace(const Part& part) { return part.kind >= Part::nthChild && part.kind <= Part::onlyChild; }
bool countsType(const Part& part) { return part.kind == Part::nthOfType || part.kind == Part::nthLastOfType; }

// How few elements a condition holds of; 0 where steps are not found by it.
int selectivityOf(const Part& part) {
  if (part.negated) return 0;
  if (part.kind == Part::id) return 4;
  if (part.kind == Part::className) return 3;
  if (part.isOfAttribute()) return 2;
  return part.kind == Part::type ? 1 : 0;
}

}  // namespace

// Later the stronger: by specificity, then by order in the sheets.
void StyleSheet::finish() {
  std::stable_sort(rules_.begin(), rules_.end(),
                   [](const Rule& left, const Rule& right) { return left.specificity < right.specificity; });
  StepIndex::Numbers known;
  for (uint32_t rule = 0; rule < rules_.size(); ++rule) {
    steps_[lastStepOf(rules_[rule].selector, known)].rules.push_back(rule);
    rules_[rule].selector = {};
  }
}

uint32_t StyleSheet::lastStepOf(const Selector& selector, StepIndex::Numbers& known) {
  uint32_t last = SelectorStep::none;
  SelectorStep step;
  for (auto part = selector.begin(); part != selector.end();) {
    for (; part != selector.end() && !part->isCombinator(); ++part) step.conditions.push_back(*part);
    const auto [entry, isNew] = known.try_emplace(keyOf(step), static_cast<uint32_t>(steps_.size()));
    last = isNew ? addStep(std::move(step)) : entry->second;
    if (part != selector.end()) step = {.before = last, .combinator = (part++)->kind};
  }
  return last;
}

uint32_t StyleSheet::addStep(SelectorStep step) {
  const auto number = static_cast<uint32_t>(steps_.size());
  if (step.before != SelectorStep::none) {
    steps_[step.before].goesOn = dependsOnOthers_ = true;
    steps_[step.before].goesOnToSiblings |= step.combinator == Part::sibling;
  }
  for (Part& part : step.conditions) {
    dependsOnOthers_ |= dependsOnPlace(part);
    countsTypes_ |= countsType(part);
    if (part.kind == Part::className) part.number = classNumber(part.name);
  }
  placeFor(step.conditions).push_back(number);
  steps_.push_back(std::move(step));
  return number;
}

// Takes out the condition that holds of whatever finds the step there.
Steps& StyleSheet::placeFor(Selector& conditions) {
  const auto best = std::max_element(conditions.begin(), conditions.end(), [](const Part& left, const Part& right) {
    return selectivityOf(left) < selectivityOf(right);
  });
  if (selectivityOf(*best) == 0) return index_.others;
  if (best->isOfAttribute()) return index_.byAttribute[best->name];
  const Part part = std::move(*best);
  conditions.erase(best);
  if (part.kind == Part::id) return index_.byId[part.name];
  if (part.kind == Part::className) return index_.byClass[part.number];
  return part.tag != Tag::unknown ? index_.byTag[static_cast<size_t>(part.tag)] : index_.byUnknownTag[part.name];
}

uint32_t StyleSheet::classNumber(const std::string& name) {
  const auto [entry, isNew] = index_.classNumbers.try_emplace(name, static_cast<uint32_t>(index_.byClass.size()));
  if (isNew) index_.byClass.emplace_back();
  return entry->second;
}

size_t StyleSheet::ruleCount(std::span<const uint32_t> steps) const {
  size_t count = 0;
  for (const uint32_t step : steps) count += steps_[step].rules.size();
  return count;
}

void StyleSheet::appendRules(std::span<const uint32_t> steps, std::vector<uint32_t>& out) const {
  const auto first = static_cast<ptrdiff_t>(out.size());
  for (const uint32_t step : steps) out.insert(out.end(), steps_[step].rules.begin(), steps_[step].rules.end());
  std::sort(out.begin() + first, out.end());
}

std::span<const Declaration> StyleSheet::declarationsOf(uint32_t rule) const {
  return {declarations_.data() + rules_[rule].firstDeclaration, rules_[rule].declarationCount};
}

}  // namespace standin::formats::html::css
