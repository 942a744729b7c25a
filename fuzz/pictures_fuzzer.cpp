// Pictures: any bytes are a picture or none, and one that can be decoded can be written and has its size.
#include "fuzz/support/reader_property.hpp"
#include "standin/formats/pictures/picture.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  namespace pictures = standin::formats::pictures;
  constexpr int64_t mostPixels = 1 << 20;  // larger ones are only slow
  const fuzz::Bytes input(bytes, size);
  const auto found = fuzz::withinBound(size, [&] { return pictures::sizeOf(input); });
  if (!found || int64_t{found->width} * found->height > mostPixels) return 0;
  const auto pixels = pictures::decode(input);
  if (!pixels) return 0;
  const auto count = static_cast<size_t>(int64_t{pixels->size.width} * pixels->size.height);
  fuzz::require(pixels->colors.size() == 3 * count, "there are not as many pixels as the size says");
  fuzz::require(pixels->opacities.empty() || pixels->opacities.size() == count, "opacities are missing");
  const auto converted = pictures::convert(input, pictures::Format::png);
  fuzz::require(!converted || pictures::sizeOf(fuzz::bytesOf(*converted)).has_value(), "what was written is no picture");
  return 0;
}
