// NSMutableAttributedString: editing characters and attributes.
#include <string>

#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/appkit/editing.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::appkit {
namespace {

using foundation::textOf;
using text::StyledText;
using text::UnitRange;

// Positions are held in 32 bits.
void requireSpace(NSAttributedString* self, const char* selector, UnitRange replaced, uint32_t inserted) {
  const uint64_t length = uint64_t{styledTextOf(self).length()} - replaced.length + inserted;
  if (length <= text::maximumLength) return;
  raise(NSMallocException, describeMethod(self, selector) + ": length " + std::to_string(length) + " is too large");
}

void put(NSAttributedString* self, const char* selector, NSRange range, NSAttributedString* inserted) {
  requireArgument(self, selector, inserted);
  const UnitRange replaced = rangeIn(self, selector, range);
  const uint32_t length = styledTextOf(inserted).length();
  requireSpace(self, selector, replaced, length);
  edit(self, replaced, length,
       [&](StyledText& styled) { styled.splice(replaced.start, replaced.length, styledTextOf(inserted)); });
}

void replaceWithString(NSAttributedString* self, NSRange range, NSString* string) {
  constexpr const char* selector = "replaceCharactersInRange:withString:";
  requireArgument(self, selector, string);
  const UnitRange replaced = rangeIn(self, selector, range);
  const text::Text& inserted = textOf(string);
  const uint32_t length = inserted.size();
  requireSpace(self, selector, replaced, length);
  edit(self, replaced, length, [&](StyledText& styled) { styled.splice(replaced.start, replaced.length, inserted); });
}

void replaceWithAttributedString(NSAttributedString* self, NSRange range, NSAttributedString* inserted) {
  put(self, "replaceCharactersInRange:withAttributedString:", range, inserted);
}
void insertAttributedString(NSAttributedString* self, NSAttributedString* inserted, NSUInteger index) {
  put(self, "insertAttributedString:atIndex:", {index, 0}, inserted);
}
void appendAttributedString(NSAttributedString* self, NSAttributedString* appended) {
  put(self, "appendAttributedString:", {styledTextOf(self).length(), 0}, appended);
}
void setAttributedString(NSAttributedString* self, NSAttributedString* content) {
  put(self, "setAttributedString:", {0, styledTextOf(self).length()}, content);
}

void deleteCharacters(NSAttributedString* self, NSRange range) {
  const UnitRange removed = rangeIn(self, "deleteCharactersInRange:", range);
  edit(self, removed, 0, [&](StyledText& styled) { styled.splice(removed.start, removed.length, StyledText()); });
}

// Nil attributes leave none.
void setAttributes(NSAttributedString* self, NSDictionary* attributes, NSRange range) {
  const UnitRange part = rangeIn(self, "setAttributes:range:", range);
  restyle(self, part,
          [&](StyledText& styled) { styled.setAttributes(part.start, part.length, attributeSetOf(attributes)); });
}

void addAttributes(NSAttributedString* self, NSDictionary* attributes, NSRange range) {
  requireArgument(self, "addAttributes:range:", attributes);
  const UnitRange part = rangeIn(self, "addAttributes:range:", range);
  restyle(self, part,
          [&](StyledText& styled) { styled.addAttributes(part.start, part.length, attributeSetOf(attributes)); });
}

void addAttribute(NSAttributedString* self, NSString* name, NSObject* value, NSRange range) {
  requireArgument(self, "addAttribute:value:range:", name);
  requireArgument(self, "addAttribute:value:range:", value);
  const UnitRange part = rangeIn(self, "addAttribute:value:range:", range);
  restyle(self, part, [&](StyledText& styled) { styled.addAttribute(part.start, part.length, name, value); });
}

void removeAttribute(NSAttributedString* self, NSString* name, NSRange range) {
  requireArgument(self, "removeAttribute:range:", name);
  const UnitRange part = rangeIn(self, "removeAttribute:range:", range);
  restyle(self, part, [&](StyledText& styled) { styled.removeAttribute(part.start, part.length, name); });
}

// Edits of a plain attributed string take effect at once, so there is nothing to hold back between the two. Text storages
// have methods of their own.
void beginEditing(NSAttributedString*) {}
void endEditing(NSAttributedString*) {}

[[maybe_unused]] const Category editing =
    Category("NSMutableAttributedString")
        .method<replaceWithString>("replaceCharactersInRange:withString:")
        .method<replaceWithAttributedString>("replaceCharactersInRange:withAttributedString:")
        .method<insertAttributedString>("insertAttributedString:atIndex:")
        .method<appendAttributedString>("appendAttributedString:")
        .method<setAttributedString>("setAttributedString:")
        .method<deleteCharacters>("deleteCharactersInRange:")
        .method<setAttributes>("setAttributes:range:")
        .method<addAttributes>("addAttributes:range:")
        .method<addAttribute>("addAttribute:value:range:")
        .method<removeAttribute>("removeAttribute:range:")
        .method<beginEditing>("beginEditing")
        .method<endEditing>("endEditing");

}  // namespace
}  // namespace standin::appkit
