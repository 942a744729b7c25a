// Text encodings by CoreFoundation number, converted by ICU.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace host {

struct Encoding {
  uint32_t number;
  const char* converter;  // ICU's name
};

std::span<const Encoding> encodings();
// Nil when the number is not known.
const Encoding* findEncoding(uint32_t number);

// The bytes converted, with substitution characters for what cannot be; nothing when either encoding is not known.
std::optional<std::string> convertBytes(std::string_view bytes, uint32_t from, uint32_t to);

// For comparing without regard to case: equal results mean equal text.
std::string foldedCase(std::string_view utf8);

}  // namespace host
