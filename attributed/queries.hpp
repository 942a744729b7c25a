// Reading an attributed string: attribute values and sets with the range over which they hold, parts, copies, comparison.
#pragma once

#include "attributed/properties.hpp"

namespace attributed {

// The value of one attribute at a location. Logs the value and its class name.
REALobject attributeAtIndex1r(REALobject self, REALstring name, uint64_t location);
REALobject attributeAtIndex2r(REALobject self, REALstring name, uint64_t location, REALobject inRange);
// These leave a new NSRangeZKT in the variable: where the value holds, or the longest such range within `inRange`.
REALobject attributeAtIndex1(REALobject self, REALstring name, uint64_t location, REALobject* effectiveRange);
REALobject attributeAtIndex2(REALobject self, REALstring name, uint64_t location, REALobject* longestEffectiveRange,
                             REALobject inRange);

// All attributes at a location.
REALdictionary* attributesAtIndex1r(REALobject self, uint64_t location);
REALdictionary* attributesAtIndex2r(REALobject self, uint64_t location, REALobject inRange);
REALdictionary* attributesAtIndex1(REALobject self, uint64_t location, REALobject* range);
REALdictionary* attributesAtIndex2(REALobject self, uint64_t location, REALobject* range, REALobject inRange);

inline constexpr auto attributedSubstringFromRange = methodOf<NSAttributedString::attributedSubstringFromRange>;

// A new host object each time.
REALobject copyWithZone(REALobject self);
REALobject mutableCopy(REALobject self);

bool isEqualToAttributedString(REALobject self, REALobject other);

}  // namespace attributed
