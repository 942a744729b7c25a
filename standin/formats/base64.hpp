// Bytes as text in base 64.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace standin::formats {

// Characters that are no digits, white space among them, are passed over; the text ends at the first "=".
std::string bytesOfBase64(std::string_view text);

// In lines of 76 digits each when `inLines`, as mail and XML documents hold them.
std::string base64Of(std::span<const uint8_t> bytes, bool inLines = false);

}  // namespace standin::formats
