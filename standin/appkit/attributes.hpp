// Between attribute dictionaries, which are platform objects, and the interned sets that styled text holds.
#pragma once

#include "platform/appkit.h"
#include "standin/text/attribute_set.hpp"

namespace standin::appkit {

// The set of the dictionary's entries; of nil, the empty set.
text::AttributeSet attributeSetOf(NSDictionary* attributes);
// The one dictionary of a set, which lives as long as the set does; not retained. The handle must be held by somebody.
NSDictionary* dictionaryOf(text::AttributeHandle attributes);
// The value of the key in a set, not retained; nil when absent or when the key is nil.
NSObject* attributeIn(text::AttributeHandle attributes, NSString* key);

// The same value as objects say it: either is nil only if both are.
bool equalValues(NSObject* left, NSObject* right);
// The same keys with equal values. Different sets can be equal so: numbers of equal value but different type.
bool equalAttributes(text::AttributeHandle left, text::AttributeHandle right);

}  // namespace standin::appkit
