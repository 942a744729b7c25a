// Zeros tell the wide encodings, escapes and the statistics of letters the others.
#include "standin/formats/plain/detection.hpp"

#include <unicode/ucsdet.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace standin::formats::plain {
namespace {

// As much as statistics need; fewer bytes than the least say nothing.
constexpr size_t sample = 64 * 1024, leastBytes = 32;
constexpr int leastConfidence = 15;

// ICU's names of what it tells apart, with CoreFoundation's numbers.
struct Charset {
  std::string_view name;
  CFStringEncoding encoding;
};
constexpr Charset charsets[] = {
    {"ISO-8859-1", 0x0201},   {"ISO-8859-2", 0x0202},   {"ISO-8859-5", 0x0205},   {"ISO-8859-6", 0x0206},
    {"ISO-8859-7", 0x0207},   {"ISO-8859-8", 0x0208},   {"ISO-8859-8-I", 0x0208}, {"ISO-8859-9", 0x0209},
    {"windows-1250", 0x0501}, {"windows-1251", 0x0502}, {"windows-1252", 0x0500}, {"windows-1253", 0x0503},
    {"windows-1254", 0x0504}, {"windows-1255", 0x0505}, {"windows-1256", 0x0506}, {"KOI8-R", 0x0A02},
    {"Shift_JIS", 0x0A01},    {"EUC-JP", 0x0920},       {"EUC-KR", 0x0940},       {"GB18030", 0x0632},
    {"Big5", 0x0A03},         {"ISO-2022-JP", 0x0820},  {"ISO-2022-KR", 0x0840},
};

struct CloseDetector {
  void operator()(UCharsetDetector* detector) const { ucsdet_close(detector); }
};

// Text in a Latin script has zeros in the high bytes of its units.
std::optional<CFStringEncoding> wideEncoding(std::span<const uint8_t> bytes) {
  std::array<size_t, 4> zeros{};
  for (size_t at = 0; at < bytes.size(); ++at) zeros[at % 4] += bytes[at] == 0;
  const size_t most = bytes.size() / 4;
  const auto mostly = [&](size_t place) { return zeros[place] * 4 >= most * 3; };
  const auto hardly = [&](size_t place) { return zeros[place] * 20 <= most; };
  if (mostly(0) && mostly(1) && hardly(3)) return foundation::encodingUtf32BigEndian;
  if (mostly(2) && mostly(3) && hardly(0)) return foundation::encodingUtf32LittleEndian;
  if (mostly(0) && mostly(2) && hardly(1) && hardly(3)) return foundation::encodingUtf16BigEndian;
  if (mostly(1) && mostly(3) && hardly(0) && hardly(2)) return foundation::encodingUtf16LittleEndian;
  return std::nullopt;
}

std::optional<CFStringEncoding> statisticalEncoding(std::span<const uint8_t> bytes) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UCharsetDetector, CloseDetector> detector(ucsdet_open(&status));
  if (U_FAILURE(status)) return std::nullopt;
  ucsdet_setText(detector.get(), reinterpret_cast<const char*>(bytes.data()), static_cast<int32_t>(bytes.size()), &status);
  int32_t count = 0;
  const UCharsetMatch** matches = ucsdet_detectAll(detector.get(), &count, &status);
  for (int32_t index = 0; U_SUCCESS(status) && index < count; ++index) {
    if (ucsdet_getConfidence(matches[index], &status) < leastConfidence) break;
    const std::string_view name = ucsdet_getName(matches[index], &status);
    const auto* found =
        std::find_if(std::begin(charsets), std::end(charsets), [&](const Charset& row) { return row.name == name; });
    if (found != std::end(charsets) && foundation::decode(bytes, found->encoding, true)) return found->encoding;
  }
  return std::nullopt;
}

}  // namespace

std::optional<CFStringEncoding> likelyEncoding(std::span<const uint8_t> bytes) {
  if (bytes.size() < leastBytes) return std::nullopt;
  // A whole number of the widest units, and no character of several bytes cut in two where that can be helped.
  if (const auto wide = wideEncoding(bytes.first(std::min(bytes.size(), sample) / 4 * 4))) return wide;
  return statisticalEncoding(bytes.first(std::min(bytes.size(), sample)));
}

}  // namespace standin::formats::plain
