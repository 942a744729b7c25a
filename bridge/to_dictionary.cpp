// Platform dictionaries as host dictionaries.
#include "bridge/to_dictionary.hpp"

#include "bridge/dictionary_access.hpp"
#include "bridge/nesting.hpp"
#include "bridge/to_variant.hpp"

namespace bridge {
namespace {

using plugin::REALdictionary;

HostVariant variantOf(NSObject* object) { return plugin::adoptHost(NewVariantFromNSObject(object)); }

// The key is given back before the value.
void copyEntry(NSDictionary* from, NSObject* key, REALdictionary* to) {
  NSObject* const value = NSDictionary::objectForKey(from, key);
  HostVariant hostValue;
  const HostVariant hostKey = variantOf(key);
  hostValue = variantOf(value);
  setDictionaryValue(to, hostKey, hostValue);
}

void copyEntries(NSDictionary* from, NSArray* keys, REALdictionary* to) {
  const DictionaryLoop loop;
  const NestingLevel level;
  const NSUInteger count = NSArray::count(keys);
  for (NSUInteger index = 0; index < count; ++index) copyEntry(from, NSArray::objectAtIndex(keys, index), to);
}

}  // namespace

REALdictionary* NSDictionaryRB(NSDictionary* dictionary) {
  if (dictionary == nullptr) return nullptr;
  auto result = plugin::newInstance<REALdictionary>("Dictionary");
  if (!result) return nullptr;
  NSArray* const keys = NSDictionary::allKeys(dictionary);
  if (keys != nullptr) copyEntries(dictionary, keys, result);
  return result.detach();
}

}  // namespace bridge
