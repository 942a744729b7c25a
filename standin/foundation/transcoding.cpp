// The hot loops, eight or sixteen bytes a step where text is ASCII.
#include "standin/foundation/transcoding.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

#include "standin/text/ascii.hpp"

namespace standin::foundation {
namespace {

static_assert(std::endian::native == std::endian::little);

using Bytes8 = uint8_t __attribute__((vector_size(8)));
using Bytes16 = uint8_t __attribute__((vector_size(16)));
using Units8 = uint16_t __attribute__((vector_size(16)));

constexpr uint64_t highBits = 0x8080808080808080;

template <class Word>
Word load(const void* from) {
  Word word;
  std::memcpy(&word, from, sizeof word);
  return word;
}

template <class Word>
void store(uint8_t*& out, Word word) {
  std::memcpy(out, &word, sizeof word);
  out += sizeof word;
}

bool isContinuation(uint8_t byte) { return (byte & 0xC0) == 0x80; }

size_t sumOf(Bytes16 lanes) {
  size_t sum = 0;
  for (int lane = 0; lane < 16; ++lane) sum += lanes[lane];
  return sum;
}

template <class Lanes>
bool isZero(Lanes lanes) {
  uint64_t halves[2];
  static_assert(sizeof lanes == sizeof halves);
  std::memcpy(halves, &lanes, sizeof halves);
  return (halves[0] | halves[1]) == 0;
}

void copySixteen(const uint8_t* in, uint8_t* out) { std::memcpy(out, in, 16); }

void copySixteen(const uint8_t* in, char16_t* out) {
  for (int half = 0; half < 2; ++half) {
    const Units8 units = __builtin_convertvector(load<Bytes8>(in + half * 8), Units8);
    std::memcpy(out + half * 8, &units, sizeof units);
  }
}

// How many of the sixteen bytes come before the first that is not ASCII.
int asciiOfSixteen(const uint8_t* in) {
  const uint64_t first = load<uint64_t>(in) & highBits, second = load<uint64_t>(in + 8) & highBits;
  return first != 0 ? std::countr_zero(first) / 8 : second != 0 ? 8 + std::countr_zero(second) / 8 : 16;
}

// Copies the ASCII bytes at the start of both ranges as units. As long as sixteen units fit, sixteen are written and those
// that count are kept: that is cheaper than to ask how many there are.
template <class Unit>
void copyAscii(const uint8_t*& in, const uint8_t* end, Unit*& out, Unit* outEnd) {
  while (end - in >= 16 && outEnd - out >= 16) {
    copySixteen(in, out);
    const int ascii = asciiOfSixteen(in);
    in += ascii;
    out += ascii;
    if (ascii != 16) return;
  }
  while (in != end && *in < 0x80 && out != outEnd) *out++ = *in++;
}

// A kind of sequence, as its bytes stand in a word: the bits that are fixed, and the code points it may hold.
struct SequenceKind {
  ptrdiff_t length;
  uint32_t mask, pattern;
  char32_t lowest, highest;
};
constexpr SequenceKind twoBytes{2, 0xC0E0, 0x80C0, 0x80, 0x7FF};
constexpr SequenceKind threeBytes{3, 0xC0C0F0, 0x8080E0, 0x800, 0xFFFF};
constexpr SequenceKind fourBytes{4, 0xC0C0C0F8, 0x808080F0, 0x10000, 0x10FFFF};

template <const SequenceKind& kind>
char32_t pointIn(uint32_t word) {
  if constexpr (kind.length == 2) return (word & 0x1F) << 6 | (word >> 8 & 0x3F);
  if constexpr (kind.length == 3) return (word & 0x0F) << 12 | (word >> 2 & 0xFC0) | (word >> 16 & 0x3F);
  return (word & 0x07) << 18 | (word << 4 & 0x3F000) | (word >> 10 & 0xFC0) | (word >> 24 & 0x3F);
}

// Moves behind the sequence and answers its code point; 0 when it is not well-formed.
template <const SequenceKind& kind>
char32_t readKind(const uint8_t*& in, const uint8_t* end, uint32_t word) {
  if ((word & kind.mask) != kind.pattern || end - in < kind.length) return 0;
  const char32_t point = pointIn<kind>(word);
  if (point < kind.lowest || point > kind.highest || (kind.length == 3 && isSurrogate(point))) return 0;
  in += kind.length;
  return point;
}

// The one to three bytes before the end as a word.
uint32_t lastWord(const uint8_t* in, const uint8_t* end) {
  uint32_t word = 0;
  for (int shift = 0; in != end; shift += 8) word |= uint32_t{*in++} << shift;
  return word;
}

// Reads one sequence that does not begin with ASCII; 0 when it is not well-formed.
char32_t readSequence(const uint8_t*& in, const uint8_t* end) {
  const uint32_t word = end - in >= 4 ? load<uint32_t>(in) : lastWord(in, end);
  if (*in < 0xE0) return readKind<twoBytes>(in, end, word);
  if (*in < 0xF0) return readKind<threeBytes>(in, end, word);
  return readKind<fourBytes>(in, end, word);
}

// Decodes sequences of three bytes as long as they follow one another. Malformed ones are left to `readSequence`.
void copyThreeByteSequences(const uint8_t*& in, const uint8_t* end, char16_t*& out, char16_t* outEnd) {
  while (end - in >= 4 && out != outEnd) {
    const uint32_t word = load<uint32_t>(in);
    const char32_t point = pointIn<threeBytes>(word);
    if ((word & threeBytes.mask) != threeBytes.pattern || point < threeBytes.lowest || isSurrogate(point)) return;
    *out++ = static_cast<char16_t>(point);
    in += 3;
  }
}

// The code point at `in`, or a surrogate when it is a lone one. Does not move.
char32_t pointAt(const char16_t* in, const char16_t* end) {
  if (isHighSurrogate(*in) && end - in >= 2 && isLowSurrogate(in[1])) return joinSurrogates(in[0], in[1]);
  return *in;
}

void writeUtf8(char32_t point, uint8_t*& out) {
  const auto tail = [point](int shift) { return static_cast<uint8_t>(0x80 | (point >> shift & 0x3F)); };
  if (point < 0x80) {
    *out++ = static_cast<uint8_t>(point);
  } else if (point < 0x800) {
    out[0] = static_cast<uint8_t>(0xC0 | point >> 6);
    out[1] = tail(0);
    out += 2;
  } else if (point < 0x10000) {
    out[0] = static_cast<uint8_t>(0xE0 | point >> 12);
    out[1] = tail(6);
    out[2] = tail(0);
    out += 3;
  } else {
    out[0] = static_cast<uint8_t>(0xF0 | point >> 18);
    out[1] = tail(12);
    out[2] = tail(6);
    out[3] = tail(0);
    out += 4;
  }
}

// How many of the eight units come before the first that is not below the limit, a power of two.
template <unsigned limit>
int eightBelow(const char16_t* in) {
  constexpr uint64_t mask = uint64_t{0x0001000100010001} * (0x10000 - limit);
  const uint64_t first = load<uint64_t>(in) & mask, second = load<uint64_t>(in + 4) & mask;
  return first != 0 ? std::countr_zero(first) / 16 : second != 0 ? 4 + std::countr_zero(second) / 16 : 8;
}

void narrowEight(const char16_t* in, uint8_t* out) {
  const Bytes8 bytes = __builtin_convertvector(load<Units8>(in), Bytes8);
  std::memcpy(out, &bytes, sizeof bytes);
}

template <bool swapped>
uint16_t ordered(uint16_t unit) {
  return swapped ? __builtin_bswap16(unit) : unit;
}
template <bool swapped>
uint32_t ordered(uint32_t unit) {
  return swapped ? __builtin_bswap32(unit) : unit;
}

}  // namespace

size_t asciiPrefix(const uint8_t* bytes, size_t count) {
  return text::lengthOfASCII({reinterpret_cast<const char*>(bytes), count});
}

bool isLatin1(const char16_t* units, size_t count) {
  const char16_t* const end = units + count;
  for (; end - units >= 16; units += 16) {
    const Units8 any = (load<Units8>(units) | load<Units8>(units + 8)) & 0xFF00;
    if (!isZero(any)) return false;
  }
  return std::all_of(units, end, [](char16_t unit) { return unit < 0x100; });
}

Utf8Shape shapeOfUtf8(const uint8_t* bytes, size_t count) {
  size_t continuations = 0, fourByteLeads = 0, at = 0;
  Bytes16 aboveLatin1 = {};
  while (count - at >= 16) {
    // A lane counts to 255 before it must be emptied.
    const size_t steps = std::min<size_t>((count - at) / 16, 255);
    Bytes16 tails = {}, fours = {};
    for (size_t step = 0; step < steps; ++step, at += 16) {
      const Bytes16 lanes = load<Bytes16>(bytes + at);
      tails -= static_cast<Bytes16>((lanes & 0xC0) == 0x80);
      fours -= static_cast<Bytes16>(lanes >= 0xF0);
      aboveLatin1 |= static_cast<Bytes16>(lanes > 0xC3);
    }
    continuations += sumOf(tails);
    fourByteLeads += sumOf(fours);
  }
  bool isLatin1 = sumOf(aboveLatin1) == 0;
  for (; at != count; ++at) {
    continuations += isContinuation(bytes[at]);
    fourByteLeads += bytes[at] >= 0xF0;
    isLatin1 = isLatin1 && bytes[at] <= 0xC3;
  }
  return {count - continuations + fourByteLeads, isLatin1};
}

bool decodeUtf8(const uint8_t* bytes, size_t count, char16_t* out, size_t units) {
  const uint8_t* const end = bytes + count;
  char16_t* const outEnd = out + units;
  while (bytes != end) {
    copyAscii(bytes, end, out, outEnd);
    while (bytes != end && *bytes >= 0x80) {
      if ((*bytes & 0xF0) == 0xE0) copyThreeByteSequences(bytes, end, out, outEnd);
      if (bytes == end || *bytes < 0x80) break;
      const char32_t point = readSequence(bytes, end);
      if (point == 0 || outEnd - out < (point < 0x10000 ? 1 : 2)) return false;
      if (point < 0x10000) {
        *out++ = static_cast<char16_t>(point);
      } else {
        *out++ = static_cast<char16_t>(0xD7C0 + (point >> 10));
        *out++ = static_cast<char16_t>(0xDC00 | (point & 0x3FF));
      }
    }
    if (bytes != end && out == outEnd) return false;
  }
  return out == outEnd;
}

bool decodeUtf8(const uint8_t* bytes, size_t count, uint8_t* out, size_t units) {
  const uint8_t* const end = bytes + count;
  uint8_t* const outEnd = out + units;
  while (bytes != end) {
    copyAscii(bytes, end, out, outEnd);
    while (bytes != end && *bytes >= 0x80) {
      if (*bytes < 0xC2 || *bytes > 0xC3 || end - bytes < 2 || !isContinuation(bytes[1]) || out == outEnd) return false;
      *out++ = static_cast<uint8_t>((bytes[0] & 0x03) << 6 | (bytes[1] & 0x3F));
      bytes += 2;
    }
    if (bytes != end && out == outEnd) return false;
  }
  return out == outEnd;
}

void Utf8Encoder::encode(const uint8_t*& in, const uint8_t* end, uint8_t*& out) {
  while (in != end) {
    const size_t ascii = asciiPrefix(in, static_cast<size_t>(end - in));
    if (ascii != 0) std::memcpy(out, in, ascii);
    in += ascii;
    out += ascii;
    for (; in != end && *in >= 0x80; ++in) writeUtf8(*in, out);
  }
}

void Utf8Encoder::encode(const char16_t*& in, const char16_t* end, uint8_t*& out) {
  while (in != end) {
    if (end - in >= 8) {
      // The room is three bytes a unit, so that eight may be written where fewer count.
      narrowEight(in, out);
      const int ascii = eightBelow<0x80>(in);
      in += ascii;
      out += ascii;
      if (ascii == 8) continue;
    }
    do {
      const char32_t point = pointAt(in, end);
      if (isSurrogate(point)) return;
      writeUtf8(point, out);
      in += point < 0x10000 ? 1 : 2;
    } while (in != end && *in >= 0x80);
  }
}

template <unsigned limit>
void SingleByteEncoder<limit>::encode(const uint8_t*& in, const uint8_t* end, uint8_t*& out) {
  const size_t available = static_cast<size_t>(end - in);
  const size_t fitting = limit > 0xFF ? available : asciiPrefix(in, available);
  if (fitting != 0) std::memcpy(out, in, fitting);
  in += fitting;
  out += fitting;
}

template <unsigned limit>
void SingleByteEncoder<limit>::encode(const char16_t*& in, const char16_t* end, uint8_t*& out) {
  for (; end - in >= 8 && eightBelow<limit>(in) == 8; in += 8, out += 8) narrowEight(in, out);
  while (in != end && *in < limit) *out++ = static_cast<uint8_t>(*in++);
}

template <bool swapped>
void Utf16Encoder<swapped>::encode(const uint8_t*& in, const uint8_t* end, uint8_t*& out) {
  while (in != end) store(out, ordered<swapped>(uint16_t{*in++}));
}

template <bool swapped>
void Utf16Encoder<swapped>::encode(const char16_t*& in, const char16_t* end, uint8_t*& out) {
  while (in != end) store(out, ordered<swapped>(static_cast<uint16_t>(*in++)));
}

template <bool swapped>
void Utf32Encoder<swapped>::encode(const uint8_t*& in, const uint8_t* end, uint8_t*& out) {
  while (in != end) store(out, ordered<swapped>(uint32_t{*in++}));
}

template <bool swapped>
void Utf32Encoder<swapped>::encode(const char16_t*& in, const char16_t* end, uint8_t*& out) {
  while (in != end) {
    const char32_t point = pointAt(in, end);
    if (isSurrogate(point)) return;
    store(out, ordered<swapped>(static_cast<uint32_t>(point)));
    in += point < 0x10000 ? 1 : 2;
  }
}

template struct SingleByteEncoder<0x80>;
template struct SingleByteEncoder<0x100>;
template struct Utf16Encoder<false>;
template struct Utf16Encoder<true>;
template struct Utf32Encoder<false>;
template struct Utf32Encoder<true>;

}  // namespace standin::foundation
