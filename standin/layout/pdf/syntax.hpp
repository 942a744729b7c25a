// The smallest pieces of PDF: numbers, strings, names.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace standin::layout::pdf {

// With up to two decimals, or four where small numbers count.
void appendNumber(std::string& out, double value);
void appendFineNumber(std::string& out, double value);
inline void appendInteger(std::string& out, int64_t value) { out += std::to_string(value); }

// A glyph's two bytes, escaped for the inside of a string.
void appendCode(std::string& out, uint32_t code);
void appendByte(std::string& out, uint8_t byte);

// A string object of text, or of bytes such as those of an address.
std::string textString(std::u16string_view text);
std::string byteString(std::string_view bytes);
// "12 0 R"
std::string reference(int object);
void appendHex(std::string& out, char16_t unit);

}  // namespace standin::layout::pdf
