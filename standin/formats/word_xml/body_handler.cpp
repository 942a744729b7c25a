// Elements of the text: what each puts into it or changes for what follows.
#include "standin/formats/word_xml/body_handler.hpp"

#include <algorithm>
#include <charconv>
#include <utility>

#include "standin/formats/base64.hpp"
#include "standin/formats/utf8.hpp"
#include "standin/formats/word_xml/values.hpp"

namespace standin::formats::word_xml {
namespace {

// What stands outside the text, what is deleted, and properties that are not looked at.
constexpr Name skippedElements[] = {
    Name::textBox,
    Name::deletion,
    Name::moveFrom,
    Name::footnote,
    Name::endnote,
    Name::header,
    Name::footer,
    Name::rubyText,
    Name::math,
    Name::formFieldData,
    Name::deletedInstruction,
    Name::structuredProperties,
    Name::structuredEndProperties,
};

struct UnitRow {
  Name element;
  char16_t unit;
};
constexpr UnitRow unitRows[] = {
    {Name::tab, u'\t'},
    {Name::positionTab, u'\t'},
    {Name::carriageReturn, u'\u2028'},
    {Name::noBreakHyphen, u'\u2011'},
    {Name::softHyphen, u'\u00AD'},
};

constexpr size_t longestTarget = 16'384;  // bytes of a link that is one
constexpr size_t mostCaptured = 65'536;   // bytes of a run that wait for its end

// Comments and deleted text of the edition of 2003.
bool isSkippedAnnotation(const xml::Element& element) {
  const std::string_view type = valueOf(element, Name::type);
  return type == "Word.Deletion" || type == "Word.Comment";
}

bool isSkipped(const xml::Element& element) {
  const Name name = nameOf(element);
  if (name == Name::annotation) return isSkippedAnnotation(element);
  return std::find(std::begin(skippedElements), std::end(skippedElements), name) != std::end(skippedElements);
}

constexpr std::string_view space = " \t\r\n";

std::string_view trimmedAtStart(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(space), text.size()));
  return text;
}

}  // namespace

void BodyHandler::startElement(const xml::Element& element) {
  if (skipped_ > 0) {
    ++skipped_;
  } else if (collector_.isOpen()) {
    page_.startElement(element);
    collector_.startElement(element);
  } else if (isSkipped(element)) {
    skip();
  } else {
    startProperties(element);
  }
}

void BodyHandler::startProperties(const xml::Element& element) {
  switch (nameOf(element)) {
    case Name::paragraphProperties:
    case Name::runProperties:
      collector_.open(element);
      break;
    case Name::run:
      collector_.run.clear();
      text_.setRunProperties(collector_.run);
      break;
    case Name::text:
    case Name::instruction:
    case Name::binaryData:
      capture(element);
      break;
    default:
      startStructure(element);
      break;
  }
}

void BodyHandler::startStructure(const xml::Element& element) {
  switch (nameOf(element)) {
    case Name::paragraph:
      text_.startParagraph();
      break;
    case Name::table:
      text_.startTable();
      break;
    case Name::tableStyle:
      text_.setTableStyle(valueOf(element));
      break;
    case Name::alternateContent:
      alternatives_.push_back({text_.size()});
      break;
    case Name::choice:
    case Name::fallback:
      choose(element);
      break;
    default:
      startInline(element);
      break;
  }
}

void BodyHandler::startInline(const xml::Element& element) {
  switch (nameOf(element)) {
    case Name::break_:
      appendBreak(element);
      break;
    case Name::symbol:
      appendSymbol(element);
      break;
    case Name::fieldCharacter:
      text_.fields.mark(valueOf(element, Name::fieldCharacterType));
      break;
    case Name::fieldSimple:
      text_.fields.openSimple(valueOf(element, Name::instructionOfSimple));
      break;
    case Name::hyperlink:
      openLink(element);
      break;
    case Name::blip:
    case Name::imageData:
      text_.append(drawings_.pictureOf(element), drawings_.link());
      break;
    default:
      startDocumentElement(element);
      break;
  }
}

void BodyHandler::startDocumentElement(const xml::Element& element) {
  // The root of the document may say it of all text.
  if (const auto space = find(element, Name::space)) preservesSpace_ = *space == "preserve";
  const Name name = nameOf(element);
  if (name == Name::unknown) return;
  const auto* unit =
      std::find_if(std::begin(unitRows), std::end(unitRows), [&](const UnitRow& row) { return row.element == name; });
  if (unit != std::end(unitRows)) return text_.append(unit->unit);
  if (name == Name::drawing || name == Name::picture) drawings_.begin();
  drawings_.startElement(element);
  page_.startElement(element);
}

