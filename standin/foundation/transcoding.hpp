// The hot loops between UTF-8, UTF-16 and Latin-1: scanning, decoding and encoding contiguous units.
#pragma once

#include <cstddef>
#include <cstdint>

namespace standin::foundation {

inline bool isHighSurrogate(char32_t unit) { return (unit & 0xFFFFFC00) == 0xD800; }
inline bool isLowSurrogate(char32_t unit) { return (unit & 0xFFFFFC00) == 0xDC00; }
inline bool isSurrogate(char32_t unit) { return (unit & 0xFFFFF800) == 0xD800; }
inline char32_t joinSurrogates(char16_t high, char16_t low) {
  return 0x10000 + ((static_cast<char32_t>(high) & 0x3FF) << 10) + (static_cast<char32_t>(low) & 0x3FF);
}

// How many bytes at the start are below 0x80.
size_t asciiPrefix(const uint8_t* bytes, size_t count);

// Whether all units are below 0x100.
bool isLatin1(const char16_t* units, size_t count);

// What UTF-8 text will need, if it is well-formed.
struct Utf8Shape {
  size_t units;   // UTF-16 units
  bool isLatin1;  // no unit above 0xFF
};
Utf8Shape shapeOfUtf8(const uint8_t* bytes, size_t count);

// Decode UTF-8 into exactly as many units as `shapeOfUtf8` says. False when it is not well-formed: overlong forms,
// surrogates, code points above U+10FFFF and sequences cut short are refused; what was written then means nothing.
bool decodeUtf8(const uint8_t* bytes, size_t count, char16_t* out, size_t units);
bool decodeUtf8(const uint8_t* bytes, size_t count, uint8_t* out, size_t units);

// The encoders move `in` and `out` forward until `end`, or to the first character that the encoding does not have. `out`
// has room for `maximumBytes` a unit. A surrogate is half of a pair only when both halves lie before `end`.
struct Utf8Encoder {
  static constexpr size_t maximumBytes = 3;
  static void encode(const uint8_t*& in, const uint8_t* end, uint8_t*& out);
  static void encode(const char16_t*& in, const char16_t* end, uint8_t*& out);
};

// The code points below `limit`, a byte each.
template <unsigned limit>
struct SingleByteEncoder {
  static constexpr size_t maximumBytes = 1;
  static void encode(const uint8_t*& in, const uint8_t* end, uint8_t*& out);
  static void encode(const char16_t*& in, const char16_t* end, uint8_t*& out);
};
using AsciiEncoder = SingleByteEncoder<0x80>;
using Latin1Encoder = SingleByteEncoder<0x100>;

// UTF-16 and UTF-32 in the machine's byte order or the other one. UTF-16 takes lone surrogates, UTF-32 does not.
template <bool swapped>
struct Utf16Encoder {
  static constexpr size_t maximumBytes = 2;
  static void encode(const uint8_t*& in, const uint8_t* end, uint8_t*& out);
  static void encode(const char16_t*& in, const char16_t* end, uint8_t*& out);
};
template <bool swapped>
struct Utf32Encoder {
  static constexpr size_t maximumBytes = 4;
  static void encode(const uint8_t*& in, const uint8_t* end, uint8_t*& out);
  static void encode(const char16_t*& in, const char16_t* end, uint8_t*& out);
};

}  // namespace standin::foundation
