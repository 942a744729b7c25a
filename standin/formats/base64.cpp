// Six bits a digit.
#include "standin/formats/base64.hpp"

#include <array>

namespace standin::formats {
namespace {

constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr uint8_t noDigit = 255;
constexpr size_t digitsInLine = 76;

constexpr std::array<uint8_t, 256> valuesOfDigits() {
  std::array<uint8_t, 256> values{};
  for (uint8_t& value : values) value = noDigit;
  for (size_t value = 0; value < digits.size(); ++value) {
    values[static_cast<uint8_t>(digits[value])] = static_cast<uint8_t>(value);
  }
  return values;
}
constexpr std::array<uint8_t, 256> values = valuesOfDigits();

}  // namespace

std::string bytesOfBase64(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3);
  uint32_t bits = 0;
  int count = 0;
  for (const char letter : text) {
    if (letter == '=') break;
    const uint8_t value = values[static_cast<uint8_t>(letter)];
    if (value == noDigit) continue;
    bits = bits << 6 | value;
    count += 6;
    if (count < 8) continue;
    count -= 8;
    bytes += static_cast<char>(bits >> count & 255);
  }
  return bytes;
}

std::string base64Of(std::span<const uint8_t> bytes, bool inLines) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4 + (inLines ? bytes.size() / 57 + 1 : 0));
  for (size_t at = 0; at < bytes.size(); at += 3) {
    if (inLines && at > 0 && at / 3 * 4 % digitsInLine == 0) text += '\n';
    const size_t count = bytes.size() - at < 3 ? bytes.size() - at : 3;
    uint32_t bits = 0;
    for (size_t index = 0; index < 3; ++index) bits = bits << 8 | (index < count ? bytes[at + index] : 0u);
    for (size_t index = 0; index < 4; ++index) text += index <= count ? digits[bits >> (18 - 6 * index) & 63] : '=';
  }
  return text;
}

}  // namespace standin::formats
