// JPEG as it is, everything else decoded, with its opacity beside it.
#include "standin/layout/pdf/images.hpp"

#include <algorithm>
#include <optional>
#include <string>

#include "standin/formats/pictures/picture.hpp"
#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout::pdf {
namespace {

using formats::pictures::Format;
using formats::pictures::Size;

std::string imageEntries(Size size, const char* colors) {
  return "/Type/XObject/Subtype/Image/Width " + std::to_string(size.width) + "/Height " + std::to_string(size.height) +
         "/ColorSpace/" + colors + "/BitsPerComponent 8";
}

// The number of colours of a JPEG picture, from the header of its frame; 0 when there is none of 8 bits.
int colorsOfJPEG(std::span<const uint8_t> bytes) {
  for (size_t at = 2; at + 9 < bytes.size() && bytes[at] == 0xFF;) {
    const uint8_t marker = bytes[at + 1];
    const bool isFrame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    if (isFrame) return bytes[at + 4] == 8 ? bytes[at + 9] : 0;
    at += 2 + static_cast<size_t>(bytes[at + 2] << 8 | bytes[at + 3]);
  }
  return 0;
}

int writeJPEG(File& file, std::span<const uint8_t> bytes, Size size, int colors) {
  const int object = file.reserve();
  file.putEncodedStream(object, imageEntries(size, colors == 1 ? "DeviceGray" : "DeviceRGB") + "/Filter/DCTDecode",
                        {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  return object;
}

int writePixels(File& file, const formats::pictures::Pixels& pixels) {
  std::string entries = imageEntries(pixels.size, "DeviceRGB");
  if (!pixels.opacities.empty()) {
    const int mask = file.reserve();
    file.putStream(mask, imageEntries(pixels.size, "DeviceGray"), pixels.opacities);
    entries += "/SMask " + reference(mask);
  }
  const int object = file.reserve();
  file.putStream(object, entries, pixels.colors);
  return object;
}

}  // namespace

int writeImage(File& file, std::span<const uint8_t> picture) {
  if (formats::pictures::formatOf(picture) == Format::jpeg) {
    const auto size = formats::pictures::sizeOf(picture);
    const int colors = colorsOfJPEG(picture);
    if (size && (colors == 1 || colors == 3)) return writeJPEG(file, picture, *size, colors);
  }
  const auto pixels = formats::pictures::decode(picture);
  return pixels ? writePixels(file, *pixels) : 0;
}

}  // namespace standin::layout::pdf
