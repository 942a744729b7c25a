// Items counted, and the part that defines the lists read.
#include "standin/formats/word_xml/numbering.hpp"

#include <algorithm>

#include "standin/formats/utf8.hpp"
#include "standin/formats/word_xml/values.hpp"
#include "standin/formats/word_xml/vocabulary.hpp"

namespace standin::formats::word_xml {
namespace {

constexpr size_t mostLists = 10'000;
// Bytes of a list or a level beside its own: its place in the map, and the looks of its levels.
constexpr size_t listCost = 64 + listLevels * sizeof(ListLevel);

const NumberingLevel* findLevel(const std::map<int, NumberingLevel>& levels, int level) {
  const auto found = levels.find(level);
  return found != levels.end() ? &found->second : nullptr;
}

int held(int level) { return std::clamp(level, 0, listLevels - 1); }

}  // namespace

AbstractNumbering* Numbering::addAbstract(int id) { return abstracts_.size() < mostLists ? &abstracts_[id] : nullptr; }

NumberingInstance* Numbering::addInstance(int id) { return instances_.size() < mostLists ? &instances_[id] : nullptr; }

// A list that is defined by a style has the levels of the list that defines the style.
const AbstractNumbering* Numbering::abstractOf(const NumberingInstance& instance) const {
  const auto found = abstracts_.find(instance.abstract);
  if (found == abstracts_.end()) return nullptr;
  const auto linked = abstractsByStyle_.find(found->second.numberingStyleLink);
  if (!found->second.levels.empty() || linked == abstractsByStyle_.end()) return &found->second;
  return &abstracts_.at(linked->second);
}

const NumberingLevel* Numbering::level(int list, int level) const {
  const auto found = instances_.find(list);
  if (found == instances_.end()) return nullptr;
  const NumberingLevel* own = findLevel(found->second.levels, held(level));
  const AbstractNumbering* abstract = abstractOf(found->second);
  return own != nullptr || abstract == nullptr ? own : findLevel(abstract->levels, held(level));
}

std::optional<int> Numbering::levelOfStyle(int list, std::string_view style) const {
  for (int index = 0; index < listLevels; ++index) {
    const NumberingLevel* found = level(list, index);
    if (found != nullptr && found->paragraphStyle == style) return index;
  }
  return std::nullopt;
}

std::array<ListLevel, listLevels> Numbering::looksOf(const NumberingInstance& instance) const {
  std::array<ListLevel, listLevels> looks;
  const AbstractNumbering* abstract = abstractOf(instance);
  for (int index = 0; index < listLevels; ++index) {
    const NumberingLevel* own = findLevel(instance.levels, index);
    if (own == nullptr && abstract != nullptr) own = findLevel(abstract->levels, index);
    ListLevel& look = looks[static_cast<size_t>(index)];
    look = own != nullptr ? own->look : ListLevel{NumberFormat::none, {}, 1};
    if (const auto start = instance.starts.find(index); start != instance.starts.end()) look.start = start->second;
  }
  return looks;
}

std::u16string Numbering::nextMarker(int list, int levelIndex) {
  const auto found = instances_.find(list);
  const int at = held(levelIndex);
  const NumberingLevel* itsLevel = level(list, at);
  if (itsLevel == nullptr) return {};
  NumberingInstance& instance = found->second;
  if (instance.looks == nullptr) {
    instance.looks = std::make_unique<std::array<ListLevel, listLevels>>(looksOf(instance));
  }
  ListCounters& counters = abstracts_[instance.abstract].counters;
  if (const auto start = instance.starts.extract(at)) counters.restart(at, start.mapped());
  if (!itsLevel->isLegal) return counters.next(*instance.looks, at);
  std::array<ListLevel, listLevels> looks = *instance.looks;
  for (ListLevel& look : looks) {
    if (look.format != NumberFormat::bullet && look.format != NumberFormat::none) look.format = NumberFormat::decimal;
  }
  return counters.next(looks, at);
}

void NumberingHandler::startElement(const xml::Element& element) {
  allowance_.take(element.cost());
  if (collector_.isOpen()) return collector_.startElement(element);
  switch (nameOf(element)) {
    case Name::abstractNumbering:
      allowance_.take(sizeof(AbstractNumbering) + listCost);
      abstractId_ = wholeNumberOf(valueOf(element, Name::abstractNumberingId)).value_or(-1);
      abstract_ = numbering_.addAbstract(abstractId_);
      break;
    case Name::numbering:
      allowance_.take(sizeof(NumberingInstance) + listCost);
      instance_ = numbering_.addInstance(wholeNumberOf(valueOf(element, Name::numberingId)).value_or(-1));
      break;
    case Name::levelOverride:
      levelIndex_ = held(wholeNumberOf(valueOf(element, Name::levelIndex)).value_or(0));
      break;
    case Name::level:
      startLevel(element);
      break;
    case Name::paragraphProperties:
    case Name::runProperties:
      collector_.open(element);
      break;
    default:
      level_ != nullptr ? takeLevelElement(element) : takeReference(element);
      break;
  }
}

void NumberingHandler::startLevel(const xml::Element& element) {
  levelIndex_ = held(wholeNumberOf(valueOf(element, Name::levelIndex)).value_or(levelIndex_));
  if (instance_ != nullptr) level_ = &instance_->levels[levelIndex_];
  if (abstract_ != nullptr) level_ = &abstract_->levels[levelIndex_];
  if (level_ == nullptr) return;
  allowance_.take(sizeof *level_ + listCost);
  *level_ = {};
  level_->look.pattern.clear();
}

void NumberingHandler::takeLevelElement(const xml::Element& element) {
  ListLevel& look = level_->look;
  switch (nameOf(element)) {
    case Name::start:
      look.start = wholeNumberOf(valueOf(element)).value_or(1);
      break;
    case Name::numberFormat:
      look.format = numberFormatNamed(valueOf(element));
      break;
    case Name::numberFormatCode:
      look.format = numberFormatCoded(wholeNumberOf(valueOf(element)).value_or(0));
      break;
    case Name::levelText:
      look.pattern = unitsOf(valueOf(element));
      break;
    case Name::isLegal:
      level_->isLegal = isOn(element);
      break;
    case Name::paragraphStyle:
      level_->paragraphStyle = valueOf(element);
      break;
    default:
      break;
  }
}

// Of lists outside their levels.
void NumberingHandler::takeReference(const xml::Element& element) {
  const Name name = nameOf(element);
  if (instance_ != nullptr && name == Name::abstractNumberingId) {
    instance_->abstract = wholeNumberOf(valueOf(element)).value_or(-1);
  }
  if (instance_ != nullptr && name == Name::startOverride) {
    instance_->starts[levelIndex_] = wholeNumberOf(valueOf(element)).value_or(1);
  }
  if (abstract_ != nullptr && name == Name::numberingStyleLink) abstract_->numberingStyleLink = valueOf(element);
  if (abstract_ != nullptr && name == Name::styleLink) {
    numbering_.abstractsByStyle_.emplace(valueOf(element), abstractId_);
  }
}

void NumberingHandler::endElement(xml::NameNumber name) {
  if (collector_.isOpen()) {
    collector_.endElement();
    if (!collector_.isOpen() && level_ != nullptr && nameOf(name) == Name::paragraphProperties) {
      level_->paragraph = paragraphPropertiesOf(collector_.paragraph);
    }
    return;
  }
  switch (nameOf(name)) {
    case Name::level:
      if (level_ != nullptr && level_->look.format == NumberFormat::bullet) {
        level_->look.pattern = plainBullet(level_->look.pattern);
      }
      level_ = nullptr;
      break;
    case Name::abstractNumbering:
      abstract_ = nullptr;
      break;
    case Name::numbering:
      instance_ = nullptr;
      break;
    default:
      break;
  }
}

}  // namespace standin::formats::word_xml
