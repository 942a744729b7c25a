// The byte-order marks, and the encodings tried in turn.
#include "standin/formats/plain/reader.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

#include "standin/formats/plain/detection.hpp"

namespace standin::formats::plain {
namespace {

using namespace std::string_view_literals;

// The longer marks first: that of UTF-32 begins with one of UTF-16.
struct ByteOrderMark {
  std::string_view bytes;
  CFStringEncoding encoding;
};
constexpr ByteOrderMark marks[] = {
    {"\xEF\xBB\xBF"sv, kCFStringEncodingUTF8},  {"\xFF\xFE\0\0"sv, kCFStringEncodingUTF32},
    {"\0\0\xFE\xFF"sv, kCFStringEncodingUTF32}, {"\xFF\xFE"sv, kCFStringEncodingUnicode},
    {"\xFE\xFF"sv, kCFStringEncodingUnicode},
};

std::optional<PlainText> decoded(std::span<const uint8_t> bytes, CFStringEncoding encoding) {
  auto text = foundation::decode(bytes, encoding, true);
  if (!text) return std::nullopt;
  return PlainText{*std::move(text), encoding};
}

// A mark of the encoding that is asked for counts before longer ones: a null character behind that of UTF-16 makes UTF-32's.
std::optional<PlainText> decodedByMark(std::span<const uint8_t> bytes, std::optional<CFStringEncoding> asked) {
  const std::string_view start(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  for (const bool isAsked : {true, false}) {
    for (const ByteOrderMark& mark : marks) {
      if (!start.starts_with(mark.bytes) || (mark.encoding == asked) != isAsked) continue;
      if (auto found = decoded(bytes, mark.encoding)) return found;
    }
  }
  return std::nullopt;
}

// What text in UTF-8 hardly has, and text of wide characters or of changing character sets does.
bool hasZerosOrEscapes(std::span<const uint8_t> bytes) {
  return std::any_of(bytes.begin(), bytes.end(), [](uint8_t byte) { return byte == 0 || byte == 0x1B; });
}

}  // namespace

std::optional<PlainText> read(std::span<const uint8_t> bytes, std::optional<CFStringEncoding> asked) {
  if (auto marked = decodedByMark(bytes, asked)) return marked;
  if (asked) return decoded(bytes, *asked);
  auto utf8 = decoded(bytes, kCFStringEncodingUTF8);
  if (utf8 && !hasZerosOrEscapes(bytes)) return utf8;
  if (const auto likely = likelyEncoding(bytes)) {
    if (auto found = decoded(bytes, *likely)) return found;
  }
  return utf8 ? std::move(utf8) : decoded(bytes, kCFStringEncodingMacRoman);
}

}  // namespace standin::formats::plain
