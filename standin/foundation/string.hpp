// Strings: the state behind every NSString, and what other files of the platform do with strings without messages.
#pragma once

#include <string>
#include <string_view>

#include "platform/foundation.h"
#include "standin/runtime/class_definition.hpp"
#include "standin/text/text.hpp"

namespace standin::foundation {

// Every NSString, mutable and constant ones included. `text` changes in mutable strings alone, through `Text::splice`.
struct String : Object {
  String() = default;
  explicit String(text::Text characters) : text(std::move(characters)) {}

  text::Text text;
  NSUInteger knownHash = 0;  // 0 until asked for, and always 0 in mutable strings
};

// New strings, owned by the caller.
Owned<NSString> newString(text::Text text);
Owned<NSString> newString(std::u16string_view units);
// Nil when the bytes are not well-formed UTF-8.
Owned<NSString> newString(std::string_view utf8);
Owned<NSMutableString> newMutableString(text::Text text = {});

// An immortal string of the ASCII text, one for each distinct text. Usable while static objects are being made:
// `NSString* const NSFoo = constantString("NSFoo")`. It is not counted as a live object.
NSString* constantString(const char* ascii);

bool isString(NSObject* object);
// These take any NSString but nil.
const text::Text& textOf(NSString* string);
std::u16string unitsOf(NSString* string);
// Lone surrogates become U+FFFD.
std::string utf8Of(NSString* string);

// Same units; nil equals nil alone.
bool equal(NSString* left, NSString* right);
// Equal strings have equal hashes, however they are stored.
NSUInteger hashOf(NSString* string);

// What `description` answers, in UTF-8; "(null)" for nil.
std::string describe(NSObject* object);

// A zero-terminated copy that lives as long as the innermost autorelease pool.
const char* autoreleasedBytes(std::string bytes);

}  // namespace standin::foundation
