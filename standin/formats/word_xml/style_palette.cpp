// Formatting looked up by its elements, styles by the formatting.
#include "standin/formats/word_xml/style_palette.hpp"

namespace standin::formats::word_xml {
namespace {

// Bytes of a look beside its own and its key: the tabs, its place in the map, the character style that it names.
constexpr size_t besideLook = 1'500;
// Of the allowance, in sixteenths: far more than real documents need. What paragraphs are may take a little more than what
// runs are.
constexpr size_t mostForRuns = 9, mostForParagraphs = 10;
constexpr uint32_t plainNumber = UINT32_MAX;  // of plain looks

}  // namespace

bool StylePalette::takesLook(size_t bytes, size_t sixteenths) {
  if (definitions_.allowance.isSpent(sixteenths)) return false;
  definitions_.allowance.take(bytes);
  return true;
}

const ParagraphLook& StylePalette::paragraph(const PropertyCollector& properties, const std::string& tableStyle) {
  // With lengths, for each of the three is of any bytes.
  paragraphKey_ = std::to_string(tableStyle.size()) + ' ' + std::to_string(properties.run.bytes().size()) + ' ';
  ((paragraphKey_ += tableStyle) += properties.run.bytes()) += properties.paragraph.bytes();
  const auto known = paragraphs_.find(paragraphKey_);
  if (known != paragraphs_.end()) return known->second;
  ParagraphLook look = makeParagraph(properties, tableStyle);
  if (!takesLook(sizeof look + paragraphKey_.size() + besideLook, mostForParagraphs)) return plainParagraph(look);
  look.number = static_cast<uint32_t>(paragraphs_.size() + 1);
  return paragraphs_.emplace(paragraphKey_, std::move(look)).first->second;
}

const ParagraphLook& StylePalette::plainParagraph(const ParagraphLook& meant) {
  const auto [known, isNew] = plainParagraphs_.try_emplace(
      std::array<int, 4>{meant.isHidden(), meant.hidesMark(), meant.breaksPage, meant.joinsNext});
  ParagraphLook& look = known->second;
  if (!isNew) return look;
  look = makeParagraph({}, {});
  look.number = plainNumber;
  look.run.hidden = meant.isHidden();
  look.mark.hidden = meant.hidesMark();
  look.breaksPage = meant.breaksPage;
  look.joinsNext = meant.joinsNext;
  return look;
}

const RunLook& StylePalette::run(const PropertyRecord& properties) {
  const auto known = runs_.find(properties.bytes());
  if (known != runs_.end()) return known->second;
  RunLook look = makeRun(properties);
  if (!takesLook(sizeof look + properties.bytes().size() + besideLook, mostForRuns)) return plainRun(look.hidden);
  look.number = static_cast<uint32_t>(runs_.size() + 1);
  return runs_.emplace(properties.bytes(), std::move(look)).first->second;
}

RunLook StylePalette::makeRun(const PropertyRecord& properties) const {
  RunLook look{0, runFormattingOf(properties, definitions_.theme), valueIn(properties, Name::runStyle), {}};
  look.hidden = look.direct.hidden ? look.direct.hidden : definitions_.styles.run(look.style).hidden;
  return look;
}

const RunLook& StylePalette::plainRun(std::optional<bool> hidden) {
  return plainRuns_.try_emplace(hidden, RunLook{plainNumber, {}, {}, hidden}).first->second;
}

// A list that the paragraph itself is put on comes before its own indents.
ParagraphProperties StylePalette::resolve(ParagraphProperties beneath, const ParagraphProperties& direct) const {
  ParagraphProperties merged = beneath;
  overlay(merged, direct);
  if (!merged.list || (!direct.list && !direct.listLevel)) return merged;
  const NumberingLevel* level = definitions_.numbering.level(*merged.list, merged.listLevel.value_or(0));
  if (level == nullptr) return merged;
  overlay(beneath, level->paragraph);
  overlay(beneath, direct);
  return beneath;
}

ParagraphLook StylePalette::makeParagraph(const PropertyCollector& properties, const std::string& tableStyle) const {
  const Styles& styles = definitions_.styles;
  std::string style = valueIn(properties.paragraph, Name::paragraphStyle);
  if (!styles.contains(style)) style = styles.defaultParagraphStyle;
  ParagraphProperties beneath = styles.defaultParagraph;
  overlay(beneath, styles.paragraph(tableStyle));
  overlay(beneath, styles.paragraph(style));
  const ParagraphProperties merged = resolve(std::move(beneath), paragraphPropertiesOf(properties.paragraph));
  ParagraphLook look;
  look.layout = paragraphOf(merged);
  look.list = merged.list.value_or(0);
  look.level = merged.listLevel.value_or(0);
  if (definitions_.numbering.level(look.list, look.level) != nullptr) layOutMarker(look.layout);
  look.breaksPage = merged.pageBreakBefore.value_or(false);
  look.run = styles.defaultRun;
  formats::overlay(look.run, styles.run(tableStyle));
  formats::overlay(look.run, styles.run(style));
  look.mark = look.run;
  look.hasMarkOfItsOwn = !properties.run.empty();
  applyCharacterStyle(look.mark, valueIn(properties.run, Name::runStyle));
  formats::overlay(look.mark, runFormattingOf(properties.run, definitions_.theme));
  properties.run.forEach([&](const xml::Element& element) { look.joinsNext |= nameOf(element) == Name::deletion; });
  return look;
}

void StylePalette::applyCharacterStyle(RunFormatting& run, const std::string& style) const {
  if (!style.empty()) overlayCharacterStyle(run, definitions_.styles.run(style));
}

RunFormatting StylePalette::formattingOf(const ParagraphLook& paragraph, const RunLook& run) const {
  RunFormatting formatting = paragraph.run;
  applyCharacterStyle(formatting, run.style);
  formats::overlay(formatting, run.direct);
  return formatting;
}

uint32_t StylePalette::entry(const ParagraphLook& paragraph, const RunLook* run, Script script) {
  const Key key{paragraph.number, run != nullptr ? run->number : 0, script};
  if (last_ && key == lastKey_) return *last_;
  const auto known = entries_.find(key);
  if (known != entries_.end()) {
    last_ = known->second;
  } else {
    last_ = definitions_.allowance.isSpent(mostForRuns) ? plainEntry(paragraph) : newEntry(key, paragraph, run);
  }
  lastKey_ = key;
  return *last_;
}

// That of the paragraph's own characters, or of plain ones where that is too much as well.
uint32_t StylePalette::plainEntry(const ParagraphLook& paragraph) {
  const Key own{paragraph.number, plainNumber, Script::western}, plain{plainNumber, plainNumber, Script::western};
  const RunLook& run = plainRun({});
  for (const Key& key : {own, plain}) {
    if (const auto known = entries_.find(key); known != entries_.end()) return known->second;
    if (key == own && hasRoom()) return newEntry(own, paragraph, &run);
  }
  return newEntry(plain, plainParagraph({}), &run);
}

uint32_t StylePalette::newEntry(const Key& key, const ParagraphLook& paragraph, const RunLook* run) {
  const RunFormatting formatting = run != nullptr ? formattingOf(paragraph, *run) : paragraph.mark;
  text::Style style = styleOf(formatting, formatting.isComplex.value_or(false) ? Script::complex : key.script);
  style.paragraph = paragraph.layout;
  return entries_.emplace(key, intern(style)).first->second;
}

bool StylePalette::hasRoom() const { return !definitions_.allowance.isSpent(mostForParagraphs); }

uint32_t StylePalette::intern(const text::Style& style) {
  const size_t before = builder_.styleCost();
  const uint32_t index = builder_.intern(style);
  definitions_.allowance.take(builder_.styleCost() - before);
  return index;
}

uint32_t StylePalette::style(const ParagraphLook& paragraph, const RunLook* run, Script script, std::u16string_view link) {
  const uint32_t index = entry(paragraph, run, script);
  if (link.empty() || !hasRoom()) return index;
  text::Style style = builder_.style(index);
  style.link = link;
  return intern(style);
}

bool StylePalette::isHidden(const ParagraphLook& paragraph, const RunLook* run) const {
  if (run == nullptr) return paragraph.hidesMark();
  return run->hidden.value_or(paragraph.isHidden());
}

}  // namespace standin::formats::word_xml
