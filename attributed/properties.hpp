// The attributed string's properties, and its platform object handed to the siblings' CoreFoundation classes.
#pragma once

#include "classes/members.hpp"

namespace attributed {

using namespace classes;

inline constexpr auto length = getterOf<NSAttributedString::length>;
inline constexpr auto string = getterOf<NSAttributedString::string>;
inline constexpr auto containsAttachments = getterOf<NSAttributedString::containsAttachments>;

// A new host object that holds a reference of its own to the wrapped object; not registered. Nil for an empty object and for
// a host without the sibling's class. No message is sent, so there is no guard.
REALobject AsCFAttributedString(REALobject self);
REALobject AsCFMutableAttributedString(REALobject self);

}  // namespace attributed
