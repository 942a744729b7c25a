// Lists opened and closed, items counted.
#include "standin/formats/odt/numbering.hpp"

#include <algorithm>
#include <utility>

#include "standin/formats/odt/names.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::odt {
namespace {

std::optional<int> wholeOf(const xml::Element& element, name::Number attribute) {
  constexpr double most = 1e6;
  const auto number = numberOf(element.value(attribute));
  return number ? std::optional(static_cast<int>(std::clamp(*number, -most, most))) : std::nullopt;
}

bool isTrue(const xml::Element& element, name::Number attribute) { return element.value(attribute) == "true"; }

}  // namespace

// A list goes on counting where the one that it names ended, or the one before it if that has the same style.
size_t Numbering::countersFor(const xml::Element& element) {
  const std::string style(element.value(name::textStyleName));
  const auto continued = identified_.find(std::string(element.value(name::continueList)));
  size_t counters = counters_.size();
  if (continued != identified_.end()) {
    counters = continued->second;
  } else if (isTrue(element, name::continueNumbering) && !counters_.empty() && style == lastStyle_) {
    counters = lastCounters_;
  } else {
    counters_.emplace_back();
  }
  lastStyle_ = style;
  lastCounters_ = counters;
  if (const auto identifier = element.find(name::identifier)) identify(std::string(*identifier), counters);
  return counters;
}

// The counters that the identifier had before, or these.
size_t Numbering::identify(std::string identifier, size_t counters) {
  constexpr size_t placeCost = 128;  // bytes in the map
  identifiedBytes_ += identifier.size() + placeCost;
  return identified_.emplace(std::move(identifier), counters).first->second;
}

void Numbering::startList(const xml::Element& element) {
  OpenList list;
  const auto* style = library_.listStyle(element.value(name::textStyleName));
  if (isInList()) {
    list = open_.back();
    ++list.level;
    list.continues = list.continues || isTrue(element, name::continueNumbering);
    list.restarts = !list.continues;
    list.awaitsMarker = false;
    if (style != nullptr) list.style = style;
  } else {
    const size_t known = counters_.size();
    list.counters = countersFor(element);
    list.continues = list.counters < known;
    list.style = style;
  }
  open_.push_back(list);
}

void Numbering::endList() {
  if (!isInList()) return;
  open_.pop_back();
  if (isInList()) open_.back().continues = false;
}

void Numbering::startItem(const xml::Element& element) {
  if (!isInList()) return;
  OpenList& list = open_.back();
  list.awaitsMarker = element.name == name::listItem;
  const ListStyle& style = list.style != nullptr ? *list.style : plain_;
  const int start = style.levels[static_cast<size_t>(std::min(list.level, listLevels - 1))].start;
  if (std::exchange(list.restarts, false)) counters_[list.counters].restart(list.level, start);
  if (const auto number = wholeOf(element, name::startValue)) counters_[list.counters].restart(list.level, *number);
}

void Numbering::startNumberedParagraph(const xml::Element& element) {
  const size_t counters = identify("numbered " + std::string(element.value(name::listIdentifier)), counters_.size());
  if (counters == counters_.size()) counters_.emplace_back();
  OpenList list{library_.listStyle(element.value(name::textStyleName)), counters};
  list.level = std::clamp(wholeOf(element, name::level).value_or(1), 1, listLevels) - 1;
  list.awaitsMarker = true;
  if (const auto number = wholeOf(element, name::startValue)) counters_[list.counters].restart(list.level, *number);
  open_.push_back(list);
}

void Numbering::leaveCell() {
  if (bases_.size() == 1) return;
  open_.resize(bases_.back());
  bases_.pop_back();
}

Label Numbering::label(const ListStyle& style, ListCounters& counters, int level, bool isMarked) {
  const int held = std::min(level, listLevels - 1);
  const LevelLayout* layout = &style.layouts[static_cast<size_t>(held)];
  return {isMarked ? counters.next(style.levels, held) : std::u16string(), layout};
}

Label Numbering::paragraph(std::string_view listStyle) {
  if (!isInList()) return {};
  OpenList& list = open_.back();
  const ListStyle* style = list.style != nullptr ? list.style : library_.listStyle(listStyle);
  return label(style != nullptr ? *style : plain_, counters_[list.counters], list.level,
               std::exchange(list.awaitsMarker, false));
}

Label Numbering::heading(int level, const xml::Element& element, std::string_view listStyle) {
  if (isInList()) return paragraph(listStyle);
  if (isTrue(element, name::isListHeader)) return {};
  if (isTrue(element, name::restartNumbering)) {
    headings_.restart(level - 1, wholeOf(element, name::startValue).value_or(1));
  }
  const Label found = label(library_.outline(), headings_, level - 1, true);
  return found.marker.empty() ? Label() : found;
}

}  // namespace standin::formats::odt
