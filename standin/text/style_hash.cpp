// Members mixed one after the other.
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
}

}  // namespace

size_t hashOf(const Paragraph& paragraph) {
  size_t hash = 0;
  using P = Paragraph;
  mix(hash, static_cast<int>(paragraph.alignment) + 16 * static_cast<int>(paragraph.direction) + 64 * paragraph.headerLevel);
  for (const auto length :
       {&P::firstLineIndent, &P::headIndent, &P::tailIndent, &P::spacingBefore, &P::spacingAfter, &P::lineSpacing,
        &P::minimumLineHeight, &P::maximumLineHeight, &P::lineHeightMultiple, &P::defaultTabInterval}) {
    mix(hash, paragraph.*length);
  }
  for (const TabStop& tab : paragraph.tabs.value_or(std::vector<TabStop>()))
    mix(hash, tab.position + static_cast<double>(tab.kind));
  return hash;
}

size_t hashOf(const Style& style) {
  using S = Style;
  size_t hash = 0;
  for (const auto number : {&S::underline, &S::strikethrough, &S::superscript}) mix(hash, style.*number);
  if (style.font) {
    mix(hash, style.font->name);
    mix(hash, style.font->size);
    mix(hash, style.font->traits);
  }
  for (const auto color : {&S::foreground, &S::background, &S::underlineColor, &S::strikethroughColor, &S::strokeColor}) {
    mix(hash, style.*color);
  }
  for (const auto number : {&S::baselineOffset, &S::kern, &S::expansion, &S::strokeWidth, &S::obliqueness}) {
    mix(hash, style.*number);
  }
  mix(hash, style.link);
  mix(hash, static_cast<const void*>(style.attachment.get()));
  mix(hash, hashOf(style.paragraph));
  return hash;
}

}  // namespace standin::text
