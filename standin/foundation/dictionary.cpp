// NSDictionary: the cluster's public class, its immutable class, and what all dictionaries answer.
#include "standin/foundation/checks.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/enumerator.hpp"
#include "standin/foundation/property_list_text.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_object.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::foundation {
namespace {

const ClassDefinition immutableDictionaryClass = defineClass<Dictionary>("__NSDictionaryI", "NSDictionary");

OrderedTable& tableOf(NSObject* dictionary) { return stateOf<Dictionary>(dictionary).table; }

bool isDictionary(NSObject* object) {
  static const ClassObject* const dictionaryClass = findClass("NSDictionary");
  return isKindOf(object, dictionaryClass);
}

// A changing key must not change under the table: it holds a copy. Keys that are copied already are only retained by it.
void setEntry(NSObject* dictionary, NSObject* key, NSObject* value, const char* selector) {
  requireArgument(dictionary, selector, key);
  requireArgument(dictionary, selector, value);
  const Owned<NSObject> copied = adopt(NSObject::copyWithZone(key, nullptr));
  tableOf(dictionary).set(copied, value);
}

void fill(NSObject* dictionary, std::span<NSObject* const> keys, std::span<NSObject* const> values, const char* selector) {
  for (size_t index = 0; index < keys.size(); ++index) setEntry(dictionary, keys[index], values[index], selector);
}

NSObject* dictionary(Class self) { return adopt(NSObject::init(NSObject::alloc(self))).autorelease(); }

NSObject* dictionaryWithObjects(Class self, NSObject* const* values, NSObject* const* keys, NSUInteger count) {
  Owned<NSObject> made = adopt(NSObject::alloc(self));
  fill(made, {keys, count}, {values, count}, "dictionaryWithObjects:forKeys:count:");
  return made.autorelease();
}

NSObject* dictionaryWithObject(Class self, NSObject* value, NSObject* key) {
  return dictionaryWithObjects(self, &value, &key, 1);
}

// Bare pointers cannot be retained by another dictionary.
void addAll(NSObject* dictionary, NSDictionary* entries, const char* selector) {
  if (entries != nullptr && !tableOf(entries).holdsObjects())
    raise(NSInvalidArgumentException, describeMethod(dictionary, selector) + ": the entries are bare pointers");
  forEachEntry(entries, [&](NSObject* key, NSObject* value) { tableOf(dictionary).set(key, value); });
}

NSObject* initWithDictionary(NSObject* self, NSDictionary* entries) {
  Owned<NSObject> dictionary = adopt(self);
  addAll(dictionary, entries, "initWithDictionary:");
  return dictionary.detach();
}

NSObject* dictionaryWithDictionary(Class self, NSDictionary* entries) {
  return adopt(initWithDictionary(NSObject::alloc(self), entries)).autorelease();
}

NSObject* initWithObjects(NSObject* self, NSObject* const* values, NSObject* const* keys, NSUInteger count) {
  Owned<NSObject> dictionary = adopt(self);
  fill(dictionary, {keys, count}, {values, count}, "initWithObjects:forKeys:count:");
  return dictionary.detach();
}

NSUInteger count(Dictionary& self) { return self.table.count(); }
NSObject* objectForKey(NSObject* self, NSObject* key) { return find(static_cast<NSDictionary*>(self), key); }

Owned<NSMutableArray> newKeys(Dictionary& self) {
  Owned<NSMutableArray> keys = newMutableArray();
  self.table.forEach([&](NSObject* key, NSObject*) { append(keys, key); });
  return keys;
}

NSObject* allKeys(Dictionary& self) { return newKeys(self).autorelease(); }

NSObject* allValues(Dictionary& self) {
  Owned<NSMutableArray> values = newMutableArray();
  self.table.forEach([&](NSObject*, NSObject* value) { append(values, value); });
  return values.autorelease();
}

NSEnumerator* keyEnumerator(Dictionary& self) { return newArrayEnumerator(newKeys(self)).autorelease(); }
NSEnumerator* objectEnumerator(Dictionary& self) {
  return newArrayEnumerator(static_cast<NSArray*>(allValues(self))).autorelease();
}

BOOL isEqualToDictionary(Dictionary& self, NSDictionary* other) {
  if (other == nullptr || self.table.count() != entryCount(other) || !tableOf(other).holdsObjects()) return NO;
  size_t position = 0;
  while (const OrderedTable::Entry* entry = self.table.next(position)) {
    NSObject* const value = find(other, entry->key);
    if (value != entry->value && !NSObject::isEqual(entry->value, value)) return NO;
  }
  return YES;
}

BOOL isEqual(NSObject* self, NSObject* other) {
  if (self == other) return YES;
  return isDictionary(other) && isEqualToDictionary(stateOf<Dictionary>(self), static_cast<NSDictionary*>(other));
}

NSUInteger hash(Dictionary& self) { return self.table.count(); }
NSString* description(NSObject* self) { return newString(propertyListText(self)).autorelease(); }

NSObject* copy(NSObject* self, void*) {
  if (keepsEntries(static_cast<NSDictionary*>(self))) return retainObject(self);
  Owned<NSObject> copied = create<Dictionary>(immutableDictionaryClass);
  addAll(copied, static_cast<NSDictionary*>(self), "copyWithZone:");
  return copied.detach();
}
NSObject* mutableCopy(NSObject* self, void*) { return newMutableDictionary(static_cast<NSDictionary*>(self)).detach(); }

const ClassDefinition dictionaryClass = defineClass<Dictionary>("NSDictionary", "NSObject")
                                            .allocatesAs(immutableDictionaryClass)
                                            .classMethod<dictionary>("dictionary")
                                            .classMethod<dictionaryWithObjects>("dictionaryWithObjects:forKeys:count:")
                                            .classMethod<dictionaryWithObject>("dictionaryWithObject:forKey:")
                                            .classMethod<dictionaryWithDictionary>("dictionaryWithDictionary:")
                                            .method<initWithObjects>("initWithObjects:forKeys:count:")
                                            .method<initWithDictionary>("initWithDictionary:")
                                            .method<count>("count")
                                            .method<objectForKey>("objectForKey:")
                                            .method<allKeys>("allKeys")
                                            .method<allValues>("allValues")
                                            .method<keyEnumerator>("keyEnumerator")
                                            .method<objectEnumerator>("objectEnumerator")
                                            .method<isEqualToDictionary>("isEqualToDictionary:")
                                            .method<isEqual>("isEqual:")
                                            .method<hash>("hash")
                                            .method<description>("description")
                                            .method<copy>("copyWithZone:")
                                            .method<mutableCopy>("mutableCopyWithZone:");

}  // namespace

