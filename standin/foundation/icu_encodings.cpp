// ICU's converters behind CoreFoundation's encoding numbers: strict both ways, nothing dropped or replaced unasked.
#include "standin/foundation/icu_encodings.hpp"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <algorithm>
#include <array>
#include <new>
#include <unordered_map>
#include <vector>

#include "standin/foundation/transcoding.hpp"

namespace standin::foundation {
namespace {

// What single bytes below 0x80 stand for: themselves; themselves but for three control codes that ICU's table changes
// round; or something that depends on what came before.
enum LowBytes : uint8_t { ascii, rotated, other };

struct ConverterRow {
  CFStringEncoding encoding;
  const char* name;
  LowBytes lowBytes;
};

constexpr ConverterRow converterRows[] = {
    // Macintosh scripts
    {0x0000, "macos-0_2-10.2", ascii},
    {0x0006, "macos-6_2-10.4", ascii},
    {0x0007, "macos-7_3-10.2", ascii},
    {0x001D, "macos-29-10.2", ascii},
    {0x0023, "macos-35-10.2", ascii},
    {0x0098, "macos-7_3-10.2", ascii},
    // ISO 8859
    {0x0202, "ISO-8859-2", ascii},
    {0x0203, "ISO-8859-3", ascii},
    {0x0204, "ISO-8859-4", ascii},
    {0x0205, "ISO-8859-5", ascii},
    {0x0206, "ISO-8859-6", ascii},
    {0x0207, "ISO-8859-7", ascii},
    {0x0208, "ISO-8859-8", ascii},
    {0x0209, "ISO-8859-9", ascii},
    {0x020A, "iso-8859_10-1998", ascii},
    {0x020B, "iso-8859_11-2001", ascii},
    {0x020D, "ISO-8859-13", ascii},
    {0x020E, "iso-8859_14-1998", ascii},
    {0x020F, "ISO-8859-15", ascii},
    // DOS code pages
    {0x0400, "ibm-437_P100-1995", rotated},
    {0x0405, "ibm-737_P100-1997", rotated},
    {0x0406, "ibm-775_P100-1996", rotated},
    {0x0410, "ibm-850_P100-1995", rotated},
    {0x0411, "ibm-851_P100-1995", rotated},
    {0x0412, "ibm-852_P100-1995", rotated},
    {0x0413, "ibm-855_P100-1995", rotated},
    {0x0414, "ibm-857_P100-1995", rotated},
    {0x0415, "ibm-860_P100-1995", rotated},
    {0x0416, "ibm-861_P100-1995", rotated},
    {0x0417, "ibm-862_P100-1995", rotated},
    {0x0418, "ibm-863_P100-1995", rotated},
    {0x0419, "ibm-864_X110-1999", rotated},
    {0x041A, "ibm-865_P100-1995", rotated},
    {0x041B, "ibm-866_P100-1995", rotated},
    {0x041C, "ibm-869_P100-1995", rotated},
    {0x041D, "windows-874-2000", ascii},
    {0x0420, "ibm-943_P15A-2003", rotated},
    {0x0421, "windows-936-2000", ascii},
    {0x0422, "windows-949-2000", ascii},
    {0x0423, "windows-950-2000", ascii},
    // Windows code pages
    {0x0500, "ibm-5348_P100-1997", ascii},
    {0x0501, "ibm-5346_P100-1998", ascii},
    {0x0502, "ibm-5347_P100-1998", ascii},
    {0x0503, "ibm-5349_P100-1998", ascii},
    {0x0504, "ibm-5350_P100-1998", ascii},
    {0x0505, "ibm-9447_P100-2002", ascii},
    {0x0506, "ibm-9448_X100-2005", ascii},
    {0x0507, "ibm-9449_P100-2002", ascii},
    {0x0508, "ibm-5354_P100-1998", ascii},
    // National standards
    {0x0630, "ibm-5478_P100-1995", other},
    {0x0631, "windows-936-2000", ascii},
    {0x0632, "gb18030", ascii},
    {0x0640, "windows-949-2000", ascii},
    {0x0820, "ISO_2022,locale=ja,version=0", other},
    {0x0821, "ISO_2022,locale=ja,version=2", other},
    {0x0822, "ISO_2022,locale=ja,version=1", other},
    {0x0830, "ISO_2022,locale=zh,version=0", other},
    {0x0831, "ISO_2022,locale=zh,version=1", other},
    {0x0840, "ISO_2022,locale=ko,version=0", other},
    {0x0920, "euc-jp-2007", ascii},
    {0x0930, "ibm-1383_P110-1999", ascii},
    {0x0931, "euc-tw-2014", ascii},
    {0x0940, "ibm-970_P110_P110-2006_U2", ascii},
    // Common practice
    {0x0A01, "ibm-943_P15A-2003", rotated},
    {0x0A02, "ibm-878_P100-1996", ascii},
    {0x0A03, "windows-950-2000", ascii},
    {0x0A04, "macos-0_2-10.2", ascii},
    {0x0A05, "HZ", other},
    {0x0A06, "ibm-1375_P100-2008", ascii},
    {0x0A08, "ibm-1168_P100-2002", ascii},
    {0x0A10, "IMAP-mailbox-name", other},
    {0x0C01, "ibm-37_P100-1995", other},
    {0x0C02, "ibm-37_P100-1995", other},
    // Seven-bit Unicode
    {0x04000100, "UTF-7", other},
};

const ConverterRow* rowOf(CFStringEncoding encoding) {
  const auto found =
      std::lower_bound(std::begin(converterRows), std::end(converterRows), encoding,
                       [](const ConverterRow& row, CFStringEncoding wanted) { return row.encoding < wanted; });
  return found != std::end(converterRows) && found->encoding == encoding ? found : nullptr;
}

// ICU's DOS tables read 0x1A as U+001C, 0x1C as U+007F and 0x7F as U+001A. These put the codes back in their places.
template <class Unit>
void turnDecoded(Unit& unit) {
  unit = static_cast<Unit>(unit == 0x1C ? 0x1A : unit == 0x7F ? 0x1C : unit == 0x1A ? 0x7F : unit);
}
template <class Unit>
void turnEncoded(Unit& unit) {
  unit = static_cast<Unit>(unit == 0x1A ? 0x1C : unit == 0x1C ? 0x7F : unit == 0x7F ? 0x1A : unit);
}

// Leaves the error standing. ICU's own callback of this kind drops default-ignorable characters without an error.
void stopDecoding(const void*, UConverterToUnicodeArgs*, const char*, int32_t, UConverterCallbackReason, UErrorCode*) {}

// The context is the text to write in place of the character: a string_view; when it is empty the error stands.
void writeLoss(const void* context, UConverterFromUnicodeArgs* arguments, const UChar*, int32_t, UChar32,
               UConverterCallbackReason reason, UErrorCode* status) {
  const auto& loss = *static_cast<const std::string_view*>(context);
  if (reason > UCNV_IRREGULAR || loss.empty()) return;
  *status = U_ZERO_ERROR;
  ucnv_cbFromUWriteBytes(arguments, loss.data(), static_cast<int32_t>(loss.size()), 0, status);
}

// Opened once an encoding and kept; the caller gets it in its initial state.
UConverter* converterFor(CFStringEncoding encoding) {
  static auto* const open = new std::unordered_map<CFStringEncoding, UConverter*>;
  UConverter*& converter = (*open)[encoding];
  if (converter == nullptr) {
    UErrorCode status = U_ZERO_ERROR;
    converter = ucnv_open(rowOf(encoding)->name, &status);
    if (U_FAILURE(status)) throw std::bad_alloc();
    ucnv_setToUCallBack(converter, stopDecoding, nullptr, nullptr, nullptr, &status);
  }
  ucnv_reset(converter);
  return converter;
}

// The bytes with, for each, the index of the unit it comes from; units from `units` on were not converted.
struct Converted {
  std::string bytes;
  std::vector<int32_t> origins;
  size_t units = 0;
};

Converted convertUnits(UConverter* converter, std::u16string_view text) {
  Converted result;
  std::array<char, 4096> piece;
  std::array<int32_t, 4096> offsets;
  const UChar* in = text.data();
  const UChar* const end = in + text.size();
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  while (status == U_BUFFER_OVERFLOW_ERROR) {
    status = U_ZERO_ERROR;
    char* out = piece.data();
    const auto base = static_cast<int32_t>(in - text.data());
    ucnv_fromUnicode(converter, &out, out + piece.size(), &in, end, offsets.data(), true, &status);
    const auto written = static_cast<size_t>(out - piece.data());
    result.bytes.append(piece.data(), written);
    for (size_t at = 0; at < written; ++at) {
      const int32_t previous = result.origins.empty() ? 0 : result.origins.back();
      result.origins.push_back(offsets[at] < 0 ? previous : base + offsets[at]);
    }
  }
  result.units = static_cast<size_t>(in - text.data());
  if (U_FAILURE(status)) {
    std::array<UChar, 32> refused;
    auto length = static_cast<int8_t>(refused.size());
    UErrorCode lookup = U_ZERO_ERROR;
    ucnv_getInvalidUChars(converter, refused.data(), &length, &lookup);
    result.units -= std::min(result.units, static_cast<size_t>(length));
  }
  return result;
}

// The longest beginning of whole characters that fits.
Encoded fitting(const Converted& converted, size_t capacity) {
  if (converted.bytes.size() <= capacity) return {converted.units, converted.bytes.size()};
  const int32_t origin = converted.origins[capacity];
  const auto first = std::find(converted.origins.begin(), converted.origins.end(), origin);
  return {static_cast<size_t>(origin), static_cast<size_t>(first - converted.origins.begin())};
}

}  // namespace

const char* converterName(CFStringEncoding encoding) {
  const ConverterRow* row = rowOf(encoding);
  return row != nullptr ? row->name : nullptr;
}

std::optional<text::Text> decodeByConverter(std::span<const uint8_t> bytes, CFStringEncoding encoding) {
  const LowBytes lowBytes = rowOf(encoding)->lowBytes;
  if (lowBytes != other && asciiPrefix(bytes.data(), bytes.size()) == bytes.size()) return textOfLatin1(bytes);
  UConverter* const converter = converterFor(encoding);
  std::u16string units;
  std::array<UChar, 4096> piece;
  const char* in = reinterpret_cast<const char*>(bytes.data());
  const char* const end = in + bytes.size();
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  while (status == U_BUFFER_OVERFLOW_ERROR) {
    status = U_ZERO_ERROR;
    UChar* out = piece.data();
    ucnv_toUnicode(converter, &out, out + piece.size(), &in, end, nullptr, true, &status);
    units.append(piece.data(), out);
  }
  if (U_FAILURE(status)) return std::nullopt;
  if (lowBytes == rotated) std::for_each(units.begin(), units.end(), turnDecoded<char16_t>);
  return textOfUnits(units);
}

Encoded encodeByConverter(std::u16string_view units, const EncodeOptions& options, std::span<uint8_t> out) {
  UConverter* const converter = converterFor(options.encoding);
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setFromUCallBack(converter, writeLoss, &options.loss, nullptr, nullptr, &status);
  Converted converted = convertUnits(converter, units);
  if (rowOf(options.encoding)->lowBytes == rotated) {
    std::for_each(converted.bytes.begin(), converted.bytes.end(), turnEncoded<char>);
  }
  if (out.data() == nullptr) return {converted.units, converted.bytes.size()};
  const Encoded result = fitting(converted, out.size());
  std::copy_n(converted.bytes.begin(), result.bytes, out.begin());
  return result;
}

}  // namespace standin::foundation
