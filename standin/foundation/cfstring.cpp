// CoreFoundation's string functions.
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <limits>

#include "standin/foundation/encodings.hpp"
#include "standin/foundation/string_classes.hpp"
#include "standin/runtime/exception.hpp"

using namespace standin;
using namespace standin::foundation;

namespace {

void requireString(CFStringRef string, const char* function) {
  if (string == nullptr) raise(NSInvalidArgumentException, std::string(function) + ": nil string");
}

// The range as positions in the text, once it is known to lie inside.
struct Stretch {
  uint32_t from, count;
};
Stretch requireStretch(CFStringRef string, CFRange range, const char* function) {
  requireString(string, function);
  const auto length = static_cast<CFIndex>(lengthOf(string));
  if (range.location < 0 || range.length < 0 || range.location > length || range.length > length - range.location) {
    raise(NSRangeException, std::string(function) + ": Range {" + std::to_string(range.location) + ", " +
                                std::to_string(range.length) + "} out of bounds; string length " + std::to_string(length));
  }
  return {static_cast<uint32_t>(range.location), static_cast<uint32_t>(range.length)};
}

CFStringRef newOrNil(std::optional<text::Text> text) { return text ? newString(*std::move(text)).detach() : nullptr; }

using NormalizerGetter = const icu::Normalizer2* (*)(UErrorCode&);
constexpr NormalizerGetter normalizers[] = {icu::Normalizer2::getNFDInstance, icu::Normalizer2::getNFKDInstance,
                                            icu::Normalizer2::getNFCInstance, icu::Normalizer2::getNFKCInstance};

void normalize(text::Text& text, NormalizerGetter getter) {
  std::u16string units(text.size(), 0);
  text.copy(0, text.size(), units.data());
  if (units.size() > static_cast<size_t>(std::numeric_limits<int32_t>::max())) throw std::bad_alloc();
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString source(false, units.data(), static_cast<int32_t>(units.size()));
  const icu::UnicodeString result = getter(status)->normalize(source, status);
  if (U_FAILURE(status)) throw std::bad_alloc();
  text = text::Text::utf16({result.getBuffer(), static_cast<size_t>(result.length())});
}

}  // namespace

extern "C" {

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const uint8_t* bytes, CFIndex count, CFStringEncoding encoding,
                                    Boolean externalRepresentation) {
  if (count < 0 || (bytes == nullptr && count != 0)) return nullptr;
  return newOrNil(decode({bytes, static_cast<size_t>(count)}, encoding, externalRepresentation != 0));
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* characters, CFIndex count) {
  if (count < 0 || (characters == nullptr && count != 0)) return nullptr;
  return newString(std::u16string_view(characters, static_cast<size_t>(count))).detach();
}

CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text, CFStringEncoding encoding) {
  if (text == nullptr) return nullptr;
  const auto count = static_cast<CFIndex>(std::char_traits<char>::length(text));
  return CFStringCreateWithBytes(allocator, reinterpret_cast<const uint8_t*>(text), count, encoding, 0);
}

CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef, CFIndex, CFStringRef string) {
  requireString(string, "CFStringCreateMutableCopy");
  return newMutableString(textOf(string)).detach();
}

CFIndex CFStringGetLength(CFStringRef string) {
  requireString(string, "CFStringGetLength");
  return static_cast<CFIndex>(lengthOf(string));
}

void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* buffer) {
  const Stretch stretch = requireStretch(string, range, "CFStringGetCharacters");
  textOf(string).copy(stretch.from, stretch.count, buffer);
}

Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex capacity, CFStringEncoding encoding) {
  requireString(string, "CFStringGetCString");
  if (buffer == nullptr || capacity < 1 || !isKnownEncoding(encoding)) return 0;
  const text::Text& text = textOf(string);
  const std::span<uint8_t> out(reinterpret_cast<uint8_t*>(buffer), static_cast<size_t>(capacity - 1));
  const Encoded encoded = encode(text, 0, text.size(), {.encoding = encoding}, out);
  buffer[encoded.bytes] = 0;
  return encoded.units == text.size() ? 1 : 0;
}

CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding, uint8_t lossByte,
                         Boolean externalRepresentation, uint8_t* buffer, CFIndex capacity, CFIndex* used) {
  const Stretch stretch = requireStretch(string, range, "CFStringGetBytes");
  const char loss = static_cast<char>(lossByte);
  const EncodeOptions options = {
      .encoding = encoding, .loss = {&loss, loss != 0 ? 1U : 0U}, .external = externalRepresentation != 0};
  const std::span<uint8_t> out =
      buffer != nullptr ? std::span(buffer, static_cast<size_t>(std::max<CFIndex>(capacity, 0))) : std::span<uint8_t>();
  const Encoded encoded = encode(textOf(string), stretch.from, stretch.count, options, out);
  if (used != nullptr) *used = static_cast<CFIndex>(encoded.bytes);
  return static_cast<CFIndex>(encoded.units);
}

void CFStringNormalize(CFMutableStringRef string, CFIndex form) {
  requireString(string, "CFStringNormalize");
  if (form < 0 || form >= static_cast<CFIndex>(std::size(normalizers))) {
    raise(NSInvalidArgumentException, "CFStringNormalize: unknown form " + std::to_string(form));
  }
  normalize(stateOf<String>(string).text, normalizers[form]);
}
}
