// Raster pictures: what they are by their bytes, how large, and the same picture in another format.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace standin::formats::pictures {

// Told by the first bytes alone.
enum class Format { unknown, png, jpeg, gif, tiff, bmp };
Format formatOf(std::span<const uint8_t> bytes);
// "png", without a dot; empty for an unknown format.
std::string_view extensionOf(Format format);
// "image/png"; empty for an unknown format.
std::string mimeTypeOf(Format format);

struct Size {
  int width, height;  // pixels
};

// Pictures of more pixels than this are not decoded.
inline constexpr int64_t mostPixels = int64_t{1} << 26;

// Nothing when the bytes are no picture. Decodes no more than it takes to know.
std::optional<Size> sizeOf(std::span<const uint8_t> bytes);
// The picture as PNG or TIFF; the bytes themselves when they are that already. Nothing when they cannot be decoded.
std::optional<std::string> convert(std::span<const uint8_t> bytes, Format format);
// Rows from the top, without gaps.
struct Pixels {
  Size size;
  std::string colors;     // red, green and blue, a byte each
  std::string opacities;  // a byte a pixel; empty when the picture is opaque
};
std::optional<Pixels> decode(std::span<const uint8_t> bytes);
// A PNG of rows of red, green, blue and opacity, a byte each.
std::optional<std::string> encode(std::span<const uint8_t> pixels, Size size);

}  // namespace standin::formats::pictures
