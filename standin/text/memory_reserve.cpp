// The block that is put by, and the handler through which failing allocations come to it.
#include "standin/text/memory_reserve.hpp"

#include <cstdlib>
#include <new>
#include <utility>

namespace standin::text {
namespace {

// Two trees of the greatest height copied along one path, and their splits.
constexpr size_t reserveSize = 256 << 10;

std::new_handler before = nullptr;

}  // namespace

void giveReserve() {
  if (ReservedMemory::users_ > 0 && ReservedMemory::block_ != nullptr) {
    std::free(std::exchange(ReservedMemory::block_, nullptr));
  } else if (before != nullptr) {
    before();
  } else {
    throw std::bad_alloc();
  }
}

void ReservedMemory::putBy() {
  static const bool installed = (before = std::set_new_handler(giveReserve), true);
  static_cast<void>(installed);
  block_ = std::malloc(reserveSize);
  if (block_ == nullptr) throw std::bad_alloc();
}

void* allocateOrThrow(size_t size) {
  while (true) {
    if (void* const memory = std::malloc(size)) return memory;
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
  }
}

}  // namespace standin::text
