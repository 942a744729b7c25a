// NSAttributedString: the cluster's classes, creation, copies, equality and description.
#include "standin/appkit/attributed_string.hpp"

#include <string>

#include "standin/appkit/attributed_string_checks.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_object.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::appkit {
namespace {

using foundation::newString;
using foundation::textOf;
using text::StyledText;

const ClassDefinition immutableClass = defineClass<AttributedString>("NSConcreteAttributedString", "NSAttributedString");
const ClassDefinition mutableClass =
    defineClass<AttributedString>("NSConcreteMutableAttributedString", "NSMutableAttributedString");

bool isMutable(NSAttributedString* string) {
  static const ClassObject* const publicClass = findClass("NSMutableAttributedString");
  return isKindOf(string, publicClass);
}

// The receiver belongs to the init message: it is released when an argument is refused. content() makes what it holds.
template <class Content>
NSAttributedString* initialise(NSAttributedString* self, const char* selector, NSObject* argument, Content&& content) {
  Owned<NSAttributedString> receiver = adopt(self);
  requireArgument(self, selector, argument);
  stateOf<AttributedString>(self).styled = content();
  return receiver.detach();
}

NSAttributedString* initWithString(NSAttributedString* self, NSString* string) {
  return initialise(self, "initWithString:", string, [&] { return StyledText(textOf(string), text::AttributeSet()); });
}
NSAttributedString* initWithStringAttributes(NSAttributedString* self, NSString* string, NSDictionary* attributes) {
  return initialise(self, "initWithString:attributes:", string,
                    [&] { return StyledText(textOf(string), attributeSetOf(attributes)); });
}
NSAttributedString* initWithAttributedString(NSAttributedString* self, NSAttributedString* other) {
  return initialise(self, "initWithAttributedString:", other, [&] { return styledTextOf(other); });
}

NSUInteger length(AttributedString& self) { return self.styled.length(); }
NSString* string(AttributedString& self) { return newString(self.styled.text()).autorelease(); }

NSAttributedString* substring(NSAttributedString* self, NSRange range) {
  const text::UnitRange part = rangeIn(self, "attributedSubstringFromRange:", range);
  return newAttributedString(styledTextOf(self).slice(part.start, part.length)).autorelease();
}

NSObject* copyWithZone(NSAttributedString* self, void*) {
  return isMutable(self) ? newAttributedString(styledTextOf(self)).detach() : retainObject(self);
}
NSObject* mutableCopyWithZone(NSAttributedString* self, void*) {
  return newMutableAttributedString(styledTextOf(self)).detach();
}

bool equalRuns(const StyledText& left, const StyledText& right) {
  if (left.length() == 0) return true;
  for (auto own = left.cursor(0), other = right.cursor(0);;) {
    if (!equalAttributes(own.attributes(), other.attributes())) return false;
    const uint32_t end = std::min(own.end(), other.end());
    if (end == left.length()) return true;
    own.advanceTo(end);
    other.advanceTo(end);
  }
}

BOOL isEqualToAttributedString(NSAttributedString* self, NSAttributedString* other) {
  if (self == other) return YES;
  if (other == nullptr) return NO;
  const StyledText &own = styledTextOf(self), &others = styledTextOf(other);
  return own.text() == others.text() && equalRuns(own, others) ? YES : NO;
}

BOOL isEqual(NSAttributedString* self, NSObject* other) {
  return isAttributedString(other) ? isEqualToAttributedString(self, static_cast<NSAttributedString*>(other)) : NO;
}

NSUInteger hash(AttributedString& self) { return foundation::hashOf(newString(self.styled.text())); }

// Each run's characters, followed by its attributes.
NSString* description(AttributedString& self) {
  text::Text described;
  forEachRun(self.styled, 0, self.styled.length(), [&](const text::RunPlace& run, NSDictionary* attributes) {
    described.append(self.styled.text().slice(run.start, run.length));
    described.append(textOf(NSObject::description(attributes)));
  });
  return newString(std::move(described)).autorelease();
}

[[maybe_unused]] const ClassDefinition attributedStringClass =
    defineClass<AttributedString>("NSAttributedString", "NSObject")
        .allocatesAs(immutableClass)
        .method<initWithString>("initWithString:")
        .method<initWithStringAttributes>("initWithString:attributes:")
        .method<initWithAttributedString>("initWithAttributedString:")
        .method<length>("length")
        .method<string>("string")
        .method<substring>("attributedSubstringFromRange:")
        .method<copyWithZone>("copyWithZone:")
        .method<mutableCopyWithZone>("mutableCopyWithZone:")
        .method<isEqualToAttributedString>("isEqualToAttributedString:")
        .method<isEqual>("isEqual:")
        .method<hash>("hash")
        .method<description>("description");

[[maybe_unused]] const ClassDefinition mutableAttributedStringClass =
    defineClass<AttributedString>("NSMutableAttributedString", "NSAttributedString").allocatesAs(mutableClass);

}  // namespace

Owned<NSAttributedString> newAttributedString(StyledText styled) {
  return create<AttributedString, NSAttributedString>(immutableClass, std::move(styled));
}

Owned<NSMutableAttributedString> newMutableAttributedString(StyledText styled) {
  return create<AttributedString, NSMutableAttributedString>(mutableClass, std::move(styled));
}

bool isAttributedString(NSObject* object) {
  static const ClassObject* const publicClass = findClass("NSAttributedString");
  return isKindOf(object, publicClass);
}

const StyledText& styledTextOf(NSAttributedString* string) { return stateOf<AttributedString>(string).styled; }

text::UnitRange rangeIn(NSAttributedString* self, const char* selector, NSRange range) {
  foundation::requireRange(self, selector, range, "string", styledTextOf(self).length());
  return {static_cast<uint32_t>(range.location), static_cast<uint32_t>(range.length)};
}

uint32_t indexIn(NSAttributedString* self, const char* selector, NSUInteger index) {
  const uint32_t length = styledTextOf(self).length();
  if (index < length) return static_cast<uint32_t>(index);
  raise(NSRangeException, describeMethod(self, selector) + ": Index " + std::to_string(index) +
                              " out of bounds; string length " + std::to_string(length));
}

}  // namespace standin::appkit
