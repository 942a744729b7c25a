// The string classes, what makes strings, and equality, hash, copies and description.
#include "standin/foundation/string.hpp"

#include <cstring>
#include <unordered_map>

#include "standin/foundation/data.hpp"
#include "standin/foundation/encodings.hpp"
#include "standin/foundation/immortal.hpp"
#include "standin/foundation/string_classes.hpp"

namespace standin::foundation {
namespace {

// A long string is known by its beginning, its middle and its end.
constexpr uint32_t hashedStretch = 32;

NSUInteger mix(NSUInteger hash, const text::Text& text, uint32_t from, uint32_t count) {
  text.visitChunks(from, count, [&](auto stretch) {
    for (const auto unit : stretch) hash = (hash ^ unit) * 0x100000001B3;
  });
  return hash;
}

NSUInteger hashText(const text::Text& text) {
  const uint32_t size = text.size();
  NSUInteger hash = 0xCBF29CE484222325 ^ size;
  if (size <= 3 * hashedStretch) {
    hash = mix(hash, text, 0, size);
  } else {
    for (const uint32_t from : {0U, (size - hashedStretch) / 2, size - hashedStretch}) {
      hash = mix(hash, text, from, hashedStretch);
    }
  }
  return hash | 1;  // 0 means not yet asked for
}

bool isMutable(NSString* string);

BOOL isEqual(NSString* self, NSObject* other) {
  return isString(other) && equal(self, static_cast<NSString*>(other)) ? YES : NO;
}
BOOL isEqualToString(NSString* self, NSString* other) { return equal(self, other) ? YES : NO; }
NSUInteger hash(NSString* self) { return hashOf(self); }
NSString* description(NSString* self) { return isMutable(self) ? answer(textOf(self)) : retain(self).autorelease(); }

// Strings that cannot change are their own copies.
NSObject* copyWithZone(NSString* self, void*) {
  return isMutable(self) ? newString(textOf(self)).detach() : retainObject(self);
}
NSObject* mutableCopyWithZone(NSString* self, void*) { return newMutableString(textOf(self)).detach(); }

[[maybe_unused]] const ClassDefinition stringClass = defineClass<String>("NSString", "NSObject")
                                                         .method<isEqual>("isEqual:")
                                                         .method<isEqualToString>("isEqualToString:")
                                                         .method<hash>("hash")
                                                         .method<description>("description")
                                                         .method<copyWithZone>("copyWithZone:")
                                                         .method<mutableCopyWithZone>("mutableCopyWithZone:")
                                                         .allocatesAs(immutableStringClass());

[[maybe_unused]] const ClassDefinition mutableClass =
    defineClass<String>("NSMutableString", "NSString").allocatesAs(mutableStringClass());

bool isMutable(NSString* string) { return isKindOf(string, mutableClass.object()); }

}  // namespace

const ClassDefinition& immutableStringClass() {
  static const ClassDefinition definition = defineClass<String>("__NSCFString", "NSString");
  return definition;
}

const ClassDefinition& constantStringClass() {
  static const ClassDefinition definition = defineClass<String>("__NSCFConstantString", "__NSCFString");
  return definition;
}

const ClassDefinition& mutableStringClass() {
  static const ClassDefinition definition = defineClass<String>("__NSCFMutableString", "NSMutableString");
  return definition;
}

Owned<NSString> newString(text::Text text) { return create<String, NSString>(immutableStringClass(), std::move(text)); }
Owned<NSString> newString(std::u16string_view units) { return newString(textOfUnits(units)); }

Owned<NSString> newString(std::string_view utf8) {
  std::optional<text::Text> text = decodeUtf8(utf8);
  return text ? newString(*std::move(text)) : nullptr;
}

Owned<NSMutableString> newMutableString(text::Text text) {
  return create<String, NSMutableString>(mutableStringClass(), std::move(text));
}

NSString* constantString(const char* ascii) {
  static auto* const made = new std::unordered_map<std::string_view, NSString*>;
  if (const auto found = made->find(ascii); found != made->end()) return found->second;
  NSObject* const string = makeImmortal(*new String(text::Text::latin1(ascii)), constantStringClass());
  return made->emplace(strdup(ascii), static_cast<NSString*>(string)).first->second;
}

bool isString(NSObject* object) { return isKindOf(object, stringClass.object()); }

const text::Text& textOf(NSString* string) { return stateOf<String>(string).text; }

std::u16string unitsOf(NSString* string) {
  const text::Text& text = textOf(string);
  std::u16string units(text.size(), 0);
  text.copy(0, text.size(), units.data());
  return units;
}

std::string utf8Of(NSString* string) { return *encode(textOf(string), {.loss = "\xEF\xBF\xBD"}); }

bool equal(NSString* left, NSString* right) {
  if (left == right) return true;
  return left != nullptr && right != nullptr && textOf(left) == textOf(right);
}

NSUInteger hashOf(NSString* string) {
  auto& state = stateOf<String>(string);
  if (state.knownHash != 0) return state.knownHash;
  const NSUInteger hash = hashText(state.text);
  if (!isMutable(string)) state.knownHash = hash;
  return hash;
}

std::string describe(NSObject* object) {
  NSString* const description = NSObject::description(object);
  return description != nullptr ? utf8Of(description) : "(null)";
}

const char* autoreleasedBytes(std::string bytes) {
  return reinterpret_cast<const char*>(bytesOf(newData(std::move(bytes)).autorelease()).data());
}

}  // namespace standin::foundation

extern "C" CFStringRef __CFStringMakeConstantString(const char* text) { return standin::foundation::constantString(text); }
