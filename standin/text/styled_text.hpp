// Styled text: characters, and the runs of attributes over them, kept apart and edited together.
#pragma once

#include <utility>

#include "standin/text/memory_reserve.hpp"
#include "standin/text/runs.hpp"
#include "standin/text/text.hpp"

namespace standin::text {

// A value: copies are O(1) and share. Positions and counts must lie inside; a length beyond `maximumLength` throws
// std::length_error before anything has changed.
class StyledText {
 public:
  using Cursor = Runs::Cursor;

  StyledText() = default;
  StyledText(Text text, const AttributeSet& attributes) : text_(std::move(text)), runs_(text_.size(), attributes) {}
  // The runs' lengths must add up to the text's; O(n) in the runs.
  StyledText(Text text, const RunList& runs) : text_(std::move(text)), runs_(runs) {}

  uint32_t length() const { return text_.size(); }
  const Text& text() const { return text_; }

  // The run that holds the position; for the end, the last run. The text must not be empty.
  RunPlace find(uint32_t position) const { return runs_.find(position); }
  Cursor cursor(uint32_t position) const { return Cursor(runs_, position); }
  // Calls visit(RunPlace) for every run in the range, cut to it.
  template <class Visit>
  void forEachRun(uint32_t from, uint32_t count, Visit&& visit) const;

  StyledText slice(uint32_t from, uint32_t count) const;
  void splice(uint32_t from, uint32_t removed, const StyledText& inserted);
  void splice(uint32_t from, uint32_t removed, const Text& inserted, const AttributeSet& attributes);
  // Text put in place of the range takes over the attributes of its first unit; of an empty range, those of the unit before
  // it, or else of the one behind it.
  void splice(uint32_t from, uint32_t removed, const Text& inserted);

  void setAttributes(uint32_t from, uint32_t count, const AttributeSet& attributes);
  // Of equal keys the added value holds.
  void addAttribute(uint32_t from, uint32_t count, AttributeObject key, AttributeObject value);
  void addAttributes(uint32_t from, uint32_t count, const AttributeSet& additions);
  void removeAttribute(uint32_t from, uint32_t count, AttributeObject key);
  template <class Restyled>
  void restyle(uint32_t from, uint32_t count, Restyled&& restyled) {
    change([&] { runs_.restyle(from, count, std::forward<Restyled>(restyled)); });
  }

  // Throws std::logic_error when something is wrong.
  void checkInvariants() const;
  // Shared storage included.
  size_t bytesHeld() const { return text_.bytesHeld() + runs_.bytesHeld(); }

 private:
  // Makes a change for which memory is put by. What throws all the same leaves the text as it was, or empty.
  template <class Change>
  void change(Change&& made) {
    const ReservedMemory reserve;
    try {
      std::forward<Change>(made)();
    } catch (...) {
      clearUnlessWhole();
      throw;
    }
  }
  void clearUnlessWhole() noexcept;

  Text text_;
  Runs runs_;
};

template <class Visit>
void StyledText::forEachRun(uint32_t from, uint32_t count, Visit&& visit) const {
  if (count == 0) return;
  const uint32_t to = from + count;
  for (Cursor at = cursor(from);; at.next()) {
    const uint32_t start = std::max(at.start(), from), end = std::min(at.end(), to);
    visit(RunPlace{start, end - start, at.attributes()});
    if (end == to) return;
  }
}

}  // namespace standin::text
