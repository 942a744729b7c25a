// Memory put by for changes that must not stop half-way.
#pragma once

#include <cstddef>

namespace standin::text {

// While one lives, allocations that fail get what is put by and are tried again, enough for the nodes that one change of a
// tree takes. Making one throws std::bad_alloc when that cannot be put by, which is before anything has changed.
class ReservedMemory {
 public:
  ReservedMemory() {
    if (block_ == nullptr) putBy();
    ++users_;
  }
  ReservedMemory(const ReservedMemory&) = delete;
  ReservedMemory& operator=(const ReservedMemory&) = delete;
  ~ReservedMemory() { --users_; }

 private:
  friend void giveReserve();
  static void putBy();

  static inline constinit void* block_ = nullptr;
  static inline constinit int users_ = 0;
};

// Like malloc, but throws std::bad_alloc, and asks for what is put by first, as operator new does.
void* allocateOrThrow(size_t size);

}  // namespace standin::text
