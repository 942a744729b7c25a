// Host dictionaries: entries in the order of their insertion. Keys are equal as `equalValues` says.
#pragma once

#include "host/runtime/object.hpp"
#include "host/runtime/value.hpp"

namespace host {

HostOwned<HostObject> makeDictionary();
bool isDictionary(const HostObject* object);

// These REQUIRE a dictionary.
int64_t dictionaryCount(const HostObject* dictionary);
void setDictionaryValue(HostObject* dictionary, const Value& key, const Value& value);
// A key that is not there throws KeyNotFoundException.
Value dictionaryValue(const HostObject* dictionary, const Value& key);
bool dictionaryHasKey(const HostObject* dictionary, const Value& key);
// An index out of range throws OutOfBoundsException.
Value dictionaryKey(HostObject* dictionary, int64_t index);
void removeDictionaryKey(HostObject* dictionary, const Value& key);

}  // namespace host
