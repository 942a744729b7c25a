// The ordered rules from platform object to host variant.
#include "bridge/to_variant.hpp"

#include "bridge/dates.hpp"
#include "bridge/folder_items.hpp"
#include "bridge/memory.hpp"
#include "bridge/nesting.hpp"
#include "bridge/sibling_messages.hpp"
#include "bridge/strings.hpp"
#include "bridge/to_dictionary.hpp"
#include "bridge/variant_rules.hpp"
#include "platform/corefoundation.h"
#include "plugin/wrappers.hpp"

namespace bridge {
namespace {

using plugin::adoptHost;
using plugin::REALobject;

HostVariant variantOfString(NSString* text) {
  const auto hostText = adoptHost(CFString2RBString(text));
  return adoptHost(plugin::REALNewVariantString(hostText));
}

HostVariant variantOfURL(NSURL* url) {
  if (const auto item = NSURLRBFile(url)) return adoptHost<plugin::REALobjectStruct>(item);
  return variantOfString(NSURL::absoluteString(url));
}

HostVariant variantOfData(NSData* data) { return adoptHost<plugin::REALobjectStruct>(NSDataRB(data)); }

// Elements without a host form leave a nil element at their index.
HostVariant variantOfArray(NSArray* array) {
  constexpr int32_t variantElements = 4;
  const NestingLevel level;
  HostVariant result = adoptHost(plugin::REALCreateArray(variantElements, -1));
  if (!result) return nullptr;
  NSEnumerator* const enumerator = NSArray::objectEnumerator(array);
  int64_t index = 0;
  while (NSObject* const element = NSEnumerator::nextObject(enumerator)) {
    const HostVariant variant = adoptHost(NewVariantFromNSObject(element));
    plugin::REALInsertArrayValueObject(result, index++, variant);
  }
  return result;
}

HostVariant variantOfSet(NSSet* set) { return variantOfArray(NSSet::allObjects(set)); }

bool isBoolean(NSObject* object) { return object == kCFBooleanFalse || object == kCFBooleanTrue; }

HostVariant variantOfBoolean(NSObject* boolean) {
  return adoptHost(plugin::REALNewVariantBoolean(boolean == kCFBooleanTrue));
}

HostVariant variantOfDate(NSDate* date) { return adoptHost(hostDate(date)); }

HostVariant variantOfDictionary(NSDictionary* dictionary) {
  return adoptHost<plugin::REALobjectStruct>(NSDictionaryRB(dictionary));
}

struct Rule {
  bool (*matches)(NSObject*);
  HostVariant (*convert)(NSObject*);
};

template <class Type, HostVariant (*convert)(Type*)>
constexpr Rule ruleFor() {
  return {isKindOf<Type>, [](NSObject* object) { return convert(static_cast<Type*>(object)); }};
}

// Tested from first to last.
constexpr Rule rules[] = {
    ruleFor<NSURL, variantOfURL>(),       ruleFor<NSString, variantOfString>(), ruleFor<NSData, variantOfData>(),
    ruleFor<NSArray, variantOfArray>(),   ruleFor<NSSet, variantOfSet>(),       {isBoolean, variantOfBoolean},
    ruleFor<NSNumber, variantOfNumber>(), ruleFor<NSDate, variantOfDate>(),     ruleFor<NSDictionary, variantOfDictionary>(),
};

std::optional<HostVariant> hostValue(NSObject* object) {
  for (const Rule& rule : rules) {
    if (rule.matches(object)) return rule.convert(object);
  }
  return std::nullopt;
}

// The host object that a sibling's platform object carries.
std::optional<HostVariant> carriedObject(NSObject* object) {
  const Class carrier = HostObjectCarrier::find();
  if (carrier == nullptr || !NSObject::isKindOfClass(object, carrier)) return std::nullopt;
  return adoptHost(HostObjectCarrier::unwrap(object));
}

HostVariant wrapUnknownObject(NSObject* object) {
  if (auto wrapper = wrapCoreFoundationObject(object)) return std::move(*wrapper);
  return wrapByClassName(object);
}

HostVariant convert(NSObject* object) {
  if (object == nullptr || object == NSNull::null(classOf<NSNull>())) return nullptr;
  if (const REALobject wrapper = plugin::lockRegisteredInstance(object)) return adoptHost(wrapper);
  if (auto value = hostValue(object)) return std::move(*value);
  if (auto wrapper = wrapKnownClass(object)) return std::move(*wrapper);
  if (auto carried = carriedObject(object)) return std::move(*carried);
  if (isKindOf<NSValue>(object)) return variantOfValue(static_cast<NSValue*>(object));
  return wrapUnknownObject(object);
}

}  // namespace

REALobject NewVariantFromNSObject(NSObject* object) { return convert(object).detach(); }

}  // namespace bridge
