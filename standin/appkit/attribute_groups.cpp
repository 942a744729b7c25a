// The attributes of a place by what they belong to: the paragraph, as rulers copy them, or the characters, as fonts.

#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/foundation/collections.hpp"

namespace standin::appkit {
namespace {

// The published names; addresses, since the constants may not be made yet.
#define ADDRESS_OF(name) &name,
NSString* const* const publishedNames[] = {PLATFORM_ATTRIBUTE_NAMES(ADDRESS_OF)};
#undef ADDRESS_OF

bool isOfFonts(NSString* const* name) {
  return name != &NSParagraphStyleAttributeName && name != &NSAttachmentAttributeName && name != &NSLinkAttributeName;
}
bool isOfRulers(NSString* const* name) { return name == &NSParagraphStyleAttributeName; }

// The attributes of the first character of the range, as far as the question holds for their names; of an empty range, none.
template <bool (*isWanted)(NSString* const*)>
NSDictionary* attributesOfFirst(NSAttributedString* self, const char* selector, NSRange range) {
  const text::UnitRange part = rangeIn(self, selector, range);
  Owned<NSMutableDictionary> found = foundation::newMutableDictionary();
  if (part.length > 0) {
    const text::AttributeHandle attributes = styledTextOf(self).find(part.start).attributes;
    for (NSString* const* name : publishedNames) {
      NSObject* const value = isWanted(name) ? attributeIn(attributes, *name) : nullptr;
      if (value != nullptr) foundation::set(found, *name, value);
    }
  }
  return found.autorelease();
}

NSDictionary* rulerAttributesInRange(NSAttributedString* self, NSRange range) {
  return attributesOfFirst<isOfRulers>(self, "rulerAttributesInRange:", range);
}
NSDictionary* fontAttributesInRange(NSAttributedString* self, NSRange range) {
  return attributesOfFirst<isOfFonts>(self, "fontAttributesInRange:", range);
}

[[maybe_unused]] const Category groups = Category("NSAttributedString")
                                             .method<rulerAttributesInRange>("rulerAttributesInRange:")
                                             .method<fontAttributesInRange>("fontAttributesInRange:");

}  // namespace
}  // namespace standin::appkit
