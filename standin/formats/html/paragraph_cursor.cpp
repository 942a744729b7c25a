// The next break, and the runs before it.
#include "standin/formats/html/paragraph_cursor.hpp"

#include <algorithm>

namespace standin::formats::html {
namespace {

std::u16string unitsOf(const text::Text& text) {
  std::u16string units(text.size(), u'\0');
  text.copy(0, text.size(), units.data());
  return units;
}

// The position of the break at or behind this one, or the end.
size_t nextBreak(std::u16string_view units, size_t position) {
  const auto isBreak = [](char16_t unit) { return text::isParagraphBreak(unit); };
  return static_cast<size_t>(std::find_if(units.begin() + position, units.end(), isBreak) - units.begin());
}

// The units of the break at the position.
size_t breakLength(std::u16string_view units, size_t position) {
  return units.substr(position).starts_with(u"\r\n") ? 2 : 1;
}

}  // namespace

ParagraphCursor::ParagraphCursor(const StyledRuns& styled)
    : runs_(styled.runs),
      units_(unitsOf(styled.text)),
      runEnd_(styled.runs.empty() ? 0 : styled.runs.front().length),
      ended_(units_.empty()) {}

bool ParagraphCursor::next() {
  if (ended_) return false;
  const size_t end = nextBreak(units_, position_);
  paragraph_ = std::u16string_view(units_).substr(position_, end - position_);
  addParts(static_cast<uint32_t>(end));
  ended_ = end == units_.size();
  if (!ended_) position_ = static_cast<uint32_t>(end + breakLength(units_, end));
  return true;
}

void ParagraphCursor::addParts(uint32_t end) {
  parts_.clear();
  uint32_t from = position_;
  do {
    findRun(from);
    const uint32_t to = std::max(from, std::min(end, runEnd_));
    parts_.push_back({runs_[run_].style, from - position_, to - position_});
    from = to;
  } while (from < end);
}

// The run at the position, or the last one at the end.
void ParagraphCursor::findRun(uint32_t position) {
  while (runEnd_ <= position && run_ + 1 < runs_.size()) runEnd_ += runs_[++run_].length;
}

}  // namespace standin::formats::html
