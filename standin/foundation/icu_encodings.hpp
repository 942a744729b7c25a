// The encodings that ICU converts: one table from CoreFoundation numbers to converters.
#pragma once

#include "standin/foundation/encodings.hpp"

namespace standin::foundation {

// The name of ICU's converter, or nil when the encoding has none.
const char* converterName(CFStringEncoding encoding);

// These take an encoding that has a converter name.
std::optional<text::Text> decodeByConverter(std::span<const uint8_t> bytes, CFStringEncoding encoding);
// As `encode`; `external` plays no part.
Encoded encodeByConverter(std::u16string_view units, const EncodeOptions& options, std::span<uint8_t> out);

}  // namespace standin::foundation
