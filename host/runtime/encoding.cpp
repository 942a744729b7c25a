// Encodings by number and their conversion.
#include "host/runtime/encoding.hpp"

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <string>

#include "host/runtime/string.hpp"

namespace host {
namespace {

// In ascending order. The Unicode forms without a byte order of their own are in the machine's.
constexpr Encoding table[] = {
    {0x0000, "macintosh"},
    {0x0001, "Shift_JIS"},
    {0x0002, "Big5"},
    {0x0003, "EUC-KR"},
    {0x0006, "x-mac-greek"},
    {0x0007, "x-mac-cyrillic"},
    {0x0019, "GB2312"},
    {0x001D, "x-mac-centraleurroman"},
    {0x0023, "x-mac-turkish"},
    {0x0100, "UTF16_PlatformEndian"},
    {0x0201, "ISO-8859-1"},
    {0x0202, "ISO-8859-2"},
    {0x0203, "ISO-8859-3"},
    {0x0204, "ISO-8859-4"},
    {0x0205, "ISO-8859-5"},
    {0x0206, "ISO-8859-6"},
    {0x0207, "ISO-8859-7"},
    {0x0208, "ISO-8859-8"},
    {0x0209, "ISO-8859-9"},
    {0x020A, "ISO-8859-10"},
    {0x020B, "TIS-620"},
    {0x020D, "ISO-8859-13"},
    {0x020E, "ISO-8859-14"},
    {0x020F, "ISO-8859-15"},
    {0x0400, "IBM437"},
    {0x0405, "IBM737"},
    {0x0406, "IBM775"},
    {0x0410, "IBM850"},
    {0x0412, "IBM852"},
    {0x0413, "IBM855"},
    {0x0414, "IBM857"},
    {0x0415, "IBM860"},
    {0x0416, "IBM861"},
    {0x0417, "IBM862"},
    {0x0418, "IBM863"},
    {0x0419, "IBM864"},
    {0x041A, "IBM865"},
    {0x041B, "IBM866"},
    {0x041C, "IBM869"},
    {0x041D, "windows-874"},
    {0x0420, "windows-31j"},
    {0x0421, "windows-936"},
    {0x0422, "windows-949"},
    {0x0423, "windows-950"},
    {0x0500, "windows-1252"},
    {0x0501, "windows-1250"},
    {0x0502, "windows-1251"},
    {0x0503, "windows-1253"},
    {0x0504, "windows-1254"},
    {0x0505, "windows-1255"},
    {0x0506, "windows-1256"},
    {0x0507, "windows-1257"},
    {0x0508, "windows-1258"},
    {0x0600, "US-ASCII"},
    {0x0631, "GBK"},
    {0x0632, "GB18030"},
    {0x0820, "ISO-2022-JP"},
    {0x0830, "ISO-2022-CN"},
    {0x0840, "ISO-2022-KR"},
    {0x0920, "EUC-JP"},
    {0x0930, "GB2312"},
    {0x0931, "EUC-TW"},
    {0x0940, "EUC-KR"},
    {0x0A01, "Shift_JIS"},
    {0x0A02, "KOI8-R"},
    {0x0A03, "Big5"},
    {0x0A05, "HZ"},
    {0x0A06, "Big5-HKSCS"},
    {0x0A08, "KOI8-U"},
    {0x0C02, "IBM037"},
    {0x04000100, "UTF-7"},
    {0x08000100, "UTF-8"},
    {0x0C000100, "UTF32_PlatformEndian"},
    {0x10000100, "UTF-16BE"},
    {0x14000100, "UTF-16LE"},
    {0x18000100, "UTF-32BE"},
    {0x1C000100, "UTF-32LE"},
};

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

Converter openConverter(const Encoding& encoding) {
  UErrorCode status = U_ZERO_ERROR;
  return Converter(ucnv_open(encoding.converter, &status));
}

// What an encoding cannot hold becomes a question mark; the Unicode encodings hold everything.
void substituteQuestionMark(UConverter* converter) {
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setSubstString(converter, u"?", 1, &status);
}

bool isUnicode(uint32_t number) { return (number & 0xFFFF) == encodingUTF16; }

std::string convert(UConverter* from, UConverter* to, std::string_view bytes) {
  std::string result;
  char buffer[4096];
  UChar pivot[1024];
  UChar *pivotSource = pivot, *pivotTarget = pivot;
  const char* source = bytes.data();
  const char* const end = source + bytes.size();
  for (UBool first = 1;; first = 0) {
    char* target = buffer;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_convertEx(to, from, &target, std::end(buffer), &source, end, pivot, &pivotSource, &pivotTarget, std::end(pivot),
                   first, 1, &status);
    result.append(buffer, target);
    if (status != U_BUFFER_OVERFLOW_ERROR) return result;
  }
}

}  // namespace

std::span<const Encoding> encodings() { return table; }

const Encoding* findEncoding(uint32_t number) {
  const auto* found = std::lower_bound(std::begin(table), std::end(table), number,
                                       [](const Encoding& row, uint32_t wanted) { return row.number < wanted; });
  return found != std::end(table) && found->number == number ? found : nullptr;
}

std::optional<std::string> convertBytes(std::string_view bytes, uint32_t from, uint32_t to) {
  const Encoding *source = findEncoding(from), *target = findEncoding(to);
  if (source == nullptr || target == nullptr) return std::nullopt;
  if (source == target) return std::string(bytes);
  const Converter reader = openConverter(*source), writer = openConverter(*target);
  if (reader == nullptr || writer == nullptr) return std::nullopt;
  if (!isUnicode(to)) substituteQuestionMark(writer.get());
  return convert(reader.get(), writer.get(), bytes);
}

std::string foldedCase(std::string_view utf8) {
  std::string folded(utf8);
  bool ascii = true;
  for (char& letter : folded) {
    ascii = ascii && static_cast<signed char>(letter) >= 0;
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter + ('a' - 'A'));
  }
  if (ascii || folded.size() > std::numeric_limits<int32_t>::max()) return folded;
  const icu::StringPiece piece(utf8.data(), static_cast<int32_t>(utf8.size()));
  folded.clear();
  icu::UnicodeString::fromUTF8(piece).foldCase().toUTF8String(folded);
  return folded;
}

}  // namespace host
