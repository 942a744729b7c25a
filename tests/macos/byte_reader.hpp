// Reads numbers and texts from bytes, and never past their end.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>

#include "tests/macos/image.hpp"

namespace macos {

// Every read throws ImageError when the bytes do not reach that far.
class ByteReader {
 public:
  explicit ByteReader(std::span<const uint8_t> bytes, size_t place = 0) : bytes_(bytes), place_(place) {}

  bool atEnd() const { return place_ >= bytes_.size(); }
  size_t place() const { return place_; }

  template <class Number>
  Number number() {
    Number value;
    std::memcpy(&value, take(sizeof(Number)).data(), sizeof(Number));
    return value;
  }
  std::span<const uint8_t> take(size_t count) {
    if (place_ > bytes_.size() || count > bytes_.size() - place_) throw ImageError("the file is cut off");
    place_ += count;
    return bytes_.subspan(place_ - count, count);
  }
  // A text in a field of that width, padded with zeros.
  std::string fixedText(size_t width) {
    const auto field = take(width);
    return std::string(field.begin(), std::find(field.begin(), field.end(), 0));
  }
  // A text that ends with a zero.
  std::string text() {
    std::string result;
    while (const uint8_t byte = number<uint8_t>()) result += static_cast<char>(byte);
    return result;
  }
  uint64_t unsignedLeb() {
    uint64_t value = 0;
    for (unsigned shift = 0;; shift += 7) {
      const uint8_t byte = number<uint8_t>();
      if (shift < 64) value |= uint64_t{byte & 0x7FU} << shift;
      if ((byte & 0x80) == 0) return value;
    }
  }
  int64_t signedLeb() {
    uint64_t value = 0;
    unsigned shift = 0;
    uint8_t byte;
    do {
      byte = number<uint8_t>();
      if (shift < 64) value |= uint64_t{byte & 0x7FU} << shift;
      shift += 7;
    } while ((byte & 0x80) != 0);
    if ((byte & 0x40) != 0 && shift < 64) value |= ~uint64_t{0} << shift;
    return static_cast<int64_t>(value);
  }

 private:
  std::span<const uint8_t> bytes_;
  size_t place_;
};

}  // namespace macos
