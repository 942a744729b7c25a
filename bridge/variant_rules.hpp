// The rules by which platform objects of one kind become host values. Results carry one reference for the caller.
#pragma once

#include <optional>
#include <string_view>

#include "bridge/host_variant.hpp"
#include "platform/foundation.h"

namespace bridge {

template <class Type>
bool isKindOf(NSObject* object) {
  return NSObject::isKindOfClass(object, classOf<Type>()) != NO;
}

// Whether the object has the message's method.
template <class Signature>
bool respondsTo(NSObject* object, const Message<Signature>& message) {
  return NSObject::respondsToSelector(object, message.selector()) != NO;
}

// The type that the value was made from; empty for a value that does not say.
inline std::string_view encodingOf(NSValue* value) {
  const char* const encoding = NSValue::objCType(value);
  return encoding == nullptr ? std::string_view() : std::string_view(encoding);
}

// number_rules.cpp
HostVariant variantOfNumber(NSNumber* number);

// value_rules.cpp: structures and media times; nil for any other encoding.
HostVariant variantOfValue(NSValue* value);

// wrapper_rules.cpp: the classes with wrappers of their own. No value: the object is of none of them.
std::optional<HostVariant> wrapKnownClass(NSObject* object);
// A wrapper named after the nearest of the object's classes for which the host has one, or nil. Not registered.
HostVariant wrapByClassName(NSObject* object);

// core_foundation_rules.cpp: no value: the object is no CoreFoundation object, or raised an exception on being asked.
std::optional<HostVariant> wrapCoreFoundationObject(NSObject* object);

}  // namespace bridge
