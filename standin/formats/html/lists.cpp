// Counting.
#include "standin/formats/html/lists.hpp"

#include <algorithm>

#include "standin/formats/units.hpp"

namespace standin::formats::html {
namespace {

constexpr double mostNumber = 1e9;

std::optional<int> wholeNumber(const std::optional<std::string_view>& text) {
  const auto number = text ? numberOf(*text) : std::nullopt;
  return number ? std::optional(static_cast<int>(std::clamp(*number, -mostNumber, mostNumber))) : std::nullopt;
}

}  // namespace

void Lists::open(NodeIndex list) {
  Counter counter;
  if (tree_.attribute(list, AttributeName::reversed)) counter = {itemCount(list), -1};
  if (const auto start = wholeNumber(tree_.attribute(list, AttributeName::start))) counter.next = *start;
  counters_.push_back(counter);
}

int Lists::itemCount(NodeIndex list) const {
  int count = 0;
  for (NodeIndex child = tree_[list].firstChild; child != noNode; child = tree_[child].next) {
    count += tree_[child].isElement(Tag::li) ? 1 : 0;
  }
  return count;
}

std::u16string Lists::markerOf(NodeIndex item, const css::ComputedStyle& style) {
  Counter outside;
  Counter& counter = counters_.empty() ? outside : counters_.back();
  if (const auto value = wholeNumber(tree_.attribute(item, AttributeName::value))) counter.next = *value;
  const int number = counter.next;
  counter.next += counter.step;
  if (style.markerFormat == NumberFormat::none) return {};
  if (style.markerFormat == NumberFormat::bullet) return markerText(style.bullet);
  return markerText(numberText(style.markerFormat, number) + u".");
}

}  // namespace standin::formats::html
