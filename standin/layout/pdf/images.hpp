// Pictures as images of the document.
#pragma once

#include <cstdint>
#include <span>

#include "standin/layout/pdf/file.hpp"

namespace standin::layout::pdf {

// Writes the picture and answers its object; 0 when it cannot be decoded.
int writeImage(File& file, std::span<const uint8_t> picture);

// The pictures of a document. Decoding takes time by the pixels, and a few bytes can stand for millions of them. So a
// document has what two large pictures take, and so many more for each byte of its pictures: scans in black and white have a
// hundred pixels a byte, photographs less than ten.
class Images {
 public:
  explicit Images(File& file, int64_t pixels = pixelsOfDocument) : file_(file), pixels_(pixels) {}
  // Like writeImage; 0 for a picture that is one too many as well.
  int write(std::span<const uint8_t> picture);

 private:
  bool takes(std::span<const uint8_t> picture);

  static constexpr int64_t pixelsOfDocument = int64_t{1} << 27, pixelsOfByte = 500;

  File& file_;
  int64_t pixels_;  // that may still be decoded
};

}  // namespace standin::layout::pdf
