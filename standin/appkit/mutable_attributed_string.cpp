// NSMutableAttributedString: editing characters and attributes.
#include <string>

#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::appkit {
namespace {

using foundation::textOf;
using text::AttributeSet;
using text::StyledText;
using text::UnitRange;

StyledText& editable(NSAttributedString* self) { return stateOf<AttributedString>(self).styled; }

// Positions are held in 32 bits.
void requireSpace(NSAttributedString* self, const char* selector, UnitRange replaced, uint32_t inserted) {
  const uint64_t length = uint64_t{styledTextOf(self).length()} - replaced.length + inserted;
  if (length <= text::maximumLength) return;
  raise(NSMallocException, describeMethod(self, selector) + ": length " + std::to_string(length) + " is too large");
}

void put(NSAttributedString* self, const char* selector, NSRange range, NSAttributedString* inserted) {
  requireArgument(self, selector, inserted);
  const UnitRange replaced = rangeIn(self, selector, range);
  requireSpace(self, selector, replaced, styledTextOf(inserted).length());
  editable(self).splice(replaced.start, replaced.length, styledTextOf(inserted));
}

void replaceWithString(NSAttributedString* self, NSRange range, NSString* string) {
  constexpr const char* selector = "replaceCharactersInRange:withString:";
  requireArgument(self, selector, string);
  const UnitRange replaced = rangeIn(self, selector, range);
  requireSpace(self, selector, replaced, textOf(string).size());
  StyledText& styled = editable(self);
  styled.splice(replaced.start, replaced.length, textOf(string),
                styled.inheritedAttributes(replaced.start, replaced.length));
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
  editable(self).splice(removed.start, removed.length, StyledText());
}

// Nil attributes leave none.
void setAttributes(NSAttributedString* self, NSDictionary* attributes, NSRange range) {
  const UnitRange styled = rangeIn(self, "setAttributes:range:", range);
  editable(self).setAttributes(styled.start, styled.length, attributeSetOf(attributes));
}

void addAttributes(NSAttributedString* self, NSDictionary* attributes, NSRange range) {
  requireArgument(self, "addAttributes:range:", attributes);
  const UnitRange styled = rangeIn(self, "addAttributes:range:", range);
  editable(self).addAttributes(styled.start, styled.length, attributeSetOf(attributes));
}

void addAttribute(NSAttributedString* self, NSString* name, NSObject* value, NSRange range) {
  requireArgument(self, "addAttribute:value:range:", name);
  requireArgument(self, "addAttribute:value:range:", value);
  const UnitRange styled = rangeIn(self, "addAttribute:value:range:", range);
  editable(self).addAttribute(styled.start, styled.length, name, value);
}

void removeAttribute(NSAttributedString* self, NSString* name, NSRange range) {
  requireArgument(self, "removeAttribute:range:", name);
  const UnitRange styled = rangeIn(self, "removeAttribute:range:", range);
  editable(self).removeAttribute(styled.start, styled.length, name);
}

// Edits of a plain attributed string take effect at once, so there is nothing to hold back between the two.
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
