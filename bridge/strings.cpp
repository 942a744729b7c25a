// Converts host strings and platform strings, by routes that depend on the host's version and on what it offers.
#include "bridge/strings.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "bridge/utf32.hpp"
#include "plugin/exceptions.hpp"
#include "plugin/host_owned.hpp"

namespace bridge {

using plugin::adoptHost;
using plugin::hostVersion;
using plugin::lockHost;
using plugin::REALstring;

namespace {

// What the host reports for a string whose encoding it does not know.
constexpr CFStringEncoding unknownEncoding = 0xFFFF;
// Hosts from these versions on give platform strings and build UTF-16 in one step, and build UTF-32.
constexpr double platformStringsVersion = 2012.0;
constexpr double utf32Version = 2013.0;

CFStringRef stringFromContents(REALstring text, CFStringEncoding encoding) {
  const auto locked = lockHost(text);
  const auto [bytes, length] = plugin::REALGetStringContents(text);
  if (bytes == nullptr) return nullptr;
  if (encoding == kCFStringEncodingUnicode) {
    return CFStringCreateWithCharacters(kCFAllocatorDefault, reinterpret_cast<const UniChar*>(bytes), length / 2);
  }
  return CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const uint8_t*>(bytes), length, encoding, true);
}

}  // namespace

CFStringRef RBString2CFString(REALstring text) {
  if (text == nullptr) return nullptr;
  const CFStringEncoding encoding = plugin::REALGetStringEncoding(text);
  if (encoding == unknownEncoding) return stringFromContents(text, kCFStringEncodingMacRoman);
  if (hostVersion >= platformStringsVersion) {
    if (CFStringRef copied = plugin::REALCopyStringCFString(text, false)) return copied;
  }
  if (CFStringRef given = plugin::REALGetStringCFString(text, false)) return given;
  return stringFromContents(text, encoding);
}

namespace {

constexpr CFIndex shortLength = 99;
// UTF-8 takes at most 3 bytes a unit; the platform asks for room to spare.
constexpr CFIndex bytesPerUnit = 6;
constexpr CFIndex shortCapacity = 600;

REALstring hostStringThrough(CFStringRef text, char* buffer, CFIndex capacity) {
  if (!CFStringGetCString(text, buffer, capacity, kCFStringEncodingUTF8)) return nullptr;
  return REALBuildUnicodeString(buffer, static_cast<long long>(std::strlen(buffer)), kCFStringEncodingUTF8);
}

}  // namespace

REALstring CFString2RBString(CFStringRef text) {
  if (text == nullptr) return nullptr;
  const CFIndex length = CFStringGetLength(text);
  if (length <= 0) return nullptr;
  if (length <= shortLength) {
    char buffer[shortCapacity + 1] = {};
    return hostStringThrough(text, buffer, shortCapacity);
  }
  const CFIndex capacity = length * bytesPerUnit;
  const std::unique_ptr<char[], decltype(&std::free)> buffer(
      static_cast<char*>(std::calloc(static_cast<std::size_t>(capacity), 1)), &std::free);
  return buffer == nullptr ? nullptr : hostStringThrough(text, buffer.get(), capacity);
}

namespace {

constexpr long long longestText = 0x7FFFFFFF;

bool inRange(const void* bytes, long long length) { return bytes != nullptr && length >= 1 && length <= longestText; }

REALstring converted(REALstring text) { return plugin::REALConvertString(text, kCFStringEncodingUTF8); }

// Builds the bytes under their encoding and has the host convert them to UTF-8.
REALstring builtAndConverted(const void* bytes, long long length, CFStringEncoding encoding) {
  const auto text = adoptHost(plugin::REALBuildStringWithEncoding(bytes, static_cast<int32_t>(length), encoding));
  return converted(text);
}

REALstring builtUnderTag(const void* bytes, long long length, CFStringEncoding encoding) {
  auto text = adoptHost(plugin::originalREALBuildString(bytes, static_cast<int32_t>(length)));
  if (text) plugin::REALSetStringEncoding(text, encoding);
  return text.detach();
}

bool isASCII(const void* bytes, long long length) {
  const auto* first = static_cast<const unsigned char*>(bytes);
  return std::none_of(first, first + length, [](unsigned char byte) { return byte >= 0x80; });
}

REALstring builtFromUTF32(const void* bytes, long long length) {
  if (hostVersion >= utf32Version) return builtAndConverted(bytes, length, kCFStringEncodingUTF32);
  return withUTF16(bytes, static_cast<std::size_t>(length), [](const char16_t* units, std::size_t count) {
    return REALBuildUnicodeStringUTF16(units, static_cast<long long>(count * sizeof(char16_t)));
  });
}

REALstring build(const void* bytes, long long length, CFStringEncoding encoding) {
  switch (encoding) {
    case kCFStringEncodingMacRoman:
    case kCFStringEncodingWindowsLatin1:
    case unknownEncoding:
      return builtUnderTag(bytes, length, isASCII(bytes, length) ? kCFStringEncodingASCII : encoding);
    case kCFStringEncodingUnicode:
      return REALBuildUnicodeStringUTF16(bytes, length);
    case kCFStringEncodingUTF32:
      return builtFromUTF32(bytes, length);
    default:
      return builtUnderTag(bytes, length, encoding);
  }
}

}  // namespace

REALstring REALBuildUnicodeString(const void* bytes, long long length, CFStringEncoding encoding) {
  return plugin::translatingStandardExceptions(
      [&] { return inRange(bytes, length) ? build(bytes, length, encoding) : REALstring(); });
}

REALstring REALBuildUnicodeStringUTF16(const void* bytes, long long length) {
  if (length > longestText) return nullptr;
  if (hostVersion >= platformStringsVersion) return builtAndConverted(bytes, length, kCFStringEncodingUnicode);
  const auto text = adoptHost(builtUnderTag(bytes, length, kCFStringEncodingUnicode));
  return text ? converted(text) : nullptr;
}

}  // namespace bridge
