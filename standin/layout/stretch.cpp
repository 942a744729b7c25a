// Paragraphs cut out of styled text.
#include "standin/layout/stretch.hpp"

#include <unicode/utf16.h>

#include <algorithm>

#include "standin/text/text_leaf.hpp"

namespace standin::layout {
namespace {

bool endsParagraph(char16_t unit) { return text::isParagraphBreak(unit) || unit == u'\f'; }

const text::Style& noStyle() {
  static const text::Style style;
  return style;
}

}  // namespace

std::u16string_view beginningOf(std::u16string_view units, size_t most) {
  if (units.size() <= most) return units;
  return units.substr(0, most > 0 && U16_IS_LEAD(units[most - 1]) ? most - 1 : most);
}

// Answers the length up to what ends the paragraph. Reads ahead little by little: most paragraphs are short.
uint32_t StretchReader::readUnits(uint32_t from, std::u16string& units) const {
  const uint32_t most = std::min(mostUnits, size() - from);
  uint32_t held = 0;
  for (uint32_t wanted = 512; held < most; wanted *= 4) {
    const uint32_t count = std::min(wanted, most) - held;
    units.resize(held + count);
    styled_.text.copy(from + held, count, units.data() + held);
    const auto found = std::find_if(units.begin() + held, units.end(), endsParagraph);
    if (found != units.end()) return static_cast<uint32_t>(found - units.begin());
    held += count;
  }
  return held;
}

void StretchReader::read(uint32_t from, Stretch& stretch) {
  stretch.start = from;
  stretch.units.clear();
  const uint32_t length = readUnits(from, stretch.units);
  const bool isEnd = length < stretch.units.size();
  const char16_t ending = isEnd ? stretch.units[length] : u'\0';
  stretch.endsPage = ending == u'\f';
  stretch.next = from + length + (isEnd ? 1 : 0);
  if (ending == u'\r' && stretch.next < size() && styled_.text[stretch.next] == u'\n') ++stretch.next;
  stretch.endsParagraph = isEnd || stretch.next == size();
  stretch.units.resize(length);
  if (!stretch.endsParagraph && U16_IS_LEAD(stretch.units.back())) stretch.units.pop_back();
  readRuns(stretch);
}

void StretchReader::readRuns(Stretch& stretch) {
  stretch.runs.clear();
  stretch.last = &noStyle();
  const auto& runs = styled_.runs;
  while (runStart_ > stretch.start) runStart_ -= runs[--run_].length;
  while (run_ < runs.size() && runStart_ + runs[run_].length <= stretch.start) runStart_ += runs[run_++].length;
  // The unit behind the stretch counts: it is what ends the paragraph.
  uint32_t start = runStart_;
  for (size_t index = run_; index < runs.size() && start <= stretch.end(); start += runs[index++].length) {
    if (runs[index].length == 0) continue;
    stretch.last = runs[index].style;
    const uint32_t from = std::max(start, stretch.start), end = std::min(start + runs[index].length, stretch.end());
    if (from < end) stretch.runs.push_back({from, end, runs[index].style});
  }
}

}  // namespace standin::layout
