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
using formats::pictures::JPEGFrame;
using formats::pictures::Size;

std::string imageEntries(Size size, const char* colors) {
  return "/Type/XObject/Subtype/Image/Width " + std::to_string(size.width) + "/Height " + std::to_string(size.height) +
         "/ColorSpace/" + colors + "/BitsPerComponent 8";
}

// That of a picture which pages can show as it is.
std::optional<JPEGFrame> shownFrameOf(std::span<const uint8_t> picture) {
  if (formats::pictures::formatOf(picture) != Format::jpeg) return std::nullopt;
  const auto frame = formats::pictures::jpegFrameOf(picture);
  return frame && (frame->colors == 1 || frame->colors == 3) ? frame : std::nullopt;
}

int writeJPEG(File& file, std::span<const uint8_t> bytes, const JPEGFrame& frame) {
  const int object = file.reserve();
  const char* colors = frame.colors == 1 ? "DeviceGray" : "DeviceRGB";
  file.putEncodedStream(object, imageEntries(frame.size, colors) + "/Filter/DCTDecode",
                        {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  return object;
}

int writePixels(File& file, formats::pictures::Pixels pixels) {
  std::string entries = imageEntries(pixels.size, "DeviceRGB");
  if (!pixels.opacities.empty()) {
    const int mask = file.reserve();
    file.putStream(mask, imageEntries(pixels.size, "DeviceGray"), pixels.opacities);
    entries += "/SMask " + reference(mask);
    pixels.opacities = {};
  }
  const int object = file.reserve();
  file.putStream(object, entries, pixels.colors);
  return object;
}

}  // namespace

int writeImage(File& file, std::span<const uint8_t> picture) {
  if (const auto frame = shownFrameOf(picture)) return writeJPEG(file, picture, *frame);
  auto pixels = formats::pictures::decode(picture);
  return pixels ? writePixels(file, *std::move(pixels)) : 0;
}

int Images::write(std::span<const uint8_t> picture) {
  return shownFrameOf(picture) || takes(picture) ? writeImage(file_, picture) : 0;
}

bool Images::takes(std::span<const uint8_t> picture) {
  const auto size = formats::pictures::sizeOf(picture);
  if (!size) return false;
  const int64_t pixels = formats::pictures::pixelsOf(*size), earned = static_cast<int64_t>(picture.size()) * pixelsOfByte;
  if (pixels > pixels_ + earned) return false;
  pixels_ += earned - pixels;
  return true;
}

}  // namespace standin::layout::pdf
