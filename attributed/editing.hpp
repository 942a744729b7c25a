// Editing: the members of the mutable attributed string. Ranges are not checked here; the platform does.
#pragma once

#include "attributed/properties.hpp"

namespace attributed {

// A member whose range comes as two host integers, behind another one if the message takes a value first.
template <auto& message, class Signature = std::remove_cvref_t<decltype(message)>>
struct SpanMember;
template <auto& message, class Result>
struct SpanMember<message, Message<Result(NSRange)>> {
  static auto call(REALobject self, int64_t offset, int64_t length) {
    return guarded([&] { return send<message>(self, spanOf(offset, length)); });
  }
  static NSRange spanOf(int64_t offset, int64_t length) {
    return {static_cast<NSUInteger>(offset), static_cast<NSUInteger>(length)};
  }
};
template <auto& message, class Value>
struct SpanMember<message, Message<void(Value, NSRange)>> {
  static void call(REALobject self, int64_t value, int64_t offset, int64_t length) {
    const NSRange span{static_cast<NSUInteger>(offset), static_cast<NSUInteger>(length)};
    guarded([&] { send<message>(self, static_cast<Value>(value), span); });
  }
};
template <auto& message>
inline constexpr auto spanMethodOf = &SpanMember<message>::call;

using Mutable = NSMutableAttributedString;

inline constexpr auto containsAttachmentsInRange = spanMethodOf<Mutable::containsAttachmentsInRange>;
inline constexpr auto rulerAttributesInRange = spanMethodOf<Mutable::rulerAttributesInRange>;
inline constexpr auto fontAttributesInRange = spanMethodOf<Mutable::fontAttributesInRange>;
inline constexpr auto superscriptRange = spanMethodOf<Mutable::superscriptRange>;
inline constexpr auto subscriptRange = spanMethodOf<Mutable::subscriptRange>;
inline constexpr auto unscriptRange = spanMethodOf<Mutable::unscriptRange>;
inline constexpr auto applyFontTraits = spanMethodOf<Mutable::applyFontTraits>;
inline constexpr auto setAlignment = spanMethodOf<Mutable::setAlignment>;
inline constexpr auto setBaseWritingDirection = spanMethodOf<Mutable::setBaseWritingDirection>;
inline constexpr auto fixAttributesInRange = spanMethodOf<Mutable::fixAttributesInRange>;
inline constexpr auto fixFontAttributeInRange = spanMethodOf<Mutable::fixFontAttributeInRange>;
inline constexpr auto fixParagraphStyleAttributeInRange = spanMethodOf<Mutable::fixParagraphStyleAttributeInRange>;
inline constexpr auto fixAttachmentAttributeInRange = spanMethodOf<Mutable::fixAttachmentAttributeInRange>;

inline constexpr auto updateAttachmentsFromPath = methodOf<Mutable::updateAttachmentsFromPath>;
inline constexpr auto insertAttributedString = methodOf<Mutable::insertAttributedString>;
inline constexpr auto replaceCharactersInRange2 = methodOf<Mutable::replaceWithAttributedString>;
inline constexpr auto addAttributes = methodOf<Mutable::addAttributes>;
inline constexpr auto setAttributes = methodOf<Mutable::setAttributes>;
inline constexpr auto replaceCharactersInRange = methodOf<Mutable::replaceWithString>;
inline constexpr auto deleteCharactersInRange = methodOf<Mutable::deleteCharactersInRange>;
inline constexpr auto beginEditing = methodOf<Mutable::beginEditing>;
inline constexpr auto endEditing = methodOf<Mutable::endEditing>;
inline constexpr auto setAttributedString = methodOf<Mutable::setAttributedString>;
inline constexpr auto appendAttributedString = methodOf<Mutable::appendAttributedString>;
inline constexpr auto removeAttribute = methodOf<Mutable::removeAttribute>;

void updateAttachmentsFromFile(REALobject self, REALfolderItem file);
// A nil name, and a value that has no platform form, add nothing.
void addAttribute(REALobject self, REALstring name, REALobject value, REALobject range);

}  // namespace attributed
