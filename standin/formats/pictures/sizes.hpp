// What the headers of pictures say, read without a decoder, and so in no time however the pixels are packed.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>

namespace standin::formats::pictures {

struct Size {
  int width, height;  // pixels
};

// The frame of a JPEG picture that decoders take: of 8 bits a color.
struct JPEGFrame {
  Size size;
  int colors;
};
std::optional<JPEGFrame> jpegFrameOf(std::span<const uint8_t> bytes);

// Nothing when the bytes are no picture of a format that `formatOf` knows, or when its header makes no sense. Whether all
// the pixels are there is not looked at.
std::optional<Size> sizeOf(std::span<const uint8_t> bytes);

// The sizes of pictures that stay where they are, however often they are shown.
class KnownSizes {
 public:
  const std::optional<Size>& of(std::span<const uint8_t> bytes) {
    const auto [entry, isNew] = sizes_.try_emplace(bytes.data());
    if (isNew) entry->second = sizeOf(bytes);
    return entry->second;
  }

 private:
  std::unordered_map<const uint8_t*, std::optional<Size>> sizes_;
};

}  // namespace standin::formats::pictures
