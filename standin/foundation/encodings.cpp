// The Unicode encodings, ASCII and Latin-1; what is left goes to ICU.
#include "standin/foundation/encodings.hpp"

#include <bit>
#include <cstring>

#include "standin/foundation/icu_encodings.hpp"
#include "standin/foundation/transcoding.hpp"
#include "standin/foundation/unit_writer.hpp"

namespace standin::foundation {
namespace {

static_assert(std::endian::native == std::endian::little);

using text::Text;
using Bytes = std::span<const uint8_t>;

std::string_view charactersOf(Bytes bytes) { return {reinterpret_cast<const char*>(bytes.data()), bytes.size()}; }

std::optional<Text> decodeAscii(Bytes bytes) {
  if (asciiPrefix(bytes.data(), bytes.size()) != bytes.size()) return std::nullopt;
  return textOfLatin1(bytes);
}

std::optional<Text> decodeLatin1(Bytes bytes) { return textOfLatin1(bytes); }

std::optional<Text> decodeUtf8Bytes(Bytes bytes) {
  if (asciiPrefix(bytes.data(), bytes.size()) == bytes.size()) return textOfLatin1(bytes);
  const Utf8Shape shape = shapeOfUtf8(bytes.data(), bytes.size());
  bool isWellFormed = false;
  const auto fill = [&](auto* out) { isWellFormed = decodeUtf8(bytes.data(), bytes.size(), out, shape.units); };
  const auto fillLatin1 = [&](char* out) { fill(reinterpret_cast<uint8_t*>(out)); };
  Text text = shape.isLatin1 ? Text::latin1Filled(shape.units, fillLatin1) : Text::utf16Filled(shape.units, fill);
  if (!isWellFormed) return std::nullopt;
  return text;
}

template <bool swapped>
std::optional<Text> decodeUtf16(Bytes bytes) {
  if (bytes.size() % 2 != 0) return std::nullopt;
  std::u16string units(bytes.size() / 2, 0);
  if (!units.empty()) std::memcpy(units.data(), bytes.data(), bytes.size());
  if constexpr (swapped) {
    for (char16_t& unit : units) unit = __builtin_bswap16(unit);
  }
  return textOfUnits(units);
}

template <bool swapped>
std::optional<Text> decodeUtf32(Bytes bytes) {
  if (bytes.size() % 4 != 0) return std::nullopt;
  std::u16string units;
  for (size_t at = 0; at != bytes.size(); at += 4) {
    uint32_t point;
    std::memcpy(&point, bytes.data() + at, sizeof point);
    if constexpr (swapped) point = __builtin_bswap32(point);
    if (point > 0x10FFFF || isSurrogate(point)) return std::nullopt;
    if (point < 0x10000) {
      units += static_cast<char16_t>(point);
    } else {
      units += static_cast<char16_t>(0xD7C0 + (point >> 10));
      units += static_cast<char16_t>(0xDC00 | (point & 0x3FF));
    }
  }
  return textOfUnits(units);
}

template <class Encoder>
Encoded encodeBy(const Text& text, uint32_t from, uint32_t count, const EncodeOptions& options, std::string_view mark,
                 std::span<uint8_t> out) {
  UnitWriter<Encoder> writer(out, options.loss);
  if (options.external) writer.mark(mark);
  text.visitChunks(from, count, [&](auto stretch) { writer.take(stretch); });
  return writer.finish();
}

struct Encoding {
  CFStringEncoding number;
  std::optional<Text> (*decode)(Bytes);
  Encoded (*encode)(const Text&, uint32_t, uint32_t, const EncodeOptions&, std::string_view mark, std::span<uint8_t>);
  std::string_view writtenMark;  // begins an external representation
};

constexpr std::string_view mark16{"\xFF\xFE", 2}, mark32{"\xFF\xFE\0\0", 4};

constexpr Encoding ownEncodings[] = {
    {kCFStringEncodingUTF8, decodeUtf8Bytes, encodeBy<Utf8Encoder>, {}},
    {kCFStringEncodingASCII, decodeAscii, encodeBy<AsciiEncoder>, {}},
    {kCFStringEncodingISOLatin1, decodeLatin1, encodeBy<Latin1Encoder>, {}},
    {kCFStringEncodingUnicode, decodeUtf16<false>, encodeBy<Utf16Encoder<false>>, mark16},
    {encodingUtf16BigEndian, decodeUtf16<true>, encodeBy<Utf16Encoder<true>>, {}},
    {encodingUtf16LittleEndian, decodeUtf16<false>, encodeBy<Utf16Encoder<false>>, {}},
    {kCFStringEncodingUTF32, decodeUtf32<false>, encodeBy<Utf32Encoder<false>>, mark32},
    {encodingUtf32BigEndian, decodeUtf32<true>, encodeBy<Utf32Encoder<true>>, {}},
    {encodingUtf32LittleEndian, decodeUtf32<false>, encodeBy<Utf32Encoder<false>>, {}},
};

const Encoding* ownEncoding(CFStringEncoding number) {
  for (const Encoding& encoding : ownEncodings) {
    if (encoding.number == number) return &encoding;
  }
  return nullptr;
}

// The marks that are obeyed at the start of an external representation, and what the rest is then read as.
struct ByteOrderMark {
  CFStringEncoding declared;
  std::string_view bytes;
  CFStringEncoding actual;
};

constexpr ByteOrderMark byteOrderMarks[] = {
    {kCFStringEncodingUTF8, {"\xEF\xBB\xBF", 3}, kCFStringEncodingUTF8},
    {kCFStringEncodingUnicode, {"\xFE\xFF", 2}, encodingUtf16BigEndian},
    {kCFStringEncodingUnicode, mark16, encodingUtf16LittleEndian},
    {kCFStringEncodingUTF32, {"\0\0\xFE\xFF", 4}, encodingUtf32BigEndian},
    {kCFStringEncodingUTF32, mark32, encodingUtf32LittleEndian},
};

// Takes a mark away and answers the encoding of what is left.
CFStringEncoding obeyMark(Bytes& bytes, CFStringEncoding declared) {
  for (const ByteOrderMark& mark : byteOrderMarks) {
    if (mark.declared != declared || !charactersOf(bytes).starts_with(mark.bytes)) continue;
    bytes = bytes.subspan(mark.bytes.size());
    return mark.actual;
  }
  return declared;
}

}  // namespace

bool isKnownEncoding(CFStringEncoding encoding) {
  return ownEncoding(encoding) != nullptr || converterName(encoding) != nullptr;
}

std::optional<Text> decode(Bytes bytes, CFStringEncoding encoding, bool external) {
  if (external) encoding = obeyMark(bytes, encoding);
  if (const Encoding* own = ownEncoding(encoding)) return own->decode(bytes);
  if (converterName(encoding) == nullptr) return std::nullopt;
  return decodeByConverter(bytes, encoding);
}

Text textOfLatin1(Bytes bytes) {
  return Text::latin1Filled(bytes.size(), [&](char* out) { std::memcpy(out, bytes.data(), bytes.size()); });
}

Text textOfUnits(std::u16string_view units) {
  if (!isLatin1(units.data(), units.size())) {
    return Text::utf16Filled(units.size(), [&](char16_t* out) { std::memcpy(out, units.data(), units.size() * 2); });
  }
  return Text::latin1Filled(units.size(), [&](char* characters) {
    const char16_t* in = units.data();
    auto* out = reinterpret_cast<uint8_t*>(characters);
    Latin1Encoder::encode(in, in + units.size(), out);
  });
}

std::optional<Text> decodeUtf8(std::string_view bytes) {
  return decodeUtf8Bytes({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
}

Encoded encode(const Text& text, uint32_t from, uint32_t count, const EncodeOptions& options, std::span<uint8_t> out) {
  if (const Encoding* own = ownEncoding(options.encoding)) {
    return own->encode(text, from, count, options, own->writtenMark, out);
  }
  if (converterName(options.encoding) == nullptr) return {};
  std::u16string units(count, 0);
  text.copy(from, count, units.data());
  return encodeByConverter(units, options, out);
}

std::optional<std::string> encode(const Text& text, const EncodeOptions& options) {
  if (!isKnownEncoding(options.encoding)) return std::nullopt;
  const Encoded needed = encode(text, 0, text.size(), options, {});
  if (needed.units != text.size()) return std::nullopt;
  std::string bytes(needed.bytes, '\0');
  encode(text, 0, text.size(), options, {reinterpret_cast<uint8_t*>(bytes.data()), bytes.size()});
  return bytes;
}

}  // namespace standin::foundation
