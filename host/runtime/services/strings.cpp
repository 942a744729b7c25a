// Services of strings and texts.
#include <cstdlib>

#include "host/runtime/service.hpp"
#include "host/runtime/string.hpp"
#include "platform/corefoundation.h"

namespace host {
namespace {

template <class Counted>
void lock(Counted* counted) {
  if (counted != nullptr) counted->lock();
}

template <class Counted>
void unlock(Counted* counted) {
  if (counted != nullptr) counted->unlock();
}

uint32_t encoding(HostString* string) { return string != nullptr ? string->encoding : encodingUnknown; }

void setEncoding(HostString* string, uint32_t encoding) {
  if (string != nullptr) string->encoding = encoding;
}

HostString* convert(HostString* string, uint32_t encoding) { return converted(string, encoding).detach(); }

HostString* build(const void* bytes, int32_t length, uint32_t encoding) {
  if (bytes == nullptr || length <= 0) return nullptr;
  return HostString::make({static_cast<const char*>(bytes), static_cast<size_t>(length)}, encoding).detach();
}

HostString* buildUntagged(const void* bytes, int32_t length) { return build(bytes, length, encodingUnknown); }

// Valid while the string is locked, and closed by a zero.
const char* contents(HostString* string) { return string != nullptr ? string->bytes().data() : ""; }

CFStringRef platformString(std::string_view bytes, uint32_t encoding) {
  return CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const uint8_t*>(bytes.data()),
                                 static_cast<CFIndex>(bytes.size()), encoding, true);
}

// The string is the caller's; nil when the bytes are not text in their encoding.
CFStringRef copyPlatformString(HostString* string, bool) {
  const uint32_t encoding = encodingOf(string);
  return platformString(bytesOf(string), encoding == encodingUnknown ? encodingUTF8 : encoding);
}

CFStringRef copyTextPlatformString(HostText* text) { return platformString(bytesOf(text), encodingUTF8); }

void disposeStringData(void* data) { std::free(data); }

}  // namespace

std::span<const Service> stringServices() {
  static const Service list[] = {
      service<lock<HostString>>("REALLockString"),
      service<unlock<HostString>>("REALUnlockString"),
      service<encoding>("REALGetStringEncoding"),
      service<setEncoding>("REALSetStringEncoding"),
      service<convert>("REALConvertString"),
      service<build>("REALBuildStringWithEncoding"),
      service<buildUntagged>("REALBuildString"),
      service<contents>("StringGetCString"),
      service<copyPlatformString>("REALGetStringCFString"),
      service<disposeStringData>("PluginDisposeStringData"),
      service<lock<HostText>>("PluginLockText"),
      service<unlock<HostText>>("PluginUnlockText"),
      service<copyTextPlatformString>("PluginCopyTextCFString"),
  };
  return list;
}

}  // namespace host
