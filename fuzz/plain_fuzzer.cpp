// Plain text in every encoding: what is read in one can be written in it, and is the same when it is read again.
#include "fuzz/support/byte_source.hpp"
#include "fuzz/support/reader_property.hpp"
#include "standin/formats/plain/reader.hpp"
#include "standin/formats/plain/writer.hpp"

namespace {

constexpr CFStringEncoding encodings[] = {kCFStringEncodingUTF8,         kCFStringEncodingUnicode,   kCFStringEncodingUTF32,
                                          kCFStringEncodingMacRoman,     kCFStringEncodingISOLatin1, kCFStringEncodingASCII,
                                          kCFStringEncodingWindowsLatin1};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  namespace plain = standin::formats::plain;
  if (size == 0) return 0;
  const size_t asked = bytes[0] % (std::size(encodings) + 1);
  const auto encoding = asked < std::size(encodings) ? std::optional(encodings[asked]) : std::nullopt;
  const fuzz::Bytes input(bytes + 1, size - 1);
  const auto found = fuzz::withinBound(size, [&] { return plain::read(input, encoding); });
  if (!found) return 0;
  const auto written = plain::write(found->text, found->encoding);
  if (!written) return 0;
  const auto again = plain::read(fuzz::bytesOf(*written), found->encoding);
  fuzz::require(again && again->text == found->text, "written and read again it is another text");
  return 0;
}
