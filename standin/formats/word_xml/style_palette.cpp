// Formatting looked up by its elements, styles by the formatting.
#include "standin/formats/word_xml/style_palette.hpp"

namespace standin::formats::word_xml {
namespace {

// Bytes of a look beside its own and its key: the tabs, its place in the map, the character style that it names.
constexpr size_t besideLook = 1'500;

}  // namespace

// Looks have a quarter of the allowance, far more than real documents need: what comes then looks like something else.
bool StylePalette::takesLook(size_t bytes) {
  if (looksCost_ + bytes > definitions_.allowance.most() / 4) return false;
  looksCost_ += bytes;
  return true;
}

const ParagraphLook& StylePalette::paragraph(const PropertyCollector& properties, const std::string& tableStyle) {
  // With lengths, for each of the three is of any bytes.
  paragraphKey_ = std::to_string(tableStyle.size()) + ' ' + std::to_string(properties.run.bytes().size()) + ' ';
  ((paragraphKey_ += tableStyle) += properties.run.bytes()) += properties.paragraph.bytes();
  const auto known = paragraphs_.find(paragraphKey_);
  if (known != paragraphs_.end()) return known->second;
  const bool isTaken = takesLook(sizeof(ParagraphLook) + paragraphKey_.size() + besideLook);
  if (!isTaken && !paragraphs_.empty()) return paragraphs_.begin()->second;
  ParagraphLook& look = paragraphs_[paragraphKey_];
  look = makeParagraph(properties, tableStyle);
  look.number = static_cast<uint32_t>(paragraphs_.size());
  return look;
}

const RunLook& StylePalette::run(const PropertyRecord& properties) {
  const auto known = runs_.find(properties.bytes());
  if (known != runs_.end()) return known->second;
  const bool isTaken = takesLook(sizeof(RunLook) + properties.bytes().size() + besideLook);
  if (!isTaken && !runs_.empty()) return runs_.begin()->second;
  RunLook& look = runs_[properties.bytes()];
  look = {static_cast<uint32_t>(runs_.size()), runFormattingOf(properties, definitions_.theme),
          valueIn(properties, Name::runStyle)};
  return look;
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

const StylePalette::Entry& StylePalette::entry(const ParagraphLook& paragraph, const RunLook* run, Script script) {
  const Key key{paragraph.number, run != nullptr ? run->number : 0, script};
  if (last_ != nullptr && key == lastKey_) return *last_;
  auto known = entries_.find(key);
  const bool isTaken = last_ == nullptr || builder_.cost() < definitions_.allowance.most() / 2;
  if (known == entries_.end() && !isTaken) return *last_;
  if (known == entries_.end()) {
    const RunFormatting formatting = run != nullptr ? formattingOf(paragraph, *run) : paragraph.mark;
    text::Style style = styleOf(formatting, formatting.isComplex.value_or(false) ? Script::complex : script);
    style.paragraph = paragraph.layout;
    known = entries_.emplace(key, Entry{builder_.intern(style), formatting.hidden.value_or(false)}).first;
  }
  lastKey_ = key;
  last_ = &known->second;
  return *last_;
}

uint32_t StylePalette::style(const ParagraphLook& paragraph, const RunLook* run, Script script, std::u16string_view link) {
  const uint32_t index = entry(paragraph, run, script).style;
  if (link.empty()) return index;
  text::Style style = builder_.style(index);
  style.link = link;
  return builder_.intern(style);
}

bool StylePalette::isHidden(const ParagraphLook& paragraph, const RunLook* run) {
  return entry(paragraph, run, Script::western).isHidden;
}

}  // namespace standin::formats::word_xml