void BodyHandler::capture(const xml::Element& element) {
  const auto space = find(element, Name::space);
  isCapturing_ = true;
  isText_ = isAtStart_ = nameOf(element) == Name::text;
  textPreservesSpace_ = space ? *space == "preserve" : preservesSpace_;
  captured_.clear();
  enough_ = mostCaptured;
  if (nameOf(element) == Name::binaryData) dataName_ = valueOf(element, Name::name);
}

void BodyHandler::characters(std::string_view text) {
  if (!isCapturing_ || skipped_ > 0) return;
  captured_ += text;
  if (isText_ && captured_.size() > enough_) appendCaptured(false);
}

// What is captured grows thrice, and becomes a picture or text after that.
bool BodyHandler::isFull() const { return text_.cost() + 9 * captured_.size() > definitions_.allowance.left(); }

void BodyHandler::openLink(const xml::Element& element) {
  const auto id = find(element, Name::relationshipId);
  std::string target(valueOf(element, Name::destination));
  if (id && resources_ != nullptr) target = resources_->linkTarget(*id);
  const std::string_view place = valueOf(element, find(element, Name::anchor) ? Name::anchor : Name::bookmark);
  if (!place.empty()) (target += '#') += place;
  text_.openLink(target.size() <= longestTarget ? unitsOf(target) : std::u16string());
}

void BodyHandler::appendBreak(const xml::Element& element) {
  text_.append(valueOf(element, Name::type) == "page" ? u'\f' : u'\u2028');
}

// In the font that the symbol names.
void BodyHandler::appendSymbol(const xml::Element& element) {
  const std::string_view digits = valueOf(element, Name::character);
  uint16_t unit = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), unit, 16);
  if (unit < ' ' || (unit >= 0xD800 && unit < 0xE000)) return;
  const xml::Attribute font{static_cast<xml::NameNumber>(Name::asciiFont), valueOf(element, Name::font)};
  PropertyRecord properties = collector_.run;
  properties.add({static_cast<xml::NameNumber>(Name::runFonts), {}, {&font, 1}});
  text_.setRunProperties(properties);
  text_.append(static_cast<char16_t>(unit));
  text_.setRunProperties(collector_.run);
}

// The first choice; the fallback when the choice came to nothing.
void BodyHandler::choose(const xml::Element& element) {
  if (alternatives_.empty()) return;
  Alternatives& alternatives = alternatives_.back();
  const bool isChoice = nameOf(element) == Name::choice;
  if (isChoice ? std::exchange(alternatives.hasChosen, true) : text_.size() != alternatives.start) skip();
}

void BodyHandler::endElement(xml::NameNumber number) {
  if (skipped_ > 0) {
    --skipped_;
  } else if (collector_.isOpen()) {
    collector_.endElement();
    if (!collector_.isOpen()) endProperties(nameOf(number));
  } else {
    endInline(nameOf(number));
  }
}

void BodyHandler::endProperties(Name name) {
  if (name == Name::paragraphProperties) {
    text_.setParagraphProperties(collector_);
  } else {
    text_.setRunProperties(collector_.run);
  }
}

void BodyHandler::endInline(Name name) {
  switch (name) {
    case Name::text:
    case Name::instruction:
    case Name::binaryData:
      endCapture(name);
      break;
    case Name::paragraph:
      text_.endParagraph();
      break;
    case Name::hyperlink:
      text_.closeLink();
      break;
    case Name::fieldSimple:
      text_.fields.close();
      break;
    case Name::table:
      text_.endTable();
      break;
    case Name::alternateContent:
      if (!alternatives_.empty()) alternatives_.pop_back();
      break;
    default:
      break;
  }
}

// Ends of lines in the file are spaces of the text. Space that may turn out to be the run's last waits.
void BodyHandler::appendCaptured(bool isEnd) {
  std::string_view text = isAtStart_ && !textPreservesSpace_ ? trimmedAtStart(captured_) : std::string_view(captured_);
  if (!textPreservesSpace_) text = text.substr(0, text.find_last_not_of(space) + 1);
  if (text.find('\n') == text.npos && text.find('\r') == text.npos) {
    text_.append(text);
  } else {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    text_.append(line);
  }
  if (isEnd) return;
  isAtStart_ = isAtStart_ && text.empty();
  captured_.erase(0, text.empty() ? 0 : static_cast<size_t>(text.data() + text.size() - captured_.data()));
  enough_ = mostCaptured + 2 * captured_.size();
}

void BodyHandler::endCapture(Name name) {
  isCapturing_ = false;
  if (name == Name::instruction) text_.fields.addInstruction(captured_);
  if (name == Name::binaryData) drawings_.add(std::move(dataName_), bytesOfBase64(captured_));
  if (name == Name::text) appendCaptured(true);
}

Document BodyHandler::finish() {
  Document document = text_.finish();
  document.page = page_.setup;
  definitions_.settings.fill(document);
  if (definitions_.settings.showsBackground) document.background = page_.background;
  return document;
}

}  // namespace standin::formats::word_xml
