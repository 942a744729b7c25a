// Text put into the builder with the styles of the palette.
#include "standin/formats/word_xml/body_text.hpp"

#include <utility>

#include "standin/formats/utf8.hpp"

namespace standin::formats::word_xml {

void BodyText::startParagraph() {
  look_ = nullptr;
  run_ = lastRun_ = nullptr;
  hasBegun_ = false;
}

void BodyText::setParagraphProperties(const PropertyCollector& properties) {
  look_ = &palette_.paragraph(properties, tableStyles_.empty() ? std::string() : tableStyles_.back());
}

const ParagraphLook& BodyText::look() {
  if (look_ == nullptr) setParagraphProperties({});
  return *look_;
}

void BodyText::setRunProperties(const PropertyRecord& properties) { run_ = &palette_.run(properties); }

void BodyText::endTable() {
  if (tableStyles_.empty()) return;
  openBytes_ -= tableStyles_.back().size();
  tableStyles_.pop_back();
}

void BodyText::setTableStyle(std::string_view style) {
  if (tableStyles_.empty()) return;
  openBytes_ += style.size() - tableStyles_.back().size();
  tableStyles_.back() = style;
}

void BodyText::openLink(std::u16string target) {
  openBytes_ += target.size() * sizeof(char16_t);
  links_.push_back(std::move(target));
}

void BodyText::closeLink() {
  if (links_.empty()) return;
  openBytes_ -= links_.back().size() * sizeof(char16_t);
  links_.pop_back();
}

std::u16string_view BodyText::link() const {
  return !links_.empty() && !links_.back().empty() ? std::u16string_view(links_.back()) : fields.link();
}

bool BodyText::isShown() {
  if (run_ == nullptr) setRunProperties({});
  return !fields.isInInstruction() && !palette_.isHidden(look(), run_);
}

uint32_t BodyText::styleOfRun(Script script, std::u16string_view link) { return palette_.style(look(), run_, script, link); }

// A page break and the marker come before the paragraph's first text, and look like it.
void BodyText::beginText(Script script) {
  lastRun_ = run_;
  lastScript_ = script;
  if (std::exchange(hasBegun_, true)) return;
  if (look().breaksPage && size() > 0) builder_.append(u'\f', styleOfRun(script, {}));
  if (look().list == 0) return;
  const std::u16string marker = definitions_.numbering.nextMarker(look().list, look().level);
  if (!marker.empty()) builder_.append(markerText(marker), styleOfRun(script, {}));
}

void BodyText::append(std::string_view text) {
  if (text.empty() || !isShown()) return;
  for (Script script = Script::western; !text.empty();) {
    const size_t length = stretchOfScript(text, script);
    beginText(script);
    builder_.appendUTF8(text.substr(0, length), styleOfRun(script, link()));
    text.remove_prefix(length);
  }
}

void BodyText::append(char16_t unit) {
  if (!isShown()) return;
  beginText(Script::western);
  builder_.append(unit, styleOfRun(Script::western, link()));
}

void BodyText::append(const std::shared_ptr<const text::Attachment>& attachment, std::string_view ownLink) {
  if (attachment == nullptr || !palette_.hasRoom() || !isShown()) return;
  beginText(Script::western);
  text::Style style = builder_.style(styleOfRun(Script::western, {}));
  style.link = ownLink.empty() ? std::u16string(link()) : unitsOf(ownLink);
  style.attachment = attachment;
  builder_.append(text::attachmentCharacter, palette_.intern(style));
}

// The mark looks like the text before it unless something is said of it. A paragraph without text whose mark is deleted or
// hidden is none.
void BodyText::endParagraph() {
  const bool hasNoMark = look().joinsNext || palette_.isHidden(look(), nullptr);
  if (hasNoMark && (look().joinsNext || !hasBegun_)) return;
  run_ = look().hasMarkOfItsOwn ? nullptr : lastRun_;
  beginText(lastScript_);
  builder_.append(u'\n', styleOfRun(lastScript_, {}));
}

Document BodyText::finish() {
  if (builder_.text().ends_with(u'\n')) builder_.removeLast(1);
  return std::move(builder_.document);
}

}  // namespace standin::formats::word_xml
