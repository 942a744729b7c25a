// The allocation functions of the process, which the test executable's take the place of.
#include "tests/library/allocation_faults.hpp"

#include <link.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <iterator>
#include <new>
#include <string_view>

#if defined(__SANITIZE_ADDRESS__)
#define HAS_OWN_ALLOCATOR
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HAS_OWN_ALLOCATOR
#endif
#endif

namespace allocation_faults {

long left = -1;
long made = 0;

namespace {

struct Range {
  uintptr_t begin, end;
};
Range ours[16];
size_t ranges = 0;

// The executable has no name.
bool isOurs(std::string_view library) {
  return library.empty() || library.ends_with("libplatform.so") || library.ends_with("SiblingsZKT.so");
}

int addCode(dl_phdr_info* info, size_t, void*) {
  for (size_t index = 0; isOurs(info->dlpi_name) && index < info->dlpi_phnum; ++index) {
    const auto& segment = info->dlpi_phdr[index];
    const uintptr_t begin = info->dlpi_addr + segment.p_vaddr;
    const bool isCode = segment.p_type == PT_LOAD && (segment.p_flags & PF_X) != 0;
    if (isCode && ranges < std::size(ours)) ours[ranges++] = {begin, begin + segment.p_memsz};
  }
  return 0;
}

bool fails() {
  ++made;
  const bool failing = left > 0 && --left == 0;
  if (failing) left = -1;
  return failing;
}

#ifdef HAS_OWN_ALLOCATOR
void* take(size_t size) { return std::malloc(size); }
#else
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
}
void* take(size_t size) { return __libc_malloc(size); }

bool failsAt(const void* caller) {
  const auto address = reinterpret_cast<uintptr_t>(caller);
  const bool calledByUs =
      std::any_of(ours, ours + ranges, [=](const Range& code) { return address >= code.begin && address < code.end; });
  if (!calledByUs || !fails()) return false;
  errno = ENOMEM;
  return true;
}
#endif

}  // namespace

void findOurCode() {
  ranges = 0;
  dl_iterate_phdr(addCode, nullptr);
}

}  // namespace allocation_faults

using namespace allocation_faults;

void* operator new(size_t size, const std::nothrow_t&) noexcept { return fails() ? nullptr : take(size != 0 ? size : 1); }
void* operator new(size_t size) {
  while (true) {
    if (void* const memory = operator new(size, std::nothrow)) return memory;
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
  }
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, size_t) noexcept { std::free(memory); }

#ifndef HAS_OWN_ALLOCATOR
extern "C" {
void* malloc(size_t size) noexcept { return failsAt(__builtin_return_address(0)) ? nullptr : __libc_malloc(size); }
void* calloc(size_t count, size_t size) noexcept {
  return failsAt(__builtin_return_address(0)) ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* memory, size_t size) noexcept {
  return failsAt(__builtin_return_address(0)) ? nullptr : __libc_realloc(memory, size);
}
}
#endif
