// NSCharacterSet, over ICU's sets of code points.
#include <unicode/uniset.h>

#include "standin/foundation/immortal.hpp"
#include "standin/foundation/string_classes.hpp"

namespace standin::foundation {
namespace {

// Frozen sets answer quickly and never change.
struct CharacterSet : Object {
  icu::UnicodeSet members;
};

// Set expressions by Unicode category.
constexpr char whitespacePattern[] = "[\\p{Zs}\\u0009]";
constexpr char newlinePattern[] = "[\\u000A-\\u000D\\u0085\\u2028\\u2029]";
constexpr char whitespaceAndNewlinePattern[] = "[\\p{Z}\\u0009-\\u000D\\u0085]";
constexpr char decimalDigitPattern[] = "[\\p{Nd}]";
constexpr char letterPattern[] = "[\\p{L}\\p{M}]";
constexpr char uppercaseLetterPattern[] = "[\\p{Lu}\\p{Lt}]";
constexpr char lowercaseLetterPattern[] = "[\\p{Ll}]";
constexpr char alphanumericPattern[] = "[\\p{L}\\p{M}\\p{N}]";
constexpr char punctuationPattern[] = "[\\p{P}]";
constexpr char symbolPattern[] = "[\\p{S}]";
constexpr char controlPattern[] = "[\\p{Cc}\\p{Cf}]";

const ClassDefinition& concreteClass() {
  static const ClassDefinition definition = defineClass<CharacterSet>("__NSCFCharacterSet", "NSCharacterSet");
  return definition;
}

NSCharacterSet* answer(const icu::UnicodeSet& members) {
  const Owned<NSCharacterSet> set = create<CharacterSet, NSCharacterSet>(concreteClass());
  stateOf<CharacterSet>(set).members = members;
  stateOf<CharacterSet>(set).members.freeze();
  return retain(set.get()).autorelease();
}

// The named sets are made when first asked for and kept.
template <const char* pattern>
NSCharacterSet* named(Class) {
  static NSObject* const set = [] {
    auto* state = new CharacterSet;
    UErrorCode status = U_ZERO_ERROR;
    state->members.applyPattern(icu::UnicodeString::fromUTF8(pattern), status).freeze();
    return makeImmortal(*state, concreteClass());
  }();
  return static_cast<NSCharacterSet*>(set);
}

NSCharacterSet* withCharactersInString(Class self, NSString* string) {
  requireArgument(self, "characterSetWithCharactersInString:", string);
  const std::u16string units = unitsOf(string);
  icu::UnicodeSet members;
  members.addAll(icu::UnicodeString(false, units.data(), static_cast<int32_t>(units.size())));
  return answer(members);
}

// The range is of code points.
NSCharacterSet* withRange(Class self, NSRange range) {
  constexpr NSUInteger points = 0x110000;
  requireRange(self, "characterSetWithRange:", range, "code point", points);
  icu::UnicodeSet members;
  if (range.length != 0) {
    members.add(static_cast<UChar32>(range.location), static_cast<UChar32>(range.location + range.length - 1));
  }
  return answer(members);
}

NSCharacterSet* invertedSet(CharacterSet& self) {
  icu::UnicodeSet members(0, 0x10FFFF);
  return answer(members.removeAll(self.members));
}

BOOL characterIsMember(CharacterSet& self, unichar unit) { return self.members.contains(unit) ? YES : NO; }
BOOL longCharacterIsMember(CharacterSet& self, uint32_t point) {
  return point <= 0x10FFFF && self.members.contains(static_cast<UChar32>(point)) ? YES : NO;
}

bool isCharacterSet(NSObject* object);
BOOL isEqual(CharacterSet& self, NSObject* other) {
  return isCharacterSet(other) && self.members == stateOf<CharacterSet>(other).members ? YES : NO;
}
NSUInteger hash(CharacterSet& self) { return static_cast<NSUInteger>(self.members.hashCode()); }
NSObject* copyWithZone(NSObject* self, void*) { return retainObject(self); }

const ClassDefinition characterSetClass =
    defineClass<CharacterSet>("NSCharacterSet", "NSObject")
        .classMethod<named<whitespacePattern>>("whitespaceCharacterSet")
        .classMethod<named<newlinePattern>>("newlineCharacterSet")
        .classMethod<named<whitespaceAndNewlinePattern>>("whitespaceAndNewlineCharacterSet")
        .classMethod<named<decimalDigitPattern>>("decimalDigitCharacterSet")
        .classMethod<named<letterPattern>>("letterCharacterSet")
        .classMethod<named<uppercaseLetterPattern>>("uppercaseLetterCharacterSet")
        .classMethod<named<lowercaseLetterPattern>>("lowercaseLetterCharacterSet")
        .classMethod<named<alphanumericPattern>>("alphanumericCharacterSet")
        .classMethod<named<punctuationPattern>>("punctuationCharacterSet")
        .classMethod<named<symbolPattern>>("symbolCharacterSet")
        .classMethod<named<controlPattern>>("controlCharacterSet")
        .classMethod<withCharactersInString>("characterSetWithCharactersInString:")
        .classMethod<withRange>("characterSetWithRange:")
        .method<invertedSet>("invertedSet")
        .method<characterIsMember>("characterIsMember:")
        .method<longCharacterIsMember>("longCharacterIsMember:")
        .method<isEqual>("isEqual:")
        .method<hash>("hash")
        .method<copyWithZone>("copyWithZone:")
        .allocatesAs(concreteClass());

bool isCharacterSet(NSObject* object) { return isKindOf(object, characterSetClass.object()); }

// The string without members of the set at both ends.
NSString* stringByTrimming(NSString* self, NSCharacterSet* set) {
  requireArgument(self, "stringByTrimmingCharactersInSet:", set);
  const icu::UnicodeSet& members = stateOf<CharacterSet>(set).members;
  const text::Text& text = textOf(self);
  uint32_t start = 0, end = text.size();
  while (start < end && members.contains(text[start])) ++start;
  while (start < end && members.contains(text[end - 1])) --end;
  return foundation::answer(text.slice(start, end - start));
}

NSRange rangeOfCharacter(NSString* self, NSCharacterSet* set) {
  requireArgument(self, "rangeOfCharacterFromSet:", set);
  const icu::UnicodeSet& members = stateOf<CharacterSet>(set).members;
  const std::u16string units = unitsOf(self);
  const icu::UnicodeString text(false, units.data(), static_cast<int32_t>(units.size()));
  for (int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
    if (members.contains(text.char32At(at))) {
      return {static_cast<NSUInteger>(at), static_cast<NSUInteger>(text.moveIndex32(at, 1) - at)};
    }
  }
  return {NSNotFound, 0};
}

[[maybe_unused]] const Category trimming = Category("NSString")
                                               .method<stringByTrimming>("stringByTrimmingCharactersInSet:")
                                               .method<rangeOfCharacter>("rangeOfCharacterFromSet:");

}  // namespace
}  // namespace standin::foundation
