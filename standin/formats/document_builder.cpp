// Styles interned by hash, and runs of one style joined.
#include "standin/formats/document_builder.hpp"

#include <algorithm>

#include "standin/formats/utf8.hpp"
#include "standin/text/style_hash.hpp"

namespace standin::formats {
namespace {

// With its place in the index, thrice in a vector that grows, and once more for its attachment; without its link.
size_t costOf(const text::Style& style) {
  constexpr size_t index = 64, strings = 128, picture = 384;
  const size_t fontNames = style.font ? style.font->family.size() + style.font->name.size() : 0;
  const size_t tabs = style.paragraph.tabs ? style.paragraph.tabs->size() * sizeof(text::TabStop) : 0;
  return 3 * sizeof style + index + strings + fontNames + tabs + (style.attachment != nullptr ? picture : 0);
}

}  // namespace

uint32_t DocumentBuilder::intern(const text::Style& style) {
  const size_t hash = text::hashOf(style);
  const auto [first, last] = indices_.equal_range(hash);
  for (auto entry = first; entry != last; ++entry) {
    if (document.styles[entry->second] == style) return entry->second;
  }
  const auto index = static_cast<uint32_t>(document.styles.size());
  document.styles.push_back(style);
  document.styles.back().link = shared(style.link);
  indices_.emplace(hash, index);
  styleBytes_ += costOf(style);
  return index;
}

text::Link DocumentBuilder::shared(const text::Link& link) {
  constexpr size_t place = 160;
  if (link.empty()) return link;
  const auto [entry, isNew] = links_.insert(link);
  if (isNew) styleBytes_ += place + link.text().size() * sizeof(char16_t);
  return *entry;
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

size_t DocumentBuilder::textCost() const {
  return 3 * (document.text.size() * sizeof(char16_t) + document.runs.size() * sizeof(DocumentRun));
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
