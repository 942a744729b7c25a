// Arrays, sets and dictionaries for C++ code: making them and reading them without messages.
#pragma once

#include <initializer_list>
#include <span>
#include <vector>

#include "platform/foundation.h"
#include "standin/foundation/ordered_table.hpp"

namespace standin::foundation {

// The state of every array, mutable or not: retained elements, never nil.
struct Array : Object {
  Array() = default;
  Array(const Array&) = delete;
  ~Array();
  std::vector<NSObject*> elements;
};

// The state of every dictionary, mutable or not, and of every set (whose values are nil).
struct Dictionary : Object {
  explicit Dictionary(Elements kind = Elements::objects) : table(kind) {}
  OrderedTable table;
  // Of a dictionary that keeps its entries: the number by which somebody knows them, 0 for not yet.
  uint64_t knownAs = 0;
};

// Elements are retained. A nil element raises NSInvalidArgumentException.
Owned<NSArray> newArray(std::span<NSObject* const> elements);
Owned<NSArray> newArray(std::initializer_list<NSObject*> elements);
Owned<NSMutableArray> newMutableArray(std::span<NSObject* const> elements = {});
// Appends without a message.
void append(NSMutableArray* array, NSObject* element);
// The elements, nil array: none. Valid until the array changes.
std::span<NSObject* const> arraySpan(NSArray* array);

Owned<NSSet> newSet(std::span<NSObject* const> elements);

// Keys are copied, values retained; of equal keys the last value holds. A nil key or value raises
// NSInvalidArgumentException. Entries keep the order in which their keys came.
Owned<NSDictionary> newDictionary(std::span<NSObject* const> keys, std::span<NSObject* const> values);
Owned<NSDictionary> newDictionary(std::initializer_list<std::pair<NSObject*, NSObject*>> entries);
Owned<NSMutableDictionary> newMutableDictionary();
Owned<NSMutableDictionary> newMutableDictionary(NSDictionary* entries);
void addEntries(NSMutableDictionary* dictionary, NSDictionary* entries);
void set(NSMutableDictionary* dictionary, NSObject* key, NSObject* value);
void remove(NSMutableDictionary* dictionary, NSObject* key);
// The value, not retained; nil when absent or when the dictionary is nil.
NSObject* find(NSDictionary* dictionary, NSObject* key);
size_t entryCount(NSDictionary* dictionary);
// No message changes the dictionary.
bool keepsEntries(NSDictionary* dictionary);

// Calls visit(key, value) in order; the dictionary must not change meanwhile. Nil dictionary: nothing.
template <class Visit>
void forEachEntry(NSDictionary* dictionary, Visit&& visit) {
  if (dictionary != nullptr) stateOf<Dictionary>(dictionary).table.forEach(visit);
}

}  // namespace standin::foundation
