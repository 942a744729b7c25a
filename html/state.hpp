// What the reader and the writer keep for the whole process, from one document to the next.
#pragma once

#include <utility>

#include "platform/appkit.h"
#include "platform/owned.h"

namespace html {

inline constexpr float defaultFontSize = 12.0F;

// How the next text run is styled. Every reading starts from plain text, except that an open link stays open.
inline constinit float fontsize = defaultFontSize;
inline constinit NSFontTraitMask mask = 0;
inline constinit bool underlineFlag = false;
inline constinit NSString* linkString = nullptr;

// Nil until didLoad: no entity is known and black is a colour like any other.
inline constinit NSDictionary* keywordDictionary = nullptr;
inline constinit NSString* blackColorString = nullptr;

// The attributes of the run written last.
inline constinit NSDictionary* cachedAttributes = nullptr;
inline constinit NSMutableArray* fontDirectiveStack = nullptr;

// Each of these variables owns one reference to what it holds.
template <class Type>
void hold(Type*& variable, Owned<Type> value) {
  const auto old = adopt(std::exchange(variable, value.detach()));
}

}  // namespace html
