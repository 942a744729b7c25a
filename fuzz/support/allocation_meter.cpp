// The allocator's calls counted: through the sanitizer's hooks where there is one, else by functions of our own in front of
// the C library's.
#include "fuzz/support/allocation_meter.hpp"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define FUZZ_HAS_SANITIZER
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#define FUZZ_HAS_SANITIZER
#endif

namespace fuzz {
namespace {

std::atomic<int64_t> held, greatest;

void took(size_t bytes) {
  const int64_t now = held += static_cast<int64_t>(bytes);
  if (now > greatest) greatest = now;
}
void gaveBack(size_t bytes) { held -= static_cast<int64_t>(bytes); }

}  // namespace
}  // namespace fuzz

#ifdef FUZZ_HAS_SANITIZER

// As clang's header declares them, which g++ lacks.
extern "C" {
size_t __sanitizer_get_allocated_size(const volatile void* memory);
int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*, size_t),
                                              void (*freed)(const volatile void*));
}

namespace fuzz {
namespace {

void noteAllocation(const volatile void*, size_t bytes) { took(bytes); }
void noteFree(const volatile void* memory) {
  if (memory != nullptr) gaveBack(__sanitizer_get_allocated_size(memory));
}
[[maybe_unused]] const int installed = __sanitizer_install_malloc_and_free_hooks(noteAllocation, noteFree);

}  // namespace
}  // namespace fuzz

#else

extern "C" {

void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void* __libc_memalign(size_t, size_t);
void __libc_free(void*);

void* malloc(size_t bytes) {
  void* memory = __libc_malloc(bytes);
  fuzz::took(malloc_usable_size(memory));
  return memory;
}
void* calloc(size_t count, size_t bytes) {
  void* memory = __libc_calloc(count, bytes);
  fuzz::took(malloc_usable_size(memory));
  return memory;
}
void* realloc(void* old, size_t bytes) {
  const size_t before = malloc_usable_size(old);
  void* memory = __libc_realloc(old, bytes);
  if (memory != nullptr || bytes == 0) fuzz::gaveBack(before);
  fuzz::took(malloc_usable_size(memory));
  return memory;
}
void* memalign(size_t alignment, size_t bytes) {
  void* memory = __libc_memalign(alignment, bytes);
  fuzz::took(malloc_usable_size(memory));
  return memory;
}
void* aligned_alloc(size_t alignment, size_t bytes) { return memalign(alignment, bytes); }
int posix_memalign(void** out, size_t alignment, size_t bytes) {
  void* memory = memalign(alignment, bytes);
  if (memory == nullptr) return ENOMEM;
  *out = memory;
  return 0;
}
void free(void* memory) {
  fuzz::gaveBack(malloc_usable_size(memory));
  __libc_free(memory);
}

}  // extern "C"

#endif

namespace fuzz {

namespace {
int64_t start;
}

AllocationMeter::AllocationMeter() {
  start = held;
  greatest = start;
}

size_t AllocationMeter::peak() const { return static_cast<size_t>(std::max<int64_t>(greatest - start, 0)); }

}  // namespace fuzz
