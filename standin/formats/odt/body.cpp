// The text, element by element.
#include "standin/formats/odt/body.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "standin/formats/scripts.hpp"
#include "standin/formats/units.hpp"

namespace standin::formats::odt {
namespace {

constexpr char16_t tabulator = u'\t', lineSeparator = u'\u2028', pageBreak = u'\f', paragraphEnd = u'\n';

// Units of text that stand for more than one in all: a few bytes could ask for any number.
constexpr size_t mostRepeated = 1'000'000;

// How often the element stands for itself, from its attribute.
int countOf(const xml::Element& element, name::Number attribute, int most) {
  return static_cast<int>(std::clamp(numberOf(element.value(attribute)).value_or(1), 0.0, static_cast<double>(most)));
}

// XML text has no other characters below the space.
bool isSpace(char byte) { return static_cast<uint8_t>(byte) <= ' '; }

}  // namespace

Body::Body(const Library& library, PartSource parts, MemoryAllowance& allowance, bool showsTextBoxes)
    : library_(library),
      allowance_(allowance),
      showsTextBoxes_(showsTextBoxes),
      styles_(library, builder_, allowance.most()),
      numbering_(library),
      pictures_(std::move(parts), allowance) {}

// What encodes a picture grows thrice, and is decoded after that.
bool Body::isFull() const {
  return builder_.textCost() + builder_.styleCost() + styles_.cost() + numbering_.cost() + 4 * binary_.size() >
         allowance_.left();
}

struct Body::ElementRow {
  name::Number element;
  void (*start)(Body&, const xml::Element&);
};

// What the start of an element does; others do nothing.
const Body::ElementRow Body::elementRows[] = {
    {name::text, [](Body& body, const xml::Element&) { body.isText_ = true; }},
    {name::paragraph, [](Body& body, const xml::Element& element) { body.startParagraph(element); }},
    {name::heading, [](Body& body, const xml::Element& element) { body.startParagraph(element); }},
    {name::span, [](Body& body, const xml::Element& element) { body.startSpan(element); }},
    {name::link, [](Body& body, const xml::Element& element) { body.startLink(element); }},
    {name::drawingLink, [](Body& body, const xml::Element& element) { body.startLink(element); }},
    {name::spaces, [](Body& body, const xml::Element& element) { body.spaces(element); }},
    {name::tab, [](Body& body, const xml::Element&) { body.unit(tabulator); }},
    {name::lineBreak, [](Body& body, const xml::Element&) { body.unit(lineSeparator); }},
    {name::list, [](Body& body, const xml::Element& element) { body.numbering_.startList(element); }},
    {name::listItem, [](Body& body, const xml::Element& element) { body.numbering_.startItem(element); }},
    {name::listHeader, [](Body& body, const xml::Element& element) { body.numbering_.startItem(element); }},
    {name::numberedParagraph,
     [](Body& body, const xml::Element& element) { body.numbering_.startNumberedParagraph(element); }},
    {name::note, [](Body& body, const xml::Element& element) { body.noteClass_ = element.value(name::noteClass); }},
    {name::citation, [](Body& body, const xml::Element&) { body.startCitation(); }},
    {name::cell, [](Body& body, const xml::Element& element) { body.startCell(element); }},
    {name::textBox, [](Body& body, const xml::Element&) { body.startTextBox(); }},
    {name::variableSet, [](Body& body, const xml::Element& element) { body.startVariable(element); }},
    {name::frame, [](Body& body, const xml::Element& element) { body.pictures_.startFrame(element); }},
    {name::image, [](Body& body, const xml::Element& element) { body.addPicture(body.pictures_.linked(element)); }},
    {name::binaryData, [](Body& body, const xml::Element&) { body.takesBinary_ = true; }},
    {name::coveredCell, [](Body& body, const xml::Element&) { body.skip(); }},
    {name::hiddenPart, [](Body& body, const xml::Element&) { body.skip(); }},
};

void Body::startElement(const xml::Element& element) {
  using Start = decltype(ElementRow::start);
  static const auto starts = [] {
    std::array<Start, name::howMany> table{};
    for (const ElementRow& row : elementRows) table[static_cast<size_t>(row.element)] = row.start;
    return table;
  }();
  if (isSkipping()) {
    ++skipped_;
  } else if (const Start start = element.name != xml::unknownName ? starts[static_cast<size_t>(element.name)] : nullptr) {
    start(*this, element);
  }
}

void Body::endElement(xml::NameNumber name) {
  if (isSkipping()) {
    --skipped_;
    return;
  }
  switch (name) {
    case name::paragraph:
    case name::heading:
      endParagraph();
      break;
    case name::span:
    case name::link:
    case name::drawingLink:
    case name::citation:
      if (!paragraphs_.empty()) places_.pop_back();
      break;
    case name::list:
    case name::numberedParagraph:
      numbering_.endList();
      break;
    case name::cell:
      endCell();
      break;
    case name::binaryData:
      takesBinary_ = false;
      addPicture(pictures_.embedded(std::exchange(binary_, {})));
      break;
    default:
      break;
  }
}

void Body::startParagraph(const xml::Element& element) {
  isText_ = true;  // also without an element around, as older documents have it
  const std::string_view styleName = element.value(name::textStyleName);
  const StyleProperties& style = library_.style(Family::paragraph, styleName);
  const std::string listStyle = style.listStyle.value_or(std::string());
  ParagraphRole role;
  Label label;
  if (element.name == name::heading) {
    const auto level = element.find(name::textOutlineLevel);
    const int number = std::max(1, countOf(element, level ? name::textOutlineLevel : name::level, listLevels));
    role.headerLevel = std::min(number, 6);
    label = numbering_.heading(number, element, listStyle);
  } else {
    label = numbering_.paragraph(listStyle);
  }
  role.list = label.layout;
  role.hasMarker = !label.marker.empty();
  paragraphs_.push_back(places_.size());
  places_.push_back(styles_.paragraph(styleName, role));
  script_ = Script::western;
  breakPage(styles_.look(place()));
  if (role.hasMarker) builder_.append(markerText(label.marker), styles_.style(place(), script_));
  isAfterSpace_ = true;
}

// A page is also begun by a paragraph that names the kind of page, unless it is the document's first.
void Body::breakPage(const ParagraphLook& look) {
  const bool isFirst = std::exchange(isFirst_, false);
  if (isFirst) firstMasterPage_ = look.masterPage;
  if (look.breaksBefore || (!isFirst && !look.masterPage.empty())) unit(pageBreak);
}

void Body::endParagraph() {
  if (paragraphs_.empty()) return;
  places_.resize(paragraphs_.back() + 1);
  script_ = Script::western;
  if (styles_.look(place()).breaksAfter) unit(pageBreak);
  unit(paragraphEnd);
  places_.pop_back();
  paragraphs_.pop_back();
}

// Spans, links and citations open a place even where they change nothing, because they close one.
void Body::startSpan(const xml::Element& element) {
  if (!paragraphs_.empty()) places_.push_back(styles_.span(place(), element.value(name::textStyleName)));
}

void Body::startLink(const xml::Element& element) {
  if (paragraphs_.empty()) return;
  places_.push_back(styles_.link(styles_.span(place(), element.value(name::textStyleName)), element.value(name::href)));
}

void Body::startCitation() {
  if (!paragraphs_.empty()) places_.push_back(styles_.span(place(), library_.citationStyle(noteClass_)));
}

void Body::startCell(const xml::Element& element) {
  constexpr int mostColumns = 1'000;
  cells_.push_back({builder_.text().size(), countOf(element, name::columnsRepeated, mostColumns) - 1});
  numbering_.enterCell();
}

void Body::endCell() {
  if (cells_.empty()) return;
  numbering_.leaveCell();
  const auto [start, copies] = cells_.back();
  cells_.pop_back();
  if (builder_.text().size() == start) builder_.append(paragraphEnd, styles_.style(styles_.paragraph({}, {}), script_));
  repeat(start, copies);
}

// Bounded, because cells in repeated cells are repeated again.
void Body::repeat(size_t start, int copies) {
  const size_t length = builder_.text().size() - start;
  if (copies <= 0 || length > mostRepeated) return;
  const std::u16string text = builder_.text().substr(start);
  std::vector<DocumentRun> runs;  // from the last one back
  for (size_t left = length, index = builder_.document.runs.size(); left > 0;) {
    DocumentRun run = builder_.document.runs[--index];
    run.length = static_cast<uint32_t>(std::min<size_t>(run.length, left));
    left -= run.length;
    runs.push_back(run);
  }
  for (; copies > 0 && repeated_ + length <= mostRepeated; --copies, repeated_ += length) {
    size_t at = 0;
    for (auto run = runs.rbegin(); run != runs.rend(); at += run++->length) {
      builder_.append(std::u16string_view(text).substr(at, run->length), run->style);
    }
  }
}

void Body::startTextBox() {
  hasTextBoxes_ = true;
  if (!showsTextBoxes_) skip();
}

void Body::startVariable(const xml::Element& element) {
  if (element.value(name::display) == "none") skip();
}

void Body::spaces(const xml::Element& element) {
  constexpr int most = 10'000;
  if (paragraphs_.empty()) return;
  const auto count = static_cast<size_t>(std::max(1, countOf(element, name::count, most)));
  const size_t further = std::min(count - 1, mostRepeated - repeated_);
  repeated_ += further;
  builder_.append(std::u16string(1 + further, u' '), styles_.style(place(), script_));
  isAfterSpace_ = false;
}

void Body::unit(char16_t unit) {
  if (paragraphs_.empty()) return;
  builder_.append(unit, styles_.style(place(), script_));
  isAfterSpace_ = false;
}

void Body::addPicture(Pictures::Attachment picture) {
  if (paragraphs_.empty() || picture == nullptr) return;
  builder_.append(text::attachmentCharacter, styles_.attachmentStyle(place(), std::move(picture)));
  isAfterSpace_ = false;
}

// White space of any length is one space, and none at the start of a paragraph.
void Body::characters(std::string_view characters) {
  if (isSkipping()) return;
  if (takesBinary_) binary_ += characters;
  if (takesBinary_ || paragraphs_.empty()) return;
  size_t start = 0;
  bool isAfterSpace = isAfterSpace_;
  for (size_t at = 0; at < characters.size(); ++at) {
    const bool wasSpace = isAfterSpace;
    isAfterSpace = isSpace(characters[at]);
    if (!isAfterSpace || (characters[at] == ' ' && !wasSpace)) continue;
    text(characters.substr(start, at - start));
    if (!wasSpace) text(" ");
    start = at + 1;
  }
  isAfterSpace_ = isAfterSpace;
  text(characters.substr(start));
}

void Body::text(std::string_view utf8) {
  while (!utf8.empty()) {
    const size_t length = stretchOfScript(utf8, script_);
    builder_.appendUTF8(utf8.substr(0, length), styles_.style(place(), script_));
    utf8.remove_prefix(length);
  }
}

Document Body::take() {
  if (builder_.text().ends_with(paragraphEnd)) builder_.removeLast(1);
  return std::move(builder_.document);
}

}  // namespace standin::formats::odt
