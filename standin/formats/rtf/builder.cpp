// From formats in RTF's units to styles in points.
#include "standin/formats/rtf/builder.hpp"

#include <algorithm>

#include "standin/text/font_faces.hpp"

namespace standin::formats::rtf {

void Builder::addBytes(std::string_view bytes, const CharacterFormat& format, int codePage) {
  if (!bytes_.empty() && (bytesCodePage_ != codePage || bytesFormat_ != format)) flush();
  bytes_ += bytes;
  bytesFormat_ = format;
  bytesCodePage_ = codePage;
}

void Builder::flush() {
  if (bytes_.empty()) return;
  std::u16string& text = result_.document.text;
  const size_t old = text.size();
  decoder_.append(text, bytes_, bytesCodePage_);
  bytes_.clear();
  addLength(text.size() - old, bytesFormat_);
}

void Builder::addUnit(char16_t unit, const CharacterFormat& format) {
  flush();
  result_.document.text += unit;
  addLength(1, format);
}

int Builder::linkTo(const text::Link& target) {
  const auto [entry, isNew] = linkIndices_.try_emplace(target, static_cast<int>(links_.size()));
  if (isNew) links_.push_back(target);
  return entry->second;
}

void Builder::addLength(size_t units, const CharacterFormat& format) {
  if (units == 0) return;
  if (paragraphRuns_.empty() || paragraphRuns_.back().format != format) paragraphRuns_.push_back({format, 0});
  paragraphRuns_.back().length += static_cast<uint32_t>(units);
}

void Builder::endParagraph(char16_t unit, const CharacterFormat& format, const ParagraphFormat& paragraph) {
  addUnit(unit, format);
  closeRuns(paragraph);
}

void Builder::closeRuns(const ParagraphFormat& paragraph) {
  const auto index = indexOf(paragraph);
  for (const PendingRun& run : paragraphRuns_) {
    const uint32_t style = styleFor(run.format, paragraph, index);
    result_.extend(run.length, style);
    if (run.format.attachment < 0) lastStyle_ = style;
  }
  paragraphRuns_.clear();
}

std::optional<uint32_t> Builder::indexOf(const ParagraphFormat& paragraph) {
  constexpr size_t place = 96;
  if (const auto known = paragraphs_.find(paragraph); known != paragraphs_.end()) return known->second;
  if (isFull()) return std::nullopt;
  allowance_.take(place + sizeof paragraph + (paragraph.tabs ? paragraph.tabs->size() * sizeof(TabFormat) : 0));
  return paragraphs_.emplace(paragraph, static_cast<uint32_t>(paragraphs_.size())).first->second;
}

uint32_t Builder::styleFor(const CharacterFormat& format, const ParagraphFormat& paragraph, std::optional<uint32_t> index) {
  if (!index) return lastStyle_;
  if (const auto known = styleIndices_.find({*index, format}); known != styleIndices_.end()) return known->second;
  if (isFull()) return lastStyle_;
  const size_t before = result_.styleCost();
  const uint32_t style = result_.intern(makeStyle(format, paragraph));
  constexpr size_t place = 96;
  allowance_.take(place + sizeof format + result_.styleCost() - before);
  styleIndices_.emplace(std::pair(*index, format), style);
  return style;
}

std::optional<text::Color> Builder::color(int index) const {
  if (index <= 0 || static_cast<size_t>(index) >= colors.size()) return std::nullopt;
  return colors[static_cast<size_t>(index)];
}

text::Shadow Builder::shadowOf(const ShadowFormat& format) const {
  text::Shadow shadow{format.offsetX / 20.0, format.offsetY / 20.0, format.blurRadius / 20.0, std::nullopt};
  if (format.color < 0) return shadow;
  shadow.color = color(format.color).value_or(text::Color{text::ColorSpace::deviceRGB, {}, 1});
  shadow.color->alpha = std::clamp(format.opacity, 0, 255) / 255.0;
  return shadow;
}

text::Style Builder::makeStyle(const CharacterFormat& format, const ParagraphFormat& paragraph) const {
  text::Style style;
  const auto font = fonts.find(format.font);
  const uint64_t traits = (format.bold ? uint64_t{text::boldTrait} : 0) | (format.italic ? uint64_t{text::italicTrait} : 0);
  style.font = text::fontMeant(font != fonts.end() ? font->second.name : "Helvetica", traits, format.halfPoints / 2.0);
  style.foreground = color(format.foreground);
  style.background = color(format.background);
  style.underlineColor = color(format.underlineColor);
  style.strikethroughColor = color(format.strikethroughColor);
  style.strokeColor = color(format.strokeColor);
  style.underline = format.underline;
  style.strikethrough = format.strikethrough;
  style.superscript = format.superscript;
  style.baselineOffset = format.baseline / 2.0;
  style.kern = format.kern / 20.0;
  style.expansion = format.expansion / 100.0;
  style.strokeWidth = format.strokeWidth / 20.0;
  style.obliqueness = format.obliqueness / 1000.0;
  if (format.ligature >= 0) style.ligature = format.ligature;
  if (format.hasShadow) style.shadow = shadowOf(format.shadow);
  if (format.link >= 0) style.link = links_[static_cast<size_t>(format.link)];
  if (format.attachment >= 0) style.attachment = attachments[static_cast<size_t>(format.attachment)];
  style.paragraph = paragraphOf(paragraph);
  return style;
}

Document Builder::finish(const ParagraphFormat& last) {
  flush();
  closeRuns(last);
  return std::move(result_.document);
}

}  // namespace standin::formats::rtf
