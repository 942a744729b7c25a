// Attributed strings, or stretches of them, as document data.
#pragma once

#include "attributed/properties.hpp"

namespace attributed {

// The stretch of `length` units from `offset` on, cut at the end of the text; at the very end it is empty. False when there
// is none: for an empty object, an offset outside the text and a length below 1. For use within the guard.
bool stretchOf(REALobject self, int64_t offset, int64_t length, NSRange& stretch);

// The members that take a clamped range, and their twins for the whole text. Nil for an empty object, a rejected range and a
// document that the platform does not write.
template <auto& message, class Signature = std::remove_cvref_t<decltype(message)>>
struct Export;
template <auto& message, class Result>
struct Export<message, Message<Result(NSRange, NSDictionary*)>> {
  static auto fromRange(REALobject self, int64_t offset, int64_t length, REALdictionary* documentAttributes) {
    return guarded([&] {
      NSRange range{};
      return stretchOf(self, offset, length, range) ? write(self, range, documentAttributes) : nullptr;
    });
  }
  static auto whole(REALobject self, REALdictionary* documentAttributes) {
    return guarded([&] {
      NSObject* text = platformObject(self);
      return text != nullptr ? write(self, {0, NSAttributedString::length(text)}, documentAttributes) : nullptr;
    });
  }

 private:
  static auto write(REALobject self, NSRange range, REALdictionary* documentAttributes) {
    return send<message>(self, range, NewNSDictionary(documentAttributes));
  }
};

inline constexpr auto RTFFromRange = &Export<NSAttributedString::RTFFromRange>::fromRange;
inline constexpr auto RTFDFromRange = &Export<NSAttributedString::RTFDFromRange>::fromRange;
inline constexpr auto docFormatFromRange = &Export<NSAttributedString::docFormatFromRange>::fromRange;
inline constexpr auto RTFDFileWrapperFromRange = &Export<NSAttributedString::RTFDFileWrapperFromRange>::fromRange;
inline constexpr auto RTFFromRange2 = &Export<NSAttributedString::RTFFromRange>::whole;
inline constexpr auto RTFDFromRange2 = &Export<NSAttributedString::RTFDFromRange>::whole;
inline constexpr auto docFormatFromRange2 = &Export<NSAttributedString::docFormatFromRange>::whole;

// The document attributes choose the format. The platform's error, if any, is left in the variable. The second hands its
// range to the platform unchanged.
REALmemoryBlock dataFromRange(REALobject self, int64_t offset, int64_t length, REALdictionary* documentAttributes,
                              REALobject* error);
REALobject fileWrapperFromRange(REALobject self, int64_t offset, int64_t length, REALdictionary* documentAttributes,
                                REALobject* error);

// The whole text as RTF without document attributes, and in the library's own HTML dialect.
REALmemoryBlock rtf(REALobject self);
REALstring htmlString(REALobject self);

}  // namespace attributed
