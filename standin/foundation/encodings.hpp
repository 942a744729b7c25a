// Text to and from bytes, in every encoding that has a CoreFoundation number and a converter here.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/corefoundation.h"
#include "standin/text/text.hpp"

namespace standin::foundation {

inline constexpr CFStringEncoding encodingUtf16BigEndian = 0x10000100;
inline constexpr CFStringEncoding encodingUtf16LittleEndian = 0x14000100;
inline constexpr CFStringEncoding encodingUtf32BigEndian = 0x18000100;
inline constexpr CFStringEncoding encodingUtf32LittleEndian = 0x1C000100;

bool isKnownEncoding(CFStringEncoding encoding);

// The text of the bytes; nothing when the encoding is unknown, a sequence is malformed or has no character, or bytes are
// left over. `external`: a byte-order mark at the start (UTF-8, UTF-16, UTF-32 without a named byte order) is obeyed and
// left out; without one the bytes are in the machine's order. UTF-16 may hold lone surrogates, the others may not.
std::optional<text::Text> decode(std::span<const uint8_t> bytes, CFStringEncoding encoding, bool external);
std::optional<text::Text> decodeUtf8(std::string_view bytes);

// The text of bytes or units that need no decoding, at the speed of a copy.
text::Text textOfLatin1(std::span<const uint8_t> bytes);
text::Text textOfUnits(std::u16string_view units);

struct EncodeOptions {
  CFStringEncoding encoding = kCFStringEncodingUTF8;
  std::string_view loss = {};  // stands for each character that the encoding lacks; empty: encoding ends there
  bool external = false;       // UTF-16 and UTF-32 without a named byte order begin with a byte-order mark
};

struct Encoded {
  size_t units = 0;  // how many were converted
  size_t bytes = 0;  // how many were written or, without a buffer, would be
};

// Converts as many whole characters as fit. `out` without data: counts only. An unknown encoding converts nothing.
Encoded encode(const text::Text& text, uint32_t from, uint32_t count, const EncodeOptions& options, std::span<uint8_t> out);
// The whole text in the encoding, or nothing when it lacks a character.
std::optional<std::string> encode(const text::Text& text, const EncodeOptions& options);

}  // namespace standin::foundation
