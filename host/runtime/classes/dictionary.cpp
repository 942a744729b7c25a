// Dictionaries: a list of entries in order, and an index from keys into it.
#include "host/runtime/dictionary.hpp"

#include "host/runtime/array.hpp"
#include "host/runtime/classes/classes.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/variant.hpp"

namespace host {
namespace {

// Removed entries stay in the list, marked, until one in the middle is in the way of counting or those at the front, which
// are only skipped, are the greater part of it: so removing the first entry again and again is cheap.
class Dictionary {
 public:
  int64_t count() const { return static_cast<int64_t>(index_.size()); }
  void set(const Value& key, const Value& value);
  const Value* find(const Value& key) const;
  bool remove(const Value& key);
  void clear() { *this = Dictionary(); }
  // REQUIRES an index below the count.
  const Value& keyAt(int64_t index);
  const Value& valueAt(int64_t index);

 private:
  struct Entry {
    Value key, value;
    bool removed = false;
  };
  const Entry& entryAt(int64_t index);
  void closeGaps();

  std::vector<Entry> entries_;
  size_t first_ = 0;
  TextMap<size_t> index_;
};

void Dictionary::set(const Value& key, const Value& value) {
  const auto [found, added] = index_.try_emplace(keyOf(key), entries_.size());
  if (added) {
    entries_.push_back({key, value});
  } else {
    entries_[found->second].value = value;
  }
}

const Value* Dictionary::find(const Value& key) const {
  const auto found = index_.find(keyOf(key));
  return found != index_.end() ? &entries_[found->second].value : nullptr;
}

bool Dictionary::remove(const Value& key) {
  const auto found = index_.find(keyOf(key));
  if (found == index_.end()) return false;
  Entry removed = std::exchange(entries_[found->second], {{}, {}, true});
  index_.erase(found);
  while (first_ < entries_.size() && entries_[first_].removed) ++first_;
  if (first_ > entries_.size() / 2) closeGaps();
  return true;
}

const Dictionary::Entry& Dictionary::entryAt(int64_t index) {
  if (entries_.size() - first_ != index_.size()) closeGaps();
  return entries_[first_ + static_cast<size_t>(index)];
}

void Dictionary::closeGaps() {
  std::erase_if(entries_, [](const Entry& entry) { return entry.removed; });
  first_ = 0;
  for (size_t position = 0; position < entries_.size(); ++position) index_[keyOf(entries_[position].key)] = position;
}

const Value& Dictionary::keyAt(int64_t index) { return entryAt(index).key; }
const Value& Dictionary::valueAt(int64_t index) { return entryAt(index).value; }

Dictionary& stateIn(const HostObject* object) { return object->stateAs<Dictionary>(); }

int64_t count(HostObject* self, int64_t) { return stateIn(self).count(); }

HostObject* value(HostObject* self, HostObject* key) { return boxed(dictionaryValue(self, unboxed(key))).detach(); }

void setValue(HostObject* self, HostObject* key, HostObject* value) { stateIn(self).set(unboxed(key), unboxed(value)); }

HostObject* keyAt(HostObject* self, int64_t index) { return boxed(dictionaryKey(self, index)).detach(); }
bool hasKey(HostObject* self, HostObject* key) { return dictionaryHasKey(self, unboxed(key)); }
void remove(HostObject* self, HostObject* key) { removeDictionaryKey(self, unboxed(key)); }
void clear(HostObject* self) { stateIn(self).clear(); }

HostObject* lookup(HostObject* self, HostObject* key, HostObject* defaultValue) {
  const Value* found = stateIn(self).find(unboxed(key));
  return found != nullptr ? boxed(*found).detach() : retain(defaultValue).detach();
}

HostObject* list(HostObject* self, const Value& (Dictionary::*at)(int64_t)) {
  HostOwned<HostObject> array = makeArray(typeNamed("Variant"), -1);
  for (int64_t index = 0; index < stateIn(self).count(); ++index) appendElement(array, (stateIn(self).*at)(index));
  return array.detach();
}

HostObject* keys(HostObject* self) { return list(self, &Dictionary::keyAt); }
HostObject* values(HostObject* self) { return list(self, &Dictionary::valueAt); }

const BuiltinProperty properties[] = {{"Count as Integer", native(count)}};

const BuiltinMethod methods[] = {
    {"Value(key As Variant) As Variant", native(value)},
    {"Value(key As Variant, Assigns _value As Variant)", native(setValue)},
    {"Key(index As Integer) As Variant", native(keyAt)},
    {"HasKey(key As Variant) As Boolean", native(hasKey)},
    {"Remove(key As Variant)", native(remove)},
    {"Clear", native(clear)},
    {"Lookup(key As Variant, defaultValue As Variant) As Variant", native(lookup)},
    {"Keys() As Variant()", native(keys)},
    {"Values() As Variant()", native(values)},
};

}  // namespace

const BuiltinClass dictionaryClass{
    .name = "Dictionary", .state = stateOf<Dictionary>(), .properties = properties, .methods = methods};

HostOwned<HostObject> makeDictionary() { return HostObject::make(builtinClass<dictionaryClass>()); }
bool isDictionary(const HostObject* object) { return isInstanceOf<dictionaryClass>(object); }
int64_t dictionaryCount(const HostObject* dictionary) { return stateIn(dictionary).count(); }

void setDictionaryValue(HostObject* dictionary, const Value& key, const Value& value) {
  stateIn(dictionary).set(key, value);
}

Value dictionaryValue(const HostObject* dictionary, const Value& key) {
  const Value* found = stateIn(dictionary).find(key);
  if (found == nullptr) throwException("KeyNotFoundException", "The dictionary has no key \"" + toUtf8(key) + "\".");
  return *found;
}

bool dictionaryHasKey(const HostObject* dictionary, const Value& key) { return stateIn(dictionary).find(key) != nullptr; }

Value dictionaryKey(HostObject* dictionary, int64_t index) {
  Dictionary& state = stateIn(dictionary);
  if (index < 0 || index >= state.count()) throwOutOfBounds(index, state.count() - 1);
  return state.keyAt(index);
}

void removeDictionaryKey(HostObject* dictionary, const Value& key) {
  if (stateIn(dictionary).remove(key)) return;
  throwException("KeyNotFoundException", "The dictionary has no key \"" + toUtf8(key) + "\".");
}

}  // namespace host
