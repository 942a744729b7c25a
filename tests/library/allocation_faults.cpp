// The allocation functions of every C++ part of the process, which the test executable's take the place of.
#include "tests/library/allocation_faults.hpp"

#include <cstdlib>
#include <new>

namespace allocation_faults {

long left = -1;
long made = 0;

}  // namespace allocation_faults

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  using namespace allocation_faults;
  ++made;
  const bool fails = left > 0 && --left == 0;
  if (fails) left = -1;
  return fails ? nullptr : std::malloc(size != 0 ? size : 1);
}
void* operator new(std::size_t size) {
  void* const memory = operator new(size, std::nothrow);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
