// The string classes, and what the files that give them methods share.
#pragma once

#include "standin/foundation/checks.hpp"
#include "standin/foundation/string.hpp"

namespace standin::foundation {

// Functions, because strings are made while static objects of other files are.
const ClassDefinition& immutableStringClass();
const ClassDefinition& constantStringClass();
const ClassDefinition& mutableStringClass();

inline uint32_t lengthOf(NSString* string) { return textOf(string).size(); }

inline void requireIndexIn(NSString* self, const char* selector, NSUInteger index, NSUInteger limit) {
  requireIndex(self, selector, index, limit, "string", lengthOf(self));
}
inline void requireRangeIn(NSString* self, const char* selector, NSRange range) {
  requireRange(self, selector, range, "string", lengthOf(self));
}

inline text::Text slice(NSString* string, NSRange range) {
  return textOf(string).slice(static_cast<uint32_t>(range.location), static_cast<uint32_t>(range.length));
}

// An autoreleased string of the text.
inline NSString* answer(text::Text text) { return newString(std::move(text)).autorelease(); }

}  // namespace standin::foundation
