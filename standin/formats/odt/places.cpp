// Styles laid over one another, with what comes of it kept.
#include "standin/formats/odt/places.hpp"

#include <algorithm>

#include "standin/formats/utf8.hpp"

namespace standin::formats::odt {
namespace {

// The marker stands behind a tab, the text behind another: a stop for each, where the style has none between.
void addMarkerStops(text::Paragraph& paragraph, double marker, double text) {
  constexpr double least = 1;  // a stop at the very margin would be passed over
  const double first = std::max(marker, least);
  std::vector<text::TabStop> stops{{first, text::TabKind::left}};
  if (text > first) stops.push_back({text, text::TabKind::left});
  for (const text::TabStop& stop : paragraph.tabs.value_or(std::vector<text::TabStop>())) {
    if (stop.position > stops.back().position) stops.push_back(stop);
  }
  paragraph.tabs = std::move(stops);
  paragraph.firstLineIndent = 0;
}

// Inside a list the text stands where the list says, unless the paragraph itself says it.
void indent(ParagraphProperties& properties, const LevelLayout& layout) {
  ParagraphFormatting& paragraph = properties.paragraph;
  if (layout.addsToParagraph) {
    paragraph.leftIndent = paragraph.leftIndent.value_or(0) + layout.leftIndent;
    paragraph.firstLineIndent = paragraph.firstLineIndent.value_or(0) + layout.firstLineIndent;
  } else if (!properties.indentsItself.value_or(false)) {
    paragraph.leftIndent = layout.leftIndent;
    paragraph.firstLineIndent = layout.firstLineIndent;
  }
}

}  // namespace

uint32_t Places::Numbers::of(std::string_view name) {
  auto known = numbers_.find(name);
  if (known == numbers_.end()) {
    known = numbers_.emplace(name, static_cast<uint32_t>(names_.size())).first;
    names_.push_back(&known->first);
    constexpr size_t placeCost = 160;  // in the map and in the lists of names and targets
    bytes_ += placeCost + 3 * name.size();
  }
  return known->second;
}

size_t Places::cost() const {
  return paragraphs_.size() * lookCost + texts_.size() * textCost + styles_.size() * styleCost + paragraphNames_.cost() +
         spanNames_.cost() + links_.cost();
}

size_t Places::StyleKeyHash::operator()(const StyleKey& key) const {
  constexpr size_t factor = 0x9E3779B97F4A7C15u;
  return ((key.place.paragraph * factor + key.place.text) * factor + key.place.link) * factor +
         static_cast<size_t>(key.script);
}

Place Places::paragraph(std::string_view styleName, const ParagraphRole& role) {
  const uint32_t number = paragraphNames_.of(styleName);
  auto known = paragraphIndices_.find({number, role});
  if (known == paragraphIndices_.end()) {
    if (paragraphs_.size() >= mostWays_) return {};
    ParagraphLook look = lookOf(styleName, role);
    const StyleProperties& style = library_.style(Family::paragraph, styleName);
    const auto [text, isNew] = paragraphTexts_.try_emplace(&style, static_cast<uint32_t>(texts_.size()));
    if (isNew) texts_.push_back(style.text);
    look.text = text->second;
    known = paragraphIndices_.emplace(std::pair(number, role), static_cast<uint32_t>(paragraphs_.size())).first;
    paragraphs_.push_back(std::move(look));
  }
  return {known->second, paragraphs_[known->second].text, 0};
}

ParagraphLook Places::lookOf(std::string_view styleName, const ParagraphRole& role) {
  const StyleProperties& style = library_.style(Family::paragraph, styleName);
  ParagraphProperties properties = style.paragraph;
  if (role.list != nullptr) indent(properties, *role.list);
  const double left = properties.paragraph.leftIndent.value_or(0);
  const double marker = left + properties.paragraph.firstLineIndent.value_or(0);
  if (role.list != nullptr && !role.hasMarker) properties.paragraph.firstLineIndent = 0;
  ParagraphLook look;
  look.layout = paragraphOf(properties, library_.tabsFollowIndent);
  if (role.hasMarker) addMarkerStops(look.layout, marker, std::max(left, role.list->tabStop));
  look.layout.headerLevel = role.headerLevel;
  look.breaksBefore = properties.breaksBefore.value_or(false);
  look.breaksAfter = properties.breaksAfter.value_or(false);
  look.masterPage = style.masterPage.value_or(std::string());
  return look;
}

Place Places::span(Place place, std::string_view styleName) {
  if (styleName.empty()) return place;
  const uint64_t key = uint64_t{place.text} << 32 | spanNames_.of(styleName);
  const auto known = spanTexts_.find(key);
  if (known != spanTexts_.end()) {
    place.text = known->second;
  } else if (texts_.size() < mostWays_) {
    texts_.push_back(texts_[place.text]);
    overlay(texts_.back(), library_.style(Family::text, styleName).text);
    place.text = static_cast<uint32_t>(texts_.size() - 1);
    spanTexts_.emplace(key, place.text);
  }
  return place;
}

Place Places::link(Place place, std::string_view target) {
  if (target.empty()) return place;
  place.link = links_.of(target) + 1;
  if (place.link == targets_.size()) targets_.push_back(unitsOf(target));
  return place;
}

text::Style Places::styleAt(Place place, Script script) const {
  text::Style style = styleOf(texts_[place.text], script);
  style.paragraph = paragraphs_[place.paragraph].layout;
  style.link = targets_[place.link];
  return style;
}

uint32_t Places::style(Place place, Script script) {
  const auto known = styles_.find({place, script});
  if (known != styles_.end()) return known->second;
  if (styles_.size() >= mostWays_) return 0;
  return styles_[{place, script}] = builder_.intern(styleAt(place, script));
}

uint32_t Places::attachmentStyle(Place place, std::shared_ptr<const text::Attachment> attachment) {
  text::Style style = styleAt(place, Script::western);
  style.attachment = std::move(attachment);
  return builder_.intern(style);
}

}  // namespace standin::formats::odt
