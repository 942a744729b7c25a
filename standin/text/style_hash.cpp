// Members mixed one after the other, all of them: documents of strangers may differ in any.
#include "standin/text/style_hash.hpp"

#include <functional>

namespace standin::text {
namespace {

template <class Value>
void mix(size_t& hash, const Value& value) {
  hash = (hash + std::hash<Value>()(value)) * 0x9E3779B97F4A7C15u;
  hash ^= hash >> 29;
}

void mix(size_t& hash, const std::optional<Color>& color) {
  mix(hash, color.has_value());
  if (!color) return;
  for (const double component : color->components) mix(hash, component);
  mix(hash, color->alpha);
}

}  // namespace

size_t hashOf(const Paragraph& paragraph) {
  size_t hash = 0;
  using P = Paragraph;
  mix(hash, static_cast<int>(paragraph.alignment) + 16 * static_cast<int>(paragraph.direction));
  for (const auto number : {&P::headerLevel, &P::lineBreakMode}) mix(hash, paragraph.*number);
  for (const auto length : {&P::firstLineIndent, &P::headIndent, &P::tailIndent, &P::spacingBefore, &P::spacingAfter,
                            &P::lineSpacing, &P::minimumLineHeight, &P::maximumLineHeight, &P::lineHeightMultiple,
                            &P::defaultTabInterval, &P::hyphenationFactor}) {
    mix(hash, paragraph.*length);
  }
  if (paragraph.tabs) {
    mix(hash, paragraph.tabs->size());
    for (const TabStop& tab : *paragraph.tabs) {
      mix(hash, tab.position);
      mix(hash, static_cast<int>(tab.kind));
    }
  }
  return hash;
}

size_t hashOf(const Style& style) {
  using S = Style;
  size_t hash = 0;
  for (const auto number : {&S::underline, &S::strikethrough, &S::superscript}) mix(hash, style.*number);
  if (style.font) {
    mix(hash, style.font->family);
    mix(hash, style.font->name);
    mix(hash, style.font->size);
    mix(hash, style.font->traits + 31 * static_cast<uint64_t>(style.font->weight));
  }
  for (const auto color : {&S::foreground, &S::background, &S::underlineColor, &S::strikethroughColor, &S::strokeColor}) {
    mix(hash, style.*color);
  }
  for (const auto number : {&S::baselineOffset, &S::kern, &S::expansion, &S::strokeWidth, &S::obliqueness}) {
    mix(hash, style.*number);
  }
  if (style.shadow) {
    for (const auto number : {&Shadow::offsetX, &Shadow::offsetY, &Shadow::blurRadius}) mix(hash, (*style.shadow).*number);
    mix(hash, style.shadow->color);
  }
  mix(hash, style.ligature.value_or(-1));
  mix(hash, style.link.hash());
  mix(hash, static_cast<const void*>(style.attachment.get()));
  mix(hash, hashOf(style.paragraph));
  return hash;
}

}  // namespace standin::text
