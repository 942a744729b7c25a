// Style definitions, element by element.
#include "standin/formats/odt/style_reader.hpp"

#include <algorithm>
#include <utility>

#include "standin/formats/colors.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::odt {
namespace {

// Of styles, fonts, list styles, pages: what is beyond is left out.
constexpr size_t mostStyles = 10'000, mostListStyles = 5'000, mostPages = 1'000;
// Bytes: what a style says itself and with its ancestors, and its places in the maps; a list style with its markers.
constexpr size_t styleCost = 2 * sizeof(StyleProperties) + 1024, listStyleCost = sizeof(ListStyle) + 256;

Family familyOfStyle(std::string_view name) {
  return name == "paragraph" ? Family::paragraph : name == "text" ? Family::text : Family::other;
}

std::optional<std::string> textOf(const xml::Element& element, name::Number attribute) {
  const auto value = element.find(attribute);
  return value ? std::optional(std::string(*value)) : std::nullopt;
}

// The shorthand comes first, because what is said of a side holds against it.
struct PageRow {
  name::Number attribute;
  std::optional<double> PageSetup::*member;
};
constexpr PageRow pageRows[] = {
    {name::margin, &PageSetup::leftMargin},     {name::margin, &PageSetup::rightMargin},
    {name::margin, &PageSetup::topMargin},      {name::margin, &PageSetup::bottomMargin},
    {name::pageWidth, &PageSetup::paperWidth},  {name::pageHeight, &PageSetup::paperHeight},
    {name::marginLeft, &PageSetup::leftMargin}, {name::marginRight, &PageSetup::rightMargin},
    {name::marginTop, &PageSetup::topMargin},   {name::marginBottom, &PageSetup::bottomMargin},
};

}  // namespace

void StyleReader::enter(xml::NameNumber section, bool hasText) {
  isAutomatic_ = section == name::automaticStyles;
  takesStyles_ = section == name::commonStyles || (isAutomatic_ && hasText);
}

void StyleReader::startElement(const xml::Element& element) {
  if (allowance_.isHalfSpent()) return;
  allowance_.take(element.cost());
  switch (element.name) {
    case name::fontFace:
      return addFont(element);
    case name::defaultStyle:
      return startStyle(element, true);
    case name::style:
      return startStyle(element, false);
    case name::listStyle:
      return startListStyle(element, false);
    case name::outlineStyle:
      return startListStyle(element, true);
    case name::numberLevel:
    case name::bulletLevel:
    case name::pictureLevel:
    case name::outlineLevel:
      if (const auto level = listStyle_ != nullptr ? addLevel(*listStyle_, element) : std::nullopt) {
        layout_ = &listStyle_->layouts[*level];
      }
      return;
    case name::levelProperties:
      if (layout_ != nullptr) takeLevelProperties(*layout_, element);
      return;
    case name::labelAlignment:
      if (layout_ != nullptr) takeLabelAlignment(*layout_, element);
      return;
    case name::notesConfiguration:
      if (library_.citationStyles_.size() >= mostPages) return;
      library_.citationStyles_[std::string(element.value(name::noteClass))] = element.value(name::citationStyle);
      return;
    case name::pageLayout:
      if (library_.pages_.size() < mostPages) page_ = &library_.pages_[std::string(element.value(name::styleName))];
      return;
    case name::masterPage:
      if (library_.layouts_.empty()) library_.firstMasterPage_ = element.value(name::styleName);
      if (library_.layouts_.size() < mostPages) {
        library_.layouts_.emplace(element.value(name::styleName), element.value(name::pageLayoutName));
      }
      return;
    default:
      return takeProperties(element);
  }
}

void StyleReader::endElement(xml::NameNumber name) {
  if (name == name::style || name == name::defaultStyle) endStyle();
  if (name == name::listStyle || name == name::outlineStyle) listStyle_ = nullptr;
  if (name == name::numberLevel || name == name::bulletLevel || name == name::pictureLevel || name == name::outlineLevel) {
    layout_ = nullptr;
  }
  if (name == name::pageLayout) page_ = nullptr;
}

void StyleReader::takeProperties(const xml::Element& element) {
  const bool isAll = element.name == name::allProperties;
  if (page_ != nullptr && (isAll || element.name == name::pageProperties)) return takePageProperties(element);
  if (layout_ != nullptr && isAll) return takeLevelProperties(*layout_, element);
  if (!key_) return;
  if (isAll || element.name == name::textProperties) takeTextProperties(style_.text, element, faces_);
  if (isAll || element.name == name::paragraphProperties) takeParagraphProperties(style_.paragraph, element);
  if (element.name == name::tabStops) style_.paragraph.paragraph.tabs.emplace();
  if (element.name == name::tabStop) takeTabStop(style_.paragraph, element);
}

void StyleReader::addFont(const xml::Element& element) {
  const std::string_view family = element.find(name::declaredFamily).value_or(element.value(name::fontFamily));
  if (faces_.size() < mostStyles && !family.empty()) {
    faces_[std::string(element.value(name::styleName))] = familyOf(family);
  }
}

void StyleReader::startStyle(const xml::Element& element, bool isDefault) {
  const Family family = familyOfStyle(element.value(name::family));
  key_.reset();
  if (!takesStyles_ || family == Family::other || library_.known_.size() >= mostStyles) return;
  const std::string_view name = isDefault ? std::string_view() : element.value(name::styleName);
  if (name.empty() && !isDefault) return;
  allowance_.take(styleCost);
  key_ = {family, isAutomatic_, std::string(name)};
  style_ = {};
  style_.listStyle = textOf(element, name::listStyleName);
  style_.masterPage = textOf(element, name::masterPageName);
  parent_.reset();
  const std::string_view parent = element.value(name::parentStyleName);
  if (!isDefault) parent_ = {family, false, std::string(parent)};
}

void StyleReader::endStyle() {
  if (!key_) return;
  ParagraphFormatting& paragraph = style_.paragraph.paragraph;
  if (isAutomatic_ && (paragraph.leftIndent || paragraph.firstLineIndent)) style_.paragraph.indentsItself = true;
  const bool isDefault = key_->name.empty() && key_->family == Family::paragraph;
  if (isDefault) library_.defaultTabInterval_ = std::exchange(paragraph.defaultTabInterval, std::nullopt);
  library_.known_.insert(*key_);
  library_.styles_.add(*std::exchange(key_, std::nullopt), parent_, std::exchange(style_, {}));
}

void StyleReader::startListStyle(const xml::Element& element, bool isOutline) {
  if (isOutline) {
    listStyle_ = &library_.outline_;
  } else if (takesStyles_ && library_.listStyles_.size() < mostListStyles) {
    allowance_.take(listStyleCost);
    const std::pair key(isAutomatic_, std::string(element.value(name::styleName)));
    listStyle_ = &library_.listStyles_.insert_or_assign(key, numberedListStyle()).first->second;
  }
}

void StyleReader::takePageProperties(const xml::Element& element) {
  for (const PageRow& row : pageRows) {
    const auto value = element.find(row.attribute);
    if (const auto length = pointsOf(value.value_or(std::string_view()))) {
      page_->setup.*row.member = std::clamp(*length, 0.0, 100'000.0);
    }
  }
  page_->background = colorNamed(element.value(name::background));
}

}  // namespace standin::formats::odt
