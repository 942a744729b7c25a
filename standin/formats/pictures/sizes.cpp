// Headers of pictures.
#include "standin/formats/pictures/sizes.hpp"

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "standin/formats/little_endian.hpp"
#include "standin/formats/pictures/picture.hpp"

namespace standin::formats::pictures {
namespace {

// Longer sides no decoder takes.
constexpr int64_t mostOfSide = 1'000'000;

std::optional<Size> sizeOf(int64_t width, int64_t height) {
  if (width <= 0 || height <= 0 || width > mostOfSide || height > mostOfSide) return std::nullopt;
  return Size{static_cast<int>(width), static_cast<int>(height)};
}

uint16_t big16(Bytes bytes, size_t at) { return static_cast<uint16_t>(bytes.read8(at) << 8 | bytes.read8(at + 1)); }
uint32_t big32(Bytes bytes, size_t at) { return uint32_t{big16(bytes, at)} << 16 | big16(bytes, at + 2); }

std::optional<Size> sizeOfPNG(Bytes bytes) {
  const bool hasHeader = bytes.part(12, 4).characters() == "IHDR";
  return hasHeader ? sizeOf(big32(bytes, 16), big32(bytes, 20)) : std::nullopt;
}

std::optional<Size> sizeOfGIF(Bytes bytes) { return sizeOf(bytes.read16(6), bytes.read16(8)); }

// Rows that come from the top have a negative height.
std::optional<Size> sizeOfBMP(Bytes bytes) {
  constexpr uint32_t oldest = 12, others[] = {40, 56, 64, 108, 124};
  const uint32_t length = bytes.read32(14);
  if (length == oldest) return sizeOf(bytes.read16(18), bytes.read16(20));
  if (std::find(std::begin(others), std::end(others), length) == std::end(others)) return std::nullopt;
  return sizeOf(bytes.number<int32_t>(18), std::abs(int64_t{bytes.number<int32_t>(22)}));
}

// From the entries of the first directory, each a key, the kind of its value, a count and the value.
std::optional<Size> sizeOfTIFF(Bytes bytes) {
  constexpr uint16_t widthKey = 256, heightKey = 257, shortKind = 3;
  constexpr size_t entryLength = 12;
  const bool isBig = bytes.read8(0) == 'M';
  const auto read16 = [&](size_t at) { return isBig ? big16(bytes, at) : bytes.read16(at); };
  const auto read32 = [&](size_t at) { return isBig ? big32(bytes, at) : bytes.read32(at); };
  int64_t width = 0, height = 0;
  const size_t directory = read32(4), count = read16(directory);
  for (size_t at = directory + 2; at < directory + 2 + count * entryLength && at < bytes.size(); at += entryLength) {
    const int64_t value = read16(at + 2) == shortKind ? read16(at + 8) : read32(at + 8);
    if (read16(at) == widthKey) width = value;
    if (read16(at) == heightKey) height = value;
  }
  return sizeOf(width, height);
}

std::optional<Size> sizeOfJPEG(Bytes bytes) {
  const auto frame = jpegFrameOf(bytes.span());
  return frame ? std::optional(frame->size) : std::nullopt;
}

constexpr struct {
  Format format;
  std::optional<Size> (*size)(Bytes);
} rows[] = {{Format::png, sizeOfPNG},
            {Format::jpeg, sizeOfJPEG},
            {Format::gif, sizeOfGIF},
            {Format::tiff, sizeOfTIFF},
            {Format::bmp, sizeOfBMP}};

}  // namespace

// The segments are walked as decoders do, which pass over what lies between them.
std::optional<JPEGFrame> jpegFrameOf(std::span<const uint8_t> picture) {
  const Bytes bytes(picture);
  for (size_t at = 2; at < bytes.size();) {
    while (at < bytes.size() && bytes.read8(at) != 0xFF) ++at;
    while (at < bytes.size() && bytes.read8(at) == 0xFF) ++at;
    const uint8_t marker = bytes.read8(at++);
    const bool isAlone = marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD7);
    const bool isTable = marker == 0xC4 || marker == 0xCC;
    if (isAlone) continue;
    if (marker >= 0xC0 && marker <= 0xCF && !isTable) {
      constexpr uint8_t known[] = {0xC0, 0xC1, 0xC2, 0xC9, 0xCA};
      const bool isKnown = std::find(std::begin(known), std::end(known), marker) != std::end(known);
      const auto size = sizeOf(big16(bytes, at + 5), big16(bytes, at + 3));
      if (!isKnown || bytes.read8(at + 2) != 8 || !size) return std::nullopt;
      return JPEGFrame{*size, bytes.read8(at + 7)};
    }
    at += std::max<size_t>(big16(bytes, at), 2);
  }
  return std::nullopt;
}

std::optional<Size> sizeOf(std::span<const uint8_t> bytes) {
  const Format format = formatOf(bytes);
  const auto* row = std::find_if(std::begin(rows), std::end(rows), [&](const auto& each) { return each.format == format; });
  return row != std::end(rows) ? row->size(bytes) : std::nullopt;
}

}  // namespace standin::formats::pictures
