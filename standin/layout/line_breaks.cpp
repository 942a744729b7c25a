// Line breaks by ICU, past a fast path for plain words.
#include "standin/layout/line_breaks.hpp"

#include <unicode/ubrk.h>

#include <algorithm>

namespace standin::layout {
namespace {

bool isLetterOrDigit(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9') ||
         (unit >= 0xC0 && unit < 0x250);
}

bool isIn(std::u16string_view marks, char16_t unit) { return marks.find(unit) != std::u16string_view::npos; }

// A Latin word that is never broken, with marks that stick to it: no hyphen, no slash, nothing that ICU must be asked for.
bool isPlainWord(std::u16string_view text) {
  size_t first = 0, end = text.size();
  while (first < end && isIn(u"(\"'\u201C\u2018", text[first])) ++first;
  while (end > first && isIn(u".,;:!?)\"'\u2019\u201D", text[end - 1])) --end;
  return std::all_of(text.begin() + static_cast<long>(first), text.begin() + static_cast<long>(end),
                     [](char16_t unit) { return isLetterOrDigit(unit) || isIn(u".,'&_\u2019", unit); });
}

}  // namespace

void LineBreaks::Close::operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }

LineBreaks::LineBreaks() {
  UErrorCode status = U_ZERO_ERROR;
  iterator_.reset(ubrk_open(UBRK_LINE, "en", nullptr, 0, &status));
}
LineBreaks::~LineBreaks() = default;

const std::vector<uint32_t>& LineBreaks::in(std::u16string_view text) {
  found_.clear();
  if (iterator_ == nullptr || isPlainWord(text)) return found_;
  UErrorCode status = U_ZERO_ERROR;
  ubrk_setText(iterator_.get(), text.data(), static_cast<int32_t>(text.size()), &status);
  const auto end = static_cast<int32_t>(text.size());
  for (int32_t at = ubrk_next(iterator_.get()); at != UBRK_DONE && at < end; at = ubrk_next(iterator_.get())) {
    found_.push_back(static_cast<uint32_t>(at));
  }
  return found_;
}

}  // namespace standin::layout
