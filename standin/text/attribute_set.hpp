// Attribute sets: interned, immutable, counted. Equal sets are one set, and a run of styled text holds its 32-bit handle.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace standin::text {

// Keys and values are objects that this folder knows nothing about.
using AttributeObject = void*;

// What is done with keys and values, and with the companion object of a set. Installed once, before the first set is made.
struct AttributeFunctions {
  AttributeObject (*retain)(AttributeObject);
  void (*release)(AttributeObject);
  AttributeObject (*copyKey)(AttributeObject);  // answers one reference
  size_t (*hashKey)(AttributeObject);
  size_t (*hashValue)(AttributeObject);  // the same of values that are interchangeable, and the same for good
  bool (*keysEqual)(AttributeObject, AttributeObject);
  bool (*keyBefore)(AttributeObject, AttributeObject);        // a total order, so that a set has one order whoever made it
  bool (*interchangeable)(AttributeObject, AttributeObject);  // one value can stand for the other
};
void installAttributeFunctions(const AttributeFunctions& functions);

struct Attribute {
  AttributeObject key, value;
};

using AttributeHandle = uint32_t;

// Holds one reference to a set. Values equal each other when they are the same set.
class AttributeSet {
 public:
  AttributeSet() = default;  // without attributes
  AttributeSet(const AttributeSet& other) : AttributeSet(other.handle_) {}
  AttributeSet(AttributeSet&& other) noexcept : handle_(std::exchange(other.handle_, 0)) {}
  AttributeSet& operator=(AttributeSet other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~AttributeSet() { release(handle_); }

  // Of equal keys the last one's value holds.
  static AttributeSet of(std::span<const Attribute> attributes);
  // A number by which `ofTicket` finds the set again while it lives; never 0 except for the empty set.
  uint64_t ticket() const;
  // The set that gave the ticket, or the empty set when that has been freed.
  static AttributeSet ofTicket(uint64_t ticket);
  // Another reference to the set of a handle that somebody holds.
  explicit AttributeSet(AttributeHandle handle) : handle_(handle) { retain(handle); }

  AttributeHandle handle() const { return handle_; }
  // Where the handle is, while this value stays.
  const AttributeHandle* place() const { return &handle_; }
  bool operator==(const AttributeSet&) const = default;
  bool empty() const { return handle_ == 0; }
  // In the order of the keys; valid while the set lives.
  std::span<const Attribute> attributes() const;
  // The value of the key, not retained; nil when absent.
  AttributeObject find(AttributeObject key) const;

  AttributeSet with(AttributeObject key, AttributeObject value) const;
  AttributeSet without(AttributeObject key) const;
  AttributeSet with(const AttributeSet& additions) const;

  // One object that lives as long as the set does, for whoever made it; nil until it is set. Takes over the reference.
  AttributeObject companion() const;
  void setCompanion(AttributeObject object) const;

  // For what stores handles.
  static void retain(AttributeHandle handle) { ++references_[handle]; }
  static void release(AttributeHandle handle) {
    if (--references_[handle] == 0) freeSet(handle);
  }
  // Sets alive that have attributes.
  static size_t living();

 private:
  friend struct AttributeTable;
  static void freeSet(AttributeHandle handle);

  // The counts of all sets, by handle, apart from the rest of the table: they are what editing runs touches.
  static uint32_t* references_;

  AttributeHandle handle_ = 0;
};

}  // namespace standin::text
