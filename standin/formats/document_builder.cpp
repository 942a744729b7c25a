// Styles interned by hash, and runs of one style joined.
#include "standin/formats/document_builder.hpp"

#include <algorithm>
#include <functional>

#include "standin/formats/utf8.hpp"

namespace standin::formats {
namespace {

template <class Value>
void mix(size_t& hash, const Value& value) {
  hash = (hash ^ std::hash<Value>()(value)) * 0x9E3779B97F4A7C15u;
}

void mix(size_t& hash, const std::optional<text::Color>& color) {
  mix(hash, color.has_value());
  if (!color) return;
  for (const double component : color->components) mix(hash, component);
}

void mix(size_t& hash, const text::Paragraph& paragraph) {
  using P = text::Paragraph;
  mix(hash, static_cast<int>(paragraph.alignment) + 16 * static_cast<int>(paragraph.direction) + 64 * paragraph.headerLevel);
  for (const auto length :
       {&P::firstLineIndent, &P::headIndent, &P::tailIndent, &P::spacingBefore, &P::spacingAfter, &P::lineSpacing,
        &P::minimumLineHeight, &P::maximumLineHeight, &P::lineHeightMultiple, &P::defaultTabInterval}) {
    mix(hash, paragraph.*length);
  }
  if (!paragraph.tabs) return;
  for (const text::TabStop& tab : *paragraph.tabs) mix(hash, tab.position + static_cast<double>(tab.kind));
}

// Of all members that documents can give many values: a document whose styles share a hash would be slow to read.
size_t hashOf(const text::Style& style) {
  using S = text::Style;
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
  mix(hash, style.paragraph);
  return hash;
}

}  // namespace

uint32_t DocumentBuilder::intern(const text::Style& style) {
  const size_t hash = hashOf(style);
  const auto [first, last] = indices_.equal_range(hash);
  for (auto entry = first; entry != last; ++entry) {
    if (document.styles[entry->second] == style) return entry->second;
  }
  const auto index = static_cast<uint32_t>(document.styles.size());
  document.styles.push_back(style);
  indices_.emplace(hash, index);
  return index;
}

void DocumentBuilder::extend(uint32_t length, uint32_t style) {
  if (length == 0) return;
  if (document.runs.empty() || document.runs.back().style != style) document.runs.push_back({0, style});
  document.runs.back().length += length;
}

void DocumentBuilder::append(std::u16string_view text, uint32_t style) {
  document.text += text;
  extend(static_cast<uint32_t>(text.size()), style);
}

void DocumentBuilder::append(char16_t unit, uint32_t style) {
  document.text += unit;
  extend(1, style);
}

void DocumentBuilder::appendUTF8(std::string_view text, uint32_t style) {
  const size_t before = document.text.size();
  appendUnits(document.text, text);
  extend(static_cast<uint32_t>(document.text.size() - before), style);
}

void DocumentBuilder::removeLast(size_t units) {
  units = std::min(units, document.text.size());
  document.text.resize(document.text.size() - units);
  while (units > 0) {
    DocumentRun& run = document.runs.back();
    const size_t taken = std::min<size_t>(units, run.length);
    run.length -= static_cast<uint32_t>(taken);
    units -= taken;
    if (run.length == 0) document.runs.pop_back();
  }
}

}  // namespace standin::formats
