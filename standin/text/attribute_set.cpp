// The table of attribute sets: one entry a set, found again by the hash of its attributes.
#include "standin/text/attribute_set.hpp"

#include <algorithm>
#include <bit>
#include <unordered_map>
#include <utility>
#include <vector>

namespace standin::text {
namespace {

// The empty set is never freed: its count begins high enough.
constexpr uint32_t immortalCount = 1U << 30;
uint32_t countOfEmptySet[] = {immortalCount};

AttributeFunctions functions;

struct Entry {
  uint32_t generation = 0;  // how many sets the entry has held before: what a remembered handle is checked by
  size_t hash = 0;
  std::vector<Attribute> attributes;  // retained, in the order of their keys
  AttributeObject companion = nullptr;
};

// What adding or removing an attribute led to. It holds no references: `result` is taken only while it is the set that it
// was, and a living set keeps its own key and value from being freed and their addresses from being used again.
struct Remembered {
  AttributeHandle source = 0, result = 0;
  uint32_t sourceGeneration = 0, resultGeneration = 0;
  AttributeObject key = nullptr, value = nullptr;
};

// Room for what is remembered: in step with the sets, a power of two.
constexpr size_t fewestRemembered = 1024, mostRemembered = 65536, rememberedPerSet = 64;

}  // namespace

struct AttributeTable {
  std::vector<uint32_t> references{immortalCount};
  std::vector<Entry> entries{Entry()};  // entry 0 is the empty set
  std::vector<AttributeHandle> vacant;
  std::unordered_multimap<size_t, AttributeHandle> byHash;
  std::vector<Remembered> remembered = std::vector<Remembered>(fewestRemembered);

  AttributeHandle vacantEntry();
  void reserveEntries(size_t count);
};

uint32_t* AttributeSet::references_ = countOfEmptySet;

namespace {

// Never taken down, since objects that live to the end of the process may hold sets.
AttributeTable& table() {
  static AttributeTable* const sets = new AttributeTable;
  return *sets;
}

size_t mix(size_t hash) {
  hash *= 0x9E3779B97F4A7C15;
  return hash ^ (hash >> 29);
}

size_t hashOf(std::span<const Attribute> attributes) {
  size_t hash = attributes.size();
  for (const Attribute& attribute : attributes) {
    hash = mix(hash + functions.hashKey(attribute.key)) + functions.hashValue(attribute.value);
  }
  return mix(hash);
}

bool sameKey(AttributeObject left, AttributeObject right) { return left == right || functions.keysEqual(left, right); }

bool matches(const Entry& entry, std::span<const Attribute> attributes) {
  return std::equal(entry.attributes.begin(), entry.attributes.end(), attributes.begin(), attributes.end(),
                    [](const Attribute& own, const Attribute& other) {
                      return sameKey(own.key, other.key) &&
                             (own.value == other.value || functions.interchangeable(own.value, other.value));
                    });
}

// Attributes with a reference to each key and value, given back at the end unless they are taken.
class HeldAttributes {
 public:
  explicit HeldAttributes(std::span<const Attribute> attributes) {
    held_.reserve(attributes.size());
    try {
      for (const Attribute& attribute : attributes) {
        held_.push_back({functions.copyKey(attribute.key), nullptr});
        held_.back().value = functions.retain(attribute.value);
      }
    } catch (...) {
      release();
      throw;
    }
  }
  HeldAttributes(const HeldAttributes&) = delete;
  ~HeldAttributes() { release(); }

  std::vector<Attribute> take() { return std::exchange(held_, {}); }

 private:
  void release() {
    for (const Attribute& attribute : held_) {
      functions.release(attribute.key);
      if (attribute.value != nullptr) functions.release(attribute.value);
    }
  }

