// Finds symbols: a short table, libc++, and the dynamic linker.
#include "tests/macos/bindings.hpp"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

#include "tests/macos/image.hpp"
#include "tests/macos/object_runtime.hpp"

extern "C" void __gxx_personality_v0();

namespace macos {
namespace {

// Inline here, and so not to be found.
void constructBadArrayNewLength(void* place) { new (place) std::bad_array_new_length; }

void clear(void* bytes, size_t count) { std::memset(bytes, 0, count); }

// Every lazy import is bound when the image is loaded.
[[noreturn]] void bindLazily() {
  std::fputs("an import was left to be bound by its first call\n", stderr);
  std::abort();
}

template <class Function>
void* code(Function* function) {
  return reinterpret_cast<void*>(function);
}

struct OwnSymbol {
  std::string_view name;
  void* address;
};
const OwnSymbol ownSymbols[] = {
    {"_objc_msgSend", code(macos_objc_msgSend)},
    {"_objc_msgSend_stret", code(macos_objc_msgSend_stret)},
    {"_objc_begin_catch", code(macos_objc_begin_catch)},
    {"_objc_end_catch", code(macos_objc_end_catch)},
    {"_objc_retainAutorelease", code(macos_objc_retainAutorelease)},
    {"_OBJC_EHTYPE_$_NSException", const_cast<std::type_info*>(&exceptionClassType())},
    // On macOS it hands on to C++'s as well: what differs is the type in the catch.
    {"___objc_personality_v0", code(__gxx_personality_v0)},
    {"__ZNSt20bad_array_new_lengthC1Ev", code(constructBadArrayNewLength)},
    {"___bzero", code(clear)},
    {"dyld_stub_binder", code(bindLazily)},
};

// Exceptions, their types and the heap are those of this process: one runtime must see them all. libc++ is for what it alone
// has, strings of its layout first of all.
constexpr std::string_view ownNamespaceOfLibcpp[] = {"__ZNSt3__1", "__ZNKSt3__1", "__ZTVNSt3__1", "__ZTINSt3__1"};

void* libcpp() {
  static void* const library = dlopen("libc++.so.1", RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw ImageError("libc++ is not here: ./check --macos installs it");
  return library;
}

bool isOfLibcpp(std::string_view symbol) {
  for (const std::string_view prefix : ownNamespaceOfLibcpp) {
    if (symbol.starts_with(prefix)) return true;
  }
  return false;
}

}  // namespace

void* addressOfImport(const std::string& symbol) {
  for (const OwnSymbol& own : ownSymbols) {
    if (own.name == symbol) return own.address;
  }
  if (!symbol.starts_with('_')) return nullptr;
  return dlsym(isOfLibcpp(symbol) ? libcpp() : RTLD_DEFAULT, symbol.c_str() + 1);
}

}  // namespace macos
