// Host strings: counted bytes with an encoding tag; and host texts: counted Unicode text. The empty ones are nil.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/runtime/live_list.hpp"
#include "host/runtime/owned.hpp"

namespace host {

// CoreFoundation's encoding numbers.
inline constexpr uint32_t encodingMacRoman = 0;
inline constexpr uint32_t encodingUTF16 = 0x100;
inline constexpr uint32_t encodingLatin1 = 0x201;
inline constexpr uint32_t encodingWindowsLatin1 = 0x500;
inline constexpr uint32_t encodingASCII = 0x600;
inline constexpr uint32_t encodingUTF8 = 0x08000100;
inline constexpr uint32_t encodingUTF32 = 0x0C000100;
inline constexpr uint32_t encodingUnknown = 0xFFFF;

// Counted bytes of a fixed length, which a zero terminates.
template <class Derived>
struct CountedBytes {
  int64_t references;
  Derived* previous;
  Derived* next;
  int32_t length;
  uint32_t encoding;

  std::string_view bytes() const { return {reinterpret_cast<const char*>(this + 1), static_cast<size_t>(length)}; }
  void lock() { ++references; }
  void unlock() {
    if (--references == 0) destroy();
  }
  static const LiveList<Derived>& live();

 protected:
  // Nil for no bytes. Longer than 2,147,483,647 bytes throws OutOfMemoryException.
  static HostOwned<Derived> allocate(std::string_view bytes, uint32_t encoding);

 private:
  static LiveList<Derived>& liveList();
  void destroy();
};

struct HostString : CountedBytes<HostString> {
  static HostOwned<HostString> make(std::string_view bytes, uint32_t encoding = encodingUTF8) {
    return allocate(bytes, encoding);
  }
};

// Texts are kept as UTF-8.
struct HostText : CountedBytes<HostText> {
  static HostOwned<HostText> make(std::string_view utf8) { return allocate(utf8, encodingUTF8); }
};

// The bytes of a string, none for nil.
inline std::string_view bytesOf(const HostString* string) {
  return string != nullptr ? string->bytes() : std::string_view();
}
inline std::string_view bytesOf(const HostText* text) { return text != nullptr ? text->bytes() : std::string_view(); }
inline uint32_t encodingOf(const HostString* string) { return string != nullptr ? string->encoding : encodingUTF8; }

// The string in another encoding; characters that it lacks become its substitution character. Untagged bytes are read as
// UTF-8. An encoding that is not known leaves the bytes as they are.
HostOwned<HostString> converted(const HostString* string, uint32_t encoding);
std::string utf8Of(const HostString* string);
// UTF-16 code units in the machine's byte order.
std::u16string utf16Of(std::string_view utf8);
std::string utf8Of(std::u16string_view units);

}  // namespace host
