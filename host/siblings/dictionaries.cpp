// Entries as variants.
#include "host/siblings/dictionaries.hpp"

#include "host/siblings/support.hpp"

namespace siblings {
namespace {

constexpr char setterDeclaration[] = "Value(key As Variant, Assigns _value As Variant)";

HostObject* variantOf(NSObject* object) {
  if (object == nullptr) return nullptr;
  if (NSObject::isKindOfClass(object, classOf<NSNumber>()) != NO) {
    auto* number = static_cast<NSNumber*>(object);
    const char type = *NSValue::objCType(number);
    return type == 'd' || type == 'f' ? variantOfDouble(NSNumber::doubleValue(number))
                                      : variantOfInteger(NSNumber::longLongValue(number));
  }
  HostString* text = hostString(NSObject::description(object));
  HostObject* variant = variantOfString(text);
  if (text != nullptr) unlockString(text);
  return variant;
}

void drop(HostObject* object) {
  if (object != nullptr) unlockObject(object);
}

}  // namespace

HostObject* hostDictionary(NSDictionary* entries) {
  HostObject* dictionary = entries != nullptr ? newInstance("Dictionary") : nullptr;
  if (dictionary == nullptr) return nullptr;
  using Setter = void (*)(HostObject*, HostObject*, HostObject*);
  const auto set = reinterpret_cast<Setter>(loadObjectMethod(dictionary, setterDeclaration));
  NSArray* keys = NSDictionary::allKeys(entries);
  for (NSUInteger index = 0; set != nullptr && index < NSArray::count(keys); ++index) {
    NSObject* key = NSArray::objectAtIndex(keys, index);
    HostObject *hostKey = variantOf(key), *hostValue = variantOf(NSDictionary::objectForKey(entries, key));
    set(dictionary, hostKey, hostValue);
    drop(hostKey);
    drop(hostValue);
  }
  return dictionary;
}

}  // namespace siblings
