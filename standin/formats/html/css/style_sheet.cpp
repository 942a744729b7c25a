// Rules kept by the last of their conditions that tells the most.
#include "standin/formats/html/css/style_sheet.hpp"

#include <algorithm>

#include "standin/formats/html/ascii.hpp"

namespace standin::formats::html::css {

// Later the stronger: by specificity, then by order in the sheets.
void StyleSheet::finish() {
  std::stable_sort(rules_.begin(), rules_.end(),
                   [](const Rule& left, const Rule& right) { return left.specificity < right.specificity; });
  for (uint32_t rule = 0; rule < rules_.size(); ++rule) bucketFor(rules_[rule].selector).push_back(rule);
}

StyleSheet::Bucket& StyleSheet::bucketFor(const Selector& selector) {
  const SelectorPart *id = nullptr, *className = nullptr, *type = nullptr;
  for (auto part = selector.rbegin(); part != selector.rend() && !part->isCombinator(); ++part) {
    if (part->negated) continue;
    if (part->kind == SelectorPart::id) id = &*part;
    if (part->kind == SelectorPart::className) className = &*part;
    if (part->kind == SelectorPart::type && part->tag != Tag::unknown) type = &*part;
  }
  if (id != nullptr) return byId_[id->name];
  if (className != nullptr) return byClass_[className->name];
  return type != nullptr ? byTag_[static_cast<size_t>(type->tag)] : others_;
}

void StyleSheet::collectFrom(const Bucket& bucket, const Tree& tree, NodeIndex element, uint64_t& steps,
                             std::vector<uint32_t>& out) const {
  for (const uint32_t rule : bucket) {
    if (steps == 0) return;
    if (matches(rules_[rule].selector, tree, element, steps)) out.push_back(rule);
  }
}

void StyleSheet::collect(const Tree& tree, NodeIndex element, uint64_t& steps, std::vector<uint32_t>& out) const {
  const auto first = static_cast<ptrdiff_t>(out.size());
  const auto collectNamed = [&](const std::unordered_map<std::string_view, Bucket>& buckets, std::string_view name) {
    const auto bucket = buckets.find(name);
    if (bucket != buckets.end()) collectFrom(bucket->second, tree, element, steps, out);
  };
  collectFrom(others_, tree, element, steps, out);
  collectFrom(byTag_[static_cast<size_t>(tree[element].tag)], tree, element, steps, out);
  if (!byClass_.empty()) {
    forEachWord(tree.attribute(element, AttributeName::class_).value_or(""),
                [&](std::string_view word) { collectNamed(byClass_, word); });
  }
  if (!byId_.empty()) collectNamed(byId_, tree.attribute(element, AttributeName::id).value_or(""));
  std::sort(out.begin() + first, out.end());
  out.erase(std::unique(out.begin() + first, out.end()), out.end());
}

std::span<const Declaration> StyleSheet::declarationsOf(uint32_t rule) const {
  return {declarations_.data() + rules_[rule].firstDeclaration, rules_[rule].declarationCount};
}

}  // namespace standin::formats::html::css
