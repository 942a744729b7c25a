// The store behind dictionaries and sets: a hash table that keeps the order in which keys came in.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "standin/runtime/object.hpp"

namespace standin::foundation {

// What keys and values are: objects, retained and compared by `hash` and `isEqual:`, or bare pointers, neither retained
// nor ever looked into, compared by identity (nil is a key like any other then).
enum class Elements : bool { objects, pointers };

class OrderedTable {
 public:
  struct Entry {
    NSObject* key;
    NSObject* value;
    NSUInteger hash;
  };

  explicit OrderedTable(Elements elements = Elements::objects) : elements_(elements) {}
  OrderedTable(const OrderedTable& other);
  OrderedTable& operator=(const OrderedTable&) = delete;
  ~OrderedTable() { clear(); }

  size_t count() const { return entries_.size() - removed_; }
  bool holdsObjects() const { return elements_ == Elements::objects; }
  // Nil when the key is absent. Valid until the table changes.
  const Entry* find(NSObject* key) const;
  // Adds the entry, or replaces the value of an equal key and keeps that key and its place.
  void set(NSObject* key, NSObject* value);
  void remove(NSObject* key);
  void clear();

  // Steps through the entries in their order: start with position 0; nil at the end.
  const Entry* next(size_t& position) const;
  template <class Visit>
  void forEach(Visit&& visit) const {
    size_t position = 0;
    while (const Entry* entry = next(position)) visit(entry->key, entry->value);
  }

 private:
  // Up to this many places there is no index: a scan of two cache lines is quicker.
  static constexpr size_t scanned = 8;
  static constexpr size_t absent = SIZE_MAX;

  static bool isRemoved(const Entry& entry);
  NSUInteger hashOf(NSObject* key) const;
  bool equal(const Entry& entry, NSObject* key, NSUInteger hash) const;
  size_t scan(NSObject* key) const;
  size_t probe(NSObject* key, NSUInteger hash) const;
  size_t locate(NSObject* key) const;
  size_t slotOf(NSUInteger hash) const { return static_cast<size_t>((hash * 0x9E3779B97F4A7C15u) >> shift_); }
  size_t following(size_t slot) const { return (slot + 1) & (index_.size() - 1); }
  void insertIntoIndex(size_t place);
  void removeFromIndex(size_t place);
  void rebuildIndex();
  void closeGaps();

  std::vector<Entry> entries_;   // in order; removed ones stay as gaps until half are gaps
  std::vector<uint32_t> index_;  // place + 1, or 0; a power of two, at most half full; empty while scanned
  size_t removed_ = 0;
  unsigned shift_ = 0;
  Elements elements_;
};

// Releases what a collection held. Nesting beyond some depth is worked off from a list and not by recursion, so that the
// end of a very deep structure cannot exhaust the stack.
void releaseElement(NSObject* element);

}  // namespace standin::foundation