  std::vector<Attribute> held_;
};

// The set of these attributes, which are in order and of which no two keys are equal.
AttributeSet intern(std::span<const Attribute> ordered) {
  if (ordered.empty()) return {};
  AttributeTable& sets = table();
  const size_t hash = hashOf(ordered);
  const auto [first, last] = sets.byHash.equal_range(hash);
  for (auto candidate = first; candidate != last; ++candidate) {
    if (matches(sets.entries[candidate->second], ordered)) return AttributeSet(candidate->second);
  }
  HeldAttributes held(ordered);
  const auto place = sets.byHash.emplace(hash, 0);
  try {
    place->second = sets.vacantEntry();
  } catch (...) {
    sets.byHash.erase(place);
    throw;
  }
  Entry& entry = sets.entries[place->second];
  entry.hash = hash;
  entry.attributes = held.take();
  return AttributeSet(place->second);
}

const Attribute* findIn(std::span<const Attribute> attributes, AttributeObject key) {
  for (const Attribute& attribute : attributes) {
    if (attribute.key == key) return &attribute;
  }
  for (const Attribute& attribute : attributes) {
    if (functions.keysEqual(attribute.key, key)) return &attribute;
  }
  return nullptr;
}

// In place of the attribute of an equal key, or where the order of keys asks for it.
void put(std::vector<Attribute>& attributes, Attribute added) {
  auto place = attributes.begin();
  while (place != attributes.end() && place->key != added.key && functions.keyBefore(place->key, added.key)) ++place;
  if (place != attributes.end() && sameKey(place->key, added.key)) {
    place->value = added.value;
  } else {
    attributes.insert(place, added);
  }
}

Remembered& slotFor(AttributeHandle source, AttributeObject key, AttributeObject value) {
  const size_t hash = mix(mix(reinterpret_cast<size_t>(key) + source) + reinterpret_cast<size_t>(value));
  std::vector<Remembered>& remembered = table().remembered;
  return remembered[hash & (remembered.size() - 1)];
}

// Removals are remembered with a nil value.
const Remembered* recall(AttributeHandle source, AttributeObject key, AttributeObject value) {
  const std::vector<Entry>& entries = table().entries;
  const Remembered& slot = slotFor(source, key, value);
  const bool holds = slot.key == key && slot.value == value && slot.source == source &&
                     slot.sourceGeneration == entries[source].generation &&
                     slot.resultGeneration == entries[slot.result].generation;
  return holds && key != nullptr ? &slot : nullptr;
}

void remember(AttributeHandle source, AttributeObject key, AttributeObject value, AttributeHandle result) {
  // The set that the remembered key and value belong to; only if they are its very own objects are they kept alive by it.
  const std::vector<Entry>& entries = table().entries;
  const Attribute* own = findIn(entries[value != nullptr ? result : source].attributes, key);
  if (own == nullptr || own->key != key || (value != nullptr && own->value != value)) return;
  slotFor(source, key, value) = {source, result, entries[source].generation, entries[result].generation, key, value};
}

std::vector<Attribute> listOf(std::span<const Attribute> attributes) { return {attributes.begin(), attributes.end()}; }

}  // namespace

void installAttributeFunctions(const AttributeFunctions& installed) { functions = installed; }

// Room comes first, so that a failure leaves the table as it was, and so that freeing a set never needs memory.
void AttributeTable::reserveEntries(size_t count) {
  vacant.reserve(count);
  entries.reserve(count);
  references.reserve(count);
  const size_t room = std::min(std::bit_ceil(count * rememberedPerSet), mostRemembered);
  if (room > remembered.size()) remembered = std::vector<Remembered>(room);
  if (AttributeSet::references_ == countOfEmptySet) references[0] = countOfEmptySet[0];
  AttributeSet::references_ = references.data();
}

AttributeHandle AttributeTable::vacantEntry() {
  if (!vacant.empty()) {
    const AttributeHandle handle = vacant.back();
    vacant.pop_back();
    return handle;
  }
  if (entries.size() == references.capacity()) reserveEntries(2 * entries.size());
  entries.emplace_back();
  references.push_back(0);
  return static_cast<AttributeHandle>(entries.size() - 1);
}

// Takes the entry out of the table before any object is released, since that may come back here.
void AttributeSet::freeSet(AttributeHandle handle) {
  AttributeTable& sets = table();
  Entry& entry = sets.entries[handle];
  auto [found, last] = sets.byHash.equal_range(entry.hash);
  while (found != last && found->second != handle) ++found;
  if (found != last) sets.byHash.erase(found);
  const std::vector<Attribute> attributes = std::move(entry.attributes);
  const AttributeObject companion = std::exchange(entry.companion, nullptr);
  entry.attributes.clear();
  ++entry.generation;
  sets.vacant.push_back(handle);
  if (companion != nullptr) functions.release(companion);
  for (const Attribute& attribute : attributes) {
    functions.release(attribute.key);
    functions.release(attribute.value);
  }
}

size_t AttributeSet::living() { return table().byHash.size(); }

AttributeSet AttributeSet::of(std::span<const Attribute> attributes) {
  std::vector<Attribute> ordered;
  ordered.reserve(attributes.size());
  for (const Attribute& attribute : attributes) put(ordered, attribute);
  return intern(ordered);
}

std::span<const Attribute> AttributeSet::attributes() const { return table().entries[handle_].attributes; }

AttributeObject AttributeSet::find(AttributeObject key) const {
  const Attribute* found = findIn(attributes(), key);
  return found != nullptr ? found->value : nullptr;
}

AttributeSet AttributeSet::with(AttributeObject key, AttributeObject value) const {
  if (const Remembered* known = recall(handle_, key, value)) return AttributeSet(known->result);
  // What is remembered is remembered of a set's own key, not of others that equal it.
  if (const Attribute* own = findIn(attributes(), key); own != nullptr && own->key != key) return with(own->key, value);
  std::vector<Attribute> edited = listOf(attributes());
  put(edited, {key, value});
  AttributeSet result = intern(edited);
  remember(handle_, key, value, result.handle_);
  return result;
}

AttributeSet AttributeSet::without(AttributeObject key) const {
  if (const Remembered* known = recall(handle_, key, nullptr)) return AttributeSet(known->result);
  std::vector<Attribute> edited = listOf(attributes());
  std::erase_if(edited, [&](const Attribute& attribute) { return sameKey(attribute.key, key); });
  if (edited.size() == attributes().size()) return *this;
  AttributeSet result = intern(edited);
  remember(handle_, key, nullptr, result.handle_);
  return result;
}

AttributeSet AttributeSet::with(const AttributeSet& additions) const {
  if (empty() || *this == additions) return additions;
  std::vector<Attribute> edited = listOf(attributes());
  for (const Attribute& attribute : additions.attributes()) put(edited, attribute);
  return intern(edited);
}

uint64_t AttributeSet::ticket() const { return uint64_t{table().entries[handle_].generation} << 32 | handle_; }

AttributeSet AttributeSet::ofTicket(uint64_t ticket) {
  const AttributeTable& sets = table();
  const auto handle = static_cast<AttributeHandle>(ticket);
  return sets.entries[handle].generation == ticket >> 32 ? AttributeSet(handle) : AttributeSet();
}

AttributeObject AttributeSet::companion() const { return table().entries[handle_].companion; }

void AttributeSet::setCompanion(AttributeObject object) const {
  AttributeObject& held = table().entries[handle_].companion;
  const AttributeObject former = std::exchange(held, object);
  if (former != nullptr) functions.release(former);
}

}  // namespace standin::text
