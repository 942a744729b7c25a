// Host strings and texts.
#include "host/runtime/string.hpp"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include "host/runtime/encoding.hpp"
#include "host/runtime/exception.hpp"

namespace host {
namespace {

// A zero unit of any width ends the bytes.
constexpr size_t terminatorSize = 4;

}  // namespace

template <class Derived>
LiveList<Derived>& CountedBytes<Derived>::liveList() {
  static LiveList<Derived> list;
  return list;
}

template <class Derived>
const LiveList<Derived>& CountedBytes<Derived>::live() {
  return liveList();
}

template <class Derived>
HostOwned<Derived> CountedBytes<Derived>::allocate(std::string_view bytes, uint32_t encoding) {
  if (bytes.empty()) return nullptr;
  if (bytes.size() > std::numeric_limits<int32_t>::max()) throwException("OutOfMemoryException", "The string is too long.");
  void* place = std::malloc(sizeof(Derived) + bytes.size() + terminatorSize);
  if (place == nullptr) throw std::bad_alloc();
  auto* made = new (place) Derived();
  made->references = 1;
  made->length = static_cast<int32_t>(bytes.size());
  made->encoding = encoding;
  char* content = reinterpret_cast<char*>(made + 1);
  std::memcpy(content, bytes.data(), bytes.size());
  std::memset(content + bytes.size(), 0, terminatorSize);
  liveList().add(made);
  return adopt(made);
}

template <class Derived>
void CountedBytes<Derived>::destroy() {
  liveList().remove(static_cast<Derived*>(this));
  std::free(static_cast<void*>(this));
}

template struct CountedBytes<HostString>;
template struct CountedBytes<HostText>;

HostOwned<HostString> converted(const HostString* string, uint32_t encoding) {
  const uint32_t from = encodingOf(string) == encodingUnknown ? encodingUTF8 : encodingOf(string);
  const std::optional<std::string> bytes = convertBytes(bytesOf(string), from, encoding);
  return bytes ? HostString::make(*bytes, encoding) : HostString::make(bytesOf(string), encodingOf(string));
}

std::string utf8Of(const HostString* string) {
  const uint32_t encoding = encodingOf(string);
  if (encoding == encodingUTF8 || encoding == encodingASCII || encoding == encodingUnknown)
    return std::string(bytesOf(string));
  return convertBytes(bytesOf(string), encoding, encodingUTF8).value_or(std::string(bytesOf(string)));
}

std::u16string utf16Of(std::string_view utf8) {
  const std::string bytes = convertBytes(utf8, encodingUTF8, encodingUTF16).value_or(std::string());
  std::u16string units(bytes.size() / sizeof(char16_t), u'\0');
  std::memcpy(units.data(), bytes.data(), units.size() * sizeof(char16_t));
  return units;
}

std::string utf8Of(std::u16string_view units) {
  const std::string_view bytes(reinterpret_cast<const char*>(units.data()), units.size() * sizeof(char16_t));
  return convertBytes(bytes, encodingUTF16, encodingUTF8).value_or(std::string());
}

}  // namespace host
