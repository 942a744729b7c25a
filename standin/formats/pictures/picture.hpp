// Raster pictures: what they are by their bytes, how large, and the same picture in another format.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "standin/formats/pictures/sizes.hpp"

namespace standin::formats::pictures {

// Told by the first bytes alone.
enum class Format { unknown, png, jpeg, gif, tiff, bmp };
Format formatOf(std::span<const uint8_t> bytes);
// "png", without a dot; empty for an unknown format.
std::string_view extensionOf(Format format);
// "image/png"; empty for an unknown format.
std::string mimeTypeOf(Format format);

inline int64_t pixelsOf(Size size) { return int64_t{size.width} * size.height; }
// Pictures of more pixels than this are not decoded: a large one is decoded whatever its bytes are, a larger one when its
// pixels, four bytes each, are in proportion to them.
inline constexpr int64_t mostPixels(size_t bytes) {
  constexpr int64_t always = int64_t{1} << 26, each = 12;
  return always + each * static_cast<int64_t>(bytes);
}

// The picture as PNG or TIFF; the bytes themselves when they are that already. Nothing when they cannot be decoded.
std::optional<std::string> convert(std::span<const uint8_t> bytes, Format format);
// Rows from the top, without gaps.
struct Pixels {
  Size size;
  std::string_view colors;            // red, green and blue, a byte each
  std::string opacities;              // a byte a pixel; empty when the picture is opaque
  std::shared_ptr<const void> owner;  // of the colors
};
std::optional<Pixels> decode(std::span<const uint8_t> bytes);
// A PNG of rows of red, green, blue and opacity, a byte each.
std::optional<std::string> encode(std::span<const uint8_t> pixels, Size size);

}  // namespace standin::formats::pictures
