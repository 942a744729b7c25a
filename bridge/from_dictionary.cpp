// Host dictionaries as platform dictionaries.
#include "bridge/dictionary_access.hpp"
#include "bridge/from_object.hpp"
#include "bridge/from_variant.hpp"
#include "bridge/nesting.hpp"

namespace bridge {
namespace {

using plugin::REALdictionary;

NSObject* platformFormOf(plugin::REALobject variant) {
  NSObject* const object = GetVariantAsNSObject(variant);
  return object == nullptr ? NSNull::null(classOf<NSNull>()) : object;
}

// The host is asked for the value of a nil key too. The key is given back before the value.
void copyEntry(REALdictionary* from, int64_t index, NSMutableDictionary* to) {
  HostVariant hostValue;
  const HostVariant hostKey = dictionaryKey(from, index);
  hostValue = dictionaryValue(from, hostKey);
  if (!hostKey) return;
  NSObject* const key = platformFormOf(hostKey);
  NSObject* const value = platformFormOf(hostValue);
  NSMutableDictionary::setObject(to, value, key);
}

void copyEntries(REALdictionary* from, int64_t count, NSMutableDictionary* to) {
  const DictionaryLoop loop;
  const NestingLevel level;
  for (int64_t index = 0; index < count; ++index) copyEntry(from, index, to);
}

}  // namespace

NSDictionary* NewNSDictionary(REALdictionary* dictionary) {
  if (dictionary == nullptr) return nullptr;
  const int64_t count = dictionaryCount(dictionary);
  if (count < 1) return NSDictionary::dictionary(classOf<NSDictionary>());
  NSMutableDictionary* const result =
      NSMutableDictionary::dictionaryWithCapacity(classOf<NSMutableDictionary>(), static_cast<NSUInteger>(count));
  if (result != nullptr) copyEntries(dictionary, count, result);
  return result;
}

}  // namespace bridge
