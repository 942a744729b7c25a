// A stack of the fields that are open.
#include "standin/formats/doc/fields.hpp"

#include <algorithm>

#include "standin/formats/link_target.hpp"

namespace standin::formats::doc {

void Fields::begin() {
  constexpr size_t deepest = 256;
  if (open_.size() < deepest) {
    open_.push_back({{}, open_.size(), false, link()});
  } else {
    ++tooDeep_;
  }
}

// What is behind the separator belongs to what the whole field belongs to.
void Fields::separate() {
  if (open_.empty() || open_.back().isSeparated || tooDeep_ > 0) return;
  Field& field = open_.back();
  field.isSeparated = true;
  field.instruction = open_.size() > 1 ? open_[open_.size() - 2].instruction : outside;
  if (const uint32_t link = linkTo(field.text)) field.link = link;
  field.text.clear();
}

void Fields::end() {
  if (tooDeep_ > 0) {
    --tooDeep_;
  } else if (!open_.empty()) {
    open_.pop_back();
  }
}

void Fields::addInstruction(std::u16string_view text) {
  for (const char16_t unit : text) {
    if (unit >= u' ') open_[open_.back().instruction].text += unit;
  }
}

uint32_t Fields::linkTo(std::u16string_view instruction) {
  constexpr size_t longestInstruction = 4096;
  if (instruction.size() > longestInstruction) return 0;
  auto address = linkTarget(instruction);
  if (!address) return 0;
  const text::Link target(*std::move(address));
  const auto [entry, isNew] = links_.try_emplace(target, static_cast<uint32_t>(targets_.size() + 1));
  if (isNew) targets_.push_back(target);
  return entry->second;
}

}  // namespace standin::formats::doc
