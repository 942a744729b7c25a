// The part that defines the styles.
#include "standin/formats/word_xml/styles.hpp"

#include <utility>

#include "standin/formats/word_xml/values.hpp"

namespace standin::formats::word_xml {
namespace {

constexpr size_t mostStyles = 5000;
// Bytes: what a style says itself and with its ancestors, their tabs, and its places in the maps.
constexpr size_t styleCost = 2 * (sizeof(ParagraphProperties) + sizeof(RunFormatting)) + 2 * 1024;

// "heading 1" to "heading 9", the names of the programs' own styles whatever their language.
int levelOfHeading(std::string_view name) {
  constexpr std::string_view heading = "heading ";
  const bool is = name.size() == heading.size() + 1 && isSameValue(name.substr(0, heading.size()), heading);
  const char digit = is ? name.back() : '0';
  return digit >= '1' && digit <= '9' ? digit - '0' : 0;
}

}  // namespace

Styles::Styles() {
  defaultRun.font = "Times New Roman";
  defaultRun.size = 10;
}

bool Styles::add(const std::string& id, std::optional<std::string> parent, ParagraphProperties paragraph,
                 RunFormatting run) {
  if (ids_.size() >= mostStyles) return false;
  ids_.insert(id);
  paragraphs_.add(id, parent, std::move(paragraph));
  runs_.add(id, std::move(parent), std::move(run));
  return true;
}

void StylesHandler::startElement(const xml::Element& element) {
  allowance_.take(element.cost());
  if (skipped_ > 0) {
    ++skipped_;
    return;
  }
  if (collector_.isOpen()) return collector_.startElement(element);
  switch (nameOf(element)) {
    case Name::documentDefaults:
      inDefaults_ = true;
      break;
    case Name::style:
      startStyle(element);
      break;
    case Name::latentStyles:
    case Name::tableStyleCondition:
      skipped_ = 1;
      break;
    case Name::name:
      name_ = valueOf(element);
      break;
    case Name::basedOn:
      parent_ = valueOf(element);
      break;
    case Name::paragraphProperties:
    case Name::runProperties:
      collector_.open(element);
      break;
    default:
      break;
  }
}

void StylesHandler::startStyle(const xml::Element& element) {
  inStyle_ = true;
  id_ = valueOf(element, Name::styleId);
  name_.clear();
  parent_.reset();
  paragraph_ = {};
  run_ = {};
  const bool isDefault = find(element, Name::default_) && isOn(element, Name::default_);
  if (isDefault && valueOf(element, Name::type) == "paragraph") styles_.defaultParagraphStyle = id_;
}

void StylesHandler::endElement(xml::NameNumber name) {
  if (skipped_ > 0) {
    --skipped_;
    return;
  }
  if (collector_.isOpen()) {
    collector_.endElement();
    if (!collector_.isOpen()) endFormatting(nameOf(name));
    return;
  }
  if (nameOf(name) == Name::documentDefaults) inDefaults_ = false;
  if (nameOf(name) == Name::style && inStyle_) endStyle();
}

void StylesHandler::endFormatting(Name name) {
  RunFormatting& run = inDefaults_ ? styles_.defaultRun : run_;
  if (name == Name::runProperties) return formats::overlay(run, runFormattingOf(collector_.run, theme_));
  (inDefaults_ ? styles_.defaultParagraph : paragraph_) = paragraphPropertiesOf(collector_.paragraph);
}

// A list's indents come before those of the style that puts paragraphs on the list.
ParagraphProperties StylesHandler::onItsList(ParagraphProperties own) const {
  if (!own.list) return own;
  if (!own.listLevel) own.listLevel = numbering_.levelOfStyle(*own.list, id_);
  const NumberingLevel* level = numbering_.level(*own.list, own.listLevel.value_or(0));
  if (level == nullptr) return own;
  ParagraphProperties paragraph = level->paragraph;
  overlay(paragraph, own);
  return paragraph;
}

void StylesHandler::endStyle() {
  inStyle_ = false;
  if (const int level = levelOfHeading(name_); level > 0 && !paragraph_.headerLevel) paragraph_.headerLevel = level;
  const bool isTaken =
      styles_.add(id_, std::exchange(parent_, std::nullopt), onItsList(std::move(paragraph_)), std::move(run_));
  if (isTaken) allowance_.take(styleCost);
}

}  // namespace standin::formats::word_xml
