// Styles interned by hash, and runs of one style joined.
#include "standin/formats/document_builder.hpp"

#include <unicode/utf8.h>

#include <algorithm>
#include <functional>

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

// Of the members in which styles of one document mostly differ.
size_t hashOf(const text::Style& style) {
  size_t hash =
      style.underline + 31u * static_cast<unsigned>(style.strikethrough) + 961u * static_cast<unsigned>(style.superscript);
  if (style.font) {
    mix(hash, style.font->name);
    mix(hash, style.font->size);
    mix(hash, style.font->traits);
  }
  mix(hash, style.foreground);
  mix(hash, style.background);
  mix(hash, style.link);
  mix(hash, static_cast<const void*>(style.attachment.get()));
  mix(hash, static_cast<int>(style.paragraph.alignment));
  mix(hash, style.paragraph.headIndent);
  mix(hash, style.paragraph.firstLineIndent);
  mix(hash, style.paragraph.spacingBefore);
  mix(hash, style.paragraph.spacingAfter);
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
  const auto length = static_cast<int32_t>(text.size());
  const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
  for (int32_t at = 0; at < length;) {
    UChar32 character;
    U8_NEXT_OR_FFFD(bytes, at, length, character);
    if (character > 0xFFFF) document.text += static_cast<char16_t>(U16_LEAD(character));
    document.text += static_cast<char16_t>(character > 0xFFFF ? U16_TRAIL(character) : character);
  }
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
