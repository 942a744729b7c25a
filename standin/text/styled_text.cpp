// Styled text.
#include "standin/text/styled_text.hpp"

#include <stdexcept>

namespace standin::text {

StyledText StyledText::slice(uint32_t from, uint32_t count) const {
  StyledText part;
  part.text_ = text_.slice(from, count);
  part.runs_ = runs_.slice(from, count);
  return part;
}

// The text first: it is what refuses a length that is too large.
void StyledText::splice(uint32_t from, uint32_t removed, const StyledText& inserted) {
  if (&inserted == this) return splice(from, removed, StyledText(inserted));
  change([&] {
    text_.splice(from, removed, inserted.text_);
    runs_.splice(from, removed, inserted.runs_);
  });
}

void StyledText::splice(uint32_t from, uint32_t removed, const Text& inserted, const AttributeSet& attributes) {
  const uint32_t length = inserted.size();
  change([&] {
    text_.splice(from, removed, inserted);
    runs_.splice(from, removed, length, attributes);
  });
}

void StyledText::splice(uint32_t from, uint32_t removed, const Text& inserted) {
  const uint32_t length = inserted.size();
  change([&] {
    text_.splice(from, removed, inserted);
    runs_.spliceInheriting(from, removed, length);
  });
}

void StyledText::setAttributes(uint32_t from, uint32_t count, const AttributeSet& attributes) {
  restyle(from, count, [&](const AttributeSet&) { return attributes; });
}

void StyledText::addAttribute(uint32_t from, uint32_t count, AttributeObject key, AttributeObject value) {
  restyle(from, count, [&](const AttributeSet& own) { return own.with(key, value); });
}

void StyledText::addAttributes(uint32_t from, uint32_t count, const AttributeSet& additions) {
  restyle(from, count, [&](const AttributeSet& own) { return own.with(additions); });
}

void StyledText::removeAttribute(uint32_t from, uint32_t count, AttributeObject key) {
  restyle(from, count, [&](const AttributeSet& own) { return own.without(key); });
}

void StyledText::clearUnlessWhole() noexcept {
  try {
    checkInvariants();
  } catch (...) {
    *this = StyledText();
  }
}

void StyledText::checkInvariants() const {
  text_.checkInvariants();
  runs_.checkInvariants();
  if (runs_.length() != text_.size()) throw std::logic_error("runs and text of unequal length");
}

}  // namespace standin::text
