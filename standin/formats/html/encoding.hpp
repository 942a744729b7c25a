// Which encoding the bytes of an HTML document are in.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace standin::formats::html {

struct DecodedText {
  std::string text;      // UTF-8, its line ends single line feeds, without null characters
  std::string encoding;  // its name
};

// In the encoding of the byte-order mark, or the one that is asked for, or that the document names in a "meta" element or an
// XML declaration; otherwise UTF-8 when the bytes are that, or what they most look like. Bytes that make no sense become
// U+FFFD. Nothing when the encoding that is asked for is unknown.
std::optional<DecodedText> decodeDocument(std::span<const uint8_t> bytes, const std::string& asked);

// The same of a style sheet, which names its encoding differently.
std::string decodeSheet(const std::string& bytes);

}  // namespace standin::formats::html
