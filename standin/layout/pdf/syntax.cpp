// PDF's numbers and strings.
#include "standin/layout/pdf/syntax.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace standin::layout::pdf {
namespace {

// Readers take numbers of about 32 bits.
constexpr double mostValue = 1e6;

void appendFixed(std::string& out, double value, int64_t parts) {
  if (!std::isfinite(value)) value = 0;
  int64_t scaled = std::llrint(std::clamp(value, -mostValue, mostValue) * static_cast<double>(parts));
  char digits[32];
  char* end = digits;
  if (scaled < 0) *end++ = '-', scaled = -scaled;
  end = std::to_chars(end, digits + sizeof digits, scaled / parts).ptr;
  int64_t rest = scaled % parts;
  if (rest != 0) *end++ = '.';
  while (rest != 0) {
    parts /= 10;
    *end++ = static_cast<char>('0' + rest / parts);
    rest %= parts;
  }
  out.append(digits, end);
}

}  // namespace

void appendNumber(std::string& out, double value) { appendFixed(out, value, 100); }
void appendFineNumber(std::string& out, double value) { appendFixed(out, value, 10000); }

void appendByte(std::string& out, uint8_t byte) {
  if (byte == '(' || byte == ')' || byte == '\\') out += '\\';
  if (byte == '\r') return void(out += "\\r");
  out += static_cast<char>(byte);
}

void appendCode(std::string& out, uint32_t code) {
  appendByte(out, static_cast<uint8_t>(code >> 8));
  appendByte(out, static_cast<uint8_t>(code));
}

void appendHex(std::string& out, char16_t unit) {
  constexpr char digits[] = "0123456789ABCDEF";
  for (int shift = 12; shift >= 0; shift -= 4) out += digits[unit >> shift & 15];
}

std::string textString(std::u16string_view text) {
  const bool isASCII = std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x7F; });
  if (isASCII) return byteString(std::string(text.begin(), text.end()));
  std::string out = "<FEFF";
  for (const char16_t unit : text) appendHex(out, unit);
  return out += '>';
}

std::string byteString(std::string_view bytes) {
  std::string out = "(";
  for (const char byte : bytes) appendByte(out, static_cast<uint8_t>(byte));
  return out += ')';
}

std::string reference(int object) { return std::to_string(object) + " 0 R"; }

}  // namespace standin::layout::pdf
