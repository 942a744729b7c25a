// NSMutableString: its messages, each an edit of the text.
#include "standin/foundation/string_classes.hpp"
#include "standin/foundation/string_search.hpp"

namespace standin::foundation {
namespace {

NSMutableString* stringWithCapacity(Class self, NSUInteger) {
  return static_cast<NSMutableString*>(adopt(NSObject::init(NSObject::alloc(self))).autorelease());
}
NSString* initWithCapacity(NSString* self, NSUInteger) { return self; }

// The range must have been checked.
void replace(NSString* self, NSRange range, const text::Text& text) {
  stateOf<String>(self).text.splice(static_cast<uint32_t>(range.location), static_cast<uint32_t>(range.length), text);
}

void appendString(NSString* self, NSString* other) {
  requireArgument(self, "appendString:", other);
  stateOf<String>(self).text.append(textOf(other));
}

void setString(NSString* self, NSString* other) {
  requireArgument(self, "setString:", other);
  stateOf<String>(self).text = textOf(other);
}

void insertString(NSString* self, NSString* other, NSUInteger index) {
  requireArgument(self, "insertString:atIndex:", other);
  requireIndexIn(self, "insertString:atIndex:", index, lengthOf(self));
  replace(self, {index, 0}, textOf(other));
}

void deleteCharacters(NSString* self, NSRange range) {
  requireRangeIn(self, "deleteCharactersInRange:", range);
  replace(self, range, {});
}

void replaceCharacters(NSString* self, NSRange range, NSString* other) {
  requireRangeIn(self, "replaceCharactersInRange:withString:", range);
  requireArgument(self, "replaceCharactersInRange:withString:", other);
  replace(self, range, textOf(other));
}

[[maybe_unused]] const Category editing = Category("NSMutableString")
                                              .classMethod<stringWithCapacity>("stringWithCapacity:")
                                              .method<initWithCapacity>("initWithCapacity:")
                                              .method<appendString>("appendString:")
                                              .method<setString>("setString:")
                                              .method<insertString>("insertString:atIndex:")
                                              .method<deleteCharacters>("deleteCharactersInRange:")
                                              .method<replaceCharacters>("replaceCharactersInRange:withString:");

}  // namespace
}  // namespace standin::foundation
