// What NSAttributedString says about its attributes: by position, with the range over which they hold.
#include <algorithm>
#include <array>

#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/foundation/string.hpp"

namespace standin::appkit {
namespace {

using text::RunPlace;
using text::StyledText;

// Objects that a query answers stay valid until the innermost pool ends, whatever becomes of the string.
template <class Type>
Type* answered(Type* object) {
  autoreleaseObject(retainObject(object));
  return object;
}

// The run at the index; its range is stored unless `range` is nil.
RunPlace runAt(NSAttributedString* self, const char* selector, NSUInteger index, NSRange* range) {
  const RunPlace run = styledTextOf(self).find(indexIn(self, selector, index));
  if (range != nullptr) *range = {run.start, run.length};
  return run;
}

NSDictionary* attributesAtIndex(NSAttributedString* self, NSUInteger index, NSRange* range) {
  return answered(dictionaryOf(runAt(self, "attributesAtIndex:effectiveRange:", index, range).attributes));
}

NSObject* attributeAtIndex(NSAttributedString* self, NSString* name, NSUInteger index, NSRange* range) {
  return answered(attributeIn(runAt(self, "attribute:atIndex:effectiveRange:", index, range).attributes, name));
}

// Asks a question about a set once, however many of the next runs share it. The question takes a handle and answers bool.
template <class Question>
class AskedOnce {
 public:
  explicit AskedOnce(Question question) : question_(question) {}

  bool operator()(text::AttributeHandle attributes) {
    Slot& slot = slots_[attributes % slots_.size()];
    if (!slot.isKnown || slot.attributes != attributes) slot = {attributes, true, question_(attributes)};
    return slot.answer;
  }

 private:
  struct Slot {
    text::AttributeHandle attributes = 0;
    bool isKnown = false;
    bool answer = false;
  };
  Question question_;
  std::array<Slot, 16> slots_;
};

// The stretch around the run over which same(attributes) holds, as far as the limit needs it, cut to the limit.
template <class Same>
NSRange stretchAround(const StyledText& styled, const RunPlace& run, text::UnitRange limit, Same&& isSame) {
  AskedOnce same(isSame);
  uint32_t start = run.start, end = run.end();
  for (auto before = styled.cursor(run.start); start > limit.start; start = before.start()) {
    before.previous();
    if (!same(before.attributes())) break;
  }
  for (auto behind = styled.cursor(run.start); end < limit.end(); end = behind.end()) {
    behind.next();
    if (!same(behind.attributes())) break;
  }
  start = std::max(start, limit.start);
  end = std::min(end, limit.end());
  return start < end ? NSRange{start, end - start} : NSRange{0, 0};
}

NSDictionary* attributesLongest(NSAttributedString* self, NSUInteger index, NSRange* range, NSRange limit) {
  constexpr const char* selector = "attributesAtIndex:longestEffectiveRange:inRange:";
  const text::UnitRange within = rangeIn(self, selector, limit);
  const RunPlace run = runAt(self, selector, index, nullptr);
  if (range != nullptr) {
    *range = stretchAround(styledTextOf(self), run, within,
                           [&](text::AttributeHandle attributes) { return equalAttributes(attributes, run.attributes); });
  }
  return answered(dictionaryOf(run.attributes));
}

NSObject* attributeLongest(NSAttributedString* self, NSString* name, NSUInteger index, NSRange* range, NSRange limit) {
  constexpr const char* selector = "attribute:atIndex:longestEffectiveRange:inRange:";
  const text::UnitRange within = rangeIn(self, selector, limit);
  const RunPlace run = runAt(self, selector, index, nullptr);
  NSObject* const value = attributeIn(run.attributes, name);
  if (range != nullptr) {
    *range = stretchAround(styledTextOf(self), run, within, [&](text::AttributeHandle attributes) {
      return equalValues(attributeIn(attributes, name), value);
    });
  }
  return answered(value);
}

// Attachments are known by their attribute, not by the character that stands for them.
bool hasAttachments(const StyledText& styled, text::UnitRange range) {
  if (range.length == 0) return false;
  AskedOnce isAttachment(
      [](text::AttributeHandle attributes) { return attributeIn(attributes, NSAttachmentAttributeName) != nullptr; });
  for (auto run = styled.cursor(range.start);; run.next()) {
    if (isAttachment(run.attributes())) return true;
    if (run.end() >= range.end()) return false;
  }
}

BOOL containsAttachments(AttributedString& self) {
  return hasAttachments(self.styled, {0, self.styled.length()}) ? YES : NO;
}
BOOL containsAttachmentsInRange(NSAttributedString* self, NSRange range) {
  return hasAttachments(styledTextOf(self), rangeIn(self, "containsAttachmentsInRange:", range)) ? YES : NO;
}

[[maybe_unused]] const Category queries = Category("NSAttributedString")
                                              .method<attributesAtIndex>("attributesAtIndex:effectiveRange:")
                                              .method<attributeAtIndex>("attribute:atIndex:effectiveRange:")
                                              .method<attributesLongest>("attributesAtIndex:longestEffectiveRange:inRange:")
                                              .method<attributeLongest>("attribute:atIndex:longestEffectiveRange:inRange:")
                                              .method<containsAttachments>("containsAttachments")
                                              .method<containsAttachmentsInRange>("containsAttachmentsInRange:");

}  // namespace
}  // namespace standin::appkit
