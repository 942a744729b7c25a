// Messages that search, compare and replace.
#include "standin/foundation/string_classes.hpp"
#include "standin/foundation/string_search.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::foundation {
namespace {

using Comparison = NSInteger;  // -1, 0, 1

void requireKnownOptions(NSString* self, const char* selector, NSUInteger options) {
  if ((options & ~knownSearchOptions) == 0) return;
  raise(NSInvalidArgumentException,
        describeMethod(self, selector) + ": unsupported search options " + std::to_string(options));
}

NSRange rangeOfStringInRange(NSString* self, NSString* pattern, NSUInteger options, NSRange range) {
  requireArgument(self, "rangeOfString:options:range:", pattern);
  requireKnownOptions(self, "rangeOfString:options:range:", options);
  requireRangeIn(self, "rangeOfString:options:range:", range);
  const std::u16string units = unitsOf(self);
  NSRange found = findText(std::u16string_view(units).substr(range.location, range.length), unitsOf(pattern), options);
  if (found.location != NSNotFound) found.location += range.location;
  return found;
}
NSRange rangeOfStringWithOptions(NSString* self, NSString* pattern, NSUInteger options) {
  return rangeOfStringInRange(self, pattern, options, {0, lengthOf(self)});
}
NSRange rangeOfString(NSString* self, NSString* pattern) { return rangeOfStringWithOptions(self, pattern, 0); }

BOOL hasPrefix(NSString* self, NSString* prefix) {
  return rangeOfStringWithOptions(self, prefix, anchoredSearch).location != NSNotFound ? YES : NO;
}
BOOL hasSuffix(NSString* self, NSString* suffix) {
  return rangeOfStringWithOptions(self, suffix, anchoredSearch | backwardsSearch).location != NSNotFound ? YES : NO;
}

Comparison compareWithOptions(NSString* self, NSString* other, NSUInteger options) {
  requireArgument(self, "compare:options:", other);
  requireKnownOptions(self, "compare:options:", options);
  const std::strong_ordering order = compareText(unitsOf(self), unitsOf(other), options);
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}
Comparison compare(NSString* self, NSString* other) { return compareWithOptions(self, other, 0); }
Comparison caseInsensitiveCompare(NSString* self, NSString* other) {
  return compareWithOptions(self, other, caseInsensitiveSearch);
}

NSString* replacing(NSString* self, NSString* pattern, NSString* replacement) {
  requireArgument(self, "stringByReplacingOccurrencesOfString:withString:", pattern);
  requireArgument(self, "stringByReplacingOccurrencesOfString:withString:", replacement);
  const std::u16string units = unitsOf(self), wanted = unitsOf(pattern);
  const std::u16string_view rest = units;
  text::Text result;
  size_t done = 0;
  for (NSRange found; (found = findText(rest.substr(done), wanted, 0)).location != NSNotFound;) {
    result.append(slice(self, {done, found.location}));
    result.append(textOf(replacement));
    done += found.location + found.length;
  }
  result.append(slice(self, {done, units.size() - done}));
  return answer(std::move(result));
}

[[maybe_unused]] const Category comparison = Category("NSString")
                                                 .method<rangeOfString>("rangeOfString:")
                                                 .method<rangeOfStringWithOptions>("rangeOfString:options:")
                                                 .method<rangeOfStringInRange>("rangeOfString:options:range:")
                                                 .method<hasPrefix>("hasPrefix:")
                                                 .method<hasSuffix>("hasSuffix:")
                                                 .method<compare>("compare:")
                                                 .method<compareWithOptions>("compare:options:")
                                                 .method<caseInsensitiveCompare>("caseInsensitiveCompare:")
                                                 .method<replacing>("stringByReplacingOccurrencesOfString:withString:");

}  // namespace
}  // namespace standin::foundation
