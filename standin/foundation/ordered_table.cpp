// The store behind dictionaries and sets.
#include "standin/foundation/ordered_table.hpp"

#include <bit>

namespace standin::foundation {
namespace {

// The key of an entry that was removed; no object lives there, and nil may be a key of bare pointers.
Object removedKey;

// A message per level costs some 200 bytes of stack: this depth is far from any limit.
constexpr int recursionLimit = 256;

// Releases in progress, and those put off because too many are.
struct PendingReleases {
  int depth = 0;
  std::vector<NSObject*> objects;
};

PendingReleases& pendingReleases() {
  static PendingReleases* const pending = new PendingReleases;
  return *pending;
}

struct DepthCount {
  explicit DepthCount(int& value) : depth(value) { ++depth; }
  DepthCount(const DepthCount&) = delete;
  ~DepthCount() { --depth; }
  int& depth;
};

NSObject* removedMark() { return platformObject(removedKey); }

}  // namespace

void releaseElement(NSObject* element) {
  if (element == nullptr || stateOf<Object>(element).references != 1) return releaseObject(element);
  PendingReleases& pending = pendingReleases();
  if (pending.depth >= recursionLimit) return pending.objects.push_back(element);
  {
    const DepthCount count(pending.depth);
    releaseObject(element);
  }
  while (pending.depth == 0 && !pending.objects.empty()) {
    NSObject* const next = pending.objects.back();
    pending.objects.pop_back();
    const DepthCount count(pending.depth);
    releaseObject(next);
  }
}

OrderedTable::OrderedTable(const OrderedTable& other) : elements_(other.elements_) {
  entries_.reserve(other.count());
  size_t position = 0;
  while (const Entry* entry = other.next(position)) entries_.push_back(*entry);
  if (entries_.size() > scanned) rebuildIndex();
  if (elements_ == Elements::pointers) return;
  for (const Entry& entry : entries_) {
    retainObject(entry.key);
    retainObject(entry.value);
  }
}

bool OrderedTable::isRemoved(const Entry& entry) { return entry.key == removedMark(); }

NSUInteger OrderedTable::hashOf(NSObject* key) const {
  return elements_ == Elements::pointers ? reinterpret_cast<NSUInteger>(key) >> 4 : NSObject::hash(key);
}

bool OrderedTable::equal(const Entry& entry, NSObject* key, NSUInteger hash) const {
  if (entry.key == key) return true;
  if (elements_ == Elements::pointers || entry.hash != hash || isRemoved(entry)) return false;
  return NSObject::isEqual(entry.key, key) != NO;
}

// Most keys asked for are the very objects that are held: identity is tried before the key is hashed.
size_t OrderedTable::scan(NSObject* key) const {
  for (size_t place = 0; place < entries_.size(); ++place) {
    if (entries_[place].key == key) return place;
  }
  if (elements_ == Elements::pointers || count() == 0) return absent;
  const NSUInteger hash = hashOf(key);
  for (size_t place = 0; place < entries_.size(); ++place) {
    if (equal(entries_[place], key, hash)) return place;
  }
  return absent;
}

size_t OrderedTable::probe(NSObject* key, NSUInteger hash) const {
  for (size_t slot = slotOf(hash); index_[slot] != 0; slot = following(slot)) {
    if (equal(entries_[index_[slot] - 1], key, hash)) return index_[slot] - 1;
  }
  return absent;
}

size_t OrderedTable::locate(NSObject* key) const {
  if (key == nullptr && elements_ == Elements::objects) return absent;
  return index_.empty() ? scan(key) : probe(key, hashOf(key));
}

const OrderedTable::Entry* OrderedTable::find(NSObject* key) const {
  const size_t place = locate(key);
  return place == absent ? nullptr : &entries_[place];
}

void OrderedTable::set(NSObject* key, NSObject* value) {
  const size_t place = locate(key);
  const bool retains = elements_ == Elements::objects;
  if (place != absent) {
    if (retains) retainObject(value);
    NSObject* const old = std::exchange(entries_[place].value, value);
    if (retains) releaseElement(old);
    return;
  }
  const NSUInteger hash = hashOf(key);
  entries_.push_back({key, value, hash});
  if (retains) {
    retainObject(key);
    retainObject(value);
  }
  if (entries_.size() > scanned && entries_.size() * 2 > index_.size()) {
    removed_ * 4 > entries_.size() ? closeGaps() : rebuildIndex();
  } else if (!index_.empty()) {
    insertIntoIndex(entries_.size() - 1);
  }
}

void OrderedTable::remove(NSObject* key) {
  const size_t place = locate(key);
  if (place == absent) return;
  if (!index_.empty()) removeFromIndex(place);
  const Entry old = std::exchange(entries_[place], Entry{removedMark(), nullptr, 0});
  ++removed_;
  if (removed_ * 2 > entries_.size()) closeGaps();
  if (elements_ == Elements::pointers) return;
  releaseElement(old.key);
  releaseElement(old.value);
}

// What is released may come back to this table: it is empty by then.
void OrderedTable::clear() {
  const std::vector<Entry> old = std::exchange(entries_, {});
  index_.clear();
  removed_ = 0;
  if (elements_ == Elements::pointers) return;
  for (const Entry& entry : old) {
    if (isRemoved(entry)) continue;
    releaseElement(entry.key);
    releaseElement(entry.value);
  }
}

const OrderedTable::Entry* OrderedTable::next(size_t& position) const {
  while (position < entries_.size()) {
    const Entry& entry = entries_[position++];
    if (!isRemoved(entry)) return &entry;
  }
  return nullptr;
}

void OrderedTable::insertIntoIndex(size_t place) {
  size_t slot = slotOf(entries_[place].hash);
  while (index_[slot] != 0) slot = following(slot);
  index_[slot] = static_cast<uint32_t>(place + 1);
}

// Moves later members of the run forward over the freed slot, so that every probe still ends at an empty one.
void OrderedTable::removeFromIndex(size_t place) {
  size_t hole = slotOf(entries_[place].hash);
  while (index_[hole] != place + 1) hole = following(hole);
  const size_t mask = index_.size() - 1;
  for (size_t slot = following(hole); index_[slot] != 0; slot = following(slot)) {
    const size_t home = slotOf(entries_[index_[slot] - 1].hash);
    if (((slot - home) & mask) < ((slot - hole) & mask)) continue;
    index_[hole] = index_[slot];
    hole = slot;
  }
  index_[hole] = 0;
}

void OrderedTable::rebuildIndex() {
  const size_t size = std::bit_ceil(entries_.size() * 3);
  index_.assign(size, 0);
  shift_ = 64 - static_cast<unsigned>(std::countr_zero(size));
  for (size_t place = 0; place < entries_.size(); ++place) {
    if (!isRemoved(entries_[place])) insertIntoIndex(place);
  }
}

void OrderedTable::closeGaps() {
  std::erase_if(entries_, isRemoved);
  removed_ = 0;
  index_.clear();
  if (entries_.size() > scanned) rebuildIndex();
}

}  // namespace standin::foundation