Owned<NSDictionary> newDictionary(std::span<NSObject* const> keys, std::span<NSObject* const> values) {
  Owned<NSDictionary> dictionary = create<Dictionary, NSDictionary>(immutableDictionaryClass);
  fill(dictionary, keys, values, "initWithObjects:forKeys:count:");
  return dictionary;
}

Owned<NSDictionary> newDictionary(std::initializer_list<std::pair<NSObject*, NSObject*>> entries) {
  Owned<NSDictionary> dictionary = create<Dictionary, NSDictionary>(immutableDictionaryClass);
  for (const auto& [key, value] : entries) setEntry(dictionary, key, value, "initWithObjects:forKeys:count:");
  return dictionary;
}

void addEntries(NSMutableDictionary* dictionary, NSDictionary* entries) {
  if (entries != dictionary) addAll(dictionary, entries, "addEntriesFromDictionary:");
}

void set(NSMutableDictionary* dictionary, NSObject* key, NSObject* value) {
  setEntry(dictionary, key, value, "setObject:forKey:");
}

void remove(NSMutableDictionary* dictionary, NSObject* key) { tableOf(dictionary).remove(key); }

NSObject* find(NSDictionary* dictionary, NSObject* key) {
  if (dictionary == nullptr) return nullptr;
  const OrderedTable::Entry* entry = tableOf(dictionary).find(key);
  return entry != nullptr ? entry->value : nullptr;
}

bool keepsEntries(NSDictionary* dictionary) { return stateOf<Object>(dictionary).isa == immutableDictionaryClass.object(); }

size_t entryCount(NSDictionary* dictionary) { return dictionary != nullptr ? tableOf(dictionary).count() : 0; }

}  // namespace standin::foundation
