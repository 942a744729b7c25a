// Messages that read a string's units and cut pieces out of it.
#include <vector>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/string_classes.hpp"

namespace standin::foundation {
namespace {

NSUInteger length(NSString* self) { return lengthOf(self); }

unichar characterAtIndex(NSString* self, NSUInteger index) {
  requireRangeIn(self, "characterAtIndex:", {index, 1});
  return textOf(self)[static_cast<uint32_t>(index)];
}

void getCharacters(NSString* self, unichar* out) { textOf(self).copy(0, lengthOf(self), out); }

void getCharactersInRange(NSString* self, unichar* out, NSRange range) {
  requireRangeIn(self, "getCharacters:range:", range);
  textOf(self).copy(static_cast<uint32_t>(range.location), static_cast<uint32_t>(range.length), out);
}

NSString* substringWithRange(NSString* self, NSRange range) {
  requireRangeIn(self, "substringWithRange:", range);
  return answer(slice(self, range));
}

NSString* substringFromIndex(NSString* self, NSUInteger index) {
  requireIndexIn(self, "substringFromIndex:", index, lengthOf(self));
  return answer(slice(self, {index, lengthOf(self) - index}));
}

NSString* substringToIndex(NSString* self, NSUInteger index) {
  requireIndexIn(self, "substringToIndex:", index, lengthOf(self));
  return answer(slice(self, {0, index}));
}

NSString* stringByAppendingString(NSString* self, NSString* other) {
  requireArgument(self, "stringByAppendingString:", other);
  text::Text joined = textOf(self);
  joined.append(textOf(other));
  return answer(std::move(joined));
}

NSArray* componentsSeparatedByString(NSString* self, NSString* separator) {
  requireArgument(self, "componentsSeparatedByString:", separator);
  const std::u16string units = unitsOf(self), mark = unitsOf(separator);
  std::vector<NSObject*> pieces;
  size_t start = 0;
  for (size_t end; !mark.empty() && (end = units.find(mark, start)) != units.npos; start = end + mark.size()) {
    pieces.push_back(answer(slice(self, {start, end - start})));
  }
  pieces.push_back(answer(slice(self, {start, units.size() - start})));
  return newArray(pieces).autorelease();
}

[[maybe_unused]] const Category access = Category("NSString")
                                             .method<length>("length")
                                             .method<characterAtIndex>("characterAtIndex:")
                                             .method<getCharacters>("getCharacters:")
                                             .method<getCharactersInRange>("getCharacters:range:")
                                             .method<substringWithRange>("substringWithRange:")
                                             .method<substringFromIndex>("substringFromIndex:")
                                             .method<substringToIndex>("substringToIndex:")
                                             .method<stringByAppendingString>("stringByAppendingString:")
                                             .method<componentsSeparatedByString>("componentsSeparatedByString:");

}  // namespace
}  // namespace standin::foundation
