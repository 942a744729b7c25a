// Properties as styles.
#include "standin/formats/doc/formatter.hpp"

#include "standin/formats/list_markers.hpp"

namespace standin::formats::doc {
size_t Formatter::Hash::operator()(const StyleKey& key) const {
  const uint64_t first = uint64_t{key.paragraph} << 32 | key.characters;
  const uint64_t second = uint64_t{key.link} << 2 | static_cast<uint64_t>(key.script);
  return (first ^ second * 0x9E3779B97F4A7C15) * 0xC2B2AE3D27D4EB4F >> 7;
}

uint32_t Formatter::indexOf(const StyleKey& key, const text::Link& target) {
  if (key == last_) return lastIndex_;
  last_ = key;
  if (const auto known = indices_.find(key); known != indices_.end()) return lastIndex_ = known->second;
  if (indices_.size() >= mostStyles_) return lastIndex_;
  lastIndex_ = builder_.intern(make(key, target));
  indices_.emplace(key, lastIndex_);
  return lastIndex_;
}

uint32_t Formatter::indexWith(uint32_t style, std::shared_ptr<const text::Attachment> picture) {
  text::Style with = builder_.style(style);
  with.attachment = std::move(picture);
  return builder_.intern(with);
}

text::Style Formatter::make(const StyleKey& key, const text::Link& target) {
  const CharacterProperties& properties = resolver_.characters(key.characters);
  CharacterFormatting formatting = formattingOf(properties, key.script == Script::complex);
  const uint16_t number = properties.hasSymbol ? properties.symbolFont : properties.fonts[static_cast<size_t>(key.script)];
  if (const std::string& font = fonts_.nameOf(number); !font.empty()) formatting.font = font;
  text::Style style = styleOf(formatting);
  style.link = target;
  style.paragraph = paragraphOf(key.paragraph);
  return style;
}

const text::Paragraph& Formatter::paragraphOf(uint32_t index) {
  const auto [entry, isNew] = paragraphs_.try_emplace(index);
  if (isNew) {
    const ParagraphProperties& properties = resolver_.paragraph(index);
    entry->second = doc::paragraphOf(properties);
    if (properties.formatting.list.value_or(0) > 0) layOutMarker(entry->second);
  }
  return entry->second;
}

}  // namespace standin::formats::doc
