// NSString's encoding numbers: a few small ones of their own; the others are CoreFoundation's with the top bit set.
#include "standin/foundation/string_encodings.hpp"

#include <algorithm>
#include <optional>
#include <span>

#include "standin/foundation/data.hpp"
#include "standin/foundation/encodings.hpp"
#include "standin/foundation/string_classes.hpp"

namespace standin::foundation {
namespace {

struct NumberPair {
  NSUInteger stringEncoding;
  CFStringEncoding encoding;
};

constexpr NumberPair pairs[] = {
    {1, kCFStringEncodingASCII},
    {3, 0x0920},
    {4, kCFStringEncodingUTF8},
    {5, kCFStringEncodingISOLatin1},
    {8, 0x0A01},
    {9, 0x0202},
    {10, kCFStringEncodingUnicode},
    {11, 0x0502},
    {12, kCFStringEncodingWindowsLatin1},
    {13, 0x0503},
    {14, 0x0504},
    {15, 0x0501},
    {21, 0x0820},
    {30, kCFStringEncodingMacRoman},
};
constexpr NSUInteger derivedBit = 0x80000000;

std::optional<std::string> bytesIn(NSString* self, NSUInteger encoding, std::string_view loss) {
  return encode(textOf(self), {.encoding = toCFStringEncoding(encoding), .loss = loss, .external = true});
}

const char* UTF8String(NSString* self) {
  std::optional<std::string> bytes = encode(textOf(self), EncodeOptions{});
  return bytes ? autoreleasedBytes(*std::move(bytes)) : nullptr;
}

NSData* dataUsingLossyEncoding(NSString* self, NSUInteger encoding, BOOL lossy) {
  std::optional<std::string> bytes = bytesIn(self, encoding, lossy ? "?" : "");
  return bytes ? newData(*std::move(bytes)).autorelease() : nullptr;
}
NSData* dataUsingEncoding(NSString* self, NSUInteger encoding) { return dataUsingLossyEncoding(self, encoding, NO); }

BOOL canBeConverted(NSString* self, NSUInteger encoding) { return bytesIn(self, encoding, "").has_value() ? YES : NO; }

// Without the terminating zero; 0 when the string cannot be converted.
NSUInteger lengthOfBytes(NSString* self, NSUInteger encoding) {
  const std::optional<std::string> bytes = encode(textOf(self), {.encoding = toCFStringEncoding(encoding)});
  return bytes ? bytes->size() : 0;
}

BOOL getCString(NSString* self, char* buffer, NSUInteger capacity, NSUInteger encoding) {
  return CFStringGetCString(self, buffer, static_cast<CFIndex>(capacity), toCFStringEncoding(encoding)) ? YES : NO;
}

[[maybe_unused]] const Category encodings = Category("NSString")
                                                .method<UTF8String>("UTF8String")
                                                .method<dataUsingEncoding>("dataUsingEncoding:")
                                                .method<dataUsingLossyEncoding>("dataUsingEncoding:allowLossyConversion:")
                                                .method<canBeConverted>("canBeConvertedToEncoding:")
                                                .method<lengthOfBytes>("lengthOfBytesUsingEncoding:")
                                                .method<getCString>("getCString:maxLength:encoding:");

}  // namespace

CFStringEncoding toCFStringEncoding(NSUInteger stringEncoding) {
  const auto found = std::find_if(std::begin(pairs), std::end(pairs),
                                  [&](const NumberPair& pair) { return pair.stringEncoding == stringEncoding; });
  if (found != std::end(pairs)) return found->encoding;
  return (stringEncoding & derivedBit) != 0 ? static_cast<CFStringEncoding>(stringEncoding & ~derivedBit) : noEncoding;
}

NSUInteger toStringEncoding(CFStringEncoding encoding) {
  const auto found =
      std::find_if(std::begin(pairs), std::end(pairs), [&](const NumberPair& pair) { return pair.encoding == encoding; });
  return found != std::end(pairs) ? found->stringEncoding : encoding | derivedBit;
}

}  // namespace standin::foundation

extern "C" {

CFStringEncoding CFStringConvertNSStringEncodingToEncoding(NSUInteger encoding) {
  return standin::foundation::toCFStringEncoding(encoding);
}
NSUInteger CFStringConvertEncodingToNSStringEncoding(CFStringEncoding encoding) {
  return standin::foundation::toStringEncoding(encoding);
}
Boolean CFStringIsEncodingAvailable(CFStringEncoding encoding) {
  return standin::foundation::isKnownEncoding(encoding) ? 1 : 0;
}
}
