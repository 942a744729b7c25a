// Numbers as binary formats write them: the lowest byte first.
#pragma once

#include <algorithm>
#include <bit>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

namespace standin::formats {

template <std::integral Number>
void appendNumber(std::string& out, Number number) {
  for (size_t byte = 0; byte < sizeof number; ++byte) out += static_cast<char>(static_cast<uint64_t>(number) >> (8 * byte));
}

// Over bytes that are there.
template <std::integral Number>
void setNumber(std::string& out, size_t position, Number number) {
  for (size_t byte = 0; byte < sizeof number; ++byte) {
    out[position + byte] = static_cast<char>(static_cast<uint64_t>(number) >> (8 * byte));
  }
}

inline void append16(std::string& out, auto number) { appendNumber(out, static_cast<uint16_t>(number)); }
inline void append32(std::string& out, auto number) { appendNumber(out, static_cast<uint32_t>(number)); }

// Zeros up to the next multiple.
inline void pad(std::string& out, size_t multiple) { out.resize((out.size() + multiple - 1) / multiple * multiple); }

// A view of bytes of which nothing is certain: what is past their end reads as 0.
class Bytes {
 public:
  Bytes() = default;
  Bytes(std::span<const uint8_t> bytes) : bytes_(bytes) {}

  size_t size() const { return bytes_.size(); }
  bool empty() const { return bytes_.empty(); }
  std::span<const uint8_t> span() const { return bytes_; }
  std::string_view characters() const { return {reinterpret_cast<const char*>(bytes_.data()), bytes_.size()}; }

  template <std::integral Number>
  Number number(size_t position) const {
    if (position > size() || size() - position < sizeof(Number)) return 0;
    Number number;
    copy(position, &number, 1);
    return number;
  }
  // So many numbers one behind the other, which must all be there.
  template <std::integral Number>
  void copy(size_t position, Number* out, size_t count) const {
    if constexpr (std::endian::native == std::endian::little) {
      std::memcpy(out, bytes_.data() + position, count * sizeof(Number));
    } else {
      for (const uint8_t* from = bytes_.data() + position; count > 0; --count, ++out) {
        uint64_t number = 0;
        for (size_t byte = 0; byte < sizeof(Number); ++byte) number |= uint64_t{*from++} << (8 * byte);
        *out = static_cast<Number>(number);
      }
    }
  }
  uint8_t read8(size_t position) const { return number<uint8_t>(position); }
  uint16_t read16(size_t position) const { return number<uint16_t>(position); }
  uint32_t read32(size_t position) const { return number<uint32_t>(position); }

  // As much of the part as there is.
  Bytes part(size_t position, size_t length = SIZE_MAX) const {
    position = std::min(position, size());
    return bytes_.subspan(position, std::min(length, size() - position));
  }

 private:
  std::span<const uint8_t> bytes_;
};

}  // namespace standin::formats
